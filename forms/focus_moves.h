#pragma once
// Where the keys of a record screen act: the dataset under the focus and the
// focus moves of Enter, which the view follows through the form's focused
// control and the grids' selected columns.

namespace co::forms {

class Component;
class Dataset;
class DBGrid;
class Field;
class Form;

bool EsTextoMultilinea(const Component *c);
// The dataset of the focused grid or data control, else of `DataSource1`.
Dataset *DatasetEnfocado(Form &form);
// The field under the focus: a grid's selected field or a data control's field.
Field *CampoEnfocado(Form &form);
// The next visible, enabled control in the form's order, wrapping round.
bool SiguienteControl(Form &form);
// The grid's next visible column; from the last one, the first column of the
// next record.
bool SiguienteColumna(Form &form, DBGrid &grid);

} // namespace co::forms
