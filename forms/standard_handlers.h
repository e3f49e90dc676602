#pragma once
// The handlers every master wires the same way, given to a form that does not
// publish its own: navigation buttons, `AgregarClick`, `Eliminar1Click`,
// `pbConformeClick` (`GrabarDatos`), `pbCancelarClick` and the button switch
// on `DataSource1StateChange`. Call before `Form::ConectarEventos`.
//
// - Prior / next at the ends: "Está Vd. en el primer registro" /
//   "Está Vd. en el último registro".
// - Delete only in Browse on a non-empty dataset, after "¿ Está seguro de
//   querer eliminar el registro ?"; a failure: "¡ Este registro no puede
//   eliminarse !".
// - Post from Edit failing: "¡ Imposible modificar el registro. Es posible que
//   esté siendo modificado por otro usuario. !"; from Insert: "¡ Este registro
//   ya existe !"; both cancel. After an insert the next new record starts.
// - Grid masters: editing with a key column selected gives "¡ No se puede
//   modificar la clave del registro !" and aborts (`Table1BeforeEdit`).
// - The switch enables `pbConforme`, `pbCancelar`, `CancelarEdicion1` while
//   pending and the browsing items otherwise.

#include "forms/maintenance_routines.h"

namespace co::forms {

void ManejadoresEstandar(Form &form, RutinasFormulario &rutinas, FamiliaFormulario familia);

// `GrabarDatos`: false when the post failed (told and cancelled). A form may
// give its own text for a refused change of an edited record.
bool GrabarDatos(Form &form, Dataset &dataset, RutinasFormulario &rutinas,
                 FamiliaFormulario familia, const QString &textoModificacionFallida = {});

void ConmutarBotones(Form &form, bool editando);

} // namespace co::forms
