#pragma once
// Copying values between records: `DuplicarRegistro` for "Agregar con
// Duplicación", the record clipboard of Ctrl+Alt+C / Ctrl+Alt+V, and the
// group copy of Shift+F5.
//
// Contract:
// - `DuplicarRegistro` finds the saved key (the record's key text, "v1;v2;") in
//   a private cursor on the same table and copies every field that is neither
//   in the primary key nor calculated; hour fields go through their time text.
//   Nothing is copied when the key is not found.
// - The clipboard text is every field's text followed by "|" (hour fields as
//   "hh:mm:ss"); an empty dataset gives an empty text. Pasting puts the dataset
//   in Edit when it is not pending and sets each field from the same position;
//   with "SinIndices" the fields of the active index are left alone.
// - The group copy takes the selected field's value from the last record whose
//   key shares all but the last key field with the current one (the last
//   record of the table for a one-field key); keys of more than five fields
//   are not grouped.

#include "core/database.h"
#include "forms/dataset.h"

#include <QString>

namespace co::forms {

class Table;

void DuplicarRegistro(Table &dataset, const QString &claveGuardada);

QString CopiarRegistro(Dataset &dataset);
void PegarRegistro(Dataset &dataset, const QString &texto, const QString &opciones = {});

// False when there was nothing to copy from.
bool CopiarCampoGrupo(Table &dataset, Field &campo);

} // namespace co::forms
