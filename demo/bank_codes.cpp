#include "demo/bank_codes.h"

namespace co::demo {
namespace {

bool digitos(const QString &texto, int longitud) {
    if (texto.size() != longitud)
        return false;
    for (const QChar c : texto)
        if (c < u'0' || c > u'9')
            return false;
    return true;
}

int digitoCCC(const QString &diez) {
    static const int pesos[10] = {1, 2, 4, 8, 5, 10, 9, 7, 3, 6};
    int suma = 0;
    for (int i = 0; i < 10; ++i)
        suma += diez.at(i).digitValue() * pesos[i];
    const int d = 11 - suma % 11;
    return d == 11 ? 0 : (d == 10 ? 1 : d);
}

// Remainder mod 97 of a text of digits and letters (A = 10 ... Z = 35).
int modulo97(const QString &texto) {
    int resto = 0;
    for (const QChar c : texto) {
        if (c.isDigit()) {
            resto = (resto * 10 + c.digitValue()) % 97;
        } else {
            const int v = c.unicode() - u'A' + 10;
            resto = (resto * 100 + v) % 97;
        }
    }
    return resto;
}

} // namespace

QString DigitosControlCCC(const QString &entidad, const QString &sucursal, const QString &cuenta) {
    if (!digitos(entidad, 4) || !digitos(sucursal, 4) || !digitos(cuenta, 10))
        return {};
    return QString::number(digitoCCC(QStringLiteral("00") + entidad + sucursal)) +
           QString::number(digitoCCC(cuenta));
}

bool CCCValido(const QString &entidad, const QString &sucursal, const QString &digitosControl,
               const QString &cuenta) {
    const QString esperado = DigitosControlCCC(entidad, sucursal, cuenta);
    return !esperado.isEmpty() && esperado == digitosControl;
}

QString IBANSinSeparadores(const QString &texto) {
    QString out;
    for (const QChar c : texto)
        if (c != u' ' && c != u'-')
            out += c.toUpper();
    return out;
}

QString IBANDeCCC(const QString &ccc) {
    const int resto = modulo97(ccc + QStringLiteral("ES00"));
    return QStringLiteral("ES%1").arg(98 - resto, 2, 10, QLatin1Char('0')) + ccc;
}

bool IBANValido(const QString &texto) {
    const QString t = IBANSinSeparadores(texto);
    if (t.size() < 15 || t.size() > 34)
        return false;
    for (int i = 0; i < t.size(); ++i) {
        const QChar c = t.at(i);
        const bool letra = c >= u'A' && c <= u'Z';
        const bool cifra = c >= u'0' && c <= u'9';
        if (i < 2 ? !letra : (i < 4 ? !cifra : !(letra || cifra)))
            return false;
    }
    if (t.startsWith(QStringLiteral("ES")) && t.size() != 24)
        return false;
    return modulo97(t.mid(4) + t.left(4)) == 1;
}

} // namespace co::demo
