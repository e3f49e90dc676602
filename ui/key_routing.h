#pragma once
// The one place where the view hands keys and characters to the key map.

#include "forms/form.h"
#include "forms/key_map.h"
#include "forms/maintenance_routines.h"

namespace co::ui {

using co::Tecla;

bool EnviarTeclaAlFormulario(forms::Form &form, forms::RutinasFormulario &rutinas, const Tecla &tecla);
QChar EnviarCaracterAlFormulario(forms::Form &form, forms::RutinasFormulario &rutinas,
                                 QChar caracter, const Tecla &tecla);

} // namespace co::ui
