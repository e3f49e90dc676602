#include "core/table_catalog.h"

#include <QRegularExpression>

namespace co {
namespace {

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

QList<DeclaredColumn> ColumnasDeclaradas(TModuloDatos &datos, const QString &tabla,
                                         const QString &conexion, bool releer) {
    QString bare = tabla.section(u'.', -1);
    const QString sql =
        traitsOf(datos.sesion().backend()).declaredColumnsQuery.arg(bare.remove(u'\''));
    const QString result = datos.ConsultaCatalogo(sql, tabla, conexion, releer);
    if (EsResultadoError(result))
        return {};
    return parseCatalog(datos, result);
}

} // namespace co
