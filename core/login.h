#pragma once
// `IdentificarUsuario`: the login of a session against `USUARIO`.
//
// Contract, in order:
// 1. The code: with `AutenticacionWindows` the operating-system user; else
//    `ParametroUsuario` when given; else the operating-system user.
// 2. Without `AutenticacionWindows` the code is asked ("P") with that proposal;
//    an empty answer refuses with no message.
// 3. With `AutenticacionWindows` an unknown code gets a "Normal" record of its
//    own ("¡Imposible dar de alta el usuario!" when that fails).
// 4. The record is found without regard to case ("¡El usuario no está
//    definido!" otherwise) and its stored code replaces the one typed.
// 5. `CamposNoVisibles` of the user is kept for the session.
// 6. Three or more failed logins (`ContadorAccesos`) refuse ("¡Su derecho de
//    acceso ha sido revocado!. Contacte con el administrador").
// 7. A non-empty `ClaveAcceso` is asked in a masked prompt (no question with
//    `AutenticacionWindows`). A prompt that gets no answer (cancelled, or no
//    one to ask) refuses with no further message and counts nothing. The
//    answer is settled against the counter under a lock (login_attempts.h): a
//    counter that reached the limit meanwhile refuses as in 6; a mismatch warns
//    "¡La Clave de Acceso es incorrecta!" and adds one to the counter; a match
//    clears it. The field holds a salted hash; a value kept in clear is checked
//    as such once and replaced by its hash on that successful login.
// 8. The stored code becomes the session's `CodigoUsuario`.
// A counter or hash that cannot be saved is told and the login result stands;
// a record that cannot be held to settle the counter refuses, told the same way.
//
// The operating-system user is the account of the process's real user id, read
// from the user database; the environment (`USER` and the like) is not asked.

#include "core/database.h"
#include "core/login_attempts.h"

#include <QString>
#include <QStringList>

namespace co {

// The initial value that makes the prompt an empty masked box.
inline const QString kValorClaveOculta = QStringLiteral("Password");

struct OpcionesIdentificacion {
    bool AutenticacionWindows = false;
    QString ParametroUsuario; // the `U=` argument
    QString UsuarioSistema;   // the operating-system user name
};

// What a login leaves in the session beside `CodigoUsuario`.
struct SesionUsuario {
    QString ClaveUsuario;
    QStringList CamposNoVisibles;
};

// The account name of the process's real user id; empty when the user
// database has no entry for it.
QString NombreUsuarioSistema();

// True when the login is accepted; `codigo` then holds the stored code.
bool IdentificarUsuario(TModuloDatos &datos, QString &codigo,
                        const OpcionesIdentificacion &opciones, SesionUsuario *sesion = nullptr);

// Stores `clave` for user `codigo` as a salted hash (empty stays empty), or
// tells why it could not.
bool GuardarClaveAcceso(TModuloDatos &datos, const QString &codigo, const QString &clave);

} // namespace co
