#include "support/cli_installation.h"

#include "core/installation.h"

namespace co::test {

InstallationSettings installationFolder(Backend backend, const QString &folder) {
    const InstallationSettings s = freshInstallation(backend, folder);
    EXPECT_TRUE(EscribirInstalacion(folder, s));
    return s;
}

void CliInstallationTest::SetUp() {
    ASSERT_TRUE(dir_.isValid());
    settings_ = installationFolder(GetParam(), dir_.path());
    const CliRun init = cli(QStringLiteral("init"));
    ASSERT_EQ(init.status, 0) << init.err.toStdString();
}

void CliInstallationTest::TearDown() {
    dropInstallation(settings_);
}

CliRun CliInstallationTest::cli(const QString &orden, const QStringList &args, int waitMs) const {
    return Ejecutar(QStringList{orden, QStringLiteral("--dir"), dir_.path()} + args,
                    QStringLiteral(CO_CLI_PATH), waitMs);
}

} // namespace co::test
