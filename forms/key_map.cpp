#include "forms/key_map.h"

#include "forms/form.h"
#include "forms/maintenance_routines.h"

namespace co::forms {

// The keys of the record screens are added here one by one, each with its test.
bool ProcesarTeclaForm(Form &, RutinasFormulario &, const Tecla &) { return false; }

QChar ProcesarCaracterForm(Form &, QChar caracter, const Tecla &) { return caracter; }

} // namespace co::forms
