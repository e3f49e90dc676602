#pragma once
// The program's command line: `U=` user, `I=` INI file, `T=` language.
//
// An argument whose second character is "=" makes the whole line a named one;
// its first two characters, in upper case, select the value. When no argument
// has that form, the second argument after the program is the user code.

#include <QString>
#include <QStringList>

namespace co {

struct LineaComandos {
    QString ParametroUsuario;
    QString ParametroINI;
    QString ParametroIdioma;
};

// `argumentos` as QCoreApplication::arguments() gives them: the program first.
LineaComandos LeerLineaComandos(const QStringList &argumentos);

} // namespace co
