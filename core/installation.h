#pragma once
// The connection parameters of an installation: the file `INSTALACION`, plain
// `Nombre=valor` lines, in the installation folder.

#include <QString>

namespace co {

struct InstallationSettings {
    QString TipoBaseDatos;          // empty/"Paradox": embedded; "PostgreSQL": server
    QString AliasBaseDatosGeneral;  // schema (PostgreSQL) or attach name of the general data
    QString PathBaseDatosGeneral;   // folder of the general data and DATABASE.TXT
    QString AliasBaseDatos;         // company data alias, without company number
    QString PathArchivosTemporales; // where temporary tables are made
    QString NombrePrimeraEmpresa;   // name of the first company
    QString CodigoPrimerUsuario;    // code of the first user; empty: the system user
    QString ServidorBaseDatos;      // PostgreSQL: libpq words "host=... port=... dbname=..."
    // The server login of NAROWIN.INI (`NombreUsuarioInicioSesion` and the
    // unscrambled `PasswordInicioSesion`), never written to `INSTALACION`: when
    // not empty they stand for the "user=" and "password=" words of
    // `ServidorBaseDatos`.
    QString UsuarioInicioSesion;
    QString ClaveInicioSesion;
};

inline constexpr const char *kArchivoInstalacion = "INSTALACION";

// Reads `INSTALACION` in `carpeta`. Missing keys take their defaults: the general
// data in `carpeta`, aliases "general" and "empresa". Returns false, with the
// defaults filled and `motivo` set to a Spanish sentence, when the file is
// missing, cannot be read (see settings_file.h) or holds no `Nombre=valor` line:
// an empty file would silently stand for another installation.
bool LeerInstalacion(const QString &carpeta, InstallationSettings *out, QString *motivo = nullptr);

// Writes the settings as `INSTALACION` in `carpeta`, atomically. The file is
// readable by its owner alone when `ServidorBaseDatos` holds a password. Refuses
// a value with a line break (it would add keys of its own) with `motivo`.
bool EscribirInstalacion(const QString &carpeta, const InstallationSettings &settings,
                         QString *motivo = nullptr);

// Checks the names that reach SQL: `AliasBaseDatosGeneral` and `AliasBaseDatos`
// must be plain identifiers (a letter or "_", then letters, digits or "_"), not a
// name the engines reserve, and must not name the same data. False and a Spanish
// `motivo` naming the setting otherwise.
bool ValidarInstalacion(const InstallationSettings &settings, QString *motivo);

// The longest name of data: what PostgreSQL keeps of a name.
inline constexpr int kLargoNombreDatos = 63;

// Why `nombre` cannot name data (a schema, an attached database) in a statement;
// empty when it can. The Spanish text completes "... no es válido: ".
QString ProblemaNombreDatos(const QString &nombre, int largoMaximo = kLargoNombreDatos);

// Whether the libpq words of `ServidorBaseDatos` hold a password.
bool ServidorConClave(const QString &servidorBaseDatos);

// `servidorBaseDatos` without its "password=" words; the last password found
// goes to `clave`.
QString ServidorSinClave(const QString &servidorBaseDatos, QString *clave);

} // namespace co
