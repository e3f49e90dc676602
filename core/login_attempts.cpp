#include "core/login_attempts.h"

#include "core/key_value_block.h"
#include "core/password_hash.h"
#include "core/user_table.h"

#include <QRegularExpression>
#include <limits>

namespace co {
namespace {

const QString kContadorAccesos = QStringLiteral("ContadorAccesos");
const QString kNoGrabada =
    QStringLiteral("¡Imposible grabar la configuración del usuario!. Motivo: ");

LoginAttempt unchecked(const QString &why) {
    LoginAttempt out;
    out.verdict = LoginVerdict::Unchecked;
    out.failure = why;
    return out;
}

// Writes the counter into the block of the record held; the failure text, or empty.
QString storeCounter(TModuloDatos &datos, const UserRecord &user, int count) {
    QString block = user.Configuracion;
    if (!memo::ModificarClave(kContadorAccesos, QString::number(count), block))
        return QStringLiteral("Nombre de clave no válido: ") + kContadorAccesos;
    QString motivo;
    if (!updateUserField(datos, user.Codigo, QStringLiteral("Configuracion"), block, &motivo))
        return motivo.isEmpty() ? QStringLiteral("Error.") : motivo;
    return {};
}

} // namespace

int failedLoginCount(const QString &configuracion) {
    QString value;
    memo::ValorClave(configuracion, kContadorAccesos, value, QStringLiteral("0"));
    value = value.trimmed();
    bool ok = false;
    const int n = value.toInt(&ok);
    if (ok)
        return n < 0 ? 0 : n;
    // Digits beyond an int still say that the user failed far too often.
    static const QRegularExpression digits(QStringLiteral("^\\+?[0-9]+$"));
    return digits.match(value).hasMatch() ? std::numeric_limits<int>::max() : 0;
}

LoginAttempt settleLoginAttempt(TModuloDatos &datos, const QString &codigo, const QString &typed,
                                const QString &checkedAgainst, bool matches) {
    // Joining a transaction in course would commit or roll back someone else's work.
    if (datos.sesion().TransaccionActiva())
        return unchecked(kNoGrabada + QStringLiteral("Hay otra transacción activa en curso."));
    TransaccionGuard guard(datos.sesion(), kConexionUsuario);
    if (!guard.ok())
        return unchecked(kNoGrabada + QStringLiteral("No ha sido posible reservar el usuario ") +
                         codigo + QStringLiteral(" para comprobar su clave."));
    QString motivo;
    const std::optional<UserRecord> user = lockUser(datos, codigo, &motivo);
    if (!user) {
        // Removed while the password was typed, or a table that cannot be read.
        return unchecked(motivo.isEmpty() ? QStringLiteral("¡El usuario no está definido!")
                                          : motivo);
    }

    LoginAttempt out;
    out.storedPassword = user->ClaveAcceso;
    const int failures = failedLoginCount(user->Configuracion);
    if (failures >= kMaximoAccesosFallidos) {
        out.verdict = LoginVerdict::Revoked;
        return out;
    }
    // Changed by somebody else while the password was being typed.
    if (user->ClaveAcceso != checkedAgainst)
        matches = verifyPassword(user->ClaveAcceso, typed);
    out.verdict = matches ? LoginVerdict::Accepted : LoginVerdict::WrongPassword;
    if (!matches)
        out.failure = storeCounter(datos, *user, failures + 1);
    else if (failures != 0)
        out.failure = storeCounter(datos, *user, 0);
    if (!guard.commit()) {
        datos.sesion().CancelarTransaccion(kConexionUsuario);
        if (out.failure.isEmpty())
            out.failure = QStringLiteral("No ha sido posible confirmar el contador de accesos.");
    }
    return out;
}

} // namespace co
