#include "forms/list_definition.h"

#include <QHash>

namespace co::forms {
namespace {

QHash<QString, QString> claves(const QString &definicion) {
    QHash<QString, QString> out;
    for (QString linea : definicion.split(u'\n')) {
        linea = linea.trimmed();
        const qsizetype igual = linea.indexOf(u'=');
        if (igual > 0)
            out.insert(linea.left(igual).trimmed().toLower(), linea.mid(igual + 1).trimmed());
    }
    return out;
}

ColumnaLista columna(const QString &entrada) {
    const QStringList p = entrada.split(u',');
    ColumnaLista c;
    c.campo = p.value(0).trimmed();
    c.tipo = p.value(1).trimmed();
    c.longitud = p.value(2).trimmed().toInt();
    c.soloLectura = p.value(3).trimmed().compare(u"ReadOnly", Qt::CaseInsensitive) == 0;
    c.formula = p.value(4).trimmed();
    c.ancho = p.value(5).trimmed().toInt();
    c.tabla = p.value(6).trimmed();
    return c;
}

} // namespace

DefinicionLista LeerDefinicionLista(const QString &definicion) {
    const QHash<QString, QString> k = claves(definicion);
    DefinicionLista d;
    d.titulo = k.value(QStringLiteral("titulo"));
    d.modo = k.value(QStringLiteral("modo"));
    QString formato = k.value(QStringLiteral("formato"));
    if (formato.endsWith(u';'))
        formato.chop(1);
    const QStringList f = formato.split(u',');
    d.izquierda = f.value(0).trimmed().toInt();
    d.arriba = f.value(1).trimmed().toInt();
    d.ancho = f.value(2).trimmed().toInt();
    d.alto = f.value(3).trimmed().toInt();
    // `NumeroCampos` says how many entries count; a shorter list gives what it has.
    bool ok = false;
    const int numero = k.value(QStringLiteral("numerocampos")).toInt(&ok);
    const QStringList entradas =
        k.value(QStringLiteral("definicioncampos")).split(u';', Qt::SkipEmptyParts);
    for (qsizetype i = 0; i < entradas.size() && (!ok || i < numero); ++i)
        d.columnas << columna(entradas[i]);
    return d;
}

QStringList CamposFila(const QString &fila, qsizetype columnas) {
    QStringList campos = fila.split(u'|');
    while (campos.size() < columnas)
        campos << QString();
    return campos.mid(0, columnas);
}

} // namespace co::forms
