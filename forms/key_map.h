#pragma once
// The key map of the record screens: what a keystroke does on a form, decided
// without widgets. The view layer hands every key press of a screen to
// `ProcesarTeclaForm` first, and every typed character to
// `ProcesarCaracterForm`; a key or character they consume is not given to the
// widget.
//
// Keys use Qt's key codes and modifiers (qnamespace.h, QtCore), so the view
// passes QKeyEvent::key() and QKeyEvent::modifiers() as they are.

#include "core/keystroke_log.h"

#include <QChar>
#include <QString>

namespace co::forms {
class Form;
class RutinasFormulario;
} // namespace co::forms

namespace co {

// True when the form consumed the key. The form's focused control and selected
// grid column say where the key was pressed.
bool ProcesarTeclaForm(forms::Form &form, forms::RutinasFormulario &rutinas, const Tecla &tecla);

// The character to give to the widget (the keypad's point becomes "," or ":" in
// number and hour fields, as the session's keyboard option says); a null QChar
// when the form consumed it.
QChar ProcesarCaracterForm(forms::Form &form, forms::RutinasFormulario &rutinas, QChar caracter,
                           const Tecla &tecla);

} // namespace co
