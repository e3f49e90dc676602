#pragma once
// Making a folder, with a reason a user can act on when it cannot be made.

#include <QString>

namespace co {

// Makes `carpeta` and its missing parents. False and a Spanish `motivo`
// ("... no es una carpeta", "no se puede escribir en ...") when it cannot.
bool CrearCarpeta(const QString &carpeta, QString *motivo);

} // namespace co
