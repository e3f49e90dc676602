#include "demo/tax_codes.h"

namespace co::demo {
namespace {

const QString kLetrasNIF = QStringLiteral("TRWAGMYFPDXBNJZSQVHLCKE");
const QString kLetrasControlCIF = QStringLiteral("JABCDEFGHI");
const QString kOrganizaciones = QStringLiteral("ABCDEFGHJNPQRSUVW");

QString limpio(const QString &texto) {
    QString out;
    for (const QChar c : texto)
        if (c != u' ' && c != u'-' && c != u'.')
            out += c.toUpper();
    return out;
}

bool digitos(const QString &texto) {
    for (const QChar c : texto)
        if (c < u'0' || c > u'9')
            return false;
    return !texto.isEmpty();
}

} // namespace

QChar LetraNIF(int numero) {
    return kLetrasNIF.at(numero % 23);
}

QString NIF(int numero) {
    return QStringLiteral("%1").arg(numero, 8, 10, QLatin1Char('0')) + LetraNIF(numero);
}

bool NIFValido(const QString &texto) {
    QString t = limpio(texto);
    if (t.size() != 9)
        return false;
    // A NIE's X, Y, Z stand for 0, 1, 2 in front of its seven digits.
    const int prefijo = QStringLiteral("XYZ").indexOf(t.at(0));
    if (prefijo >= 0)
        t[0] = QChar(u'0' + prefijo);
    const QString numero = t.left(8);
    if (!digitos(numero))
        return false;
    return t.at(8) == LetraNIF(numero.toInt());
}

QChar ControlCIF(QChar organizacion, const QString &sieteDigitos) {
    int suma = 0;
    for (int i = 0; i < 7; ++i) {
        const int d = sieteDigitos.at(i).digitValue();
        if (i % 2 == 0) { // positions 1, 3, 5, 7 are doubled, their digits added
            const int doble = d * 2;
            suma += doble / 10 + doble % 10;
        } else {
            suma += d;
        }
    }
    const int control = (10 - suma % 10) % 10;
    if (QStringLiteral("KPQSNW").contains(organizacion))
        return kLetrasControlCIF.at(control);
    return QChar(u'0' + control);
}

QString CIF(QChar organizacion, int numero) {
    const QString siete = QStringLiteral("%1").arg(numero, 7, 10, QLatin1Char('0'));
    return QString(organizacion) + siete + ControlCIF(organizacion, siete);
}

bool CIFValido(const QString &texto) {
    const QString t = limpio(texto);
    if (t.size() != 9 || !kOrganizaciones.contains(t.at(0)))
        return false;
    const QString siete = t.mid(1, 7);
    if (!digitos(siete))
        return false;
    const QChar dado = t.at(8);
    const QChar esperado = ControlCIF(t.at(0), siete);
    const QChar organizacion = t.at(0);
    if (QStringLiteral("KPQSNW").contains(organizacion))
        return dado == esperado;
    if (QStringLiteral("ABEH").contains(organizacion))
        return dado == esperado;
    // Either form: the digit or its letter.
    const int control = esperado.digitValue();
    return dado == esperado || dado == kLetrasControlCIF.at(control);
}

bool CodigoFiscalValido(const QString &texto) {
    return CIFValido(texto) || NIFValido(texto);
}

} // namespace co::demo
