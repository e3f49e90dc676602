#pragma once
// The dialect step: statement forms the business code writes, rewritten for the
// back-end in use. Only code is rewritten: the inside of every quoted text,
// quoted name and comment reaches the back-end as written (see sql_lexer.h).
//
//  - "SELECT TOP n ..." -> "SELECT ... LIMIT n" (at the end of its own level)
//  - "WITH(NOLOCK)" goes; "<alias>.dbo.<table>" -> "<alias>.<table>"; "dbo." goes
//  - the spellings PartMatOB, PartMaqOB, ParteOB, PartSubOB -> the real tables
//  - SQLite: a midnight date-time 'yyyy-mm-dd 00:00:00' given to a date column
//    (compared with it, assigned to it, or inserted into it by position) becomes
//    'yyyy-mm-dd', the form in which dates are stored, so that equality and
//    ranges hold; the same text given to any other column stays as written
//  - PostgreSQL: "EXEC name args" -> "SELECT * FROM name(args)"; a comparison of a
//    column with '' compares its text, as any type can be tested for empty
//
// The work is linear in the length of the statement.

#include "core/backend.h"

#include <QSet>
#include <QString>

namespace co {

// Upper-case names of the date and date-time columns of the structure files.
using ColumnasFecha = QSet<QString>;

QString AdaptarSentencia(const QString &sql, Backend backend,
                         const ColumnasFecha *fechas = nullptr);

// Identifiers (words) of a statement outside its literals, as written.
QStringList IdentificadoresDeSentencia(const QString &sql, Backend backend = Backend::SQLite);

} // namespace co
