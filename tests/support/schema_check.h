#pragma once
// Compares the tables of one database with their definitions, reading the
// back-end's catalog directly (nothing is made or repaired on the way).

#include "core/database.h"

#include <QString>
#include <QStringList>

namespace co::test {

// The tables in the first schema of the connection, upper case, sorted.
QStringList TablasEnBase(TModuloDatos &datos, const QString &conexion);

// The index names of `tabla` on the connection, upper case, sorted; the
// back-end's own indexes of a key are left out.
QStringList IndicesDeTabla(TModuloDatos &datos, const QString &conexion, const QString &tabla);

// One line per defect of the tables that `estructuras` defines and the
// connection holds: a column, the key, an index or an index's fields that
// differ from the definition. Tables it does not define are not looked at;
// user-defined fields are not expected. Empty when every such table is whole.
QStringList DefectosEsquema(TModuloDatos &datos, const QString &conexion,
                            const QString &estructuras);

} // namespace co::test
