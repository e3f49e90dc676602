#include "support/test_postgres.h"

#include <QCoreApplication>
#include <QProcess>
#include <QRandomGenerator>
#include <QStringList>
#include <atomic>
#include <cstdlib>
#include <gtest/gtest.h>
#include <unistd.h>

namespace co::test {
namespace {

// Server started by this process when the test run gave none; stopped at exit.
struct OwnServer {
    QString dir;
    QString connInfo;
    ~OwnServer() {
        if (!dir.isEmpty())
            QProcess::execute(QStringLiteral(CO_SOURCE_DIR "/scripts/test-postgres"),
                              {QStringLiteral("stop"), dir});
    }
};

OwnServer &ownServer() {
    static OwnServer server;
    return server;
}

} // namespace

QString postgresConnInfo() {
    const char *env = std::getenv("CO_TEST_PG");
    if (env && *env)
        return QString::fromLocal8Bit(env);
    OwnServer &own = ownServer();
    if (own.connInfo.isEmpty()) {
        QProcess p;
        p.start(QStringLiteral(CO_SOURCE_DIR "/scripts/test-postgres"), {QStringLiteral("start")});
        p.waitForFinished(120000);
        const QStringList parts =
            QString::fromLocal8Bit(p.readAllStandardOutput()).trimmed().split(u' ');
        if (p.exitCode() != 0 || parts.size() != 2) {
            ADD_FAILURE() << "no PostgreSQL test server: "
                          << p.readAllStandardError().toStdString();
            return {};
        }
        own.dir = parts[0];
        own.connInfo =
            QStringLiteral("host=127.0.0.1 port=%1 user=postgres dbname=postgres").arg(parts[1]);
    }
    return own.connInfo;
}

QSqlDatabase serverConnection(const QString &name, const QString &connInfo) {
    QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QPSQL"), name);
    for (const QString &word : connInfo.split(u' ', Qt::SkipEmptyParts)) {
        const QString key = word.section(u'=', 0, 0), value = word.section(u'=', 1);
        if (key == u"host")
            db.setHostName(value);
        else if (key == u"port")
            db.setPort(value.toInt());
        else if (key == u"user")
            db.setUserName(value);
        else if (key == u"dbname")
            db.setDatabaseName(value);
    }
    return db;
}

QString uniqueName(const QString &prefix) {
    static std::atomic<int> counter{0};
    return QStringLiteral("%1%2_%3_%4")
        .arg(prefix)
        .arg(::getpid())
        .arg(counter++)
        .arg(QRandomGenerator::global()->bounded(100000));
}

} // namespace co::test
