#include "core/settings_file.h"

#include <QFile>
#include <cerrno>
#include <cstring>
#include <sys/stat.h>

namespace co {
namespace {

ArchivoParametros ilegible(const QString &motivo) {
    ArchivoParametros a;
    a.estado = ArchivoParametros::Estado::Ilegible;
    a.motivo = motivo;
    return a;
}

QString demasiadoGrande() {
    return QStringLiteral("el archivo ocupa más de %1 KB y no puede ser un archivo de parámetros")
        .arg(kTamanoMaximoArchivoParametros / 1024);
}

} // namespace

ArchivoParametros LeerArchivoParametros(const QString &ruta) {
    // stat() follows links and never blocks, unlike an open of a named pipe.
    struct stat info {};
    if (::stat(QFile::encodeName(ruta).constData(), &info) != 0) {
        if (errno == ENOENT || errno == ENOTDIR)
            return {};
        return ilegible(QString::fromLocal8Bit(std::strerror(errno)));
    }
    if (S_ISDIR(info.st_mode))
        return ilegible(QStringLiteral("es una carpeta"));
    if (!S_ISREG(info.st_mode))
        return ilegible(QStringLiteral("no es un archivo normal"));
    if (info.st_size > kTamanoMaximoArchivoParametros)
        return ilegible(demasiadoGrande());
    QFile file(ruta);
    if (!file.open(QIODevice::ReadOnly))
        return ilegible(file.errorString());
    ArchivoParametros a;
    // One byte beyond the limit tells a file that grew since stat().
    a.contenido = file.read(kTamanoMaximoArchivoParametros + 1);
    if (file.error() != QFileDevice::NoError)
        return ilegible(file.errorString());
    if (a.contenido.size() > kTamanoMaximoArchivoParametros)
        return ilegible(demasiadoGrande());
    a.estado = ArchivoParametros::Estado::Ok;
    return a;
}

} // namespace co
