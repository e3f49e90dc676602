#pragma once
// The keyboard state a session keeps for its record screens: the keystroke log
// (read by the coded-text key in grids), the record clipboard, the controls
// picked for hiding in administrator mode and the user's option that keeps the
// keypad point as a point. The session object owns it (`TfGENEINIC::Teclado`)
// and the key routines are handed it; nothing here is process-wide.
//
// Key codes are the classic virtual key codes the log is defined on: letters
// and digits as their upper-case characters, keypad digits 96-105, keypad
// operators 106-111 (110 the decimal point), F1-F11 112-122, arrows 37-40.

#include "core/hidden_controls.h"

#include <QString>
#include <Qt>

namespace co {

// A key as Qt gives it (qnamespace.h, QtCore): the view passes
// QKeyEvent::key() and QKeyEvent::modifiers() as they are.
struct Tecla {
    int key = 0;
    Qt::KeyboardModifiers modifiers;
    // The key came from the numeric keypad (Qt::KeypadModifier is also set then).
    bool tecladoNumerico() const { return modifiers.testFlag(Qt::KeypadModifier); }
};

struct EstadoTeclado {
    QString Pulsaciones;  // the keystroke log
    int UltimaTecla = 0;  // virtual code of the last key
    QString Portapapeles; // the record clipboard: each field's text followed by "|"
    QString DesactivarPuntoPorComaDecimal = QStringLiteral("NO");
    ListaControlesSesion ControlesSeleccionados; // picked with F8

    // Appends a key to the log: codes 40 to 122 with no modifier as their
    // character, anything else as "|" (never two in a row); a log past 10000
    // characters is emptied first.
    void RegistrarPulsacion(const Tecla &tecla);
    // The last word of the log: the text typed since the last other key.
    QString UltimaPalabra() const;
};

// The virtual key code of a Qt key; 0 for keys without one.
int CodigoTeclaVirtual(const Tecla &tecla);

} // namespace co
