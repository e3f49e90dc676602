#include "core/text_utils.h"

namespace co {

QString ExtraerToken(int indice, const QString &texto, const QString &delimitador) {
    if (indice < 0)
        return {};
    if (delimitador.isEmpty())
        return indice == 0 ? texto : QString();
    qsizetype start = 0;
    for (int i = 0; i < indice; ++i) {
        const qsizetype next = texto.indexOf(delimitador, start);
        if (next < 0)
            return {};
        start = next + delimitador.size();
    }
    const qsizetype end = texto.indexOf(delimitador, start);
    return end < 0 ? texto.mid(start) : texto.mid(start, end - start);
}

int ContarCaracter(QChar caracter, const QString &texto) {
    return static_cast<int>(texto.count(caracter));
}

QString ReemplazarTodo(const QString &buscar, const QString &reemplazo, const QString &texto) {
    if (buscar.isEmpty())
        return texto;
    QString out = texto;
    return out.replace(buscar, reemplazo, Qt::CaseSensitive);
}

QString QuitarUltimoCRLF(const QString &texto) {
    if (texto.endsWith(QLatin1String("\r\n")))
        return texto.left(texto.size() - 2);
    if (texto.endsWith(u'\n') || texto.endsWith(u'\r'))
        return texto.left(texto.size() - 1);
    return texto;
}

QString EntreComillas(const QString &texto) {
    return u'\'' + texto + u'\'';
}

QString TablaDeConsulta(const QString &sql) {
    QString flat = sql;
    flat.replace(QLatin1String("\r\n"), QLatin1String(" "))
        .replace(u'\r', u' ')
        .replace(u'\n', u' ');
    const QLatin1String from(" FROM ");
    const qsizetype at = flat.indexOf(from);
    if (at < 0)
        return {};
    qsizetype start = at + from.size();
    while (start < flat.size() && flat.at(start) == u' ')
        ++start;
    qsizetype end = start;
    while (end < flat.size()) {
        const QChar c = flat.at(end);
        if (c == u' ' || c == u',' || c == u';' || c == u'(' || c == u')')
            break;
        ++end;
    }
    return flat.mid(start, end - start);
}

QString SinAmpersand(const QString &caption) {
    QString out = caption;
    return out.remove(u'&');
}

} // namespace co
