#pragma once
// The searches of code fields: what F2 and a double click run on a control.
// A screen declares the search of each code field (`Form::DeclararBusqueda`);
// a handler of its own (`<grid>DblClick`, `BuscarDatosDBEdit`) takes precedence.

namespace co::forms {

class Component;
class Field;
class Form;
class RutinasFormulario;

// The declared search of `campo`: the search window on its table, and a key
// chosen stored in the field (the dataset goes to Edit, or to a new record when
// it is empty). A cancelled search leaves the field as it was. False when the
// field declares no search.
bool BuscarDatosCampo(Form &form, RutinasFormulario &rutinas, Field &campo);

// A double click on a control: its OnDblClick binding, else the handler
// "<name>DblClick", else the declared search of its field (the selected column
// of a grid, the field of a data edit). False when nothing ran, so that the
// view may treat the click as its own.
bool DobleClic(Form &form, RutinasFormulario &rutinas, Component &control);

} // namespace co::forms
