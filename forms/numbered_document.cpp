#include "forms/numbered_document.h"

#include "core/session.h"

namespace co::forms {

void NumeroNuevo(Table &tabla, const QString &campo) {
    tabla.FieldByName(campo).SetAsInteger(tabla.Datos().SiguienteNumero(tabla));
}

void ReasignarNumeroRepetido(Table &tabla, const QString &campo, RutinasFormulario &rutinas) {
    if (tabla.State() != DatasetState::Insert)
        return;
    Messenger &m = rutinas.Datos().sesion().mensajes();
    // A number read again may be taken once more by the time it is checked.
    while (rutinas.ExisteClave(tabla, rutinas.TextoClave(tabla))) {
        if (m.MensajeC(QStringLiteral("¿Desea que se reasigne uno nuevo?")) != u"SI")
            return;
        NumeroNuevo(tabla, campo);
    }
}

} // namespace co::forms
