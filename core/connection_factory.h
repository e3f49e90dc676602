#pragma once
// Opens Qt SQL connections onto the general data or one company's data, on
// either back-end, set up the way the statement layer expects:
//  - SQLite: WAL journal, busy timeout, the general file attached under the
//    general alias on company connections, ISNUMERIC registered;
//  - PostgreSQL: the schema made when missing, search path company then general,
//    ISNUMERIC defined in the general schema.

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
};

// Opens a new connection registered under `connectionName`. On failure returns an
// invalid database, removes the registration and sets `motivo`.
QSqlDatabase openConnection(const QString &connectionName, Backend backend,
                            const InstallationSettings &settings, const ConnectionTarget &target,
                            QString *motivo);

// Closes and unregisters a connection made by openConnection.
void closeConnection(const QString &connectionName);

// SQLite file of the general data / of a company alias (a folder).
QString generalFile(const InstallationSettings &settings);
QString companyFile(const QString &companyFolder);

} // namespace co
