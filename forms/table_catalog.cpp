#include "forms/table_catalog.h"

#include <QRegularExpression>

namespace co::forms {
namespace {

struct CatalogQuery {
    Backend backend;
    const char *sql; // %1: table name; answers name|type|not null
};

const CatalogQuery kCatalog[] = {
    {Backend::SQLite, "SELECT name, type, \"notnull\" FROM pragma_table_info('%1') ORDER BY cid"},
    {Backend::PostgreSQL,
     "SELECT attname, format_type(atttypid, atttypmod), CASE WHEN attnotnull THEN 1 ELSE 0 END "
     "FROM pg_attribute WHERE attrelid = to_regclass(lower('%1')) AND attnum > 0 AND NOT "
     "attisdropped "
     "ORDER BY attnum"},
};

// First pattern found in the lower-cased declaration wins.
struct TypeRule {
    const char *pattern;
    TipoCampo type;
};
const TypeRule kTypes[] = {
    {"smallint", TipoCampo::ftSmallint}, {"int2", TipoCampo::ftSmallint},
    {"char", TipoCampo::ftString},       {"text", TipoCampo::ftMemo},
    {"int", TipoCampo::ftInteger},       {"double", TipoCampo::ftFloat},
    {"numeric", TipoCampo::ftFloat},     {"real", TipoCampo::ftFloat},
    {"float", TipoCampo::ftFloat},       {"timestamp", TipoCampo::ftDateTime},
    {"datetime", TipoCampo::ftDateTime}, {"date", TipoCampo::ftDate},
    {"time", TipoCampo::ftTime},         {"bool", TipoCampo::ftBoolean},
    {"blob", TipoCampo::ftBlob},         {"bytea", TipoCampo::ftBlob},
};

const RecordLocking kOptimistic{false, {}};
const RecordLocking kRowLock{true, QStringLiteral(" FOR UPDATE NOWAIT")};

} // namespace

DeclaredColumn TipoDeclarado(const QString &declared) {
    DeclaredColumn out;
    const QString d = declared.toLower();
    for (const TypeRule &rule : kTypes) {
        if (d.contains(QLatin1String(rule.pattern))) {
            out.type = rule.type;
            break;
        }
    }
    if (out.type == TipoCampo::ftString) {
        static const QRegularExpression size(QStringLiteral("\\((\\d+)\\)"));
        const auto m = size.match(d);
        if (m.hasMatch())
            out.size = m.captured(1).toInt();
    }
    return out;
}

namespace {

QList<DeclaredColumn> parseCatalog(TModuloDatos &datos, const QString &result) {
    QList<DeclaredColumn> out;
    for (const QString &line : result.split(QStringLiteral("\r\n"), Qt::SkipEmptyParts)) {
        const QStringList parts = line.split(u'|');
        if (parts.size() < 3)
            continue;
        DeclaredColumn c = TipoDeclarado(parts[1]);
        c.name = datos.NombreColumna(parts[0]);
        c.notNull = parts[2].trimmed() == u"1";
        out << c;
    }
    return out;
}

} // namespace

QList<DeclaredColumn> ColumnasDeclaradas(TModuloDatos &datos, const QString &tabla,
                                         const QString &conexion, bool releer) {
    const Backend backend = datos.sesion().backend();
    for (const CatalogQuery &q : kCatalog) {
        if (q.backend != backend)
            continue;
        QString bare = tabla.section(u'.', -1);
        const QString sql = QString::fromLatin1(q.sql).arg(bare.remove(u'\''));
        const QString result = datos.ConsultaCatalogo(sql, tabla, conexion, releer);
        if (result.startsWith(QStringLiteral("Error.")))
            return {};
        return parseCatalog(datos, result);
    }
    return {};
}

const RecordLocking &BloqueoRegistros(Backend backend) {
    return backend == Backend::PostgreSQL ? kRowLock : kOptimistic;
}

} // namespace co::forms
