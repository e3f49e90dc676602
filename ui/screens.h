#pragma once
// Registers the program's screens in the main window, each under its form
// name. Each subsystem names its own screens; they open through the shared
// opening routine (forms/screen_opening.h) and are drawn here.

#include "core/startup.h"
#include "ui/main_window.h"
#include "works/screens.h"

namespace co::forms {
class Busquedas;
}

namespace co::ui {

// The searches the screens share are returned; the main window owns them.
forms::Busquedas &RegistrarPantallas(TfOBRAMENU &ventana, Aplicacion &aplicacion,
                                     works::SesionObra obra = {});

} // namespace co::ui
