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

std::optional<double> LeerDecimal(const QString &texto, PuntoSinComa punto) {
    QString t = texto.trimmed();
    if (t.isEmpty())
        return std::nullopt;
    if (t.contains(u',') || punto == PuntoSinComa::Millares)
        t.remove(u'.').replace(u',', u'.');
    bool ok = false;
    const double value = t.toDouble(&ok);
    if (!ok || !std::isfinite(value))
        return std::nullopt;
    return value;
}

double TextoANumero(const QString &texto, const QString &opciones) {
    QString s = texto;
    if (opciones.contains(QLatin1String("PuntoDecimal")))
        s.remove(u',').replace(u'.', u',');
    // Stricter than the plain reading: digits and at most one comma.
    const std::optional<double> value = wellFormed(QString(s).remove(u'.').trimmed())
                                            ? LeerDecimal(s, PuntoSinComa::Millares)
                                            : std::nullopt;
    if (!value)
        throw Failure(u'\'' + texto + QStringLiteral("' is not a valid floating point value"));
    return *value;
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
