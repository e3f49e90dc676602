#pragma once
// The dialect step: statement forms the business code writes, rewritten for the
// back-end in use. Literals are never touched.
//
//  - "SELECT TOP n ..." -> "SELECT ... LIMIT n" (at the end of its own level)
//  - "WITH(NOLOCK)" goes; "<alias>.dbo.<table>" -> "<alias>.<table>"; "dbo." goes
//  - the spellings PartMatOB, PartMaqOB, ParteOB, PartSubOB -> the real tables
//  - SQLite: a midnight date-time literal 'yyyy-mm-dd 00:00:00' -> 'yyyy-mm-dd',
//    the form in which dates are stored, so that equality and ranges hold
//  - PostgreSQL: "EXEC name args" -> "SELECT * FROM name(args)"; a comparison of a
//    column with '' compares its text, as any type can be tested for empty

#include "core/backend.h"

#include <QString>

namespace co {

QString AdaptarSentencia(const QString &sql, Backend backend);

// Identifiers (words) of a statement outside its literals, as written.
QStringList IdentificadoresDeSentencia(const QString &sql);

} // namespace co
