#include "forms/search_associations.h"

#include <QDir>
#include <QSaveFile>
#include <QStringList>

namespace co::forms {

namespace {
QStringList lineas(const QString &archivo) {
    QFile f(archivo);
    if (!f.open(QIODevice::ReadOnly | QIODevice::Text))
        return {};
    return QString::fromUtf8(f.readAll()).split(u'\n', Qt::SkipEmptyParts);
}

QString control(const QString &linea) {
    return linea.section(u'=', 0, 0).trimmed();
}
} // namespace

QString ArchivoAsociaciones(const QString &carpeta) {
    return QDir(carpeta).filePath(QStringLiteral("BUSQUEDA.TXT"));
}

QString TablaAsociada(const QString &carpeta, const QString &nombre) {
    for (const QString &l : lineas(ArchivoAsociaciones(carpeta)))
        if (control(l).compare(nombre, Qt::CaseInsensitive) == 0)
            return l.section(u'=', 1).trimmed();
    return {};
}

QString AsociarControl(const QString &carpeta, const QString &nombre, const QString &tabla) {
    const QString archivo = ArchivoAsociaciones(carpeta);
    QStringList todas;
    for (const QString &l : lineas(archivo))
        if (control(l).compare(nombre, Qt::CaseInsensitive) != 0 && !l.trimmed().isEmpty())
            todas << l.trimmed();
    todas << nombre + u'=' + tabla;
    QSaveFile f(archivo);
    if (!f.open(QIODevice::WriteOnly | QIODevice::Text))
        return f.errorString();
    f.write((todas.join(u'\n') + u'\n').toUtf8());
    if (!f.commit())
        return f.errorString();
    return {};
}

} // namespace co::forms
