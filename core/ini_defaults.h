#pragma once
// The INI file a new installation starts with: every key of the sections
// "Configuración", "Microsoft SQL Server" and "Reconstrucción Automática de
// Tablas" with its default value, so that a reader sees what can be set. Read
// back, it gives exactly the defaults of a missing file.

#include <QString>

namespace co {

// The file's text; `claveServidor` goes scrambled into `PasswordInicioSesion`
// (empty when there is none). Returns an empty text when the password has a
// character that cannot be scrambled.
QString TextoINIInicial(const QString &claveServidor = {});

// Writes `archivo` with that text when it does not exist; an existing file is
// left as it is, except that a given `claveServidor` is written into it.
// False and a Spanish `motivo` on failure.
bool CrearArchivoINI(const QString &archivo, const QString &claveServidor, QString *motivo);

} // namespace co
