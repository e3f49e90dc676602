#include "ui/screens.h"

#include "forms/currency_display.h"
#include "forms/form_preparation.h"
#include "ui/form_view.h"
#include "works/categories_master.h"
#include "works/incidents_master.h"
#include "works/machines_master.h"
#include "works/subcontracts_master.h"
#include "works/units_master.h"
#include "works/works_parameters.h"

namespace co::ui {

namespace {

forms::OpcionesPreparacion opcionesPreparacion(const Aplicacion &aplicacion) {
    const ConfiguracionINI &cfg = aplicacion.configuracion();
    forms::OpcionesPreparacion o;
    o.modoAdministrador = cfg.ModoAdministradorActivado;
    o.modoControlesNoVisibles = cfg.ModoControlesNoVisiblesActivado;
    o.visualizacionPrevia = cfg.VisualizacionPreviaActivada;
    // Every desktop session has a logged-in user, so rights always apply.
    o.derechosActivos = true;
    return o;
}

template <class Pantalla>
void registrar(TfOBRAMENU &ventana, Aplicacion &aplicacion, const char *nombre,
               std::function<void(Pantalla &)> ajustar = {}) {
    ventana.RegistrarPantalla(
        QString::fromLatin1(nombre),
        [&ventana, &aplicacion, ajustar](QWidget *parent) -> QWidget * {
            auto pantalla = std::make_unique<Pantalla>(aplicacion.datos());
            if (ajustar)
                ajustar(*pantalla);
            forms::RutinasFormulario &rutinas = pantalla->Rutinas();
            forms::PrepararForm(*pantalla, rutinas, opcionesPreparacion(aplicacion));
            forms::PresentarMonedas(*pantalla, aplicacion.monedas(),
                                    [&ventana] { return ventana.VerOtraMoneda(); });
            AperturaTablas apertura(aplicacion.datos(), aplicacion.creador());
            if (!pantalla->Abrir(apertura))
                return nullptr;
            return new FormView(std::move(pantalla), rutinas, parent);
        });
}

} // namespace

void RegistrarPantallas(TfOBRAMENU &ventana, Aplicacion &aplicacion,
                        std::function<void()> parametrosObraCambiados) {
    registrar<works::TfOBRAUNID>(ventana, aplicacion, "fOBRAUNID");
    registrar<works::TfOBRAMAQU>(ventana, aplicacion, "fOBRAMAQU");
    registrar<works::TfOBRASUBC>(ventana, aplicacion, "fOBRASUBC");
    registrar<works::TfOBRAINCI>(ventana, aplicacion, "fOBRAINCI");
    registrar<works::TfNOMICATE>(ventana, aplicacion, "fNOMICATE");
    registrar<works::TfOBRAPARA>(
        ventana, aplicacion, "fOBRAPARA",
        [parametrosObraCambiados](works::TfOBRAPARA &p) { p.AlCerrar = parametrosObraCambiados; });
}

} // namespace co::ui
