#pragma once
// A name as a quoted SQL identifier, the one form in which a name taken from
// settings or from a user reaches a statement: double quotes, inner quotes
// doubled. Quoted names keep their case, so data names are given as the
// back-ends store them (lower case; see NombreDatosSQL).

#include <QString>

namespace co {

QString IdentificadorSQL(const QString &nombre);

// The stored name of a schema or attached database, quoted: PostgreSQL folds
// unquoted names to lower case, and SQLite ignores case in them.
QString NombreDatosSQL(const QString &nombre);

} // namespace co
