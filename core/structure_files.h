#pragma once
// The structure files of an installation: DATABASE.TXT, the version's additions
// in DATABASE.VRT and the customer's own in DATABASE.ESP, all in the folder of
// the general data.

#include <QString>
#include <QStringList>

namespace co {

inline constexpr const char *kArchivoEstructuras = "DATABASE.TXT";

// `RutaEstructuras`: the path of DATABASE.TXT in `carpetaGeneral`. When it is not
// there but `carpetaDatos` (the application's data folder) has one, it is copied
// first.
QString RutaEstructuras(const QString &carpetaGeneral, const QString &carpetaDatos);

// The same name with another extension ("VRT", "ESP").
QString ArchivoHermano(const QString &ruta, const QString &extension);

// Reads a structure file: UTF-8, or Latin-1 when it is not valid UTF-8.
bool LeerArchivoEstructuras(const QString &ruta, QString *texto);

// `LeerEstructuras`: the base text, then the version text after a line break,
// then each customer file that exists merged by MezclarEstructuras. A base file
// that cannot be read gives false; a missing version file adds nothing.
bool LeerEstructuras(const QString &base, const QString &version, QString *texto,
                     const QStringList &clientes = {});

// The three files that stand beside `base`, merged.
bool LeerEstructurasDe(const QString &base, QString *texto);

// `ListaTablasBD`: the table names of the structure files beside `base`, for the
// picker. With "ExcluirTablasBDGeneral" the tables of the general data are left out.
QStringList ListaTablasBD(const QString &base, const QString &exclusion = {});

} // namespace co
