#include "ui/screens.h"

#include "core/hidden_controls.h"
#include "core/session.h"
#include "forms/currency_display.h"
#include "forms/form_preparation.h"
#include "ui/form_view.h"
#include "ui/search_dialog.h"
#include "works/categories_master.h"
#include "works/incidents_master.h"
#include "works/machines_master.h"
#include "works/subcontracts_master.h"
#include "works/units_master.h"
#include "works/works_parameters.h"

#include <QCoreApplication>

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

forms::OpcionesBusqueda opcionesBusqueda(Aplicacion &aplicacion) {
    forms::OpcionesBusqueda o;
    const ConfiguracionINI &c = aplicacion.configuracion();
    o.usuario = aplicacion.sesion().CodigoUsuario;
    o.desactivarIndicesPorUsuario = c.DesactivarIndicesPorUsuarioEnBusquedas;
    o.busquedaAproximadaActivada = c.BusquedaAproximadaActivada;
    o.ocultos =
        ControlesNoVisibles::Leer(aplicacion.datos(), o.usuario, c.ModoAdministradorActivado,
                                  c.ModoControlesNoVisiblesActivado);
    o.carpetaPrograma = QCoreApplication::applicationDirPath();
    o.rutaEstructuras = aplicacion.creador().RutaEstructuras();
    return o;
}

// What the factories of the screens share: the session, its main window and its searches.
struct Contexto {
    TfOBRAMENU &ventana;
    Aplicacion &aplicacion;
    forms::Busquedas &busquedas;
    SesionObra obra;
};

template <class Pantalla>
void registrar(const Contexto &c, const char *nombre,
               std::function<void(Pantalla &)> ajustar = {}) {
    c.ventana.RegistrarPantalla(
        QString::fromLatin1(nombre), [c, ajustar](QWidget *parent) -> QWidget * {
            auto pantalla = std::make_unique<Pantalla>(c.aplicacion.datos());
            if (ajustar)
                ajustar(*pantalla);
            if (const works::TMDObra *obra = c.obra.modulo ? c.obra.modulo() : nullptr)
                pantalla->UsarModuloObra(*obra);
            forms::RutinasFormulario &rutinas = pantalla->Rutinas();
            forms::PrepararForm(*pantalla, rutinas, opcionesPreparacion(c.aplicacion));
            TfOBRAMENU &ventana = c.ventana;
            forms::PresentarMonedas(*pantalla, c.aplicacion.monedas(),
                                    [&ventana] { return ventana.VerOtraMoneda(); });
            AperturaTablas apertura(c.aplicacion.datos(), c.aplicacion.creador());
            if (!pantalla->Abrir(apertura))
                return nullptr;
            c.busquedas.Conectar(rutinas.Ventanas);
            return new FormView(std::move(pantalla), rutinas, parent);
        });
}

} // namespace

forms::Busquedas &RegistrarPantallas(TfOBRAMENU &ventana, Aplicacion &aplicacion, SesionObra obra) {
    auto *escritorio = new BusquedasEscritorio(
        aplicacion.datos(), [&aplicacion] { return opcionesBusqueda(aplicacion); }, &ventana);
    const Contexto c{ventana, aplicacion, escritorio->busquedas(), obra};
    registrar<works::TfOBRAUNID>(c, "fOBRAUNID");
    registrar<works::TfOBRAMAQU>(c, "fOBRAMAQU");
    registrar<works::TfOBRASUBC>(c, "fOBRASUBC");
    registrar<works::TfOBRAINCI>(c, "fOBRAINCI");
    registrar<works::TfNOMICATE>(c, "fNOMICATE");
    registrar<works::TfOBRAPARA>(
        c, "fOBRAPARA", [obra](works::TfOBRAPARA &p) { p.AlCerrar = obra.parametrosCambiados; });
    return c.busquedas;
}

} // namespace co::ui
