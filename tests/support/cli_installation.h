#pragma once
// An installation made the way a user makes one, by `control-obras-cli init`
// in a folder whose `INSTALACION` names the back-end, on each back-end; the
// test then runs the command line (or the desktop session) on that folder.

#include "support/cli_run.h"
#include "support/layer_fixture.h"

#include <QStringList>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace co::test {

// Settings of a new installation in `folder`, `INSTALACION` written there as
// `init` finds it; its data are made by `init` or the first run.
InstallationSettings installationFolder(Backend backend, const QString &folder);

class CliInstallationTest : public ::testing::TestWithParam<Backend> {
protected:
    void SetUp() override;
    void TearDown() override;

    // `control-obras-cli <orden> --dir <folder> <args...>`.
    CliRun cli(const QString &orden, const QStringList &args = {}, int waitMs = 300000) const;
    // The `sql` command with `args` (options, then statements).
    CliRun sql(const QStringList &args, int waitMs = 300000) const {
        return cli(QStringLiteral("sql"), args, waitMs);
    }
    Backend backend() const { return GetParam(); }

    QTemporaryDir dir_;
    InstallationSettings settings_;
};

} // namespace co::test
