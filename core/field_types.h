#pragma once
// Field types as the table definitions and the record screens name them.
//
// The numbers follow the order of the words below, which is the order of the
// dataset field types of the record framework; they are stored by number in
// some places, so the order never changes.

#include <QString>

namespace co {

enum class TipoCampo {
    ftUnknown,
    ftString,
    ftSmallint,
    ftInteger,
    ftWord,
    ftBoolean,
    ftFloat,
    ftCurrency,
    ftBCD,
    ftDate,
    ftTime,
    ftDateTime,
    ftBytes,
    ftVarBytes,
    ftAutoInc,
    ftBlob,
    ftMemo,
    ftGraphic,
    ftFmtMemo,
    ftParadoxOle,
    ftDBaseOle,
    ftTypedBinary,
};

// "ftString", "ftSmallint", ...; "ftUnknown" for a number outside the list.
QString TipoCampoANombre(int tipo);
inline QString TipoCampoANombre(TipoCampo tipo) {
    return TipoCampoANombre(static_cast<int>(tipo));
}

// The type of a word, compared exactly; "ftSmallInt" is accepted as well as
// "ftSmallint". Any other word is ftUnknown.
TipoCampo NombreATipoCampo(const QString &nombre);

// Seek value that lands a nearest-key search on the last record, by the type
// of the first key field: "{" for text, "31/12/9940 23:59:59" for dates,
// "100000000" for integers, "10000" for small integers. Empty for any other
// type: the caller then simply moves to the last record.
QString ValorUltimoRegistro(TipoCampo tipo);

} // namespace co
