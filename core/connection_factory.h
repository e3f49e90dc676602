#pragma once
// Opens Qt SQL connections onto the general data or one company's data, on
// either back-end, set up the way the statement layer expects:
//  - SQLite: WAL journal, busy timeout, the general file attached under the
//    general alias on company connections, ISNUMERIC registered;
//  - PostgreSQL: the schema made when missing, search path company then general,
//    ISNUMERIC defined in the general schema; the server must answer the
//    start-up within its `connect_timeout` (10 seconds when not given).
// Names from the settings are checked (ValidarInstalacion) before any statement
// and reach statements quoted.

#include "core/backend.h"
#include "core/installation.h"

#include <QSqlDatabase>
#include <QString>

namespace co {

struct ConnectionTarget {
    bool general = false; // the general data; else the company data below
    QString alias;        // company alias: a folder (SQLite) or a schema (PostgreSQL)
    // How long a statement waits for a row or file another user holds before it
    // fails with the lock failure.
    int lockWaitMs = 15000;
    // Makes the data when missing: the file and its folder on SQLite, the schema
    // on PostgreSQL. Without it missing data is a failure. The general data of an
    // installation are only ever made by CrearInstalacion.
    bool crear = true;
};

// Opens a new connection registered under `connectionName`. On failure returns an
// invalid database, removes the registration and sets `motivo`.
QSqlDatabase openConnection(const QString &connectionName, Backend backend,
                            const InstallationSettings &settings, const ConnectionTarget &target,
                            QString *motivo);

// Makes the general data of a new installation (the folder of
// `PathBaseDatosGeneral` and general.db, or the general schema); nothing to do
// when they exist. False and a Spanish `motivo` naming the setting at fault.
bool CrearInstalacion(const InstallationSettings &settings, QString *motivo);

// The libpq words a PostgreSQL connection is made with: those of
// `ServidorBaseDatos`, with the server login of NAROWIN.INI in place of "user="
// and "password=" when the settings carry one.
QStringList PalabrasConexion(const InstallationSettings &settings);

// Closes and unregisters a connection made by openConnection.
void closeConnection(const QString &connectionName);

// SQLite file of the general data / of a company alias (a folder).
QString generalFile(const InstallationSettings &settings);
QString companyFile(const QString &companyFolder);

} // namespace co
