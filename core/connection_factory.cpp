#include "core/connection_factory.h"

#include "core/sql_text.h"

#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSqlDriver>
#include <QSqlError>
#include <QSqlQuery>
#include <QVariant>
#include <sqlite3.h>

namespace co {
namespace {

bool run(QSqlDatabase &db, const QString &sql, QString *motivo) {
    QSqlQuery q(db);
    if (q.exec(sql))
        return true;
    if (motivo)
        *motivo = q.lastError().text();
    return false;
}

// SQL Server's ISNUMERIC for the integer and decimal texts the numerators hold.
void isNumeric(sqlite3_context *ctx, int, sqlite3_value **argv) {
    const int type = sqlite3_value_type(argv[0]);
    if (type == SQLITE_INTEGER || type == SQLITE_FLOAT) {
        sqlite3_result_int(ctx, 1);
        return;
    }
    if (type != SQLITE_TEXT) {
        sqlite3_result_int(ctx, 0);
        return;
    }
    const QString text = QString::fromUtf8(reinterpret_cast<const char *>(sqlite3_value_text(argv[0]))).trimmed();
    bool ok = false;
    text.toDouble(&ok);
    sqlite3_result_int(ctx, ok && !text.isEmpty() && !text.contains(u'e', Qt::CaseInsensitive) ? 1 : 0);
}

// The spelling-variant match of the search by approximation: a text against a
// regular expression, case-insensitively. The compiled expression is kept with
// the statement, as the pattern is the same for every row.
void matchesPattern(sqlite3_context *ctx, int, sqlite3_value **argv) {
    auto *re = static_cast<QRegularExpression *>(sqlite3_get_auxdata(ctx, 1));
    if (!re) {
        const auto *pattern = reinterpret_cast<const char *>(sqlite3_value_text(argv[1]));
        re = new QRegularExpression(QString::fromUtf8(pattern ? pattern : ""),
                                    QRegularExpression::CaseInsensitiveOption);
        sqlite3_set_auxdata(ctx, 1, re, [](void *p) { delete static_cast<QRegularExpression *>(p); });
        re = static_cast<QRegularExpression *>(sqlite3_get_auxdata(ctx, 1));
        if (!re) {
            sqlite3_result_error_nomem(ctx);
            return;
        }
    }
    const auto *text = reinterpret_cast<const char *>(sqlite3_value_text(argv[0]));
    sqlite3_result_int(ctx, text && re->match(QString::fromUtf8(text)).hasMatch() ? 1 : 0);
}

bool prepareSQLite(QSqlDatabase &db, const InstallationSettings &settings,
                   const ConnectionTarget &target, QString *motivo) {
    if (!run(db, QStringLiteral("PRAGMA journal_mode=WAL"), motivo) ||
        !run(db, QStringLiteral("PRAGMA synchronous=NORMAL"), motivo))
        return false;
    const QVariant handle = db.driver()->handle();
    if (handle.isValid() && qstrcmp(handle.typeName(), "sqlite3*") == 0) {
        sqlite3 *raw = *static_cast<sqlite3 *const *>(handle.constData());
        sqlite3_create_function(raw, "ISNUMERIC", 1, SQLITE_UTF8 | SQLITE_DETERMINISTIC, nullptr,
                                isNumeric, nullptr, nullptr);
        sqlite3_create_function(raw, "COINCIDEPATRON", 2, SQLITE_UTF8 | SQLITE_DETERMINISTIC, nullptr,
                                matchesPattern, nullptr, nullptr);
    }
    if (!target.general)
        return run(db,
                   QStringLiteral("ATTACH DATABASE %1 AS %2")
                       .arg(Entrecomillar(generalFile(settings)), settings.AliasBaseDatosGeneral),
                   motivo);
    return true;
}

void applyConnInfo(QSqlDatabase &db, const QString &connInfo) {
    QStringList options;
    for (const QString &word : connInfo.split(u' ', Qt::SkipEmptyParts)) {
        const int eq = word.indexOf(u'=');
        if (eq <= 0)
            continue;
        const QString key = word.left(eq), value = word.mid(eq + 1);
        if (key == u"host")
            db.setHostName(value);
        else if (key == u"port")
            db.setPort(value.toInt());
        else if (key == u"dbname")
            db.setDatabaseName(value);
        else if (key == u"user")
            db.setUserName(value);
        else if (key == u"password")
            db.setPassword(value);
        else
            options << word;
    }
    db.setConnectOptions(options.join(u';'));
}

bool schemaExists(QSqlDatabase &db, const QString &schema) {
    QSqlQuery q(db);
    q.exec(QStringLiteral("SELECT 1 FROM pg_namespace WHERE nspname = %1").arg(Entrecomillar(schema)));
    return q.next();
}

bool ensureSchema(QSqlDatabase &db, const QString &schema, QString *motivo) {
    if (schemaExists(db, schema))
        return true;
    // Two processes may make it at once: the loser finds it made.
    return run(db, QStringLiteral("CREATE SCHEMA IF NOT EXISTS %1").arg(schema), motivo) ||
           schemaExists(db, schema);
}

bool preparePostgreSQL(QSqlDatabase &db, const InstallationSettings &settings,
                       const ConnectionTarget &target, QString *motivo) {
    const QString general = settings.AliasBaseDatosGeneral.toLower();
    if (!ensureSchema(db, general, motivo))
        return false;
    QSqlQuery q(db);
    q.exec(QStringLiteral("SELECT 1 FROM pg_proc p JOIN pg_namespace n ON n.oid = p.pronamespace "
                          "WHERE n.nspname = %1 AND p.proname IN ('isnumeric', 'coincidepatron') "
                          "HAVING COUNT(*) = 2")
               .arg(Entrecomillar(general)));
    if (!q.next()) {
        run(db,
            QStringLiteral("CREATE OR REPLACE FUNCTION %1.isnumeric(anyelement) RETURNS integer "
                           "LANGUAGE sql IMMUTABLE AS $$ SELECT CASE WHEN trim($1::text) ~ "
                           "'^[-+]?([0-9]+([.][0-9]*)?|[.][0-9]+)$' THEN 1 ELSE 0 END $$")
                .arg(general),
            nullptr);
        run(db,
            QStringLiteral("CREATE OR REPLACE FUNCTION %1.coincidepatron(anyelement, text) RETURNS "
                           "integer LANGUAGE sql IMMUTABLE AS $$ SELECT CASE WHEN $1::text ~* $2 "
                           "THEN 1 ELSE 0 END $$")
                .arg(general),
            nullptr);
    }
    QString path = general;
    if (!target.general) {
        const QString company = target.alias.toLower();
        if (!ensureSchema(db, company, motivo))
            return false;
        path = company + QStringLiteral(", ") + general;
    }
    return run(db, QStringLiteral("SET search_path TO %1").arg(path), motivo) &&
           run(db,
               QStringLiteral("SET SESSION CHARACTERISTICS AS TRANSACTION ISOLATION LEVEL READ "
                              "UNCOMMITTED"),
               motivo) &&
           run(db, QStringLiteral("SET client_min_messages TO WARNING"), motivo) &&
           run(db, QStringLiteral("SET lock_timeout TO %1").arg(target.lockWaitMs), motivo);
}

} // namespace

QString generalFile(const InstallationSettings &settings) {
    return QDir(settings.PathBaseDatosGeneral).filePath(QStringLiteral("general.db"));
}

QString companyFile(const QString &companyFolder) {
    return QDir(companyFolder).filePath(QStringLiteral("empresa.db"));
}

QSqlDatabase openConnection(const QString &connectionName, Backend backend,
                            const InstallationSettings &settings, const ConnectionTarget &target,
                            QString *motivo) {
    QSqlDatabase db = QSqlDatabase::addDatabase(traitsOf(backend).qtDriver, connectionName);
    bool ok = false;
    if (backend == Backend::SQLite) {
        const QString file = target.general ? generalFile(settings) : companyFile(target.alias);
        QDir().mkpath(QFileInfo(file).absolutePath());
        db.setDatabaseName(file);
        db.setConnectOptions(QStringLiteral("QSQLITE_BUSY_TIMEOUT=%1").arg(target.lockWaitMs));
        ok = db.open() && prepareSQLite(db, settings, target, motivo);
    } else {
        applyConnInfo(db, settings.ServidorBaseDatos);
        ok = db.open() && preparePostgreSQL(db, settings, target, motivo);
    }
    if (!ok) {
        if (motivo && motivo->isEmpty())
            *motivo = db.lastError().text();
        db = QSqlDatabase();
        QSqlDatabase::removeDatabase(connectionName);
        return QSqlDatabase();
    }
    return db;
}

void closeConnection(const QString &connectionName) {
    {
        QSqlDatabase db = QSqlDatabase::database(connectionName, false);
        if (db.isOpen())
            db.close();
    }
    QSqlDatabase::removeDatabase(connectionName);
}

} // namespace co
