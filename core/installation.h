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
};

inline constexpr const char *kArchivoInstalacion = "INSTALACION";

// Reads `INSTALACION` in `carpeta`. Missing keys take their defaults: the general
// data in `carpeta`, aliases "general" and "empresa". Returns false, with the
// defaults filled, when the file cannot be read.
bool LeerInstalacion(const QString &carpeta, InstallationSettings *out);

// Writes the settings as `INSTALACION` in `carpeta`.
bool EscribirInstalacion(const QString &carpeta, const InstallationSettings &settings);

} // namespace co
