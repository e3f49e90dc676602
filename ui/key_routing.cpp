#include "ui/key_routing.h"

namespace co::ui {

bool EnviarTeclaAlFormulario(forms::Form &form, forms::RutinasFormulario &rutinas, const Tecla &tecla) {
    return ProcesarTeclaForm(form, rutinas, tecla);
}

QChar EnviarCaracterAlFormulario(forms::Form &form, QChar caracter, const Tecla &tecla) {
    return ProcesarCaracterForm(form, caracter, tecla);
}

} // namespace co::ui
