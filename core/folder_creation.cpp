#include "core/folder_creation.h"

#include <QDir>
#include <QFileInfo>

namespace co {

bool CrearCarpeta(const QString &carpeta, QString *motivo) {
    const QString path = QDir(carpeta).absolutePath();
    if (QFileInfo(path).isDir() || QDir().mkpath(path))
        return true;
    if (!motivo)
        return false;
    // The nearest part of the path that exists tells why.
    QString existing = path;
    while (!QFileInfo::exists(existing) && QFileInfo(existing).path() != existing)
        existing = QFileInfo(existing).path();
    const QFileInfo in(existing);
    if (!in.isDir())
        *motivo = QStringLiteral("No ha sido posible crear la carpeta %1: %2 no es una carpeta.")
                      .arg(path, existing);
    else if (!in.isWritable())
        *motivo =
            QStringLiteral("No ha sido posible crear la carpeta %1: no se puede escribir en %2.")
                .arg(path, existing);
    else
        *motivo = QStringLiteral("No ha sido posible crear la carpeta %1.").arg(path);
    return false;
}

} // namespace co
