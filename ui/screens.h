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

namespace co::ui {

// `parametrosObraCambiados` runs when the works parameters screen closes. The
// searches the screens share are returned; the main window owns them.
forms::Busquedas &RegistrarPantallas(TfOBRAMENU &ventana, Aplicacion &aplicacion,
                                     std::function<void()> parametrosObraCambiados = {});

} // namespace co::ui
