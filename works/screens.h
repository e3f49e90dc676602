#pragma once
// The works screens, added to the program's screens under their form names.

#include "forms/screen_opening.h"

#include <functional>

namespace co::works {

class TMDObra;

// What the works screens take from the company session: its works data module
// (none before a company is chosen, or in a screen opened alone), and what
// runs when the works parameters screen closes.
struct SesionObra {
    std::function<const TMDObra *()> modulo;
    std::function<void()> parametrosCambiados;
};

void RegistrarPantallasObras(forms::RegistroPantallas &registro, SesionObra obra = {});

} // namespace co::works
