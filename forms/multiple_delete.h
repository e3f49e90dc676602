#pragma once
// Deleting many records and the data attached to a record.
//
// Contract:
// - `EliminacionMultiple` asks twice; on two "SI" it deletes from the first
//   active record (range and filter apply) to the end. A refused delete stops
//   with "¡Imposible eliminar el registro!"; what was deleted stays deleted.
// - `EliminarDatosAsociados` runs six deletes on `Database` for the record's key
//   ("|" between the parts): responsibility, documents, pictures, analysis
//   groups, contacts, relations. All six run; each failure is warned with its
//   text and the reason, and the result is false when any failed.

#include "core/database.h"
#include "core/messages.h"
#include "forms/dataset.h"

namespace co::forms {

class Table;

void EliminacionMultiple(Dataset &dataset, Messenger &mensajes);

// The record key for the attachment tables: `ValorClave` with "|" for ";" and
// no trailing separator.
QString ClaveAdjuntos(TModuloDatos &datos, Table &table);

bool EliminarDatosAsociados(TModuloDatos &datos, Table &table);

} // namespace co::forms
