#pragma once
// Spanish bank accounts: the 20-digit CCC (entity 4, branch 4, two check
// digits, account 10) and its IBAN ("ES", two check digits by ISO 7064
// mod 97-10, the CCC). Check routines ignore blanks and dashes.

#include <QString>

namespace co::demo {

// The two check digits of a CCC: the first over "00" + entity + branch, the
// second over the account number. Empty when the parts are not all digits of
// the right lengths.
QString DigitosControlCCC(const QString &entidad, const QString &sucursal, const QString &cuenta);
bool CCCValido(const QString &entidad, const QString &sucursal, const QString &digitosControl,
               const QString &cuenta);

// "ES" + check digits + the 20 digits of the CCC.
QString IBANDeCCC(const QString &ccc);
// Any IBAN: country letters, check digits, mod 97 of the rearranged number is 1.
bool IBANValido(const QString &texto);
// An IBAN's electronic form: upper case, no blanks or dashes.
QString IBANSinSeparadores(const QString &texto);

} // namespace co::demo
