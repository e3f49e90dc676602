// What `init` writes and how a start finds its installation and its server
// login: the INI file of a new installation, a folder that does not exist, and
// a PostgreSQL password kept scrambled in the INI file, asked again when the
// server refuses it. The password cases run on a role of the test server that
// must give its password (its own line at the head of pg_hba.conf).
#include "core/ini_configuration.h"
#include "core/ini_file.h"
#include "core/password_scramble.h"
#include "core/server_login.h"
#include "core/startup.h"
#include "support/cli_run.h"
#include "support/layer_fixture.h"
#include "support/test_postgres.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLockFile>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <QThread>
#include <functional>
#include <gtest/gtest.h>

namespace co {
namespace {

using test::CliRun;

QByteArray contenido(const QString &archivo) {
    QFile f(archivo);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

// ---- the installation folder and its INI file, both back-ends -----------------

class NewInstallation : public ::testing::TestWithParam<Backend> {
protected:
    void SetUp() override {
        ASSERT_TRUE(dir_.isValid());
        settings_ = test::freshInstallation(GetParam(), dir_.path());
        if (GetParam() == Backend::PostgreSQL) {
            ASSERT_TRUE(EscribirInstalacion(dir_.path(), settings_));
        }
    }
    void TearDown() override { test::dropInstallation(settings_); }
    QString path(const QString &nombre) const { return dir_.filePath(nombre); }
    QTemporaryDir dir_;
    InstallationSettings settings_;
};

TEST_P(NewInstallation, InitWritesTheIniFileWithEveryKeyAtItsDefault) {
    const CliRun r = test::Ejecutar({QStringLiteral("init"), QStringLiteral("--dir"), dir_.path()});
    ASSERT_EQ(r.status, 0) << r.err.toStdString();
    ASSERT_TRUE(QFileInfo(path(QStringLiteral("NAROWIN.INI"))).isFile());
    ConfiguracionINI leida, porDefecto;
    ASSERT_TRUE(
        LeerConfiguracionINI(path(QStringLiteral("NAROWIN.INI")), settings_.TipoBaseDatos, leida));
    EXPECT_TRUE(leida == porDefecto);
    EXPECT_TRUE(contenido(path(QStringLiteral("NAROWIN.INI")))
                    .contains("[Reconstrucción Automática de Tablas]"));

    // A later init keeps what the user set.
    QString motivo;
    ASSERT_TRUE(EscribirClaveINI(path(QStringLiteral("NAROWIN.INI")), kSeccionConfiguracion,
                                 QStringLiteral("DesactivarDiagnostico"), QStringLiteral("SI"),
                                 &motivo));
    ASSERT_EQ(test::Ejecutar({QStringLiteral("init"), QStringLiteral("--dir"), dir_.path()}).status,
              0);
    ASSERT_TRUE(
        LeerConfiguracionINI(path(QStringLiteral("NAROWIN.INI")), settings_.TipoBaseDatos, leida));
    EXPECT_TRUE(leida.DesactivarDiagnostico);
}

TEST_P(NewInstallation, AFolderThatDoesNotExistIsRefusedAndNotMade) {
    ASSERT_EQ(test::Ejecutar({QStringLiteral("init"), QStringLiteral("--dir"), dir_.path()}).status,
              0);
    const QString falta = path(QStringLiteral("mal/escrita"));
    const CliRun r = test::Ejecutar({QStringLiteral("sql"), QStringLiteral("--dir"), falta,
                                     QStringLiteral("SELECT COUNT(*) FROM EMPRESA")});
    EXPECT_EQ(r.status, 1);
    EXPECT_TRUE(
        r.err.contains(QStringLiteral("¡Imposible iniciar la aplicación!. Motivo: La carpeta de la "
                                      "instalación %1 indicada por --dir no existe.")
                           .arg(falta)))
        << r.err.toStdString();
    EXPECT_FALSE(QFileInfo::exists(path(QStringLiteral("mal"))));

    // The desktop start says the same, naming its variable.
    OpcionesArranque o;
    o.carpetaInstalacion = o.carpetaAplicacion = falta;
    o.origenCarpeta = QStringLiteral("CONTROL_OBRAS_DIR");
    o.carpetaDatos = QStringLiteral(CO_SOURCE_DIR "/data");
    ScriptedMessages port;
    Aplicacion app(o, &port);
    EXPECT_FALSE(app.Iniciar());
    ASSERT_EQ(port.texts().size(), 1) << port.texts().join(u'\n').toStdString();
    EXPECT_TRUE(
        port.texts().first().contains(QStringLiteral("indicada por CONTROL_OBRAS_DIR no existe")));
    EXPECT_FALSE(QFileInfo::exists(path(QStringLiteral("mal"))));

    // init is the one command that makes it.
    InstallationSettings nueva = settings_;
    nueva.PathBaseDatosGeneral = falta;
    if (GetParam() == Backend::PostgreSQL) {
        nueva.AliasBaseDatosGeneral += QStringLiteral("_n");
        nueva.AliasBaseDatos += QStringLiteral("_n");
        ASSERT_TRUE(EscribirInstalacion(falta, nueva));
    }
    const CliRun init = test::Ejecutar({QStringLiteral("init"), QStringLiteral("--dir"), falta});
    EXPECT_EQ(init.status, 0) << init.err.toStdString();
    EXPECT_TRUE(QFileInfo(QDir(falta).filePath(QStringLiteral("NAROWIN.INI"))).isFile());
    EXPECT_EQ(test::Ejecutar({QStringLiteral("sql"), QStringLiteral("--dir"), falta,
                              QStringLiteral("SELECT COUNT(*) FROM EMPRESA")})
                  .out,
              QStringLiteral("1"));
    test::dropInstallation(nueva);
}

CO_ON_BOTH_BACKENDS(NewInstallation);

// ---- the server password ---------------------------------------------------------

// A role of the test server that logs in with a password only.
class PasswordRole {
public:
    PasswordRole() : name_(test::uniqueName(QStringLiteral("co_clave")).toLower()) {
        QSqlDatabase db = test::serverConnection(name_, test::postgresConnInfo());
        ok_ = db.open();
        if (!ok_)
            return;
        exec(QStringLiteral("CREATE ROLE %1 LOGIN SUPERUSER PASSWORD 'bueno'").arg(name_));
        hba_ = value(QStringLiteral("SHOW hba_file"));
        // Tests run side by side: each adds and later takes out only its own
        // lines, one at a time.
        ok_ =
            !hba_.isEmpty() && cambiarHba([this](const QByteArray &hba) { return lineas() + hba; });
        if (!ok_)
            return;
        exec(QStringLiteral("SELECT pg_reload_conf()"));
        // The server reads the file again on its own time: wait until it asks.
        ok_ = false;
        for (int i = 0; i < 200 && !ok_; ++i) {
            ok_ = !acepta(QStringLiteral("mala"));
            if (!ok_)
                QThread::msleep(50);
        }
    }
    ~PasswordRole() {
        if (!hba_.isEmpty()) {
            cambiarHba([this](QByteArray hba) { return hba.replace(lineas(), QByteArray()); });
            exec(QStringLiteral("SELECT pg_reload_conf()"));
        }
        exec(QStringLiteral("DROP OWNED BY %1 CASCADE").arg(name_));
        exec(QStringLiteral("DROP ROLE IF EXISTS %1").arg(name_));
        QSqlDatabase::database(name_).close();
        QSqlDatabase::removeDatabase(name_);
    }
    bool ok() const { return ok_; }
    const QString &name() const { return name_; }
    void clave(const QString &nueva) {
        exec(QStringLiteral("ALTER ROLE %1 PASSWORD '%2'").arg(name_, nueva));
    }
    // The libpq words of the test server with this role as user.
    QString palabras() const {
        QStringList out;
        for (const QString &word : test::postgresConnInfo().split(u' ', Qt::SkipEmptyParts))
            out << (word.startsWith(QLatin1String("user=")) ? QStringLiteral("user=") + name_
                                                            : word);
        return out.join(u' ');
    }
    // Whether the server lets the role in with `clave`.
    bool acepta(const QString &clave) const {
        const QString conexion = name_ + QStringLiteral("_prueba");
        bool dentro = false;
        {
            QSqlDatabase db = QSqlDatabase::cloneDatabase(name_, conexion);
            db.setUserName(name_);
            db.setPassword(clave);
            dentro = db.open();
            db.close();
        }
        QSqlDatabase::removeDatabase(conexion);
        return dentro;
    }

private:
    void exec(const QString &sql) {
        QSqlQuery q(QSqlDatabase::database(name_));
        EXPECT_TRUE(q.exec(sql)) << sql.toStdString() << q.lastError().text().toStdString();
    }
    QString value(const QString &sql) {
        QSqlQuery q(QSqlDatabase::database(name_));
        return q.exec(sql) && q.next() ? q.value(0).toString() : QString();
    }
    QString name_;
    QByteArray lineas() const {
        return QStringLiteral("host all %1 127.0.0.1/32 scram-sha-256\nhost all %1 ::1/128 "
                              "scram-sha-256\n")
            .arg(name_)
            .toUtf8();
    }
    // Rewrites the server's pg_hba.conf in place under a lock shared by the tests.
    bool cambiarHba(const std::function<QByteArray(const QByteArray &)> &cambio) {
        QLockFile cerrojo(QDir::temp().filePath(QStringLiteral("co-test-pg-hba.lock")));
        if (!cerrojo.lock())
            return false;
        const QByteArray antes = contenido(hba_);
        QFile f(hba_);
        if (antes.isEmpty() || !f.open(QIODevice::WriteOnly | QIODevice::Truncate))
            return false;
        return f.write(cambio(antes)) > 0;
    }
    QString hba_;
    bool ok_ = false;
};

class ServerLogin : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(dir_.isValid());
        ASSERT_TRUE(role_.ok()) << "the test server does not ask the role for its password";
        settings_.TipoBaseDatos = QStringLiteral("PostgreSQL");
        settings_.PathBaseDatosGeneral = QStringLiteral(".");
        const QString prefijo = test::uniqueName(QStringLiteral("t"));
        settings_.AliasBaseDatosGeneral = prefijo + QStringLiteral("_general");
        settings_.AliasBaseDatos = prefijo + QStringLiteral("_empresa");
        settings_.ServidorBaseDatos = role_.palabras();
        ASSERT_TRUE(EscribirInstalacion(dir_.path(), settings_));
        const CliRun r = test::Ejecutar({QStringLiteral("init"), QStringLiteral("--dir"),
                                         dir_.path(), QStringLiteral("--servidor"),
                                         role_.palabras() + QStringLiteral(" password=bueno")});
        ASSERT_EQ(r.status, 0) << r.err.toStdString();
    }
    QString path(const QString &nombre) const { return dir_.filePath(nombre); }
    CliRun empresas(const QByteArray &claveServidor = {}) {
        if (!claveServidor.isNull())
            qputenv("CONTROL_OBRAS_CLAVE_SERVIDOR", claveServidor);
        const CliRun r =
            test::Ejecutar({QStringLiteral("sql"), QStringLiteral("--dir"), dir_.path(),
                            QStringLiteral("SELECT COUNT(*) FROM EMPRESA")});
        qunsetenv("CONTROL_OBRAS_CLAVE_SERVIDOR");
        return r;
    }
    QString claveINI() {
        ConfiguracionINI c;
        EXPECT_TRUE(
            LeerConfiguracionINI(path(QStringLiteral("NAROWIN.INI")), settings_.TipoBaseDatos, c));
        return c.PasswordInicioSesion;
    }
    QString cifrada(const QString &clave) {
        QString out;
        EXPECT_TRUE(CifrarClave(clave, out));
        return out;
    }

    PasswordRole role_;
    QTemporaryDir dir_;
    InstallationSettings settings_;
};

TEST_F(ServerLogin, InitKeepsThePasswordScrambledAndEveryStartUsesIt) {
    EXPECT_FALSE(contenido(path(QStringLiteral("INSTALACION"))).contains("bueno"));
    EXPECT_FALSE(contenido(path(QStringLiteral("INSTALACION"))).contains("password"));
    EXPECT_FALSE(contenido(path(QStringLiteral("NAROWIN.INI"))).contains("bueno"));
    EXPECT_TRUE(
        contenido(path(QStringLiteral("NAROWIN.INI")))
            .contains("PasswordInicioSesion=" + cifrada(QStringLiteral("bueno")).toLatin1()));
    const CliRun r = empresas();
    EXPECT_EQ(r.status, 0) << r.err.toStdString();
    EXPECT_EQ(r.out, QStringLiteral("1"));
}

TEST_F(ServerLogin, ARefusedPasswordIsAskedAndTheAnswerKeptScrambled) {
    role_.clave(QStringLiteral("nueva"));
    // Nobody to answer: the start stops with the server's reason, and does not loop.
    const CliRun nadie = empresas();
    EXPECT_EQ(nadie.status, 1);
    EXPECT_TRUE(nadie.err.contains(QStringLiteral("¡No se ha indicado la clave del servidor!")))
        << nadie.err.toStdString();
    EXPECT_TRUE(nadie.err.contains(QStringLiteral("¡Imposible iniciar la aplicación!. Motivo: ")));
    EXPECT_EQ(claveINI(), QStringLiteral("bueno"));
    // A wrong answer is asked once more, and the command line has no second one.
    const CliRun mala = empresas("otra");
    EXPECT_EQ(mala.status, 1);
    EXPECT_TRUE(mala.err.contains(QStringLiteral("¡No se ha indicado la clave del servidor!")))
        << mala.err.toStdString();
    // The right answer is kept for the next start.
    const CliRun buena = empresas("nueva");
    EXPECT_EQ(buena.status, 0) << buena.err.toStdString();
    EXPECT_EQ(buena.out, QStringLiteral("1"));
    EXPECT_EQ(claveINI(), QStringLiteral("nueva"));
    EXPECT_FALSE(contenido(path(QStringLiteral("NAROWIN.INI"))).contains("nueva"));
    EXPECT_EQ(empresas().out, QStringLiteral("1"));
}

TEST_F(ServerLogin, ABlankAnswerIsQuestionedAndNoGoesBackToTheConnection) {
    role_.clave(QStringLiteral("nueva"));
    OpcionesArranque o;
    o.carpetaInstalacion = o.carpetaAplicacion = dir_.path();
    o.carpetaDatos = QStringLiteral(CO_SOURCE_DIR "/data");
    o.instalacionObligatoria = true;
    ScriptedMessages port;
    port.answer(QString());            // blank
    port.answer(QStringLiteral("NO")); // not blank after all
    port.answer(QStringLiteral("nueva"));
    {
        Aplicacion app(o, &port);
        ASSERT_TRUE(app.Iniciar()) << port.texts().join(u'\n').toStdString();
        EXPECT_EQ(app.datos().EjecutarSQL(QStringLiteral("SELECT COUNT(*) FROM EMPRESA"),
                                          QStringLiteral("DatabaseGeneral")),
                  QStringLiteral("1"));
    }
    EXPECT_EQ(port.texts(), (QStringList{kPreguntaClaveServidor, kPreguntaClaveEnBlanco,
                                         kPreguntaClaveServidor}));
    EXPECT_EQ(claveINI(), QStringLiteral("nueva"));

    // A cancel stops the start with the server's reason and keeps the password held.
    role_.clave(QStringLiteral("tercera"));
    ScriptedMessages cancela;
    cancela.cancel();
    Aplicacion app(o, &cancela);
    EXPECT_FALSE(app.Iniciar());
    ASSERT_EQ(cancela.texts().size(), 2) << cancela.texts().join(u'\n').toStdString();
    EXPECT_TRUE(cancela.texts().at(1).startsWith(
        QStringLiteral("¡Imposible iniciar la aplicación!. Motivo: ")));
    EXPECT_EQ(claveINI(), QStringLiteral("nueva"));
}

TEST_F(ServerLogin, APasswordLeftInClearInTheInstallationFileMovesToTheIniFile) {
    // As an older init wrote it: the password in the libpq words, none in the INI file.
    settings_.ServidorBaseDatos = role_.palabras() + QStringLiteral(" password=bueno");
    ASSERT_TRUE(EscribirInstalacion(dir_.path(), settings_));
    ASSERT_TRUE(EscribirClaveINI(path(QStringLiteral("NAROWIN.INI")), kSeccionMSSQL,
                                 QStringLiteral("PasswordInicioSesion"), QString()));
    const CliRun r = empresas();
    EXPECT_EQ(r.status, 0) << r.err.toStdString();
    EXPECT_EQ(r.out, QStringLiteral("1"));
    EXPECT_FALSE(contenido(path(QStringLiteral("INSTALACION"))).contains("bueno"));
    EXPECT_EQ(claveINI(), QStringLiteral("bueno"));
    InstallationSettings leida;
    ASSERT_TRUE(LeerInstalacion(dir_.path(), &leida));
    EXPECT_EQ(leida.ServidorBaseDatos, role_.palabras());
    EXPECT_EQ(leida.AliasBaseDatos, settings_.AliasBaseDatos);
}

} // namespace
} // namespace co
