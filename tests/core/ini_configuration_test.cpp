// The keys of the configuration file with their defaults: exact "SI", empty
// values, the date format only on SQL Server, the PDF delay, the scrambled
// password, where the file is, and what happens when it cannot be read.
#include "core/ini_configuration.h"

#include "core/ini_file.h"
#include "core/password_scramble.h"
#include "core/windows_codepage.h"
#include "support/layer_fixture.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace co {
namespace {

const QString kMSSQL = QStringLiteral("Microsoft SQL Server");

class IniConfigurationTest : public ::testing::Test {
protected:
    QString file() const { return dir_.filePath(QStringLiteral("NAROWIN.INI")); }
    void set(const QString &section, const QString &key, const QString &value) {
        ASSERT_TRUE(EscribirClaveINI(file(), section, key, value));
    }
    ConfiguracionINI read(const QString &tipo = QStringLiteral("Paradox")) {
        ConfiguracionINI c;
        QString motivo;
        EXPECT_TRUE(LeerConfiguracionINI(file(), tipo, c, &motivo));
        EXPECT_EQ(motivo, QString());
        return c;
    }
    QTemporaryDir dir_;
};

TEST_F(IniConfigurationTest, MissingFileGivesEveryDefault) {
    const ConfiguracionINI c = read();
    EXPECT_FALSE(c.VisualizarLogoEmpresaEnMenu);
    EXPECT_EQ(c.NivelCapturaIncidencias, QStringLiteral("Minimo"));
    EXPECT_EQ(c.TiempoForzarTerminacionAplicacion, QString());
    EXPECT_TRUE(c.VisualizacionPreviaActivada);
    EXPECT_TRUE(c.ArchivosTemporalesEnBD);
    EXPECT_FALSE(c.BusquedaAproximadaActivada);
    EXPECT_EQ(c.FormatoFechaSQL, QStringLiteral("mm/dd/yyyy"));
    EXPECT_EQ(c.RetardoGrabacionPDF, 5000);
    EXPECT_EQ(c.AspectoAplicacion, QStringLiteral("sol+"));
    EXPECT_EQ(c.NombreIntercalacionMSSQL, QStringLiteral("SQL_Latin1_General_Cp1_CI_AI"));
    EXPECT_EQ(c.NivelAislamientoTransaccionesMSSQL, QStringLiteral("READ UNCOMMITTED"));
    EXPECT_FALSE(c.ReplicacionBDActivada);
    EXPECT_EQ(c.PasswordInicioSesion, QString());
    EXPECT_EQ(c.Tablas, QString());
}

TEST_F(IniConfigurationTest, OnlyExactSiSwitchesAFlagOn) {
    set(kSeccionConfiguracion, QStringLiteral("ModoAdministradorActivado"), QStringLiteral("si"));
    set(kSeccionConfiguracion, QStringLiteral("RegistroAccesosActivado"), QStringLiteral("Si"));
    set(kSeccionConfiguracion, QStringLiteral("AccesoWebLocalHost"), QStringLiteral("SI"));
    set(kSeccionConfiguracion, QStringLiteral("VisualizacionPreviaActivada"), QStringLiteral("NO"));
    set(kSeccionConfiguracion, QStringLiteral("ArchivosTemporalesEnBD"), QStringLiteral("sí"));
    set(kSeccionConfiguracion, QStringLiteral("DesactivarDiagnostico"), QStringLiteral("S"));
    set(kMSSQL, QStringLiteral("ReplicacionBDActivada"), QStringLiteral("SI"));
    const ConfiguracionINI c = read();
    EXPECT_FALSE(c.ModoAdministradorActivado);
    EXPECT_FALSE(c.RegistroAccesosActivado);
    EXPECT_TRUE(c.AccesoWebLocalHost);
    EXPECT_FALSE(c.VisualizacionPreviaActivada);
    EXPECT_FALSE(c.ArchivosTemporalesEnBD);
    EXPECT_FALSE(c.DesactivarDiagnostico);
    EXPECT_TRUE(c.ReplicacionBDActivada);
}

TEST_F(IniConfigurationTest, EmptyValuesTakeTheirDefaults) {
    for (const char *key :
         {"VisualizacionPreviaActivada", "ArchivosTemporalesEnBD", "NivelCapturaIncidencias",
          "RetardoGrabacionPDF", "AspectoAplicacion", "FormatoFechaSQL"})
        set(kSeccionConfiguracion, QLatin1String(key), QString());
    for (const char *key : {"NombreIntercalacionMSSQL", "NivelAislamientoTransaccionesMSSQL",
                            "ReplicacionBDActivada"})
        set(kMSSQL, QLatin1String(key), QStringLiteral("   "));
    const ConfiguracionINI c = read(kMSSQL);
    EXPECT_TRUE(c.VisualizacionPreviaActivada);
    EXPECT_TRUE(c.ArchivosTemporalesEnBD);
    EXPECT_EQ(c.NivelCapturaIncidencias, QStringLiteral("Minimo"));
    EXPECT_EQ(c.RetardoGrabacionPDF, 5000);
    EXPECT_EQ(c.AspectoAplicacion, QStringLiteral("sol+"));
    EXPECT_EQ(c.FormatoFechaSQL, QStringLiteral("mm/dd/yyyy"));
    EXPECT_EQ(c.NombreIntercalacionMSSQL, QStringLiteral("SQL_Latin1_General_Cp1_CI_AI"));
    EXPECT_EQ(c.NivelAislamientoTransaccionesMSSQL, QStringLiteral("READ UNCOMMITTED"));
    EXPECT_FALSE(c.ReplicacionBDActivada);
}

TEST_F(IniConfigurationTest, ValuesOfTheFileAreTaken) {
    set(kSeccionConfiguracion, QStringLiteral("NivelCapturaIncidencias"), QStringLiteral("Maximo"));
    set(kSeccionConfiguracion, QStringLiteral("TiempoForzarTerminacionAplicacion"),
        QStringLiteral("30"));
    set(kSeccionConfiguracion, QStringLiteral("RegistrarAccesoATablas"),
        QStringLiteral("CLIENTE,OBRA"));
    set(kSeccionConfiguracion, QStringLiteral("URLAccesoMenuWebDistribuidor"),
        QStringLiteral("Ninguna"));
    set(kSeccionConfiguracion, QStringLiteral("AspectoAplicacion"), QStringLiteral("clasico"));
    set(kMSSQL, QStringLiteral("NivelAislamientoTransaccionesMSSQL"),
        QStringLiteral("READ COMMITTED"));
    set(kSeccionReconstruccion, QStringLiteral("Tablas"), QStringLiteral("PARTEOB"));
    const ConfiguracionINI c = read();
    EXPECT_EQ(c.NivelCapturaIncidencias, QStringLiteral("Maximo"));
    EXPECT_EQ(c.TiempoForzarTerminacionAplicacion, QStringLiteral("30"));
    EXPECT_EQ(c.RegistrarAccesoATablas, QStringLiteral("CLIENTE,OBRA"));
    EXPECT_EQ(c.URLAccesoMenuWebDistribuidor, QStringLiteral("Ninguna"));
    EXPECT_EQ(c.AspectoAplicacion, QStringLiteral("clasico"));
    EXPECT_EQ(FuenteAspecto(c.AspectoAplicacion), QStringLiteral("MS Sans Serif"));
    EXPECT_EQ(FuenteAspecto(QStringLiteral("sol+")), QStringLiteral("Segoe UI"));
    EXPECT_EQ(c.NivelAislamientoTransaccionesMSSQL, QStringLiteral("READ COMMITTED"));
    EXPECT_EQ(c.Tablas, QStringLiteral("PARTEOB"));
}

TEST_F(IniConfigurationTest, DateFormatIsReadOnSqlServerOnly) {
    set(kSeccionConfiguracion, QStringLiteral("FormatoFechaSQL"), QStringLiteral("dd/mm/yyyy"));
    EXPECT_EQ(read(kMSSQL).FormatoFechaSQL, QStringLiteral("dd/mm/yyyy"));
    for (const QString &tipo : {QString(), QStringLiteral("Paradox"), QStringLiteral("PostgreSQL")})
        EXPECT_EQ(read(tipo).FormatoFechaSQL, QStringLiteral("mm/dd/yyyy")) << tipo.toStdString();
}

TEST_F(IniConfigurationTest, PdfDelayIsKeptInMillisecondsAndBadValuesCountAsFive) {
    const QList<QPair<QString, int>> cases = {
        {QStringLiteral("2"), 2000},      {QStringLiteral("0"), 0},
        {QStringLiteral("abc"), 5000},    {QStringLiteral("-3"), 5000},
        {QStringLiteral("1.5"), 5000},    {QStringLiteral("99999999999"), 5000},
        {QStringLiteral("3000000"), 5000}};
    for (const auto &[value, expected] : cases) {
        set(kSeccionConfiguracion, QStringLiteral("RetardoGrabacionPDF"), value);
        EXPECT_EQ(read().RetardoGrabacionPDF, expected) << value.toStdString();
    }
}

TEST_F(IniConfigurationTest, PasswordIsReadInClear) {
    QString digits;
    ASSERT_TRUE(CifrarClave(QStringLiteral("Contraseña7"), digits));
    set(kMSSQL, QStringLiteral("PasswordInicioSesion"), digits);
    set(kMSSQL, QStringLiteral("NombreUsuarioInicioSesion"), QStringLiteral("obras"));
    const ConfiguracionINI c = read(kMSSQL);
    EXPECT_EQ(c.PasswordInicioSesion, QStringLiteral("Contraseña7"));
    EXPECT_EQ(c.NombreUsuarioInicioSesion, QStringLiteral("obras"));
}

TEST_F(IniConfigurationTest, WindowsEncodedFileWithAccentedSectionIsRead) {
    QFile f(file());
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write(
        encodeWindows1252(QStringLiteral("[Configuración]\r\nModoAdministradorActivado=SI\r\n"
                                         "[Reconstrucción Automática de Tablas]\r\nTablas=AÑO\r\n"))
            .value());
    f.close();
    const ConfiguracionINI c = read();
    EXPECT_TRUE(c.ModoAdministradorActivado);
    EXPECT_EQ(c.Tablas, QStringLiteral("AÑO"));
}

TEST_F(IniConfigurationTest, SectionWithoutAccentIsNotTheConfigurationSection) {
    set(QStringLiteral("Configuracion"), QStringLiteral("ModoAdministradorActivado"),
        QStringLiteral("SI"));
    EXPECT_FALSE(read().ModoAdministradorActivado);
}

TEST_F(IniConfigurationTest, UnreadableFileLeavesDefaultsWithTheStartUpWarning) {
    ASSERT_TRUE(QDir(dir_.path()).mkdir(QStringLiteral("NAROWIN.INI")));
    ConfiguracionINI c;
    c.VisualizacionPreviaActivada = false;
    c.RetardoGrabacionPDF = 1;
    QString motivo;
    EXPECT_FALSE(LeerConfiguracionINI(file(), QStringLiteral("Paradox"), c, &motivo));
    EXPECT_EQ(motivo, QStringLiteral("No ha sido posible leer los parámetros del archivo ") +
                          file() + QStringLiteral(". Se utilizarán los parámetros por defecto."));
    EXPECT_TRUE(c.VisualizacionPreviaActivada);
    EXPECT_EQ(c.RetardoGrabacionPDF, 5000);
}

TEST_F(IniConfigurationTest, AspectDefaultComesFromTheMainForm) {
    ConfiguracionINI c;
    ASSERT_TRUE(LeerConfiguracionINI(file(), QString(), c, nullptr, QStringLiteral("clasico")));
    EXPECT_EQ(c.AspectoAplicacion, QStringLiteral("clasico"));
}

TEST(IniLocation, FileNameArgumentIsFoundInTheApplicationFolder) {
    const QString app = QStringLiteral("/opt/obras");
    EXPECT_EQ(RutaArchivoINI(app, QString()), QStringLiteral("/opt/obras/NAROWIN.INI"));
    EXPECT_EQ(RutaArchivoINI(app, QStringLiteral("OTRO.INI")),
              QStringLiteral("/opt/obras/OTRO.INI"));
    EXPECT_EQ(RutaArchivoINI(app, QStringLiteral("/etc/obras/OTRO.INI")),
              QStringLiteral("/etc/obras/OTRO.INI"));
    EXPECT_EQ(RutaArchivoINI(app, QStringLiteral("C:\\NARO\\OTRO.INI")),
              QStringLiteral("C:\\NARO\\OTRO.INI"));
}

TEST(IniLocation, LocalControlFolderIsTheTemporaryFolderAwayFromParadox) {
    ConfiguracionINI c;
    c.BDENetDir = QStringLiteral("LOCAL");
    EXPECT_EQ(CarpetaControlBDE(c, QStringLiteral("PostgreSQL")), QDir::tempPath());
    EXPECT_EQ(CarpetaControlBDE(c, QStringLiteral("Paradox")), QStringLiteral("LOCAL"));
    EXPECT_EQ(CarpetaControlBDE(c, QString()), QStringLiteral("LOCAL"));
    c.BDENetDir = QStringLiteral("/srv/red");
    EXPECT_EQ(CarpetaControlBDE(c, QStringLiteral("PostgreSQL")), QStringLiteral("/srv/red"));
}

} // namespace
} // namespace co
