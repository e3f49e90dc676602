#pragma once
// `fOBRALTAR`: the filter form of the rate listing, as a form of components
// the desktop draws: the edits `DesdeTarifa`, `HastaTarifa` ("0", "999"),
// `DesdeUnidad`, `HastaUnidad` (to "zzzzzzzzzzzzzzzzzzzzzzzzzzzzzz"), the
// check boxes `ListarConMasDescripcion`, `SepararEnPaginas`,
// `VisualizacionPrevia`, and `pbListar`, `pbSalir`. Its click on `pbListar`
// hands the form to the report runner set with `setRunner`; the restrictions
// line of the report is read from the form's own controls.

#include "core/table_creation.h"
#include "forms/form.h"
#include "forms/maintenance_routines.h"
#include "reports/rate_listing.h"

#include <functional>

namespace co {

class FiltroListadoTarifas : public forms::Form, public ListingFilter {
public:
    // `entorno` is asked at each report creation.
    FiltroListadoTarifas(TModuloDatos &datos, CreadorTablas &creador,
                         std::function<ReportEnvironment()> entorno);

    void setRunner(ReportRunner *runner) { runner_ = runner; }
    forms::RutinasFormulario &Rutinas() { return rutinas_; }

    // ListingFilter
    QString Validar() override;
    void CopiarParametros() override;
    std::unique_ptr<Report> CrearReport() override;
    bool VisualizacionPrevia() const override;

    const ParametrosListadoTarifas &parametros() const { return p_; }
    // The text of an edit, or the state of a check box, by component name.
    QString Texto(const QString &control) const;
    bool Marcado(const QString &control) const;

private:
    TModuloDatos &datos_;
    CreadorTablas &creador_;
    std::function<ReportEnvironment()> entorno_;
    forms::RutinasFormulario rutinas_;
    ReportRunner *runner_ = nullptr;
    ParametrosListadoTarifas p_;
};

} // namespace co
