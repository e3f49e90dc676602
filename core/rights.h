#pragma once
// A user's rights, read from the record of the user's profile (`CodigoPerfil`):
// the companies one may enter, the programs one may open and how, the
// programs that open by themselves, the administrator test and the forbidden
// processes.
//
// Contract:
// - A program is named by its menu caption; names are compared exactly with
//   every "&" removed, on both sides.
// - Lists are the lines of the memo fields (`MemoALista`); a line must equal
//   the name or the company code in decimal digits.
// - `NivelAccesoPrograma`: forbidden wins over read-only; a forbidden program is
//   told "Vd. no tiene acceso al programa " + name as information.

#include "core/database.h"

#include <QString>

namespace co {

inline const QString kNivelNinguno = QStringLiteral("Ninguno");
inline const QString kNivelSoloLectura = QStringLiteral("Solo Lectura");
inline const QString kNivelTotal = QStringLiteral("Total");

bool UsuarioAccedeEmpresa(TModuloDatos &datos, const QString &usuario, int empresa);

// "Ninguno", "Solo Lectura" or "Total".
QString NivelAccesoPrograma(TModuloDatos &datos, const QString &usuario, const QString &programa);

// True for "Total" and "Solo Lectura".
bool UsuarioAccedePrograma(TModuloDatos &datos, const QString &usuario, const QString &programa);

// True when the program stands in `ProgramasActivos`.
bool ProgramaActivo(TModuloDatos &datos, const QString &usuario, const QString &programa);

// True for the category "Administrador"; otherwise, unless `opciones` holds
// "Silencio", warns "¡Es necesario ser un usuario con categoría de
// Administrador para realizar este proceso!".
bool EsAdministrador(TModuloDatos &datos, const QString &usuario, const QString &opciones = {});

// The value of `ProcesosNoAutorizados`.
QString ProcesosProhibidos(TModuloDatos &datos, const QString &usuario);

} // namespace co
