#include "support/cli_run.h"

namespace co::test {

CliRun TerminarProceso(QProcess &p, int waitMs) {
    if (!p.waitForFinished(waitMs)) {
        p.kill();
        p.waitForFinished();
        return {-1, {}, QStringLiteral("(sin respuesta)")};
    }
    return {p.exitStatus() == QProcess::NormalExit ? p.exitCode() : -1,
            QString::fromUtf8(p.readAllStandardOutput()),
            QString::fromUtf8(p.readAllStandardError())};
}

CliRun Ejecutar(const QStringList &args, const QString &programa, int waitMs) {
    QProcess p;
    p.start(programa, args);
    return TerminarProceso(p, waitMs);
}

} // namespace co::test
