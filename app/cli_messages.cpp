#include "cli_messages.h"

#include <QTextStream>
#include <cstdio>
#include <termios.h>
#include <unistd.h>

namespace co::cli {
namespace {

QString readHidden(const QString &prompt) {
    std::fprintf(stderr, "%s ", prompt.toLocal8Bit().constData());
    std::fflush(stderr);
    termios old{};
    const bool tty = tcgetattr(STDIN_FILENO, &old) == 0;
    if (tty) {
        termios quiet = old;
        quiet.c_lflag &= ~static_cast<tcflag_t>(ECHO);
        tcsetattr(STDIN_FILENO, TCSANOW, &quiet);
    }
    QTextStream in(stdin);
    const QString line = in.readLine();
    if (tty)
        tcsetattr(STDIN_FILENO, TCSANOW, &old);
    std::fprintf(stderr, "\n");
    return line;
}

} // namespace

QString CliMessages::show(QChar kind, const QString &text, const QString &value) {
    if (kind == u'P') {
        if (!text.contains(QStringLiteral("Clave")))
            return value;
        const QString fromEnvironment = qEnvironmentVariable("CONTROL_OBRAS_CLAVE");
        if (qEnvironmentVariableIsSet("CONTROL_OBRAS_CLAVE"))
            return fromEnvironment;
        if (isatty(STDIN_FILENO))
            return readHidden(text);
        return value;
    }
    std::fprintf(stderr, "%s\n", text.toLocal8Bit().constData());
    return kind == u'C' ? QStringLiteral("NO") : QString();
}

} // namespace co::cli
