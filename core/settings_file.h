#pragma once
// Reading the small text files that hold an installation's settings
// (`INSTALACION`, `NAROWIN.INI`) without trusting them: only a regular file is
// opened (a device or a named pipe would never end, or never start), and no more
// than `kTamanoMaximoArchivoParametros` bytes are read.

#include <QByteArray>
#include <QString>

namespace co {

// Far above any real settings file, far below what would hurt the process.
inline constexpr qint64 kTamanoMaximoArchivoParametros = 1024 * 1024;

struct ArchivoParametros {
    enum class Estado { Ok, NoExiste, Ilegible };
    Estado estado = Estado::NoExiste;
    QByteArray contenido;
    // Why it could not be read: a Spanish sentence, without the file's name.
    QString motivo;
};

// Reads `ruta` whole. A missing file gives NoExiste; a folder, a device, a pipe,
// a file beyond the size limit or one that fails to read gives Ilegible.
ArchivoParametros LeerArchivoParametros(const QString &ruta);

} // namespace co
