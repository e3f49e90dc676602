#include "core/backend.h"

#include "core/connection_words.h"

#include <QSqlError>
#include <QSqlField>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QSqlResult>
#include <sqlite3.h>

namespace co {
namespace {

const QString kKeyViolation = QStringLiteral("Key violation");
const QString kNoTable = QStringLiteral("Table does not exist");
const QString kLocked = QStringLiteral("Record locked by another user");

const BackendTraits kSQLite{
    Backend::SQLite,
    QStringLiteral("QSQLITE"),
    {QString(), kTipoEmbebido},
    QStringLiteral("SELECT name FROM pragma_table_info('%1') WHERE pk > 0 ORDER BY pk"),
    QStringLiteral("SELECT name FROM pragma_index_info('%1') ORDER BY seqno"),
    QStringLiteral("SELECT name FROM pragma_table_info('%1') ORDER BY cid"),
    QStringLiteral("SELECT name FROM pragma_table_info('%1') "
                   "WHERE upper(type) NOT IN ('TEXT', 'MEMO', 'CLOB') ORDER BY cid"),
    QStringLiteral("SELECT name, type, \"notnull\" FROM pragma_table_info('%1') ORDER BY cid"),
    QStringLiteral(
        "SELECT COUNT(*) FROM sqlite_master WHERE type = 'table' AND upper(name) = upper(%1)"),
    QStringLiteral(
        "SELECT name FROM sqlite_master WHERE type = 'index' AND upper(tbl_name) = upper(%1)"),
    QStringLiteral("SELECT name FROM sqlite_master WHERE type = 'table' AND "
                   "upper(name) LIKE 'TEMP%'"),
    {
        {QString(), QStringLiteral("no such table"), kNoTable},
        {QString(), QStringLiteral("UNIQUE constraint failed"), kKeyViolation},
        {QString(), QStringLiteral("PRIMARY KEY must be unique"), kKeyViolation},
        {QStringLiteral("5"), QString(), kLocked},
        {QStringLiteral("6"), QString(), kLocked},
        {QString(), QStringLiteral("database is locked"), kLocked},
        {QString(), QStringLiteral("database table is locked"), kLocked},
        {QString(), QStringLiteral("malformed"), QStringLiteral("Corrupt table")},
    },
    // BEGIN IMMEDIATE already holds the whole file for writing.
    QString(),
    false,
    QString(),
};

const BackendTraits kPostgreSQL{
    Backend::PostgreSQL,
    QStringLiteral("QPSQL"),
    {kTipoServidor},
    QStringLiteral("SELECT a.attname FROM pg_index i "
                   "JOIN pg_attribute a ON a.attrelid = i.indrelid AND a.attnum = ANY(i.indkey) "
                   "WHERE i.indrelid = to_regclass(lower('%1')) AND i.indisprimary "
                   "ORDER BY array_position(i.indkey, a.attnum)"),
    QStringLiteral("SELECT a.attname FROM pg_index i "
                   "JOIN pg_attribute a ON a.attrelid = i.indrelid AND a.attnum = ANY(i.indkey) "
                   "WHERE i.indexrelid = to_regclass(lower('%1')) "
                   "ORDER BY array_position(i.indkey, a.attnum)"),
    QStringLiteral("SELECT attname FROM pg_attribute WHERE attrelid = to_regclass(lower('%1')) "
                   "AND attnum > 0 AND NOT attisdropped ORDER BY attnum"),
    QStringLiteral("SELECT attname FROM pg_attribute WHERE attrelid = to_regclass(lower('%1')) "
                   "AND attnum > 0 AND NOT attisdropped AND atttypid <> 25 ORDER BY attnum"),
    QStringLiteral("SELECT attname, format_type(atttypid, atttypmod), CASE WHEN attnotnull THEN 1 "
                   "ELSE 0 END FROM pg_attribute WHERE attrelid = to_regclass(lower('%1')) AND "
                   "attnum > 0 AND NOT attisdropped ORDER BY attnum"),
    QStringLiteral("SELECT COUNT(*) FROM information_schema.tables WHERE table_schema = "
                   "current_schema() AND table_name = lower(%1)"),
    QStringLiteral("SELECT indexname FROM pg_indexes WHERE schemaname = current_schema() "
                   "AND tablename = lower(%1)"),
    QStringLiteral("SELECT table_name FROM information_schema.tables WHERE "
                   "table_schema = current_schema() AND upper(table_name) LIKE 'TEMP%'"),
    {
        {QStringLiteral("42P01"), QString(), kNoTable},
        {QStringLiteral("3F000"), QString(), kNoTable},
        {QStringLiteral("23505"), QString(), kKeyViolation},
        {QStringLiteral("55P03"), QString(), kLocked},
        {QStringLiteral("40P01"), QString(), QStringLiteral("A deadlock was detected")},
        {QStringLiteral("40001"), QString(), QStringLiteral("A deadlock was detected")},
        {QStringLiteral("25P02"), QString(), QStringLiteral("Transaction aborted")},
    },
    QStringLiteral(" FOR UPDATE"),
    true,
    QStringLiteral(" FOR UPDATE NOWAIT"),
};

} // namespace

const BackendTraits &traitsOf(Backend backend) {
    return backend == Backend::PostgreSQL ? kPostgreSQL : kSQLite;
}

std::optional<Backend> backendFromName(const QString &tipoBaseDatos, QString *message) {
    for (const BackendTraits *t : {&kSQLite, &kPostgreSQL})
        if (t->names.contains(tipoBaseDatos.trimmed(), Qt::CaseInsensitive) ||
            (tipoBaseDatos.trimmed().isEmpty() && t->backend == Backend::SQLite))
            return t->backend;
    if (message)
        *message = QStringLiteral("El tipo de base de datos \"%1\" no está disponible en esta "
                                  "versión. Valores admitidos: \"Paradox\" (o vacío) y "
                                  "\"PostgreSQL\".")
                       .arg(tipoBaseDatos);
    return std::nullopt;
}

QString failureText(Backend backend, const QSqlError &error) {
    const QString native = error.databaseText().isEmpty() ? error.text() : error.databaseText();
    const QString code = error.nativeErrorCode();
    QString english;
    for (const BackendTraits::FailureRule &rule : traitsOf(backend).failures) {
        const bool codeMatches = rule.nativeCode.isEmpty() || rule.nativeCode == code;
        const bool textMatches =
            rule.messagePattern.isEmpty() || native.contains(rule.messagePattern, Qt::CaseInsensitive);
        if (codeMatches && textMatches && !(rule.nativeCode.isEmpty() && rule.messagePattern.isEmpty())) {
            english = rule.failureText;
            break;
        }
    }
    const QString detail = native.trimmed();
    if (english.isEmpty())
        return detail.isEmpty() ? error.text().trimmed() : detail;
    return english + QStringLiteral(". ") + detail;
}

ColumnKind kindOfDeclaredType(const QString &declared) {
    const QString t = declared.toUpper();
    if (t.isEmpty())
        return ColumnKind::Unknown;
    if (t.contains(u"CHAR"))
        return ColumnKind::Text;
    if (t.contains(u"TEXT") || t.contains(u"MEMO") || t.contains(u"CLOB"))
        return ColumnKind::Memo;
    if (t.contains(u"BOOL"))
        return ColumnKind::Boolean;
    if (t.contains(u"INT"))
        return ColumnKind::Integer;
    if (t.contains(u"REAL") || t.contains(u"FLOA") || t.contains(u"DOUB") ||
        t.contains(u"NUMERIC") || t.contains(u"DECIMAL") || t.contains(u"MONEY"))
        return ColumnKind::Float;
    if (t.contains(u"DATE") || t.contains(u"TIME"))
        return ColumnKind::DateTime;
    if (t.contains(u"BLOB") || t.contains(u"BYTEA") || t.contains(u"BINARY"))
        return ColumnKind::Blob;
    return ColumnKind::Unknown;
}

namespace {

ColumnKind postgresKind(int oid) {
    switch (oid) {
    case 25: return ColumnKind::Memo;
    case 1042: case 1043: case 19: return ColumnKind::Text;
    case 20: case 21: case 23: case 26: return ColumnKind::Integer;
    case 700: case 701: case 1700: case 790: return ColumnKind::Float;
    case 1082: case 1083: case 1114: case 1184: case 1266: return ColumnKind::DateTime;
    case 16: return ColumnKind::Boolean;
    case 17: return ColumnKind::Blob;
    default: return ColumnKind::Unknown;
    }
}

} // namespace

ColumnKind columnKind(Backend backend, const QSqlQuery &query, int index) {
    if (backend == Backend::PostgreSQL)
        return postgresKind(query.record().field(index).typeID());
    const QVariant handle = query.result() ? query.result()->handle() : QVariant();
    if (handle.isValid() && qstrcmp(handle.typeName(), "sqlite3_stmt*") == 0) {
        sqlite3_stmt *stmt = *static_cast<sqlite3_stmt *const *>(handle.constData());
        if (stmt) {
            const char *decl = sqlite3_column_decltype(stmt, index);
            if (decl)
                return kindOfDeclaredType(QString::fromUtf8(decl));
        }
    }
    return ColumnKind::Unknown;
}

} // namespace co
