#pragma once
// The general screens (`fGENE...`), added to the program's screens under
// their form names, as each subsystem adds its own.

#include "forms/screen_opening.h"

#include <functional>

namespace co {
class Aplicacion;
}

namespace co::forms {

// What the general screens take from the company session: what runs after
// each post of the general parameters (`ParamGeneralesAfterPost`).
struct SesionGeneral {
    std::function<void()> parametrosGrabados;
};

// The session's part: the application re-reads its currency values.
SesionGeneral SesionGeneralDe(Aplicacion &aplicacion);

void RegistrarPantallasGenerales(RegistroPantallas &registro, SesionGeneral sesion = {});

} // namespace co::forms
