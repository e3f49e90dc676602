#include "core/number_text.h"

#include "core/failure.h"
#include "core/messages.h"

#include <cmath>

namespace co {

namespace {

// Digits, at most one "," and an optional exponent; a sign in front of each.
bool wellFormed(QStringView s) {
    qsizetype i = 0;
    auto digits = [&] {
        const qsizetype from = i;
        while (i < s.size() && s[i] >= u'0' && s[i] <= u'9')
            ++i;
        return i - from;
    };
    if (i < s.size() && (s[i] == u'+' || s[i] == u'-'))
        ++i;
    qsizetype count = digits();
    if (i < s.size() && s[i] == u',') {
        ++i;
        count += digits();
    }
    if (count == 0)
        return false;
    if (i < s.size() && (s[i] == u'e' || s[i] == u'E')) {
        ++i;
        if (i < s.size() && (s[i] == u'+' || s[i] == u'-'))
            ++i;
        if (digits() == 0)
            return false;
    }
    return i == s.size();
}

} // namespace

double TextoANumero(const QString &texto, const QString &opciones) {
    QString s = texto;
    if (opciones.contains(QLatin1String("PuntoDecimal")))
        s.remove(u',').replace(u'.', u',');
    else
        s.remove(u'.');
    s = s.trimmed();
    bool ok = wellFormed(s);
    double value = 0;
    if (ok) {
        value = s.replace(u',', u'.').toDouble(&ok);
        ok = ok && std::isfinite(value);
    }
    if (!ok)
        throw Failure(u'\'' + texto + QStringLiteral("' is not a valid floating point value"));
    return value;
}

bool NumeroValido(const QString &texto, const QString &etiqueta, Messenger *mensajes) {
    try {
        TextoANumero(texto);
        return true;
    } catch (const Failure &) {
        if (!etiqueta.isEmpty() && mensajes)
            mensajes->MensajeA(QStringLiteral("¡El valor de ") + etiqueta +
                               QStringLiteral(" es incorrecto! Repita por favor"));
        return false;
    }
}

} // namespace co
