#include "core/connection_factory.h"

#include "core/connection_words.h"
#include "core/folder_creation.h"
#include "core/server_probe.h"
#include "core/sql_identifier.h"
#include "core/sql_text.h"

#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSqlDriver>
#include <QSqlError>
#include <QSqlQuery>
#include <QUuid>
#include <QVariant>
#include <sqlite3.h>

namespace co {
namespace {

bool fail(QString *motivo, const QString &texto) {
    if (motivo)
        *motivo = texto;
    return false;
}

QString missingGeneral(const InstallationSettings &settings) {
    return QStringLiteral("No existe la base de datos general de la instalación (%1) en la "
                          "carpeta indicada por PathBaseDatosGeneral: %2. Una instalación "
                          "nueva se crea con \"control-obras-cli init\".")
        .arg(QFileInfo(generalFile(settings)).fileName(), settings.PathBaseDatosGeneral);
}

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
                       .arg(Entrecomillar(generalFile(settings)),
                            NombreDatosSQL(settings.AliasBaseDatosGeneral)),
                   motivo);
    return true;
}

void applyConnInfo(QSqlDatabase &db, const QStringList &words) {
    QStringList options;
    for (const QString &word : words) {
        const int eq = word.indexOf(u'=');
        const QString key = word.left(eq), value = word.mid(eq + 1);
        if (key == palabra_servidor::kHost)
            db.setHostName(value);
        else if (key == palabra_servidor::kPort)
            db.setPort(value.toInt());
        else if (key == palabra_servidor::kDbName)
            db.setDatabaseName(value);
        else if (key == palabra_servidor::kUser)
            db.setUserName(value);
        else if (key == palabra_servidor::kPassword)
            db.setPassword(value);
        else if (key != palabra_servidor::kConnectTimeout)
            options << word;
    }
    // Without a limit (or with 0) libpq waits for ever on a server that takes the
    // connection and never answers.
    options << QString(palabra_servidor::kConnectTimeout) +
                   QStringLiteral("=%1").arg(EsperaServidor(words));
    db.setConnectOptions(options.join(u';'));
}

bool schemaExists(QSqlDatabase &db, const QString &schema) {
    QSqlQuery q(db);
    q.exec(QStringLiteral("SELECT 1 FROM pg_namespace WHERE nspname = %1").arg(Entrecomillar(schema)));
    return q.next();
}

// Makes `schema` when missing and `crear` allows it; else missing is a failure
// told by `missing`.
bool ensureSchema(QSqlDatabase &db, const QString &schema, bool crear, const QString &missing,
                  QString *motivo) {
    if (schemaExists(db, schema))
        return true;
    if (!crear)
        return fail(motivo, missing);
    // Two processes may make it at once: the loser finds it made.
    return run(db, QStringLiteral("CREATE SCHEMA IF NOT EXISTS %1").arg(NombreDatosSQL(schema)),
               motivo) ||
           schemaExists(db, schema);
}

bool preparePostgreSQL(QSqlDatabase &db, const InstallationSettings &settings,
                       const ConnectionTarget &target, QString *motivo) {
    const QString general = settings.AliasBaseDatosGeneral.toLower();
    const QString generalSQL = NombreDatosSQL(general);
    const QString noGeneral =
        QStringLiteral("No existe el esquema \"%1\" indicado por AliasBaseDatosGeneral en el "
                       "servidor de PostgreSQL (%2). Una instalación nueva se crea con "
                       "\"control-obras-cli init\".")
            .arg(general, DescripcionServidor(PalabrasServidor(settings.ServidorBaseDatos)));
    if (!ensureSchema(db, general, target.general && target.crear, noGeneral, motivo))
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
                .arg(generalSQL),
            nullptr);
        run(db,
            QStringLiteral("CREATE OR REPLACE FUNCTION %1.coincidepatron(anyelement, text) RETURNS "
                           "integer LANGUAGE sql IMMUTABLE AS $$ SELECT CASE WHEN $1::text ~* $2 "
                           "THEN 1 ELSE 0 END $$")
                .arg(generalSQL),
            nullptr);
    }
    QString path = generalSQL;
    if (!target.general) {
        const QString company = target.alias.toLower();
        if (!ensureSchema(db, company, target.crear,
                          QStringLiteral("No existen los datos \"%1\".").arg(target.alias), motivo))
            return false;
        path = NombreDatosSQL(company) + QStringLiteral(", ") + generalSQL;
    }
    return run(db, QStringLiteral("SET search_path TO %1").arg(path), motivo) &&
           run(db,
               QStringLiteral("SET SESSION CHARACTERISTICS AS TRANSACTION ISOLATION LEVEL READ "
                              "UNCOMMITTED"),
               motivo) &&
           run(db, QStringLiteral("SET client_min_messages TO WARNING"), motivo) &&
           run(db, QStringLiteral("SET lock_timeout TO %1").arg(target.lockWaitMs), motivo);
}

// What must hold before a connection is tried: names fit for statements, and
// on SQLite the data file, unless it may be made.
bool checkTarget(Backend backend, const InstallationSettings &settings,
                 const ConnectionTarget &target, QString *motivo) {
    if (!ValidarInstalacion(settings, motivo))
        return false;
    if (backend == Backend::PostgreSQL) {
        const QString problem = target.general ? QString() : ProblemaNombreDatos(target.alias);
        return problem.isEmpty() ||
               fail(motivo, QStringLiteral("El nombre de datos \"%1\" no es válido: %2.")
                                .arg(target.alias, problem));
    }
    // A company connection attaches the general file: without it, no company file
    // is made either.
    if (!target.general && !QFileInfo::exists(generalFile(settings)))
        return fail(motivo, missingGeneral(settings));
    const QString file = target.general ? generalFile(settings) : companyFile(target.alias);
    if (QFileInfo::exists(file))
        return true;
    if (!target.crear)
        return fail(motivo, target.general
                                ? missingGeneral(settings)
                                : QStringLiteral("No existen los datos \"%1\".").arg(target.alias));
    return CrearCarpeta(QFileInfo(file).absolutePath(), motivo);
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
    if (!checkTarget(backend, settings, target, motivo))
        return QSqlDatabase();
    const QStringList words = PalabrasConexion(settings);
    // The general data are the first a session opens: the server proves it answers.
    if (backend == Backend::PostgreSQL && target.general &&
        !ProbarServidorPostgreSQL(words, EsperaServidor(words), motivo))
        return QSqlDatabase();
    QSqlDatabase db = QSqlDatabase::addDatabase(traitsOf(backend).qtDriver, connectionName);
    bool ok = false;
    if (backend == Backend::SQLite) {
        db.setDatabaseName(target.general ? generalFile(settings) : companyFile(target.alias));
        db.setConnectOptions(QStringLiteral("QSQLITE_BUSY_TIMEOUT=%1").arg(target.lockWaitMs));
        ok = db.open() && prepareSQLite(db, settings, target, motivo);
    } else {
        applyConnInfo(db, words);
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

bool CrearInstalacion(const InstallationSettings &settings, QString *motivo) {
    QString why;
    const std::optional<Backend> backend = backendFromName(settings.TipoBaseDatos, &why);
    if (!backend)
        return fail(motivo, why);
    if (!ValidarInstalacion(settings, motivo))
        return false;
    // Also the home of the instance numbers on PostgreSQL.
    if (!CrearCarpeta(settings.PathBaseDatosGeneral, &why))
        return fail(motivo, why + QStringLiteral(" Revise el valor de PathBaseDatosGeneral."));
    const QString name =
        QStringLiteral("co.crearinstalacion.") + QUuid::createUuid().toString(QUuid::Id128);
    ConnectionTarget target;
    target.general = true;
    const bool ok = openConnection(name, *backend, settings, target, motivo).isValid();
    closeConnection(name);
    return ok;
}

QStringList PalabrasConexion(const InstallationSettings &settings) {
    QStringList words;
    for (const QString &word : PalabrasServidor(settings.ServidorBaseDatos)) {
        const QString key = word.section(u'=', 0, 0);
        if ((key == u"user" && !settings.UsuarioInicioSesion.isEmpty()) ||
            (key == u"password" && !settings.ClaveInicioSesion.isEmpty()))
            continue;
        words << word;
    }
    if (!settings.UsuarioInicioSesion.isEmpty())
        words << QStringLiteral("user=") + settings.UsuarioInicioSesion;
    if (!settings.ClaveInicioSesion.isEmpty())
        words << QStringLiteral("password=") + settings.ClaveInicioSesion;
    return words;
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
