#pragma once
// The record of `PARAGENE` (`IdRegistro` = 1) in the current company's data,
// read and written through the statement layer.

#include "core/database.h"

#include <QString>
#include <QVariantHash>
#include <optional>

namespace co {

// The record as field -> value, under the field names of the screen; nullopt
// when there is no record or it cannot be read.
std::optional<QVariantHash> LeerParametrosGenerales(TModuloDatos &datos);

// Inserts the record with its defaults when the company has none. Returns false
// when the statement fails.
bool CrearParametrosGenerales(TModuloDatos &datos);

// Saves the given fields of the record (creating it with its defaults first when
// missing) after the rules of `ComprobarGrabacionPARAGENE`, in one statement.
// A refused save shows the message as a warning, writes nothing and returns false;
// so does a field name that is not a field of the record.
bool GrabarParametrosGenerales(TModuloDatos &datos, QVariantHash registro);

} // namespace co
