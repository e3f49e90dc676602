#include "core/login.h"

#include "core/password_hash.h"
#include "core/user_table.h"
#include "core/users.h"

#include <cerrno>
#include <pwd.h>
#include <unistd.h>
#include <vector>

namespace co {
namespace {

const QString kRevocado =
    QStringLiteral("¡Su derecho de acceso ha sido revocado!. Contacte con el administrador");

void tellSaveFailure(Messenger &mensajes, const QString &motivo) {
    mensajes.MensajeA(QStringLiteral("¡Imposible grabar la configuración del usuario!. Motivo: ") +
                      motivo);
}

// The typed password matched: keep the hash of it when the stored value is
// clear text or made at another cost.
void upgradeStoredPassword(TModuloDatos &datos, const QString &codigo, const QString &stored,
                           const QString &typed) {
    if (!passwordNeedsUpgrade(stored))
        return;
    const QString hash = hashPassword(typed);
    QString motivo;
    if (hash.isEmpty()) {
        tellSaveFailure(datos.sesion().mensajes(),
                        QStringLiteral("No es posible calcular la clave cifrada"));
    } else if (!updateUserField(datos, codigo, QStringLiteral("ClaveAcceso"), hash, &motivo)) {
        tellSaveFailure(datos.sesion().mensajes(), motivo);
    }
}

} // namespace

QString NombreUsuarioSistema() {
    // The identity is the process's, never what its environment claims.
    const long suggested = sysconf(_SC_GETPW_R_SIZE_MAX);
    std::vector<char> buffer(suggested > 0 ? static_cast<std::size_t>(suggested) : 1024);
    passwd entry{};
    passwd *found = nullptr;
    for (;;) {
        const int error = getpwuid_r(getuid(), &entry, buffer.data(), buffer.size(), &found);
        if (error != ERANGE || buffer.size() >= (std::size_t{1} << 20))
            break;
        buffer.resize(buffer.size() * 2);
    }
    return found ? QString::fromLocal8Bit(found->pw_name) : QString();
}

bool IdentificarUsuario(TModuloDatos &datos, QString &codigo,
                        const OpcionesIdentificacion &opciones, SesionUsuario *sesion) {
    Messenger &mensajes = datos.sesion().mensajes();
    const bool windows = opciones.AutenticacionWindows;
    QString code = (windows || opciones.ParametroUsuario.isEmpty()) ? opciones.UsuarioSistema
                                                                    : opciones.ParametroUsuario;
    if (!windows) {
        code =
            mensajes.MensajeP(QStringLiteral("Introduzca el Código de Usuario:"), code).trimmed();
        if (code.isEmpty())
            return false;
    } else if (!code.isEmpty() && !findUser(datos, code)) {
        UserRecord fresh;
        fresh.Codigo = code;
        fresh.Nombre = code;
        fresh.Categoria = kNormal;
        if (!insertUser(datos, fresh))
            mensajes.MensajeA(QStringLiteral("¡Imposible dar de alta el usuario!"));
    }

    QString motivo;
    const std::optional<UserRecord> user =
        code.isEmpty() ? std::nullopt : findUser(datos, code, &motivo);
    if (!user) {
        // A table that cannot be read is told as it is, not as an unknown user.
        mensajes.MensajeA(motivo.isEmpty() ? QStringLiteral("¡El usuario no está definido!")
                                           : motivo);
        return false;
    }
    code = user->Codigo;

    SesionUsuario values;
    QString hidden;
    ValorUsuario(datos, code, QStringLiteral("CamposNoVisibles"), hidden);
    values.CamposNoVisibles = ListaValorUsuario(hidden);

    if (failedLoginCount(user->Configuracion) >= kMaximoAccesosFallidos) {
        mensajes.MensajeA(kRevocado);
        return false;
    }

    if (!user->ClaveAcceso.isEmpty()) {
        if (windows) {
            values.ClaveUsuario = user->ClaveAcceso;
        } else {
            const std::optional<QString> typed = mensajes.InputQuery(
                QStringLiteral("Introduzca la Clave de Acceso:"), kValorClaveOculta);
            // Nothing typed is nothing tried: no count, no lock-out by unattended runs.
            if (!typed)
                return false;
            // Hashing is slow: it is done before the lock, and only done again
            // when the stored password changed meanwhile.
            const bool matches = verifyPassword(user->ClaveAcceso, *typed);
            const LoginAttempt attempt =
                settleLoginAttempt(datos, code, *typed, user->ClaveAcceso, matches);
            switch (attempt.verdict) {
            case LoginVerdict::Revoked:
                mensajes.MensajeA(kRevocado);
                return false;
            case LoginVerdict::Unchecked:
                mensajes.MensajeA(attempt.failure);
                return false;
            case LoginVerdict::WrongPassword:
                mensajes.MensajeA(QStringLiteral("¡La Clave de Acceso es incorrecta!"));
                if (!attempt.failure.isEmpty())
                    tellSaveFailure(mensajes, attempt.failure);
                return false;
            case LoginVerdict::Accepted:
                if (!attempt.failure.isEmpty())
                    tellSaveFailure(mensajes, attempt.failure);
                break;
            }
            values.ClaveUsuario = *typed;
            upgradeStoredPassword(datos, user->Codigo, attempt.storedPassword, *typed);
        }
    }

    codigo = code;
    datos.sesion().CodigoUsuario = code;
    if (sesion)
        *sesion = values;
    return true;
}

bool GuardarClaveAcceso(TModuloDatos &datos, const QString &codigo, const QString &clave) {
    Messenger &mensajes = datos.sesion().mensajes();
    QString motivo;
    const std::optional<UserRecord> user = findUser(datos, codigo, &motivo);
    if (!user) {
        tellSaveFailure(mensajes, motivo.isEmpty() ? QStringLiteral("¡El usuario no está definido!")
                                                   : motivo);
        return false;
    }
    const QString stored = clave.isEmpty() ? QString() : hashPassword(clave);
    if (!clave.isEmpty() && stored.isEmpty()) {
        tellSaveFailure(mensajes, QStringLiteral("No es posible calcular la clave cifrada"));
        return false;
    }
    if (!updateUserField(datos, user->Codigo, QStringLiteral("ClaveAcceso"), stored, &motivo)) {
        tellSaveFailure(mensajes, motivo);
        return false;
    }
    return true;
}

} // namespace co
