#pragma once
// The letters the program treats as alphabetic: a to z and the Spanish and
// Western European accented vowels, "ñ" and "ç", in two parallel tables of
// lower and upper case. Digits are "0" to "9" only.

#include <QString>
#include <QStringView>

namespace co {

extern const QStringView LetrasMinusculas;
extern const QStringView LetrasMayusculas;

bool EsLetra(QChar c);
bool EsDigito(QChar c);

// Case mapping through the tables; characters outside them are kept.
QString Mayusculas(const QString &texto);
QString Minusculas(const QString &texto);

} // namespace co
