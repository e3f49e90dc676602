#pragma once
// The records of `USUARIO` in the general data, read and written through the
// statement layer (connection word "DatabaseGeneral").
//
// Contract:
// - Every value built from data goes into statements quoted, so codes, names
//   and settings may hold any text; a code with a NUL character matches nothing.
// - `findUser` looks a code up exactly first, then without regard to case; the
//   record it gives carries the code as stored.
// - Failing statements show nothing: the caller tells the user in its own words
//   from `motivo`.

#include "core/connection_words.h"
#include "core/database.h"

#include <QString>
#include <optional>

namespace co {

struct UserRecord {
    QString Codigo;
    QString Nombre;
    QString Categoria;
    QString ClaveAcceso;
    QString Empresas;
    QString ProgramasNoAccesibles;
    QString ProgramasSoloLectura;
    QString ProgramasActivos;
    QString Configuracion;
};

inline const QString kTablaUsuario = QStringLiteral("USUARIO");
inline const QString kConexionUsuario = kConexionGeneral;

// nullopt when no record has the code, or when the table cannot be read
// (`motivo` then holds the failure text and is otherwise left empty).
std::optional<UserRecord> findUser(TModuloDatos &datos, const QString &codigo,
                                   QString *motivo = nullptr);

// Inside a transaction on `kConexionUsuario`: the record with exactly code
// `codigo`, read and held against other writers until the transaction ends.
std::optional<UserRecord> lockUser(TModuloDatos &datos, const QString &codigo,
                                   QString *motivo = nullptr);

// Appends a record; false with `motivo` on failure (a taken code included).
bool insertUser(TModuloDatos &datos, const UserRecord &record, QString *motivo = nullptr);

// Sets one text field of the record with exactly code `codigo`.
bool updateUserField(TModuloDatos &datos, const QString &codigo, const QString &campo,
                     const QString &valor, QString *motivo = nullptr);

// True when the table holds no record; nullopt when it cannot be read.
std::optional<bool> userTableEmpty(TModuloDatos &datos, QString *motivo = nullptr);

} // namespace co
