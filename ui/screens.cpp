#include "ui/screens.h"

#include "core/hidden_controls.h"
#include "core/session.h"
#include "ui/form_view.h"
#include "ui/search_dialog.h"
#include "works/categories_master.h"
#include "works/incidents_master.h"
#include "works/machines_master.h"
#include "works/subcontracts_master.h"
#include "works/units_master.h"

#include <QCoreApplication>

namespace co::ui {

namespace {
forms::OpcionesBusqueda opcionesBusqueda(Aplicacion &aplicacion) {
    forms::OpcionesBusqueda o;
    const ConfiguracionINI &c = aplicacion.configuracion();
    o.usuario = aplicacion.sesion().CodigoUsuario;
    o.desactivarIndicesPorUsuario = c.DesactivarIndicesPorUsuarioEnBusquedas;
    o.busquedaAproximadaActivada = c.BusquedaAproximadaActivada;
    o.ocultos = ControlesNoVisibles::Leer(aplicacion.datos(), o.usuario, c.ModoAdministradorActivado,
                                          c.ModoControlesNoVisiblesActivado);
    o.carpetaPrograma = QCoreApplication::applicationDirPath();
    o.rutaEstructuras = aplicacion.creador().RutaEstructuras();
    return o;
}

template <class Pantalla>
void registrar(TfOBRAMENU &ventana, Aplicacion &aplicacion, forms::Busquedas &busquedas, const char *nombre) {
    ventana.RegistrarPantalla(QString::fromLatin1(nombre),
                              [&aplicacion, &busquedas](QWidget *parent) -> QWidget * {
                                  auto pantalla = std::make_unique<Pantalla>(aplicacion.datos());
                                  AperturaTablas apertura(aplicacion.datos(), aplicacion.creador());
                                  if (!pantalla->Abrir(apertura))
                                      return nullptr;
                                  forms::RutinasFormulario &rutinas = pantalla->Rutinas();
                                  busquedas.Conectar(rutinas.Ventanas);
                                  return new FormView(std::move(pantalla), rutinas, parent);
                              });
}
} // namespace

void RegistrarPantallas(TfOBRAMENU &ventana, Aplicacion &aplicacion) {
    auto *escritorio =
        new BusquedasEscritorio(aplicacion.datos(), [&aplicacion] { return opcionesBusqueda(aplicacion); }, &ventana);
    forms::Busquedas &b = escritorio->busquedas();
    registrar<works::TfOBRAUNID>(ventana, aplicacion, b, "fOBRAUNID");
    registrar<works::TfOBRAMAQU>(ventana, aplicacion, b, "fOBRAMAQU");
    registrar<works::TfOBRASUBC>(ventana, aplicacion, b, "fOBRASUBC");
    registrar<works::TfOBRAINCI>(ventana, aplicacion, b, "fOBRAINCI");
    registrar<works::TfNOMICATE>(ventana, aplicacion, b, "fNOMICATE");
}

} // namespace co::ui
