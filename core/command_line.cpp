#include "core/command_line.h"

namespace co {

LineaComandos LeerLineaComandos(const QStringList &argumentos) {
    LineaComandos linea;
    const QStringList args = argumentos.mid(1);
    bool nombrada = false;
    for (const QString &a : args)
        nombrada = nombrada || (a.size() >= 2 && a.at(1) == u'=');
    if (!nombrada) {
        if (args.size() >= 2)
            linea.ParametroUsuario = args.at(1);
        return linea;
    }
    for (const QString &a : args) {
        if (a.size() < 2 || a.at(1) != u'=')
            continue;
        const QString clave = a.left(2).toUpper();
        const QString valor = a.mid(2);
        if (clave == u"U=")
            linea.ParametroUsuario = valor;
        else if (clave == u"I=")
            linea.ParametroINI = valor;
        else if (clave == u"T=")
            linea.ParametroIdioma = valor;
    }
    return linea;
}

} // namespace co
