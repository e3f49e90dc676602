// Connections made from an installation's settings, on both back-ends: names
// from the settings are checked before any statement and quoted in them, data
// that do not exist are made only by the installation's creation or for a
// company chosen by its code, and a server that does not answer is told.
#include "core/connection_factory.h"
#include "core/server_probe.h"
#include "core/sql_identifier.h"

#include "support/layer_fixture.h"
#include "support/test_postgres.h"

#include <QDir>
#include <QFileInfo>
#include <QSqlQuery>
#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

namespace co {
namespace {

class ConnectionSettings : public test::LayerTest {
protected:
    bool pg() const { return backend() == Backend::PostgreSQL; }
    // Whether the data of `alias` exist: a schema, or a company folder's file.
    bool dataExist(const QString &alias) {
        if (!pg())
            return QFileInfo::exists(alias);
        return ok(QStringLiteral("SELECT COUNT(*) FROM pg_namespace WHERE nspname = '%1'")
                      .arg(alias.toLower()),
                  QStringLiteral("DatabaseGeneral")) == u"1";
    }
    // A session of its own on `s`, which the test drops at its end.
    std::unique_ptr<TfGENEINIC> session(const InstallationSettings &s) {
        others_ << s;
        return std::make_unique<TfGENEINIC>(s, &messages_);
    }
    void TearDown() override {
        for (const InstallationSettings &s : std::as_const(others_))
            test::dropInstallation(s);
        LayerTest::TearDown();
    }
    QList<InstallationSettings> others_;
};

TEST_P(ConnectionSettings, AnAliasThatNamesNoDataMakesNone) {
    const QString alias = pg() ? settings_.AliasBaseDatos + QStringLiteral("999")
                               : QDir(dir_.path()).filePath(QStringLiteral("999"));
    QString motivo;
    EXPECT_FALSE(sesion_->ConectarEmpresaAlt(-1, alias, &motivo));
    EXPECT_EQ(motivo, QStringLiteral("No existen los datos \"%1\".").arg(alias));
    EXPECT_FALSE(dataExist(alias));
    EXPECT_FALSE(QFileInfo::exists(QDir(dir_.path()).filePath(QStringLiteral("999"))));
    // A word of the statement layer fails the same way.
    const QString r =
        datos_->EjecutarSQL(QStringLiteral("SELECT 1"), u'?' + alias, QStringLiteral("Silenciosa"));
    EXPECT_TRUE(r.startsWith(QStringLiteral("Error."))) << r.toStdString();
    EXPECT_FALSE(dataExist(alias));
}

TEST_P(ConnectionSettings, ACompanyChosenByItsCodeIsMadeOnFirstUse) {
    const QString alias = sesion_->NombreAliasEmpresa(5);
    EXPECT_FALSE(dataExist(pg() ? alias : companyFile(alias)));
    QString motivo;
    ASSERT_TRUE(sesion_->ConectarEmpresa(5, &motivo)) << motivo.toStdString();
    EXPECT_TRUE(dataExist(pg() ? alias : companyFile(alias)));
    ASSERT_TRUE(sesion_->ConectarEmpresaAlt(6, {}, &motivo)) << motivo.toStdString();
    // Once made, an alias reaches them.
    ASSERT_TRUE(sesion_->ConectarEmpresaAlt(-1, alias, &motivo)) << motivo.toStdString();
}

TEST_P(ConnectionSettings, NoCompanyIsMadeWithoutTheGeneralData) {
    QTemporaryDir folder;
    InstallationSettings s = settings_;
    s.PathBaseDatosGeneral = folder.path();
    s.AliasBaseDatosGeneral += QStringLiteral("_otro");
    const auto other = session(s);
    QString motivo;
    EXPECT_FALSE(other->ConectarEmpresa(3, &motivo));
    EXPECT_TRUE(motivo.contains(pg() ? QStringLiteral("AliasBaseDatosGeneral")
                                     : QStringLiteral("PathBaseDatosGeneral")))
        << motivo.toStdString();
    EXPECT_TRUE(QDir(folder.path()).isEmpty());
    EXPECT_FALSE(
        dataExist(pg() ? other->NombreAliasEmpresa(3) : companyFile(other->NombreAliasEmpresa(3))));
}

TEST_P(ConnectionSettings, AStatementInAnAliasNeverReachesTheServer) {
    const QString hostile =
        QStringLiteral("x; DROP SCHEMA %1 CASCADE; --").arg(settings_.AliasBaseDatosGeneral);
    QString motivo;
    EXPECT_FALSE(sesion_->ConectarEmpresaAlt(-1, hostile, &motivo));
    if (pg()) {
        EXPECT_TRUE(motivo.startsWith(
            QStringLiteral("El nombre de datos \"%1\" no es válido: ").arg(hostile)))
            << motivo.toStdString();
    }
    ok(QStringLiteral("CREATE TABLE SIGUE (Codigo INTEGER)"), QStringLiteral("DatabaseGeneral"));
    EXPECT_EQ(ok(QStringLiteral("SELECT COUNT(*) FROM SIGUE"), QStringLiteral("DatabaseGeneral")),
              QStringLiteral("0"));
}

TEST_P(ConnectionSettings, HostileSettingsAreRefusedAtTheConnection) {
    for (const QString &alias :
         {QStringLiteral("gen-eral"), QStringLiteral("g\"; DROP SCHEMA x; --")}) {
        InstallationSettings s = settings_;
        s.AliasBaseDatosGeneral = alias;
        const auto other = session(s);
        QString motivo;
        EXPECT_FALSE(other->Conectar(&motivo));
        EXPECT_TRUE(motivo.startsWith(
            QStringLiteral("El valor \"%1\" de AliasBaseDatosGeneral no es válido").arg(alias)))
            << motivo.toStdString();
        EXPECT_FALSE(CrearInstalacion(s, &motivo));
    }
}

TEST_P(ConnectionSettings, OnlyTheCreationOfAnInstallationMakesItsGeneralData) {
    QTemporaryDir folder;
    InstallationSettings s = test::freshInstallation(backend(), folder.path());
    // freshInstallation made it: start again from nothing.
    test::dropInstallation(s);
    QFile::remove(generalFile(s));
    s.PathBaseDatosGeneral = QDir(folder.path()).filePath(QStringLiteral("nueva"));
    QString motivo;
    {
        const auto nothing = session(s);
        EXPECT_FALSE(nothing->Conectar(&motivo));
    }
    EXPECT_TRUE(motivo.contains(pg() ? QStringLiteral("AliasBaseDatosGeneral")
                                     : QStringLiteral("PathBaseDatosGeneral")))
        << motivo.toStdString();
    EXPECT_FALSE(QFileInfo::exists(s.PathBaseDatosGeneral));
    if (pg()) {
        EXPECT_FALSE(dataExist(s.AliasBaseDatosGeneral));
    }

    ASSERT_TRUE(CrearInstalacion(s, &motivo)) << motivo.toStdString();
    ASSERT_TRUE(CrearInstalacion(s, &motivo)) << motivo.toStdString();
    EXPECT_TRUE(QFileInfo(s.PathBaseDatosGeneral).isDir());
    const auto made = session(s);
    EXPECT_TRUE(made->Conectar(&motivo)) << motivo.toStdString();
}

TEST_P(ConnectionSettings, AGeneralFolderThatCannotBeMadeIsNamed) {
    QFile blocker(QDir(dir_.path()).filePath(QStringLiteral("archivo")));
    ASSERT_TRUE(blocker.open(QIODevice::WriteOnly));
    blocker.close();
    InstallationSettings s = settings_;
    s.PathBaseDatosGeneral = QDir(dir_.path()).filePath(QStringLiteral("archivo/datos"));
    QString motivo;
    EXPECT_FALSE(CrearInstalacion(s, &motivo));
    EXPECT_TRUE(motivo.contains(QStringLiteral("no es una carpeta"))) << motivo.toStdString();
    EXPECT_TRUE(motivo.contains(QStringLiteral("PathBaseDatosGeneral"))) << motivo.toStdString();
}

TEST_P(ConnectionSettings, AMixedCaseGeneralAliasIsReachedFromTheCompany) {
    QTemporaryDir folder;
    InstallationSettings s = test::freshInstallation(backend(), folder.path());
    test::dropInstallation(s);
    s.AliasBaseDatosGeneral = QStringLiteral("Mixto_") + s.AliasBaseDatosGeneral;
    QString motivo;
    ASSERT_TRUE(CrearInstalacion(s, &motivo)) << motivo.toStdString();
    const auto mixed = session(s);
    ASSERT_TRUE(mixed->Conectar(&motivo)) << motivo.toStdString();
    EXPECT_EQ(mixed->AliasGeneralSQL(), u'"' + s.AliasBaseDatosGeneral.toLower() + u'"');
    TModuloDatos datos(*mixed);
    EXPECT_EQ(datos.EjecutarSQL(QStringLiteral("CREATE TABLE COMUN (Codigo INTEGER)"),
                                QStringLiteral("DatabaseGeneral")),
              QString());
    EXPECT_EQ(datos.EjecutarSQL(QStringLiteral("INSERT INTO COMUN VALUES ('4')"),
                                QStringLiteral("DatabaseGeneral")),
              QString());
    EXPECT_EQ(datos.EjecutarSQL(
                  QStringLiteral("SELECT Codigo FROM %1.dbo.COMUN").arg(mixed->AliasGeneralSQL())),
              QStringLiteral("4"));
    EXPECT_EQ(datos.EjecutarSQL(QStringLiteral("SELECT Codigo FROM COMUN")), QStringLiteral("4"));
}

CO_ON_BOTH_BACKENDS(ConnectionSettings);

// ---- identifiers -------------------------------------------------------------------

TEST(SqlIdentifiers, QuotedAndDoubled) {
    EXPECT_EQ(IdentificadorSQL(QStringLiteral("General")), QStringLiteral("\"General\""));
    EXPECT_EQ(IdentificadorSQL(QStringLiteral("a\"b")), QStringLiteral("\"a\"\"b\""));
    EXPECT_EQ(NombreDatosSQL(QStringLiteral("Empresa1")), QStringLiteral("\"empresa1\""));
}

// ---- the server's start-up -------------------------------------------------------------

TEST(ServerProbe, WordsTimeoutAndDescription) {
    const QStringList words = PalabrasServidor(
        QStringLiteral("  host=db  port=5433 suelto password=x connect_timeout=7"));
    EXPECT_EQ(words, (QStringList{"host=db", "port=5433", "password=x", "connect_timeout=7"}));
    EXPECT_EQ(EsperaServidor(words), 7);
    EXPECT_EQ(EsperaServidor({QStringLiteral("connect_timeout=1")}), 2);
    EXPECT_EQ(EsperaServidor({QStringLiteral("connect_timeout=0")}), kEsperaServidorPorDefecto);
    EXPECT_EQ(EsperaServidor({QStringLiteral("connect_timeout=x")}), kEsperaServidorPorDefecto);
    EXPECT_EQ(EsperaServidor({}), kEsperaServidorPorDefecto);
    EXPECT_EQ(DescripcionServidor(words), QStringLiteral("host=db port=5433"));
}

TEST(ServerProbe, ARealServerAnswersARefusingOneSaysSo) {
    const QStringList words = PalabrasServidor(test::postgresConnInfo());
    QString motivo;
    EXPECT_TRUE(ProbarServidorPostgreSQL(words, 10, &motivo)) << motivo.toStdString();
    // A port nobody listens on: the system's refusal, at once.
    const int fd = ::socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in a{};
    a.sin_family = AF_INET;
    a.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t len = sizeof a;
    ASSERT_EQ(::bind(fd, reinterpret_cast<sockaddr *>(&a), len), 0);
    ::getsockname(fd, reinterpret_cast<sockaddr *>(&a), &len);
    ::close(fd);
    EXPECT_FALSE(ProbarServidorPostgreSQL(
        {QStringLiteral("host=127.0.0.1"), QStringLiteral("port=%1").arg(ntohs(a.sin_port))}, 10,
        &motivo));
    EXPECT_FALSE(motivo.contains(QStringLiteral("no ha respondido"))) << motivo.toStdString();
    EXPECT_FALSE(motivo.isEmpty());
}

TEST(ServerProbe, AListenerThatNeverAnswersIsGivenUp) {
    const int fd = ::socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in a{};
    a.sin_family = AF_INET;
    a.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t len = sizeof a;
    ASSERT_EQ(::bind(fd, reinterpret_cast<sockaddr *>(&a), len), 0);
    ASSERT_EQ(::listen(fd, 4), 0);
    ::getsockname(fd, reinterpret_cast<sockaddr *>(&a), &len);
    const QString port = QString::number(ntohs(a.sin_port));
    QString motivo;
    EXPECT_FALSE(
        ProbarServidorPostgreSQL({QStringLiteral("host=127.0.0.1"), QStringLiteral("port=") + port,
                                  QStringLiteral("password=oculta")},
                                 2, &motivo));
    EXPECT_EQ(
        motivo,
        QStringLiteral(
            "El servidor de PostgreSQL indicado por ServidorBaseDatos (host=127.0.0.1 port=%1) "
            "no ha respondido en 2 segundos.")
            .arg(port));
    // The same through a connection of the installation.
    InstallationSettings s;
    s.TipoBaseDatos = QStringLiteral("PostgreSQL");
    s.AliasBaseDatosGeneral = QStringLiteral("general");
    s.AliasBaseDatos = QStringLiteral("empresa");
    s.ServidorBaseDatos = QStringLiteral("host=127.0.0.1 port=%1 connect_timeout=2").arg(port);
    ConnectionTarget general;
    general.general = true;
    general.crear = false;
    motivo.clear();
    EXPECT_FALSE(
        openConnection(QStringLiteral("mudo"), Backend::PostgreSQL, s, general, &motivo).isValid());
    EXPECT_TRUE(motivo.contains(QStringLiteral("no ha respondido en 2 segundos")))
        << motivo.toStdString();
    EXPECT_FALSE(QSqlDatabase::contains(QStringLiteral("mudo")));
    ::close(fd);
}

} // namespace
} // namespace co
