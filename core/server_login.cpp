#include "core/server_login.h"

#include "core/ini_configuration.h"
#include "core/ini_file.h"
#include "core/login.h"
#include "core/password_scramble.h"

#include <QDir>
#include <QFile>

namespace co {

bool EsFalloClaveServidor(const QString &motivo) {
    // libpq's words, and the server's in English or Spanish.
    static const QStringList kTextos = {
        QStringLiteral("password authentication failed"),
        QStringLiteral("no password supplied"),
        QStringLiteral("autentificación password falló"),
        QStringLiteral("autenticación password falló"),
        QStringLiteral("Unknown user name or password"),
    };
    for (const QString &texto : kTextos)
        if (motivo.contains(texto, Qt::CaseInsensitive))
            return true;
    return false;
}

std::optional<QString> PedirClaveServidor(Messenger &mensajes, bool *reintentar) {
    *reintentar = false;
    const std::optional<QString> clave =
        mensajes.InputQuery(kPreguntaClaveServidor, kValorClaveOculta);
    // The masked box's own value back means nobody typed anything.
    if (!clave || *clave == kValorClaveOculta)
        return std::nullopt;
    if (clave->isEmpty() && mensajes.MensajeC(kPreguntaClaveEnBlanco) == u"NO") {
        *reintentar = true;
        return std::nullopt;
    }
    return clave;
}

bool GuardarClaveServidor(const QString &archivoINI, const QString &clave, QString *motivo) {
    QString cifrada;
    if (!CifrarClave(clave, cifrada)) {
        if (motivo)
            *motivo = QStringLiteral("La clave tiene caracteres que no se pueden guardar en el "
                                     "archivo %1.")
                          .arg(archivoINI);
        return false;
    }
    if (!EscribirClaveINI(archivoINI, kSeccionMSSQL, QStringLiteral("PasswordInicioSesion"),
                          cifrada, motivo))
        return false;
    // Scrambled is not hidden: the file is for its owner's eyes alone.
    if (!clave.isEmpty() &&
        !QFile::setPermissions(archivoINI, QFileDevice::ReadOwner | QFileDevice::WriteOwner)) {
        if (motivo)
            *motivo = QStringLiteral("No ha sido posible proteger el archivo %1.").arg(archivoINI);
        return false;
    }
    return true;
}

bool RetirarClaveInstalacion(const QString &carpeta, const QString &archivoINI,
                             InstallationSettings &settings, QString *motivo) {
    QString clave;
    const QString sinClave = ServidorSinClave(settings.ServidorBaseDatos, &clave);
    if (sinClave == settings.ServidorBaseDatos)
        return true;
    if (settings.ClaveInicioSesion.isEmpty()) {
        if (!GuardarClaveServidor(archivoINI, clave, motivo))
            return false;
        settings.ClaveInicioSesion = clave;
    }
    InstallationSettings escrita = settings;
    escrita.ServidorBaseDatos = sinClave;
    // The file stays movable, as `init` wrote it.
    if (QDir(escrita.PathBaseDatosGeneral) == QDir(carpeta))
        escrita.PathBaseDatosGeneral = QStringLiteral(".");
    if (!EscribirInstalacion(carpeta, escrita, motivo))
        return false;
    settings.ServidorBaseDatos = sinClave;
    return true;
}

} // namespace co
