#pragma once
// Session values read at start: the help contexts of "NAROWIN.MAP", the
// version date of the program, and the version of the database server.

#include "core/backend.h"

#include <QDate>
#include <QHash>
#include <QString>

namespace co {

// "NAROWIN.MAP": each line two blank-separated words, read as first=second with
// the remaining blanks turned into "_". A missing file gives no contexts.
QHash<QString, QString> LeerMapaAyuda(const QString &archivo);

// The help context of a window by its caption (ampersands dropped, blanks as
// "_"); 0 without an entry.
int ContextoAyuda(const QHash<QString, QString> &mapa, const QString &caption);

// The date of the program's file plus one day, "dd/mm/yyyy"; today when the
// file's date cannot be read.
QString CalcularFechaVersion(const QString &ejecutable, const QDate &hoy = QDate::currentDate());

// The statement that gives the server's version on each back-end.
QString SentenciaVersionServidor(Backend backend);

} // namespace co
