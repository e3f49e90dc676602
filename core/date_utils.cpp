#include "core/date_utils.h"

#include "core/failure.h"
#include "core/messages.h"

#include <QRegularExpression>

namespace co {

QDate FechaMinima() {
    return QDate(1890, 1, 1);
}

QDateTime FechaNula() {
    return QDateTime(QDate(1899, 12, 30), QTime(0, 0));
}

QDateTime FechaUltimoRegistro() {
    return QDateTime(QDate(9940, 12, 31), QTime(23, 59, 59));
}

int CompletarAnio(int anio) {
    if (anio > 99)
        return anio;
    return anio < 50 ? anio + 2000 : anio + 1900;
}

QDateTime TextoAFecha(const QString &texto) {
    static const QRegularExpression pattern(QStringLiteral(
        R"(^\s*(\d{1,2})/(\d{1,2})/(\d{1,4})(?:\s+(\d{1,2}):(\d{1,2})(?::(\d{1,2}))?)?\s*$)"));
    const QRegularExpressionMatch m = pattern.match(texto);
    QDateTime result;
    if (m.hasMatch()) {
        const QString yearText = m.captured(3);
        int year = yearText.toInt();
        if (yearText.size() <= 2)
            year = CompletarAnio(year);
        const QDate date(year, m.captured(2).toInt(), m.captured(1).toInt());
        const QTime time(m.captured(4).toInt(), m.captured(5).toInt(), m.captured(6).toInt());
        if (date.isValid() && time.isValid())
            result = QDateTime(date, time);
    }
    if (!result.isValid())
        throw Failure(u'\'' + texto + QStringLiteral("' is not a valid date"));
    return result;
}

bool FechaValida(const QString &texto, const QString &etiqueta, Messenger *mensajes) {
    bool ok = false;
    try {
        ok = TextoAFecha(texto) > QDateTime(FechaMinima(), QTime(0, 0));
    } catch (const Failure &) {
        ok = false;
    }
    if (!ok && !etiqueta.isEmpty() && mensajes)
        mensajes->MensajeA(QStringLiteral("¡La fecha de ") + etiqueta +
                           QStringLiteral(" es incorrecta! Repita por favor"));
    return ok;
}

} // namespace co
