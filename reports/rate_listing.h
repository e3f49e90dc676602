#pragma once
// `TfOBQRLTAR`: the rate listing ("Listado de Tarifas"). The lines of
// `LTARFMAQ` in the range of rates and units, grouped by rate with the rate's
// `Descripcion` from `TARFMAQ` in the group head, the sums of cost and sale
// prices in the group foot, and optionally the extended description under
// each line. `SepararEnPaginas` starts each rate on a new page.

#include "core/database.h"
#include "output/listing_table.h"
#include "output/report_runner.h"

namespace co {

// The listing parameters of the filter form `TfOBRALTAR`.
struct ParametrosListadoTarifas {
    int DesdeTarifa = 0;
    int HastaTarifa = 999;
    QString DesdeUnidad;
    QString HastaUnidad = QStringLiteral("zzzzzzzzzzzzzzzzzzzzzzzzzzzzzz");
    bool ListarConMasDescripcion = false;
    bool SepararEnPaginas = false;
};

class TfOBQRLTAR : public Report {
public:
    TfOBQRLTAR(TModuloDatos &datos, CreadorTablas &creador, ParametrosListadoTarifas parametros,
               ReportEnvironment entorno, const QString &textoRestricciones = {});

    std::unique_ptr<ReportDataSource> AntesDeImprimir() override;

    // The one source of `Temporal`: the lines in range, by rate and unit.
    OrigenListado Origen() const;
    const TablaListado &Temporal() const { return temporal_; }

private:
    TModuloDatos &datos_;
    ParametrosListadoTarifas p_;
    TablaListado temporal_;
    bool lleno_ = false;
    int lineas_ = 0; // counted by the detail's before-print step, shown in the summary
};

} // namespace co
