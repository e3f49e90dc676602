#include "ui/key_routing.h"

namespace co::ui {

bool EnviarTeclaAlFormulario(forms::Form &form, forms::RutinasFormulario &rutinas, const Tecla &tecla) {
    return forms::ProcesarTeclaForm(form, rutinas, tecla);
}

QChar EnviarCaracterAlFormulario(forms::Form &form, QChar caracter, const Tecla &tecla) {
    return forms::ProcesarCaracterForm(form, caracter, tecla);
}

} // namespace co::ui
