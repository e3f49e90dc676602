#include "works/screens.h"

#include "works/categories_master.h"
#include "works/incidents_master.h"
#include "works/machines_master.h"
#include "works/subcontracts_master.h"
#include "works/units_master.h"
#include "works/works_parameters.h"

namespace co::works {

namespace {

// A screen that reads the works settings gets the session's module.
template <class Pantalla>
void registrar(forms::RegistroPantallas &registro, const char *nombre, const SesionObra &obra,
               std::function<void(Pantalla &)> ajustar = {}) {
    registro.Registrar(QString::fromLatin1(nombre), [obra, ajustar](TModuloDatos &datos) {
        auto pantalla = std::make_unique<Pantalla>(datos);
        if constexpr (requires { pantalla->ModuloObra.Usar(std::declval<const TMDObra &>()); })
            if (const TMDObra *modulo = obra.modulo ? obra.modulo() : nullptr)
                pantalla->ModuloObra.Usar(*modulo);
        if (ajustar)
            ajustar(*pantalla);
        return std::unique_ptr<forms::MaestroTabla>(std::move(pantalla));
    });
}

} // namespace

void RegistrarPantallasObras(forms::RegistroPantallas &registro, SesionObra obra) {
    registrar<TfOBRAUNID>(registro, "fOBRAUNID", obra);
    registrar<TfOBRAMAQU>(registro, "fOBRAMAQU", obra);
    registrar<TfOBRASUBC>(registro, "fOBRASUBC", obra);
    registrar<TfOBRAINCI>(registro, "fOBRAINCI", obra);
    registrar<TfNOMICATE>(registro, "fNOMICATE", obra);
    registrar<TfOBRAPARA>(registro, "fOBRAPARA", obra,
                          [obra](TfOBRAPARA &p) { p.AlCerrar = obra.parametrosCambiados; });
}

} // namespace co::works
