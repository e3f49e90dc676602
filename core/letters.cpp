#include "core/letters.h"

namespace co {

const QStringView LetrasMinusculas = u"abcdefghijklmnopqrstuvwxyzáéíóúàèìòùâêîôûñçäëïöü";
const QStringView LetrasMayusculas = u"ABCDEFGHIJKLMNOPQRSTUVWXYZÁÉÍÓÚÀÈÌÒÙÂÊÎÔÛÑÇÄËÏÖÜ";

namespace {
QString mapThrough(const QString &texto, QStringView from, QStringView to) {
    QString out = texto;
    for (QChar &c : out) {
        const qsizetype at = from.indexOf(c);
        if (at >= 0)
            c = to.at(at);
    }
    return out;
}
} // namespace

bool EsLetra(QChar c) {
    return LetrasMinusculas.contains(c) || LetrasMayusculas.contains(c);
}

bool EsDigito(QChar c) {
    return c >= u'0' && c <= u'9';
}

QString Mayusculas(const QString &texto) {
    return mapThrough(texto, LetrasMinusculas, LetrasMayusculas);
}

QString Minusculas(const QString &texto) {
    return mapThrough(texto, LetrasMayusculas, LetrasMinusculas);
}

} // namespace co
