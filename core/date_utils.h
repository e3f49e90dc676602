#pragma once
// Dates typed by users, in the system format of Spain: "dd/mm/yyyy", with an
// optional time "hh:mm[:ss]".

#include <QDateTime>
#include <QString>

namespace co {

class Messenger;

// "1/1/1890": the lowest date, itself refused by FechaValida.
QDate FechaMinima();
// 30/12/1899 00:00:00: the null date of a date column.
QDateTime FechaNula();
// 31/12/9940 23:59:59: the seek value for the last record by a date key.
QDateTime FechaUltimoRegistro();

// A four-digit year: above 99 as it is, below 50 in the 2000s, 50 to 99 in
// the 1900s.
int CompletarAnio(int anio);

// The date and time of a text "d/m/y[ h:m[:s]]"; a year of one or two digits
// goes through CompletarAnio. Anything else, or a date that doesn't exist,
// throws Failure("'<text>' is not a valid date").
QDateTime TextoAFecha(const QString &texto);

// True when the text is a date after 1/1/1890. When it isn't and a label is
// given, warns "¡La fecha de <label> es incorrecta! Repita por favor".
bool FechaValida(const QString &texto, const QString &etiqueta, Messenger *mensajes);

} // namespace co
