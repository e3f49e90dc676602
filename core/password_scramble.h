#pragma once
// Scrambling of the passwords kept in the INI file (`PasswordInicioSesion`).
//
// Each character, as its single byte in the Windows Western code page (so that
// files written by the suite on Windows read back alike), is combined by
// exclusive-or with the fixed key "xaplim" and written as three decimal digits.
// Character i (from 1) uses key character i modulo 6 (from 0). A password of n
// characters takes 3n digits.

#include <QString>

namespace co {

// `CifrarClave`: `resultado` gets the digits. Returns false, leaving `resultado`
// empty, when a character has no byte in that code page (it could not be read back).
bool CifrarClave(const QString &texto, QString &resultado);

// `DescifrarClave`: reverses `CifrarClave`. A group of three that is not made of
// digits counts as 0; a last group of fewer than three characters is ignored.
// Returns false when either happened or a group is above 255, the result being
// built all the same.
bool DescifrarClave(const QString &texto, QString &resultado);

} // namespace co
