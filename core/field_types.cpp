#include "core/field_types.h"

#include <array>
#include <iterator>

namespace co {

namespace {
constexpr std::array<const char *, 22> kNames = {
    "ftUnknown", "ftString",     "ftSmallint", "ftInteger",    "ftWord", "ftBoolean",
    "ftFloat",   "ftCurrency",   "ftBCD",      "ftDate",       "ftTime", "ftDateTime",
    "ftBytes",   "ftVarBytes",   "ftAutoInc",  "ftBlob",       "ftMemo", "ftGraphic",
    "ftFmtMemo", "ftParadoxOle", "ftDBaseOle", "ftTypedBinary"};
} // namespace

QString TipoCampoANombre(int tipo) {
    if (tipo < 0 || tipo >= static_cast<int>(kNames.size()))
        return QString::fromLatin1(kNames[0]);
    return QString::fromLatin1(kNames[static_cast<std::size_t>(tipo)]);
}

TipoCampo NombreATipoCampo(const QString &nombre) {
    if (nombre == QLatin1String("ftSmallInt"))
        return TipoCampo::ftSmallint;
    for (std::size_t i = 1; i < kNames.size(); ++i)
        if (nombre == QLatin1String(kNames[i]))
            return static_cast<TipoCampo>(i);
    return TipoCampo::ftUnknown;
}

QString ValorUltimoRegistro(TipoCampo tipo) {
    switch (tipo) {
    case TipoCampo::ftString:
        return QStringLiteral("{");
    case TipoCampo::ftDate:
    case TipoCampo::ftDateTime:
        return QStringLiteral("31/12/9940 23:59:59");
    case TipoCampo::ftInteger:
        return QStringLiteral("100000000");
    case TipoCampo::ftSmallint:
        return QStringLiteral("10000");
    default:
        return {};
    }
}

} // namespace co
