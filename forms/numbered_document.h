#pragma once
// Numbered documents: a new record takes in its number field the next number
// (`SiguienteNumero`, increment 1, no bounds) within the leading key fields.
// Next-number reads take no lock, so another session may post the same number
// first; the post of a new record whose key is already stored then asks
// "¿Desea que se reasigne uno nuevo?": on "SI" the next number is taken and the
// post goes on, on "NO" the post goes on and is refused as any repeated key.
// A master turns this on with `MaestroTabla::NumerarDocumento`.

#include "forms/maintenance_routines.h"
#include "forms/table.h"

namespace co::forms {

// `Table1NewRecord`: the next number into `campo`.
void NumeroNuevo(Table &tabla, const QString &campo);

// `Table1BeforePost`: on a new record whose key is taken, the question above.
void ReasignarNumeroRepetido(Table &tabla, const QString &campo, RutinasFormulario &rutinas);

} // namespace co::forms
