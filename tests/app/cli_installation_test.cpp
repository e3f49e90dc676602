// An installation whose files were written by someone else, as the command line
// meets it: settings that would reach statements, folders that do not exist, a
// server that never answers, files that never end. Each must be refused with a
// message naming what is wrong, and leave nothing made behind it.
#include "support/cli_installation.h"
#include "support/test_postgres.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <arpa/inet.h>
#include <atomic>
#include <cstring>
#include <gtest/gtest.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

namespace co {
namespace {

using CliResult = test::CliRun;

// A hang is a failure of its own: the process is killed after `waitMs`.
CliResult cli(const QStringList &args, int waitMs = 120000) {
    return test::Ejecutar(args, QStringLiteral(CO_CLI_PATH), waitMs);
}

// Statements on the test server outside any installation.
class Server {
public:
    Server() : name_(test::uniqueName(QStringLiteral("srv"))) {
        EXPECT_TRUE(test::serverConnection(name_, test::postgresConnInfo()).open());
    }
    ~Server() { QSqlDatabase::removeDatabase(name_); }
    void exec(const QString &sql) {
        QSqlQuery q(QSqlDatabase::database(name_));
        EXPECT_TRUE(q.exec(sql)) << sql.toStdString();
    }
    bool schemaExists(const QString &schema) {
        QSqlQuery q(QSqlDatabase::database(name_));
        q.exec(QStringLiteral("SELECT 1 FROM pg_namespace WHERE nspname = '%1'").arg(schema));
        return q.next();
    }

private:
    QString name_;
};

class HostileInstallation : public test::CliInstallationTest {
protected:
    bool pg() const { return GetParam() == Backend::PostgreSQL; }
    QString path(const QString &name) const { return dir_.filePath(name); }
    // INSTALACION as init wrote it, with `key` set to `value`.
    void rewrite(const QString &key, const QString &value) {
        QFile f(path(QStringLiteral("INSTALACION")));
        ASSERT_TRUE(f.open(QIODevice::ReadOnly));
        QStringList lines = QString::fromUtf8(f.readAll()).split(u'\n', Qt::SkipEmptyParts);
        f.close();
        bool found = false;
        for (QString &line : lines)
            if (line.startsWith(key + u'=')) {
                line = key + u'=' + value;
                found = true;
            }
        if (!found)
            lines << key + u'=' + value;
        ASSERT_TRUE(f.open(QIODevice::WriteOnly | QIODevice::Truncate));
        f.write((lines.join(u'\n') + u'\n').toUtf8());
    }
    // What the folder holds, less the journal files SQLite keeps while it works.
    QStringList entries() const {
        QStringList out;
        for (const QString &e :
             QDir(dir_.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden))
            if (!e.endsWith(QLatin1String("-wal")) && !e.endsWith(QLatin1String("-shm")) &&
                !e.endsWith(QLatin1String("-journal")))
                out << e;
        return out;
    }
};

// ---- names that reach statements --------------------------------------------

TEST_P(HostileInstallation, AStatementInACompanyAliasIsRefusedBeforeAnySql) {
    QString canary;
    std::unique_ptr<Server> server;
    if (pg()) {
        server = std::make_unique<Server>();
        canary = settings_.AliasBaseDatos.toLower() + QStringLiteral("_canario");
        server->exec(QStringLiteral("CREATE SCHEMA ") + canary);
    } else {
        canary = QStringLiteral("canario");
    }
    rewrite(QStringLiteral("AliasBaseDatos"),
            QStringLiteral("emp; DROP SCHEMA %1 CASCADE; --").arg(canary));
    const CliResult r = sql({QStringLiteral("SELECT 1")});
    EXPECT_EQ(r.status, 1);
    EXPECT_TRUE(r.err.contains(QStringLiteral("AliasBaseDatos"))) << r.err.toStdString();
    EXPECT_TRUE(r.err.contains(QStringLiteral("no es válido"))) << r.err.toStdString();
    if (pg()) {
        EXPECT_TRUE(server->schemaExists(canary));
        server->exec(QStringLiteral("DROP SCHEMA ") + canary);
    }
}

TEST_P(HostileInstallation, AStatementInTheGeneralAliasIsRefusedBeforeAnySql) {
    std::unique_ptr<Server> server;
    const QString canary = settings_.AliasBaseDatosGeneral.toLower() + QStringLiteral("_canario");
    if (pg()) {
        server = std::make_unique<Server>();
        server->exec(QStringLiteral("CREATE SCHEMA ") + canary);
    }
    rewrite(QStringLiteral("AliasBaseDatosGeneral"),
            QStringLiteral("g; DROP SCHEMA %1 CASCADE; --").arg(canary));
    const CliResult r = sql({QStringLiteral("SELECT 1")});
    EXPECT_EQ(r.status, 1);
    EXPECT_TRUE(r.err.contains(QStringLiteral("El valor \"g; DROP SCHEMA"))) << r.err.toStdString();
    EXPECT_TRUE(r.err.contains(QStringLiteral("de AliasBaseDatosGeneral no es válido")))
        << r.err.toStdString();
    if (pg()) {
        EXPECT_TRUE(server->schemaExists(canary));
        EXPECT_FALSE(server->schemaExists(QStringLiteral("g")));
        server->exec(QStringLiteral("DROP SCHEMA ") + canary);
    }
}

TEST_P(HostileInstallation, ADashInTheGeneralAliasIsNamedNotASyntaxError) {
    rewrite(QStringLiteral("AliasBaseDatosGeneral"), QStringLiteral("datos-generales"));
    const CliResult r = sql({QStringLiteral("SELECT 1")});
    EXPECT_EQ(r.status, 1);
    EXPECT_TRUE(
        r.err.contains(QStringLiteral("\"datos-generales\" de AliasBaseDatosGeneral no es válido")))
        << r.err.toStdString();
    EXPECT_FALSE(r.err.contains(QStringLiteral("syntax"), Qt::CaseInsensitive))
        << r.err.toStdString();
}

TEST_P(HostileInstallation, AnUnknownCompanyWordMakesNoData) {
    ASSERT_EQ(sql({QStringLiteral("SELECT 1")}).status, 0);
    const QStringList before = entries();
    const QString word = settings_.AliasBaseDatos + QStringLiteral("999");
    for (const QString &w : {word, u'?' + word, path(QStringLiteral("999"))}) {
        const CliResult r = sql({QStringLiteral("--conexion"), w, QStringLiteral("--opciones"),
                                 QStringLiteral("Silenciosa"), QStringLiteral("SELECT 1")});
        EXPECT_EQ(r.status, 1) << w.toStdString();
        EXPECT_TRUE(r.out.startsWith(QStringLiteral("Error."))) << r.out.toStdString();
    }
    EXPECT_EQ(entries(), before);
    EXPECT_FALSE(QFileInfo::exists(path(QStringLiteral("999"))));
    if (pg()) {
        EXPECT_FALSE(Server().schemaExists(word.toLower()));
    }
    // The company of the installation is still reached.
    EXPECT_EQ(sql({QStringLiteral("SELECT COUNT(*) FROM EMPRESA")}).out, QStringLiteral("1"));
}

// ---- installations that are not there ---------------------------------------

TEST_P(HostileInstallation, AMissingGeneralFolderIsNamedNotMade) {
    const QString missing = path(QStringLiteral("no/existe"));
    rewrite(QStringLiteral("PathBaseDatosGeneral"), missing);
    const CliResult r = sql({QStringLiteral("SELECT 1")});
    EXPECT_EQ(r.status, 1);
    EXPECT_TRUE(r.err.contains(QStringLiteral("PathBaseDatosGeneral"))) << r.err.toStdString();
    EXPECT_TRUE(r.err.contains(missing)) << r.err.toStdString();
    EXPECT_FALSE(QFileInfo::exists(path(QStringLiteral("no"))));
}

TEST_P(HostileInstallation, AGeneralFolderWithoutDataIsNamedNotFilled) {
    ASSERT_TRUE(QDir(dir_.path()).mkdir(QStringLiteral("vacia")));
    rewrite(QStringLiteral("PathBaseDatosGeneral"), path(QStringLiteral("vacia")));
    const CliResult r = sql({QStringLiteral("SELECT 1")});
    if (pg()) {
        // The folder only keeps the instance numbers there.
        EXPECT_EQ(r.status, 0) << r.err.toStdString();
        return;
    }
    EXPECT_EQ(r.status, 1);
    EXPECT_TRUE(r.err.contains(QStringLiteral("PathBaseDatosGeneral"))) << r.err.toStdString();
    EXPECT_FALSE(QFileInfo::exists(path(QStringLiteral("vacia/general.db"))));
}

TEST_P(HostileInstallation, AnEmptyInstallationFileOpensNothing) {
    QFile f(path(QStringLiteral("INSTALACION")));
    ASSERT_TRUE(f.open(QIODevice::WriteOnly | QIODevice::Truncate));
    f.close();
    const QStringList before = entries();
    const CliResult r = sql({QStringLiteral("SELECT 1")});
    EXPECT_EQ(r.status, 1);
    EXPECT_TRUE(
        r.err.contains(QStringLiteral("No ha sido posible leer los parámetros del archivo")))
        << r.err.toStdString();
    EXPECT_EQ(entries(), before);
}

TEST_P(HostileInstallation, AGeneralFolderThatCannotBeMadeSaysWhy) {
    QFile blocker(path(QStringLiteral("archivo")));
    ASSERT_TRUE(blocker.open(QIODevice::WriteOnly));
    blocker.close();
    rewrite(QStringLiteral("PathBaseDatosGeneral"), path(QStringLiteral("archivo/datos")));
    const CliResult r = cli(QStringLiteral("init"));
    EXPECT_EQ(r.status, 1);
    EXPECT_TRUE(r.err.contains(QStringLiteral("no es una carpeta"))) << r.err.toStdString();
    EXPECT_TRUE(r.err.contains(QStringLiteral("PathBaseDatosGeneral"))) << r.err.toStdString();
    EXPECT_FALSE(r.err.contains(QStringLiteral("conflicto"))) << r.err.toStdString();
}

// ---- files that never end -------------------------------------------------------

TEST_P(HostileInstallation, AnEndlessSettingsFileIsRefused) {
    QFile::remove(path(QStringLiteral("NAROWIN.INI"))); // the one init wrote
    ASSERT_TRUE(QFile::link(QStringLiteral("/dev/zero"), path(QStringLiteral("NAROWIN.INI"))));
    const CliResult ini = sql({QStringLiteral("SELECT COUNT(*) FROM EMPRESA")}, 60000);
    EXPECT_EQ(ini.status, 0) << ini.err.toStdString();
    EXPECT_EQ(ini.out, QStringLiteral("1"));
    EXPECT_TRUE(
        ini.err.contains(QStringLiteral("No ha sido posible leer los parámetros del archivo ") +
                         path(QStringLiteral("NAROWIN.INI"))))
        << ini.err.toStdString();
    ASSERT_TRUE(QFile::remove(path(QStringLiteral("INSTALACION"))));
    ASSERT_TRUE(QFile::link(QStringLiteral("/dev/zero"), path(QStringLiteral("INSTALACION"))));
    const CliResult inst = sql({QStringLiteral("SELECT 1")}, 60000);
    EXPECT_EQ(inst.status, 1);
    EXPECT_TRUE(inst.err.contains(QStringLiteral("no es un archivo normal")))
        << inst.err.toStdString();
}

TEST_P(HostileInstallation, AHugeSettingsFileIsRefused) {
    QFile f(path(QStringLiteral("INSTALACION")));
    ASSERT_TRUE(f.open(QIODevice::Append));
    ASSERT_TRUE(f.resize(f.size() + 64 * 1024 * 1024)); // sparse: costs no disk
    f.close();
    const CliResult r = sql({QStringLiteral("SELECT 1")}, 60000);
    EXPECT_EQ(r.status, 1);
    EXPECT_TRUE(r.err.contains(QStringLiteral("ocupa más de"))) << r.err.toStdString();
}

CO_ON_BOTH_BACKENDS(HostileInstallation);

// ---- the password of the server --------------------------------------------------

TEST(InstallationFile, APasswordIsKeptOutOfItAndItsIniFileReadableByItsOwnerAlone) {
    QTemporaryDir dir;
    InstallationSettings s = test::installationFolder(Backend::PostgreSQL, dir.path());
    ::chmod(QFile::encodeName(dir.filePath(QStringLiteral("INSTALACION"))).constData(), 0644);
    const CliResult r = cli({QStringLiteral("init"), QStringLiteral("--dir"), dir.path(),
                             QStringLiteral("--servidor"),
                             s.ServidorBaseDatos + QStringLiteral(" password=secreta")});
    EXPECT_EQ(r.status, 0) << r.err.toStdString();
    QFile instalacion(dir.filePath(QStringLiteral("INSTALACION")));
    ASSERT_TRUE(instalacion.open(QIODevice::ReadOnly));
    EXPECT_FALSE(instalacion.readAll().contains("secreta"));
    // The INI file holds it, scrambled: for its owner's eyes alone.
    struct stat info {};
    ASSERT_EQ(
        ::stat(QFile::encodeName(dir.filePath(QStringLiteral("NAROWIN.INI"))).constData(), &info),
        0);
    EXPECT_EQ(info.st_mode & 0777, 0600u);
    // Also when the file was there before with other rights.
    ::chmod(QFile::encodeName(dir.filePath(QStringLiteral("NAROWIN.INI"))).constData(), 0644);
    EXPECT_EQ(
        cli({QStringLiteral("init"), QStringLiteral("--dir"), dir.path(),
             QStringLiteral("--servidor"), s.ServidorBaseDatos + QStringLiteral(" password=otra")})
            .status,
        0);
    ASSERT_EQ(
        ::stat(QFile::encodeName(dir.filePath(QStringLiteral("NAROWIN.INI"))).constData(), &info),
        0);
    EXPECT_EQ(info.st_mode & 0777, 0600u);
    test::dropInstallation(s);
}

// ---- a server that takes the connection and never answers -------------------------

// A loopback port that the kernel accepts connections on; nobody ever reads them.
class MuteListener {
public:
    MuteListener() {
        fd_ = ::socket(AF_INET, SOCK_STREAM, 0);
        sockaddr_in a{};
        a.sin_family = AF_INET;
        a.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        socklen_t len = sizeof a;
        EXPECT_EQ(::bind(fd_, reinterpret_cast<sockaddr *>(&a), len), 0);
        EXPECT_EQ(::listen(fd_, 16), 0);
        ::getsockname(fd_, reinterpret_cast<sockaddr *>(&a), &len);
        port_ = ntohs(a.sin_port);
    }
    ~MuteListener() { ::close(fd_); }
    int port() const { return port_; }

protected:
    int fd_ = -1;
    int port_ = 0;
};

// Goes through the start-up of the protocol (no encryption, no password) and then
// never answers a statement: the driver's own set-up statements would wait for ever.
class HandshakeThenMute : public MuteListener {
public:
    HandshakeThenMute() {
        thread_ = std::thread([this] { serve(); });
    }
    ~HandshakeThenMute() {
        stop_ = true;
        ::shutdown(fd_, SHUT_RDWR);
        thread_.join();
        for (int c : clients_)
            ::close(c);
    }

private:
    static bool readAll(int c, char *buf, size_t n) {
        size_t got = 0;
        while (got < n) {
            const ssize_t r = ::read(c, buf + got, n - got);
            if (r <= 0)
                return false;
            got += static_cast<size_t>(r);
        }
        return true;
    }
    static void send(int c, const QByteArray &bytes) {
        qsizetype sent = 0;
        while (sent < bytes.size()) {
            const ssize_t w =
                ::write(c, bytes.constData() + sent, static_cast<size_t>(bytes.size() - sent));
            if (w <= 0)
                return;
            sent += w;
        }
    }
    static void put32(QByteArray &b, quint32 v) {
        const quint32 n = htonl(v);
        b.append(reinterpret_cast<const char *>(&n), 4);
    }
    void serve() {
        while (!stop_) {
            const int c = ::accept(fd_, nullptr, nullptr);
            if (c < 0)
                return;
            clients_.push_back(c);
            for (;;) {
                char head[8];
                if (!readAll(c, head, 8))
                    break;
                quint32 len, code;
                std::memcpy(&len, head, 4);
                std::memcpy(&code, head + 4, 4);
                len = ntohl(len);
                code = ntohl(code);
                if (code == 80877103u || code == 80877104u) { // SSL or GSS encryption request
                    send(c, QByteArrayLiteral("N"));
                    continue;
                }
                QByteArray rest(static_cast<int>(len) - 8, '\0');
                if (!readAll(c, rest.data(), static_cast<size_t>(rest.size())))
                    break;
                QByteArray reply("R");
                put32(reply, 8);
                put32(reply, 0); // authentication ok
                const QByteArray version("server_version\0"
                                         "15.0\0",
                                         20);
                reply += 'S';
                put32(reply, 4 + static_cast<quint32>(version.size()));
                reply += version;
                reply += 'K';
                put32(reply, 12);
                put32(reply, 1);
                put32(reply, 2);
                reply += 'Z';
                put32(reply, 5);
                reply += 'I';
                send(c, reply);
                break; // and then silence
            }
        }
    }
    std::thread thread_;
    std::atomic<bool> stop_{false};
    std::vector<int> clients_;
};

CliResult sqlAgainst(int port, const QString &extra) {
    QTemporaryDir dir;
    InstallationSettings s;
    s.TipoBaseDatos = QStringLiteral("PostgreSQL");
    s.PathBaseDatosGeneral = dir.path();
    s.AliasBaseDatosGeneral = QStringLiteral("general");
    s.AliasBaseDatos = QStringLiteral("empresa");
    s.ServidorBaseDatos =
        QStringLiteral("host=127.0.0.1 port=%1 dbname=obras user=obras").arg(port) + extra;
    EXPECT_TRUE(EscribirInstalacion(dir.path(), s));
    return cli(
        {QStringLiteral("sql"), QStringLiteral("--dir"), dir.path(), QStringLiteral("SELECT 1")},
        60000);
}

TEST(SilentServer, AServerThatNeverAnswersIsToldAfterItsTimeout) {
    MuteListener server;
    const CliResult r = sqlAgainst(server.port(), QStringLiteral(" connect_timeout=2"));
    EXPECT_EQ(r.status, 1) << r.err.toStdString();
    EXPECT_TRUE(r.err.contains(QStringLiteral("no ha respondido en 2 segundos")))
        << r.err.toStdString();
    EXPECT_TRUE(r.err.contains(QStringLiteral("port=%1").arg(server.port())))
        << r.err.toStdString();
}

TEST(SilentServer, WithoutATimeoutTheDefaultOneHolds) {
    MuteListener server;
    const CliResult r = sqlAgainst(server.port(), {});
    EXPECT_EQ(r.status, 1) << r.err.toStdString();
    EXPECT_TRUE(r.err.contains(QStringLiteral("no ha respondido en 10 segundos")))
        << r.err.toStdString();
}

TEST(SilentServer, AServerSilentAfterTheHandshakeIsToldToo) {
    HandshakeThenMute server;
    const CliResult r =
        sqlAgainst(server.port(), QStringLiteral(" connect_timeout=2 password=secreta"));
    EXPECT_EQ(r.status, 1) << r.err.toStdString();
    EXPECT_TRUE(r.err.contains(QStringLiteral("no ha respondido en 2 segundos")))
        << r.err.toStdString();
    // The message names the server, never its password.
    EXPECT_FALSE(r.err.contains(QStringLiteral("secreta"))) << r.err.toStdString();
}

} // namespace
} // namespace co
