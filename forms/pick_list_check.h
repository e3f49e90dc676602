#pragma once
// The pick-list check of `Table1BeforePost` and of leaving a column: the
// focused grid column with a pick list, or the focused data combo box, accepts
// only a text equal to one of its items. It is skipped when the focus is on
// `pbCancelar`, when the record is being left empty (its first field holds no
// text) and for an empty value.

#include "core/messages.h"

#include <QString>

namespace co::forms {

class DataControl;
class DBGrid;
class Form;

// A field name as words: "PorcentajeIVA" -> "Porcentaje IVA".
QString EtiquetaCampo(const QString &nombreCampo);

// False after the warning `¡ El valor "<v>" de la columna "<title>" no es
// correcto !` or `¡El valor "<v>" del campo "<label>" no es correcto!`.
bool ComprobarListasValores(Form &form, Messenger &mensajes);

// The same check on one grid column or one data combo box, whatever has the
// focus; an empty value or an empty list passes.
bool ComprobarColumnaLista(const DBGrid &grid, int columna, Messenger &mensajes);
bool ComprobarControlLista(const DataControl &combo, Messenger &mensajes);

} // namespace co::forms
