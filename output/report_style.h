#pragma once
// What the report object does to its design when it is created: the style of
// `TipoCombinacionTramas`, the listing font, compression and left margin, and
// the translation of captions.
//
// Styles: "Standard" colours the group bands and the header captions;
// "Basica" keeps soft greys; "Blanco y Negro" removes every colour. Any other
// name is taken as "Standard".

#include "output/listing_settings.h"
#include "output/report_design.h"

#include <functional>

namespace co {

void AplicarEstiloReport(ReportDesign &design, const QString &estilo);

// "Por Defecto" keeps the design's fonts; any other name replaces the family.
void AplicarParametrosListado(ReportDesign &design, const ParametrosListado &parametros);

// Runs every label caption and the title through `traducir`.
void TraducirCaptions(ReportDesign &design,
                      const std::function<QString(const QString &)> &traducir);

} // namespace co
