#include "cli_messages.h"

#include "core/login.h"
#include "core/server_login.h"

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
    if (kind == u'P')
        return ask(TituloMensaje(kind), text, value).value_or(value);
    std::fprintf(stderr, "%s\n", text.toLocal8Bit().constData());
    return kind == u'C' ? QStringLiteral("NO") : QString();
}

std::optional<QString> CliMessages::ask(const QString &, const QString &text,
                                        const QString &value) {
    // The masked prompt is told by its value, which no translation changes.
    if (value != kValorClaveOculta)
        return value;
    if (text == kPreguntaClaveServidor) {
        if (!claveServidorDada_ && qEnvironmentVariableIsSet("CONTROL_OBRAS_CLAVE_SERVIDOR")) {
            claveServidorDada_ = true;
            return qEnvironmentVariable("CONTROL_OBRAS_CLAVE_SERVIDOR");
        }
        if (isatty(STDIN_FILENO)) {
            const QString typed = readHidden(text);
            if (!typed.isNull())
                return typed;
        }
        std::fprintf(stderr, "%s\n",
                     QStringLiteral("¡No se ha indicado la clave del servidor!. Escríbala en un "
                                    "terminal o indíquela en la variable de entorno "
                                    "CONTROL_OBRAS_CLAVE_SERVIDOR.")
                         .toLocal8Bit()
                         .constData());
        return std::nullopt;
    }
    if (qEnvironmentVariableIsSet("CONTROL_OBRAS_CLAVE"))
        return qEnvironmentVariable("CONTROL_OBRAS_CLAVE");
    if (isatty(STDIN_FILENO)) {
        const QString typed = readHidden(text);
        if (!typed.isNull())
            return typed;
    }
    std::fprintf(
        stderr, "%s\n",
        QStringLiteral("¡No se ha indicado la Clave de Acceso!. Escríbala en un terminal o "
                       "indíquela en la variable de entorno CONTROL_OBRAS_CLAVE.")
            .toLocal8Bit()
            .constData());
    return std::nullopt;
}

} // namespace co::cli
