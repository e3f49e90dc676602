#include "ui/key_routing.h"

namespace co::ui {

// The key map's entry points name `co::Form` and `co::RutinasFormulario`, which
// are declared apart from the framework's classes; the casts go once the key
// map takes `forms::Form` and `forms::RutinasFormulario`.
bool EnviarTeclaAlFormulario(forms::Form &form, forms::RutinasFormulario &rutinas,
                             const Tecla &tecla) {
    return ProcesarTeclaForm(reinterpret_cast<co::Form &>(form),
                             reinterpret_cast<co::RutinasFormulario &>(rutinas), tecla);
}

QChar EnviarCaracterAlFormulario(forms::Form &form, QChar caracter, const Tecla &tecla) {
    return ProcesarCaracterForm(reinterpret_cast<co::Form &>(form), caracter, tecla);
}

} // namespace co::ui
