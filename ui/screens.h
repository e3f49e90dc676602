#pragma once
// Registers the record screens in the main window, each under its form name.

#include "core/startup.h"
#include "ui/main_window.h"

namespace co::ui {

void RegistrarPantallas(TfOBRAMENU &ventana, Aplicacion &aplicacion);

} // namespace co::ui
