#include "ui/screens.h"

#include "ui/form_view.h"
#include "works/categories_master.h"
#include "works/incidents_master.h"
#include "works/machines_master.h"
#include "works/subcontracts_master.h"
#include "works/units_master.h"

namespace co::ui {

namespace {
template <class Pantalla>
void registrar(TfOBRAMENU &ventana, Aplicacion &aplicacion, const char *nombre) {
    ventana.RegistrarPantalla(QString::fromLatin1(nombre),
                              [&aplicacion](QWidget *parent) -> QWidget * {
                                  auto pantalla = std::make_unique<Pantalla>(aplicacion.datos());
                                  AperturaTablas apertura(aplicacion.datos(), aplicacion.creador());
                                  if (!pantalla->Abrir(apertura))
                                      return nullptr;
                                  forms::RutinasFormulario &rutinas = pantalla->Rutinas();
                                  return new FormView(std::move(pantalla), rutinas, parent);
                              });
}
} // namespace

void RegistrarPantallas(TfOBRAMENU &ventana, Aplicacion &aplicacion) {
    registrar<works::TfOBRAUNID>(ventana, aplicacion, "fOBRAUNID");
    registrar<works::TfOBRAMAQU>(ventana, aplicacion, "fOBRAMAQU");
    registrar<works::TfOBRASUBC>(ventana, aplicacion, "fOBRASUBC");
    registrar<works::TfOBRAINCI>(ventana, aplicacion, "fOBRAINCI");
    registrar<works::TfNOMICATE>(ventana, aplicacion, "fNOMICATE");
}

} // namespace co::ui
