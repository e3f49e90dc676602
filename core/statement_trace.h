#pragma once
// The optional trace of statements: one line per statement run, appended to
// a file named by the session (no trace while the name is empty).

#include <QDateTime>
#include <QString>

namespace co {

// user + "|" + "yyyy/mm/dd" + "|" + "hh:nn:ss:zzz" + "|" + the statement with
// its line breaks turned into blanks.
QString LineaTrazaSQL(const QString &user, const QDateTime &when, const QString &sql);

// Appends one line; nothing when `fileName` is empty. False when the file
// couldn't be written.
bool AnadirTrazaSQL(const QString &fileName, const QString &line);

} // namespace co
