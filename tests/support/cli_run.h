#pragma once
// Runs a program of the project (the command line by default) as a user or a
// script would, and collects its exit status and both outputs.

#include <QProcess>
#include <QString>
#include <QStringList>

namespace co::test {

struct CliRun {
    int status; // -1: killed after the wait, or crashed
    QString out;
    QString err;
};

// Waits for a started process; one still running after `waitMs` is killed and
// its error output says "(sin respuesta)".
CliRun TerminarProceso(QProcess &p, int waitMs = 300000);

CliRun Ejecutar(const QStringList &args, const QString &programa = QStringLiteral(CO_CLI_PATH),
                int waitMs = 300000);

} // namespace co::test
