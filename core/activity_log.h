#pragma once
// The per-user activity log: a small rolling text file of what the user
// opened and closed, kept in the application folder as <user>.log.

#include <QDateTime>
#include <QString>

namespace co {

struct ActivityLogContext {
    bool enabled = false; // `MonitorizarActividadUsuario`
    QString folder;       // the application folder
    QString user;         // the operating-system user
    QString machineName;
    QString address;
    // When the network name couldn't be read: the failure's text, which then
    // stands in place of machine and address.
    QString networkFailure;
    QDateTime now;
};

// The log file of a context: folder + "/" + user + ".log".
QString ActivityLogPath(const ActivityLogContext &context);

// Appends "<date time>, <action>, <form name>, <caption>, <machine>/<address>, "
// to the log. An action "Start,<text>" clears the log first and is written as
// <text>. A log of more than 100 lines loses its first line before the append.
// Does nothing when disabled or for an empty form name. Returns false when
// the file couldn't be written.
bool RegistrarActividad(const ActivityLogContext &context, const QString &formName,
                        const QString &caption, const QString &action);

} // namespace co
