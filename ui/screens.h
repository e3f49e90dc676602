#pragma once
// Registers the record screens in the main window, each under its form name.
// Every screen is prepared as the record screens are (rights, shared handlers,
// hidden controls) before its tables open.

#include "core/startup.h"
#include "ui/main_window.h"

#include <functional>

namespace co::forms {
class Busquedas;
}
namespace co::works {
class TMDObra;
}

namespace co::ui {

// What the screens take from the company session: its works data module
// (none before a company is chosen), and what runs when the works parameters
// screen closes.
struct SesionObra {
    std::function<const works::TMDObra *()> modulo;
    std::function<void()> parametrosCambiados;
};

// The searches the screens share are returned; the main window owns them.
forms::Busquedas &RegistrarPantallas(TfOBRAMENU &ventana, Aplicacion &aplicacion,
                                     SesionObra obra = {});

} // namespace co::ui
