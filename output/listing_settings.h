#pragma once
// The general parameters that shape every listing: font, compression, left
// margin, style, printer dialog, restrictions line and number template.

#include "core/database.h"

#include <QString>
#include <QVariantHash>

namespace co {

struct ParametrosListado {
    QString TipoLetraListados = QStringLiteral("Por Defecto");
    double FCompresionListados = 1;       // horizontal positions and widths
    double FCompresionTLetraListados = 1; // font sizes
    double MargenIzquierdoImpresora = 0;  // millimetres added to the left margin
    QString TipoCombinacionTramas = QStringLiteral("Standard");
    QString SolicitarDialogoImpresora = QStringLiteral("SI");
    QString ListarRestricciones; // "NO" hides the restrictions line
    QString PlantillaNumericaStd = QStringLiteral("#,###.##");

    // From a `PARAGENE` record; missing or empty values keep the defaults, and a
    // compression factor that is not positive counts as 1.
    static ParametrosListado DeRegistro(const QVariantHash &registro);
    // From the company's `PARAGENE`; the defaults when it cannot be read.
    static ParametrosListado Leer(TModuloDatos &datos);
};

} // namespace co
