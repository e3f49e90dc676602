#include "core/translation_text.h"

#include "core/date_utils.h"
#include "core/number_text.h"

#include <QRegularExpression>

namespace co {

namespace {

const QString kProcesado = QStringLiteral("$$PROCESADO$$");

bool esNumeroOFecha(const QString &palabra) {
    return NumeroValido(palabra, {}, nullptr) || FechaValida(palabra, {}, nullptr);
}

} // namespace

QString ProtegerPuntos(const QString &texto, ModoPuntos modo) {
    if (modo == ModoPuntos::Directo) {
        static const QRegularExpression marca(QStringLiteral("\\.(?=[ \\r\\n]|$)"));
        QString out = texto;
        return out.replace(marca, QStringLiteral("\n.\n"));
    }
    static const QRegularExpression rodeado(QStringLiteral("\\n\\.(\\n|$)"));
    QString out = texto;
    return out.replace(rodeado, QStringLiteral("."));
}

QStringList PalabrasFrase(const QString &texto) {
    QString lineas = texto;
    lineas.replace(u' ', u'\n');
    lineas = ProtegerPuntos(lineas, ModoPuntos::Directo);
    lineas.remove(u'\r');
    return lineas.split(u'\n', Qt::SkipEmptyParts);
}

std::optional<QStringList> PartesVariables(const QString &texto, const QString &clave) {
    QStringList palabras = PalabrasFrase(texto);
    QStringList claves = PalabrasFrase(clave);
    const int marcas = static_cast<int>(clave.count(kMarcaVariable));
    QStringList partes;
    if (marcas > 0) {
        for (QString &palabra : palabras) {
            if (esNumeroOFecha(palabra) && palabra != texto)
                continue;
            const int at = claves.indexOf(palabra);
            if (at < 0)
                continue;
            claves[at] = kProcesado;
            palabra = kProcesado;
        }
        for (const QString &palabra : palabras) {
            if (palabra != kProcesado)
                partes << palabra;
        }
    } else if (palabras != claves) {
        return std::nullopt;
    }
    // A key that leaves out words of the text would drop them from the message.
    for (const QString &palabra : claves) {
        if (palabra != kProcesado && !palabra.contains(kMarcaVariable) && marcas > 0)
            return std::nullopt;
    }
    if (partes.size() != marcas)
        return std::nullopt;
    return partes;
}

QString SustituirPartesVariables(const QString &traduccion, const QStringList &partes) {
    QString out = traduccion;
    out.replace(QStringLiteral("\\ X"), kMarcaVariable);
    qsizetype from = 0;
    for (const QString &parte : partes) {
        const qsizetype at = out.indexOf(kMarcaVariable, from);
        if (at < 0)
            break;
        out.replace(at, kMarcaVariable.size(), parte);
        from = at + parte.size();
    }
    out = ProtegerPuntos(out, ModoPuntos::Inverso);
    out.remove(u'\r');
    out.replace(u'\n', u' ');
    return out;
}

} // namespace co
