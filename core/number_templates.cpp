#include "core/number_templates.h"

#include "core/key_value_block.h"

#include <QRegularExpression>

namespace co {
namespace {

QString keyOf(int numero) {
    return QStringLiteral("PlantillaNumerica") + QString::number(numero);
}

const QRegularExpression &blanks() {
    static const QRegularExpression re(QStringLiteral("\\s+"));
    return re;
}

} // namespace

QString PlantillasNumericas::FormatoCampo(const QString &campo) const {
    for (const PlantillaNumerica &p : plantillas) {
        for (const QString &fragment : p.fragmentos) {
            if (!fragment.isEmpty() && campo.contains(fragment))
                return p.mascara;
        }
    }
    return mascaraGlobal;
}

PlantillasNumericas CargarPlantillasNumericas(const QString &plantillaStd,
                                              const QString &plantillaExt,
                                              const QString &mascaraActual) {
    PlantillasNumericas out;
    out.mascaraGlobal = mascaraActual;
    if (!plantillaStd.isEmpty() && plantillaStd != u"Ninguna")
        out.mascaraGlobal = plantillaStd;
    for (int i = 1; i <= kNumeroPlantillas; ++i) {
        PlantillaNumerica &p = out.plantillas[static_cast<std::size_t>(i - 1)];
        p.mascara = out.mascaraGlobal;
        if (!plantillaExt.contains(keyOf(i)))
            continue;
        QString value;
        memo::ValorClave(plantillaExt, keyOf(i), value);
        const QStringList words = value.trimmed().split(blanks(), Qt::SkipEmptyParts);
        p.mascara = words.value(0);
        if (words.size() > 1)
            p.fragmentos = words.at(1).split(u',', Qt::SkipEmptyParts);
    }
    QString ext;
    out.PlantillasExt =
        memo::ValorClave(plantillaExt, QStringLiteral("PlantillasExt"), ext) && ext == u"SI";
    return out;
}

QString PlantillasPorDefecto() {
    return QStringLiteral(
        "PlantillaNumerica1=#,###.## "
        "Cantidad,Peso,Volumen,Stock,PuntoPedido,LoteMinimo,LoteOptimo,Masa,Plazo,Tiempo,Horas,"
        "Dias,Bultos,Piezas,Disponible\r\n"
        "PlantillaNumerica2=#,###.## Precio,Tarifa");
}

bool ConfigurarPlantilla(int numero, QString &bloque, Messenger &mensajes) {
    if (numero < 1 || numero > kNumeroPlantillas)
        return false;
    QString current;
    memo::ValorClave(bloque, keyOf(numero), current);
    const QStringList words = current.trimmed().split(blanks(), Qt::SkipEmptyParts);
    const QString n = QString::number(numero);
    const QString format =
        mensajes
            .MensajeP(QStringLiteral("Introduzca el formato de la plantilla número ") + n,
                      words.value(0))
            .trimmed();
    if (format.isEmpty() || format.contains(blanks()))
        return false;
    QString names = mensajes.MensajeP(
        QStringLiteral("Introduzca los nombres de los campos para la plantilla número ") + n +
            QStringLiteral(" separados por comas"),
        words.value(1));
    names.remove(blanks());
    return memo::ModificarClave(keyOf(numero), format + u' ' + names, bloque);
}

} // namespace co
