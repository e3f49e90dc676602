#include "core/login.h"

#include "core/password_hash.h"
#include "core/user_table.h"
#include "core/users.h"

#include <QProcessEnvironment>
#include <pwd.h>
#include <unistd.h>

namespace co {
namespace {

const QString kContadorAccesos = QStringLiteral("ContadorAccesos");

void tellSaveFailure(Messenger &mensajes, const QString &motivo) {
    mensajes.MensajeA(QStringLiteral("¡Imposible grabar la configuración del usuario!. Motivo: ") +
                      motivo);
}

int failedLogins(TModuloDatos &datos, const QString &codigo) {
    QString value;
    ValorUsuario(datos, codigo, kContadorAccesos, value, QStringLiteral("0"));
    bool ok = false;
    const int n = value.trimmed().toInt(&ok);
    return ok ? n : 0;
}

// The typed password matched: keep the hash of it when the stored value is
// clear text or made at another cost.
void upgradeStoredPassword(TModuloDatos &datos, const UserRecord &user, const QString &typed) {
    if (!passwordNeedsUpgrade(user.ClaveAcceso))
        return;
    const QString hash = hashPassword(typed);
    QString motivo;
    if (hash.isEmpty()) {
        tellSaveFailure(datos.sesion().mensajes(),
                        QStringLiteral("No es posible calcular la clave cifrada"));
    } else if (!updateUserField(datos, user.Codigo, QStringLiteral("ClaveAcceso"), hash, &motivo)) {
        tellSaveFailure(datos.sesion().mensajes(), motivo);
    }
}

} // namespace

QString NombreUsuarioSistema() {
    const QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    for (const char *name : {"USER", "LOGNAME", "USERNAME"}) {
        const QString value = env.value(QLatin1String(name));
        if (!value.isEmpty())
            return value;
    }
    if (const passwd *pw = getpwuid(geteuid()))
        return QString::fromLocal8Bit(pw->pw_name);
    return {};
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

    const int failures = failedLogins(datos, code);
    if (failures >= kMaximoAccesosFallidos) {
        mensajes.MensajeA(QStringLiteral(
            "¡Su derecho de acceso ha sido revocado!. Contacte con el administrador"));
        return false;
    }

    if (!user->ClaveAcceso.isEmpty()) {
        if (windows) {
            values.ClaveUsuario = user->ClaveAcceso;
        } else {
            const QString typed = mensajes.MensajeP(
                QStringLiteral("Introduzca la Clave de Acceso:"), kValorClaveOculta);
            if (!verifyPassword(user->ClaveAcceso, typed)) {
                mensajes.MensajeA(QStringLiteral("¡La Clave de Acceso es incorrecta!"));
                GuardarValorUsuario(datos, code, kContadorAccesos, QString::number(failures + 1));
                return false;
            }
            values.ClaveUsuario = typed;
            if (failures != 0)
                GuardarValorUsuario(datos, code, kContadorAccesos, QStringLiteral("0"));
            upgradeStoredPassword(datos, *user, typed);
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
