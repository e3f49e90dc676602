// The installation's own files: how much of a settings file is read and from
// what, how INSTALACION is read, written and checked, and folder creation.
#include "core/folder_creation.h"
#include "core/ini_file.h"
#include "core/installation.h"
#include "core/settings_file.h"

#include "support/gtest_qt_printing.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <sys/stat.h>

namespace co {
namespace {

class SettingsFiles : public ::testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(dir_.isValid()); }
    QString path(const QString &name) const { return dir_.filePath(name); }
    QString write(const QString &name, const QByteArray &bytes) {
        QFile f(path(name));
        EXPECT_TRUE(f.open(QIODevice::WriteOnly | QIODevice::Truncate));
        f.write(bytes);
        return path(name);
    }
    static mode_t mode(const QString &file) {
        struct stat info {};
        EXPECT_EQ(::stat(QFile::encodeName(file).constData(), &info), 0);
        return info.st_mode & 0777;
    }
    QTemporaryDir dir_;
};

// ---- what a settings file may be ----------------------------------------------

TEST_F(SettingsFiles, RegularFilesUpToTheLimitAreRead) {
    EXPECT_EQ(LeerArchivoParametros(path(QStringLiteral("no"))).estado,
              ArchivoParametros::Estado::NoExiste);
    EXPECT_EQ(LeerArchivoParametros(path(QStringLiteral("no/sub"))).estado,
              ArchivoParametros::Estado::NoExiste);
    const QByteArray full(kTamanoMaximoArchivoParametros, 'x');
    const ArchivoParametros a = LeerArchivoParametros(write(QStringLiteral("lleno"), full));
    EXPECT_EQ(a.estado, ArchivoParametros::Estado::Ok);
    EXPECT_EQ(a.contenido, full);
    EXPECT_EQ(LeerArchivoParametros(write(QStringLiteral("vacio"), {})).estado,
              ArchivoParametros::Estado::Ok);
}

TEST_F(SettingsFiles, OneByteBeyondTheLimitIsRefused) {
    const ArchivoParametros a = LeerArchivoParametros(
        write(QStringLiteral("grande"), QByteArray(kTamanoMaximoArchivoParametros + 1, 'x')));
    EXPECT_EQ(a.estado, ArchivoParametros::Estado::Ilegible);
    EXPECT_TRUE(a.contenido.isEmpty());
    EXPECT_EQ(
        a.motivo,
        QStringLiteral("el archivo ocupa más de 1024 KB y no puede ser un archivo de parámetros"));
}

TEST_F(SettingsFiles, DevicesPipesAndFoldersAreNeverOpened) {
    ASSERT_TRUE(QFile::link(QStringLiteral("/dev/zero"), path(QStringLiteral("cero"))));
    ASSERT_EQ(::mkfifo(QFile::encodeName(path(QStringLiteral("tuberia"))).constData(), 0600), 0);
    for (const QString &name : {QStringLiteral("cero"), QStringLiteral("tuberia")}) {
        const ArchivoParametros a = LeerArchivoParametros(path(name));
        EXPECT_EQ(a.estado, ArchivoParametros::Estado::Ilegible) << name.toStdString();
        EXPECT_EQ(a.motivo, QStringLiteral("no es un archivo normal"));
    }
    EXPECT_EQ(LeerArchivoParametros(QStringLiteral("/dev/urandom")).motivo,
              QStringLiteral("no es un archivo normal"));
    EXPECT_EQ(LeerArchivoParametros(dir_.path()).motivo, QStringLiteral("es una carpeta"));
}

TEST_F(SettingsFiles, TheIniReaderTakesTheSameBoundsAndWritesNothingOverThem) {
    ASSERT_TRUE(QFile::link(QStringLiteral("/dev/zero"), path(QStringLiteral("NAROWIN.INI"))));
    const IniFile ini = IniFile::load(path(QStringLiteral("NAROWIN.INI")));
    EXPECT_EQ(ini.status(), IniFile::Status::Unreadable);
    QString motivo;
    EXPECT_FALSE(EscribirClaveINI(path(QStringLiteral("NAROWIN.INI")),
                                  QStringLiteral("Configuración"), QStringLiteral("Clave"),
                                  QStringLiteral("1"), &motivo));
    EXPECT_TRUE(motivo.contains(QStringLiteral("no es un archivo normal"))) << motivo.toStdString();
    const QByteArray big =
        "[Configuración]\nClave=1\n" + QByteArray(kTamanoMaximoArchivoParametros, ';');
    write(QStringLiteral("GRANDE.INI"), big);
    EXPECT_EQ(IniFile::load(path(QStringLiteral("GRANDE.INI"))).status(),
              IniFile::Status::Unreadable);
    EXPECT_FALSE(EscribirClaveINI(path(QStringLiteral("GRANDE.INI")),
                                  QStringLiteral("Configuración"), QStringLiteral("Clave"),
                                  QStringLiteral("2"), &motivo));
    EXPECT_EQ(QFileInfo(path(QStringLiteral("GRANDE.INI"))).size(), big.size());
}

// ---- INSTALACION -----------------------------------------------------------------

TEST_F(SettingsFiles, InstallationRoundTripAndDefaults) {
    InstallationSettings s;
    s.TipoBaseDatos = QStringLiteral("PostgreSQL");
    s.AliasBaseDatosGeneral = QStringLiteral("Datos_Generales");
    s.PathBaseDatosGeneral = path(QStringLiteral("datos con espacio"));
    s.AliasBaseDatos = QStringLiteral("obra");
    s.PathArchivosTemporales = QStringLiteral("PrivateDir");
    s.NombrePrimeraEmpresa = QStringLiteral("Construcciones Núñez = Hijos");
    s.CodigoPrimerUsuario = QStringLiteral("ANA");
    s.ServidorBaseDatos = QStringLiteral("host=db port=5433 dbname=obras");
    QString motivo;
    ASSERT_TRUE(EscribirInstalacion(dir_.path(), s, &motivo)) << motivo.toStdString();
    InstallationSettings r;
    ASSERT_TRUE(LeerInstalacion(dir_.path(), &r, &motivo)) << motivo.toStdString();
    EXPECT_EQ(r.TipoBaseDatos, s.TipoBaseDatos);
    EXPECT_EQ(r.AliasBaseDatosGeneral, s.AliasBaseDatosGeneral);
    EXPECT_EQ(r.PathBaseDatosGeneral, s.PathBaseDatosGeneral);
    EXPECT_EQ(r.AliasBaseDatos, s.AliasBaseDatos);
    EXPECT_EQ(r.PathArchivosTemporales, s.PathArchivosTemporales);
    EXPECT_EQ(r.NombrePrimeraEmpresa, s.NombrePrimeraEmpresa);
    EXPECT_EQ(r.CodigoPrimerUsuario, s.CodigoPrimerUsuario);
    EXPECT_EQ(r.ServidorBaseDatos, s.ServidorBaseDatos);

    // Only what is given is taken: the rest are the defaults; the first line of a
    // name wins; Windows line ends are read.
    write(QStringLiteral("INSTALACION"),
          "AliasBaseDatos = obra\r\nAliasBaseDatos=otra\r\nsin igual\r\n");
    ASSERT_TRUE(LeerInstalacion(dir_.path(), &r));
    EXPECT_EQ(r.AliasBaseDatos, QStringLiteral("obra"));
    EXPECT_EQ(r.TipoBaseDatos, QStringLiteral("Paradox"));
    EXPECT_EQ(r.AliasBaseDatosGeneral, QStringLiteral("general"));
    EXPECT_EQ(r.PathBaseDatosGeneral, QDir(dir_.path()).absolutePath());
    EXPECT_EQ(r.CodigoPrimerUsuario, QStringLiteral("ADMIN"));
}

TEST_F(SettingsFiles, AnInstallationWithoutParametersIsNotRead) {
    InstallationSettings r;
    QString motivo;
    EXPECT_FALSE(LeerInstalacion(dir_.path(), &r, &motivo));
    EXPECT_EQ(motivo, QStringLiteral("el archivo no existe"));
    EXPECT_EQ(r.AliasBaseDatosGeneral, QStringLiteral("general"));
    for (const QByteArray &content :
         {QByteArray(), QByteArray("\n\n  \r\n"), QByteArray("=sin nombre\nnada\n")}) {
        write(QStringLiteral("INSTALACION"), content);
        EXPECT_FALSE(LeerInstalacion(dir_.path(), &r, &motivo)) << content.toStdString();
        EXPECT_EQ(motivo, QStringLiteral("el archivo no tiene ningún parámetro"));
    }
    write(QStringLiteral("INSTALACION"), QByteArray(kTamanoMaximoArchivoParametros + 1, '\n'));
    EXPECT_FALSE(LeerInstalacion(dir_.path(), &r, &motivo));
    EXPECT_TRUE(motivo.startsWith(QStringLiteral("el archivo ocupa más de")))
        << motivo.toStdString();
}

TEST_F(SettingsFiles, ALineBreakInAValueWritesNothing) {
    InstallationSettings s;
    s.AliasBaseDatos = QStringLiteral("empresa");
    ASSERT_TRUE(EscribirInstalacion(dir_.path(), s));
    const QByteArray before = [&] {
        QFile f(path(QStringLiteral("INSTALACION")));
        f.open(QIODevice::ReadOnly);
        return f.readAll();
    }();
    s.NombrePrimeraEmpresa = QStringLiteral("Obras\nServidorBaseDatos=host=otro");
    QString motivo;
    EXPECT_FALSE(EscribirInstalacion(dir_.path(), s, &motivo));
    EXPECT_EQ(motivo,
              QStringLiteral("El valor de NombrePrimeraEmpresa no puede tener saltos de línea."));
    s.NombrePrimeraEmpresa.clear();
    s.ServidorBaseDatos = QStringLiteral("host=a\rpassword=b");
    EXPECT_FALSE(EscribirInstalacion(dir_.path(), s, &motivo));
    QFile f(path(QStringLiteral("INSTALACION")));
    ASSERT_TRUE(f.open(QIODevice::ReadOnly));
    EXPECT_EQ(f.readAll(), before);
}

TEST_F(SettingsFiles, APasswordMakesTheFileTheOwnersAlone) {
    InstallationSettings s;
    s.ServidorBaseDatos = QStringLiteral("host=db port=5432");
    ASSERT_TRUE(EscribirInstalacion(dir_.path(), s));
    const QString file = path(QStringLiteral("INSTALACION"));
    ASSERT_EQ(::chmod(QFile::encodeName(file).constData(), 0644), 0);
    s.ServidorBaseDatos = QStringLiteral("host=db port=5432 password=secreta");
    ASSERT_TRUE(EscribirInstalacion(dir_.path(), s));
    EXPECT_EQ(mode(file), 0600u);
    // No moment where the password is readable: the file is replaced whole.
    EXPECT_EQ(QDir(dir_.path()).entryList(QDir::Files), QStringList{QStringLiteral("INSTALACION")});
    EXPECT_TRUE(ServidorConClave(QStringLiteral("host=x PASSWORD = y")));
    EXPECT_TRUE(ServidorConClave(QStringLiteral("password=y")));
    EXPECT_FALSE(ServidorConClave(QStringLiteral("host=x passfile=/p user=password")));
}

// ---- names that reach statements -----------------------------------------------------

TEST(InstallationNames, PlainIdentifiersPass) {
    InstallationSettings s;
    s.AliasBaseDatosGeneral = QStringLiteral("general");
    s.AliasBaseDatos = QStringLiteral("empresa");
    QString motivo;
    EXPECT_TRUE(ValidarInstalacion(s, &motivo)) << motivo.toStdString();
    s.AliasBaseDatosGeneral = QStringLiteral("_Gen2");
    s.AliasBaseDatos = QStringLiteral("Obra_");
    EXPECT_TRUE(ValidarInstalacion(s, &motivo));
    s.AliasBaseDatosGeneral = QString(63, u'g');
    s.AliasBaseDatos = QString(53, u'e');
    EXPECT_TRUE(ValidarInstalacion(s, &motivo));
}

TEST(InstallationNames, AnythingElseIsRefusedNamingTheSetting) {
    const QStringList bad = {QString(),
                             QStringLiteral("emp; DROP SCHEMA general CASCADE; --"),
                             QStringLiteral("datos-generales"),
                             QStringLiteral("dos palabras"),
                             QStringLiteral("1empresa"),
                             QStringLiteral("comilla\"doble"),
                             QStringLiteral("comilla'simple"),
                             QStringLiteral("compañía"),
                             QStringLiteral("pg_catalog"),
                             QStringLiteral("PG_temp"),
                             QStringLiteral("information_schema"),
                             QStringLiteral("main"),
                             QStringLiteral("TEMP"),
                             QString(64, u'x')};
    for (const QString &name : bad) {
        InstallationSettings s;
        s.AliasBaseDatosGeneral = name;
        s.AliasBaseDatos = QStringLiteral("empresa");
        QString motivo;
        EXPECT_FALSE(ValidarInstalacion(s, &motivo)) << name.toStdString();
        EXPECT_TRUE(motivo.startsWith(
            QStringLiteral("El valor \"%1\" de AliasBaseDatosGeneral no es válido: ").arg(name)))
            << motivo.toStdString();
        s.AliasBaseDatosGeneral = QStringLiteral("general");
        s.AliasBaseDatos = name;
        EXPECT_FALSE(ValidarInstalacion(s, &motivo)) << name.toStdString();
        EXPECT_TRUE(motivo.startsWith(
            QStringLiteral("El valor \"%1\" de AliasBaseDatos no es válido: ").arg(name)))
            << motivo.toStdString();
    }
    // The company alias leaves room for the company number.
    InstallationSettings s;
    s.AliasBaseDatosGeneral = QStringLiteral("general");
    s.AliasBaseDatos = QString(54, u'e');
    EXPECT_FALSE(ValidarInstalacion(s, nullptr));
}

TEST(InstallationNames, TheGeneralDataCannotBeACompanysToo) {
    InstallationSettings s;
    s.AliasBaseDatos = QStringLiteral("empresa");
    QString motivo;
    for (const QString &general :
         {QStringLiteral("empresa"), QStringLiteral("Empresa1"), QStringLiteral("EMPRESA007")}) {
        s.AliasBaseDatosGeneral = general;
        EXPECT_FALSE(ValidarInstalacion(s, &motivo)) << general.toStdString();
        EXPECT_TRUE(
            motivo.contains(QStringLiteral("AliasBaseDatos \"empresa\" seguido de su número")))
            << motivo.toStdString();
    }
    s.AliasBaseDatosGeneral = QStringLiteral("empresa_general");
    EXPECT_TRUE(ValidarInstalacion(s, &motivo));
}

// ---- folders ----------------------------------------------------------------------------

TEST_F(SettingsFiles, FoldersAreMadeOrTheObstacleIsNamed) {
    QString motivo;
    EXPECT_TRUE(CrearCarpeta(path(QStringLiteral("a/b/c")), &motivo));
    EXPECT_TRUE(QFileInfo(path(QStringLiteral("a/b/c"))).isDir());
    EXPECT_TRUE(CrearCarpeta(path(QStringLiteral("a/b/c")), &motivo));
    write(QStringLiteral("archivo"), "x");
    EXPECT_FALSE(CrearCarpeta(path(QStringLiteral("archivo/sub/otra")), &motivo));
    EXPECT_EQ(motivo,
              QStringLiteral("No ha sido posible crear la carpeta %1: %2 no es una carpeta.")
                  .arg(path(QStringLiteral("archivo/sub/otra")), path(QStringLiteral("archivo"))));
}

} // namespace
} // namespace co
