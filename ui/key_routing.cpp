#include "ui/key_routing.h"

namespace co::ui {

bool EnviarTeclaAlFormulario(forms::Form &form, forms::RutinasFormulario &rutinas, const Tecla &tecla) {
    return ProcesarTeclaForm(form, rutinas, tecla);
}

QChar EnviarCaracterAlFormulario(forms::Form &form, forms::RutinasFormulario &rutinas,
                                 QChar caracter, const Tecla &tecla) {
    return ProcesarCaracterForm(form, rutinas, caracter, tecla);
}

} // namespace co::ui
