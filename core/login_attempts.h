#pragma once
// The outcome of one checked password, settled against the failed-login
// counter (`ContadorAccesos`) of the user's own record under a lock, so that
// logins of one user running at once in several processes count one by one.
//
// Contract:
// - `settleLoginAttempt` runs in a transaction on the general data that holds
//   the user's record until it ends (BEGIN IMMEDIATE on SQLite, a SELECT ...
//   FOR UPDATE on PostgreSQL). Inside another transaction it refuses, touching
//   nothing.
// - Under the lock the counter is read again. At `kMaximoAccesosFallidos` or
//   above the attempt is refused as revoked, whatever the password, and the
//   counter is left as it is. Otherwise a wrong password adds one to it and a
//   right one clears it when it is not 0.
// - When the stored password changed after it was checked, the typed text is
//   checked again against the stored value.
// - It shows no message: the lock is released before the caller tells the user.
//   A counter that could not be written leaves the verdict standing and gives
//   the failure text; a record that could not be read and held refuses with
//   the message to show ("¡El usuario no está definido!" for a removed user).
// - `failedLoginCount` reads the counter of a `Configuracion` block: missing or
//   not a number counts as 0, a negative number as 0, a number too large for an
//   int as the lock-out.

#include "core/database.h"

#include <QString>

namespace co {

inline constexpr int kMaximoAccesosFallidos = 3;

enum class LoginVerdict {
    Accepted,
    WrongPassword,
    Revoked,
    Unchecked, // the record could not be read and held
};

struct LoginAttempt {
    LoginVerdict verdict = LoginVerdict::Unchecked;
    // The stored password the typed text was finally checked against.
    QString storedPassword;
    // Why the counter could not be saved; for `Unchecked`, the whole message
    // that tells why nothing could be checked.
    QString failure;
};

int failedLoginCount(const QString &configuracion);

// `checkedAgainst` is the stored password `matches` was worked out from.
LoginAttempt settleLoginAttempt(TModuloDatos &datos, const QString &codigo, const QString &typed,
                                const QString &checkedAgainst, bool matches);

} // namespace co
