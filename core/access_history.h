#pragma once
// The access history of one record: the rows of `REGACCES` for its table and
// key, newest first, ready for the list viewer. This program only reads the
// table; another program of the suite writes it.
//
// Contract:
// - The key is the record's `ValorClave` text ("v1;v2;") with ";" turned into
//   "|"; rows stored with or without the trailing separator both match.
// - Each row is a line "CodigoUsuario|Fecha|Accion|Datos" with the date as the
//   system shows it and, in `Datos`, line breaks as blanks and "|" as "·".

#include "core/database.h"

#include <QString>
#include <QStringList>
#include <optional>

namespace co {

struct HistorialAccesos {
    QString definicion; // the window definition of the list viewer
    QStringList lineas;
};

// The key text used in `REGACCES`: every ";" of `valorClave` as "|".
QString ClaveHistorial(const QString &valorClave);

QString SentenciaHistorialAccesos(const QString &tabla, const QString &clave);
QString DefinicionHistorialAccesos(const QString &tabla, const QString &clave);

// nullopt when the statement fails (the statement layer has told why).
std::optional<HistorialAccesos> HistorialAccesosRegistro(TModuloDatos &datos, const QString &tabla,
                                                         const QString &valorClave);

} // namespace co
