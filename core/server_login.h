#pragma once
// The server login of a PostgreSQL installation: its password is kept scrambled
// in NAROWIN.INI (`PasswordInicioSesion` of "Microsoft SQL Server"), never in
// clear in `INSTALACION`. When the server refuses the password the start asks
// for it, as often as it takes, and keeps the answer scrambled.

#include "core/installation.h"
#include "core/messages.h"

#include <QString>
#include <optional>

namespace co {

inline const QString kPreguntaClaveServidor =
    QStringLiteral("La clave de inicio de sesión de SQL Server no coincide con la registrada. "
                   "Puede introducirla ahora si lo desea: ");
inline const QString kPreguntaClaveEnBlanco =
    QStringLiteral("¿Está seguro de que desea dejar la contraseña en blanco?");

// Whether a connection failure's text is the server refusing the login's
// password (or asking for one that was not given).
bool EsFalloClaveServidor(const QString &motivo);

// Asks for the server password: an empty answer is questioned, and "NO" to the
// question gives an empty optional with `reintentar` set (try the connection
// again, then ask again). A cancel, or a port that answers nothing at all,
// gives an empty optional with `reintentar` false: the start stops.
std::optional<QString> PedirClaveServidor(Messenger &mensajes, bool *reintentar);

// Writes `clave` scrambled as `PasswordInicioSesion` into the INI file and
// leaves the file readable by its owner alone. False and a Spanish `motivo`
// when it cannot be scrambled, written or protected.
bool GuardarClaveServidor(const QString &archivoINI, const QString &clave, QString *motivo);

// Takes a password written in clear in `ServidorBaseDatos` out of `INSTALACION`
// of `carpeta` into the INI file, scrambled (unless the INI file holds one
// already, which wins). The settings keep the password for this session.
// False and `motivo` when a file could not be written; nothing is lost then:
// `INSTALACION` is only rewritten once the INI file holds the password.
bool RetirarClaveInstalacion(const QString &carpeta, const QString &archivoINI,
                             InstallationSettings &settings, QString *motivo);

} // namespace co
