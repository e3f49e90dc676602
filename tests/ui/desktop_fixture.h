#pragma once
// A desktop session over a fresh installation made by the command line's
// `init`, on each back-end: the first user ADMIN and the first company.

#include "ui/desktop_session.h"

#include "support/layer_fixture.h"

#include <QProcess>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace co::test {

class DesktopFixture : public ::testing::TestWithParam<Backend> {
protected:
    void SetUp() override {
        ASSERT_TRUE(dir_.isValid());
        settings_ = freshInstallation(GetParam(), dir_.path());
        ASSERT_TRUE(EscribirInstalacion(dir_.path(), settings_));
        ASSERT_EQ(QProcess::execute(QStringLiteral(CO_CLI_PATH),
                                    {QStringLiteral("init"), QStringLiteral("--dir"), dir_.path()}),
                  0);
    }
    void TearDown() override { dropInstallation(settings_); }
    OpcionesArranque opciones(const QString &usuario) {
        OpcionesArranque o;
        o.carpetaInstalacion = o.carpetaAplicacion = dir_.path();
        o.carpetaDatos = QStringLiteral(CO_SOURCE_DIR "/data");
        o.linea.ParametroUsuario = usuario;
        return o;
    }
    QTemporaryDir dir_;
    InstallationSettings settings_;
    ScriptedMessages port_;
};

} // namespace co::test
