#pragma once
// The actions of the keys that work on the focused field or control: clearing
// a value (Ctrl+I), coded texts (Ctrl+T), search (F2), hiding controls (F8),
// the access history (Ctrl+A) and printed form configuration (Ctrl+P).
// `ProcesarTeclaForm` decides when they apply; each returns true when it acted.
//
// A key or menu item whose window is not in this build tells so in one
// message, `FuncionNoDisponible`, instead of doing nothing.

#include <QString>

namespace co::forms {

class Form;
class RutinasFormulario;

// A number gets 0, anything else is cleared; a dataset in Browse goes to Edit.
bool VaciarCampo(Form &form);
// Replaces the focused text with the `TEXTO` row of that code; with no row the
// search window on `TEXTO` chooses the code. A "Plantilla" goes through its form.
bool ExpandirTextoCodificado(Form &form, RutinasFormulario &rutinas);
bool BuscarF2(Form &form, RutinasFormulario &rutinas);
bool OcultarControl(Form &form, RutinasFormulario &rutinas);
bool HistorialRegistro(Form &form, RutinasFormulario &rutinas);
bool ConfigurarImpreso(Form &form, RutinasFormulario &rutinas);

// "Esta función aún no está disponible en esta versión.", as information.
void FuncionNoDisponible(RutinasFormulario &rutinas);

} // namespace co::forms
