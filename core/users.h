#pragma once
// Users of the general data and their settings: profiles through `Categoria`,
// the values of a user (`ValorUsuario`, `GuardarValorUsuario`) and the first user.
//
// Contract:
// - `CodigoPerfil`: a `Categoria` of "Administrador", "Configurador", "Normal" or
//   empty leaves the user's own code; any other text is the code of the profile
//   user whose record holds the rights and settings.
// - `ValorUsuario` reads the fields `Empresas`, `ProgramasNoAccesibles`,
//   `ProgramasSoloLectura` and `ProgramasActivos` (key compared without case);
//   every other key comes from the key=value block in `Configuracion`. It reads
//   the profile's record, except for `IndicesBusqueda`, `DatosBusqueda` and
//   `ContadorAccesos`, always read from the user's own. A missing or empty value,
//   or an unknown user, gives the default.
// - `GuardarValorUsuario` writes to the same place. A failure is told as
//   "¡Imposible grabar la configuración del usuario!. Motivo: " + text.

#include "core/database.h"

#include <QString>
#include <QStringList>

namespace co {

inline const QString kAdministrador = QStringLiteral("Administrador");
inline const QString kConfigurador = QStringLiteral("Configurador");
inline const QString kNormal = QStringLiteral("Normal");

QString CodigoPerfil(TModuloDatos &datos, const QString &usuario);

// The `Categoria` of the profile's record: the category word.
QString CategoriaUsuario(TModuloDatos &datos, const QString &usuario);

// True when a non-empty value was found.
bool ValorUsuario(TModuloDatos &datos, const QString &usuario, const QString &clave, QString &valor,
                  const QString &defecto = {});

bool GuardarValorUsuario(TModuloDatos &datos, const QString &usuario, const QString &clave,
                         const QString &valor);

// A list held in a user value: items split at line breaks, at "·" (a line
// break inside a key=value block) and at commas; blank items are dropped and
// the memo markers "(Memo)" and "finmemo" end the list.
QStringList ListaValorUsuario(const QString &valor);

// When `USUARIO` is empty, inserts user `codigo` with `Nombre` and `Categoria`
// "Administrador". True when the table holds a user afterwards.
bool CrearPrimerUsuario(TModuloDatos &datos, const QString &codigo, QString *motivo = nullptr);

} // namespace co
