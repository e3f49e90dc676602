#pragma once
// Numbers typed by users or read from files, in the system format of Spain:
// "," before the decimals and "." between thousands.

#include <QString>

namespace co {

class Messenger;

// The number of a text. Without options the thousand separators "." are
// removed and "," is the decimal sign. With the option word `PuntoDecimal`
// in `opciones`, "," are removed and "." is the decimal sign. Blanks around
// the number, a sign and an exponent ("1,5E3") are allowed. A text that
// isn't a finite number throws Failure("'<text>' is not a valid floating
// point value").
double TextoANumero(const QString &texto, const QString &opciones = {});

// True when the text converts. When it doesn't and a label is given, warns
// "¡El valor de <label> es incorrecto! Repita por favor" through `mensajes`.
bool NumeroValido(const QString &texto, const QString &etiqueta, Messenger *mensajes);

} // namespace co
