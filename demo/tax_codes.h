#pragma once
// Spanish tax identification codes: the NIF of a person (eight digits and a
// check letter; a NIE starts X, Y or Z) and the CIF of a legal entity (an
// organisation letter, seven digits and a check digit or letter).
// Check routines accept upper or lower case and ignore blanks, dashes and dots.

#include <QString>

namespace co::demo {

// The check letter of a DNI number (0 to 99999999).
QChar LetraNIF(int numero);
// "12345678Z" for a number.
QString NIF(int numero);
bool NIFValido(const QString &texto);

// The check character of a CIF: organisation letter and seven digits.
// Letters K, P, Q, S, N, W take a letter; A, B, E, H a digit; others either, a
// digit being given.
QChar ControlCIF(QChar organizacion, const QString &sieteDigitos);
// "B12345674" for an organisation letter and a number (0 to 9999999).
QString CIF(QChar organizacion, int numero);
bool CIFValido(const QString &texto);

// A CIF or a NIF/NIE, whichever the text is.
bool CodigoFiscalValido(const QString &texto);

} // namespace co::demo
