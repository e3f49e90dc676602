#include "core/key_value_block.h"

#include <QRegularExpression>

namespace co::memo {
namespace {

const QRegularExpression &lineBreak() {
    static const QRegularExpression re(QStringLiteral("\r\n|\n|\r"));
    return re;
}

QString separatorOf(const QString &bloque) {
    if (bloque.contains(QLatin1String("\r\n")))
        return QStringLiteral("\r\n");
    if (bloque.contains(u'\n'))
        return QStringLiteral("\n");
    if (bloque.contains(u'\r'))
        return QStringLiteral("\r");
    return QStringLiteral("\r\n");
}

bool sameKey(const QString &line, const QString &clave) {
    const int eq = line.indexOf(u'=');
    return eq >= 0 && line.left(eq).trimmed().compare(clave.trimmed(), Qt::CaseInsensitive) == 0;
}

} // namespace

QStringList Lineas(const QString &bloque) {
    if (bloque.isEmpty())
        return {};
    QStringList lines = bloque.split(lineBreak());
    if (lines.last().isEmpty())
        lines.removeLast();
    return lines;
}

std::optional<QString> BuscarClave(const QString &bloque, const QString &clave) {
    if (clave.trimmed().isEmpty())
        return std::nullopt;
    for (const QString &line : Lineas(bloque)) {
        if (sameKey(line, clave))
            return line.mid(line.indexOf(u'=') + 1);
    }
    return std::nullopt;
}

bool ValorClave(const QString &bloque, const QString &clave, QString &valor,
                const QString &defecto) {
    const std::optional<QString> found = BuscarClave(bloque, clave);
    const bool present = found && !found->isEmpty();
    valor = present ? *found : defecto;
    return present;
}

bool ModificarClave(const QString &clave, const QString &valor, QString &lista) {
    const QString key = clave.trimmed();
    if (key.isEmpty() || key.contains(u'=') || key.contains(lineBreak()))
        return false;
    const QString line = key + u'=' + CodificarSaltos(valor);
    // Rebuild by pieces so that every other line and separator stays byte for byte.
    qsizetype start = 0;
    while (start <= lista.size()) {
        const QRegularExpressionMatch m = lineBreak().match(lista, start);
        const qsizetype end = m.hasMatch() ? m.capturedStart() : lista.size();
        if (sameKey(lista.mid(start, end - start), key)) {
            lista.replace(start, end - start, line);
            return true;
        }
        if (!m.hasMatch())
            break;
        start = m.capturedEnd();
    }
    if (!lista.isEmpty() && !lista.endsWith(u'\n') && !lista.endsWith(u'\r'))
        lista += separatorOf(lista);
    lista += line;
    return true;
}

QStringList Claves(const QString &bloque) {
    QStringList keys;
    for (const QString &line : Lineas(bloque)) {
        const int eq = line.indexOf(u'=');
        if (eq >= 0)
            keys << line.left(eq).trimmed();
    }
    return keys;
}

QString CodificarSaltos(const QString &texto) {
    QString out = texto;
    out.replace(lineBreak(), QString(QChar(kSaltoLinea)));
    return out;
}

QString DecodificarSaltos(const QString &valor) {
    QString out = valor;
    out.replace(QChar(kSaltoLinea), QLatin1String("\r\n"));
    return out;
}

} // namespace co::memo
