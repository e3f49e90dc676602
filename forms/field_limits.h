#pragma once
// What a field can hold, checked before a record is written: a text no longer
// than its declared width, a whole number within its type (small integer
// -32768..32767, integer -2147483648..2147483647, word 0..65535) and a
// percentage (`Porcentaje...`, the general parameters' `Iva<n>` and
// `Recargo<n>`) between 0 and 100. Nothing is cut or changed: the value stays
// as typed so that the user can correct it.

#include <QString>

namespace co::forms {

class Field;

// The Spanish message for a value `campo` cannot hold; empty when it can.
//  - "¡El valor de <etiqueta> no puede tener más de <n> caracteres! Repita por favor"
//  - "¡El valor de <etiqueta> debe estar entre 0 y 100! Repita por favor"
//  - "¡El valor de <etiqueta> es incorrecto! Repita por favor"
QString ProblemaValorCampo(const Field &campo);

// Whether a field of this name holds a percentage.
bool EsCampoPorcentaje(const QString &nombreCampo);

} // namespace co::forms
