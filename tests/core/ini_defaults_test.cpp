// The INI file a new installation starts with: read back it gives the program's
// defaults key for key, its server password is kept scrambled, and an existing
// file is never replaced.
#include "core/ini_configuration.h"
#include "core/ini_defaults.h"
#include "core/ini_file.h"
#include "core/password_scramble.h"

#include "support/gtest_qt_printing.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace co {
namespace {

class IniDefaults : public ::testing::Test {
protected:
    QString file() const { return dir_.filePath(QStringLiteral("NAROWIN.INI")); }
    ConfiguracionINI leer(const QString &archivo,
                          const QString &tipo = QStringLiteral("PostgreSQL")) {
        ConfiguracionINI c;
        EXPECT_TRUE(LeerConfiguracionINI(archivo, tipo, c));
        return c;
    }
    QTemporaryDir dir_;
};

TEST_F(IniDefaults, ReadBackTheFileGivesExactlyTheDefaultsOfNoFile) {
    ASSERT_TRUE(CrearArchivoINI(file(), {}, nullptr));
    const ConfiguracionINI sinArchivo = leer(dir_.filePath(QStringLiteral("no-existe.ini")));
    EXPECT_TRUE(leer(file()) == sinArchivo);
    // On SQL Server the date format is read too: the empty value gives its default.
    EXPECT_EQ(leer(file(), QStringLiteral("Microsoft SQL Server")).FormatoFechaSQL,
              QStringLiteral("mm/dd/yyyy"));
    const IniFile ini = IniFile::load(file());
    EXPECT_EQ(ini.sections(),
              (QStringList{kSeccionConfiguracion, kSeccionMSSQL, kSeccionReconstruccion}));
    EXPECT_EQ(ini.value(kSeccionConfiguracion, QStringLiteral("VisualizacionPreviaActivada")),
              QStringLiteral("SI"));
    EXPECT_EQ(ini.value(kSeccionConfiguracion, QStringLiteral("RetardoGrabacionPDF")),
              QStringLiteral("5"));
    EXPECT_EQ(ini.value(kSeccionMSSQL, QStringLiteral("PasswordInicioSesion")), QString());
    EXPECT_EQ(ini.keys(kSeccionConfiguracion).size(), 27);
    EXPECT_TRUE(ini.malformedLines().isEmpty());
}

TEST_F(IniDefaults, TheServerPasswordIsScrambledAndTheFileKeptFromOthers) {
    const QString clave = QStringLiteral("cl4ve ñ=;x");
    ASSERT_TRUE(CrearArchivoINI(file(), clave, nullptr));
    QFile f(file());
    ASSERT_TRUE(f.open(QIODevice::ReadOnly));
    const QByteArray bytes = f.readAll();
    EXPECT_FALSE(bytes.contains(clave.toUtf8()));
    QString cifrada;
    ASSERT_TRUE(CifrarClave(clave, cifrada));
    EXPECT_TRUE(bytes.contains("PasswordInicioSesion=" + cifrada.toLatin1()));
    EXPECT_EQ(leer(file()).PasswordInicioSesion, clave);
    EXPECT_EQ(QFileInfo(file()).permissions() & (QFileDevice::ReadOther | QFileDevice::ReadGroup),
              QFileDevice::Permissions());
}

TEST_F(IniDefaults, AnExistingFileIsKeptAndOnlyGetsThePassword) {
    QFile f(file());
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write("; mine\n[Configuración]\nDesactivarDiagnostico=SI\n");
    f.close();
    ASSERT_TRUE(CrearArchivoINI(file(), {}, nullptr));
    EXPECT_TRUE(leer(file()).DesactivarDiagnostico);
    EXPECT_EQ(IniFile::load(file()).keys(kSeccionConfiguracion),
              QStringList{QStringLiteral("DesactivarDiagnostico")});
    ASSERT_TRUE(CrearArchivoINI(file(), QStringLiteral("otra"), nullptr));
    const ConfiguracionINI c = leer(file());
    EXPECT_TRUE(c.DesactivarDiagnostico);
    EXPECT_EQ(c.PasswordInicioSesion, QStringLiteral("otra"));
    EXPECT_TRUE(IniFile::load(file()).text().startsWith(QStringLiteral("; mine\n")));
}

TEST_F(IniDefaults, APasswordThatCannotBeScrambledIsRefusedAndNothingWritten) {
    QString motivo;
    EXPECT_FALSE(CrearArchivoINI(file(), QStringLiteral("clave€漢"), &motivo));
    EXPECT_TRUE(motivo.contains(QStringLiteral("no se pueden guardar"))) << motivo.toStdString();
    EXPECT_FALSE(QFileInfo::exists(file()));
    EXPECT_FALSE(
        CrearArchivoINI(dir_.filePath(QStringLiteral("no/existe/NAROWIN.INI")), {}, &motivo));
    EXPECT_TRUE(motivo.startsWith(QStringLiteral("No ha sido posible escribir el archivo")))
        << motivo.toStdString();
}

} // namespace
} // namespace co
