#include "core/structure_files.h"

#include "core/definition_text.h"
#include "core/sql_text.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStringDecoder>

namespace co {

QString RutaEstructuras(const QString &carpetaGeneral, const QString &carpetaDatos) {
    const QString ruta = QDir(carpetaGeneral).filePath(QLatin1String(kArchivoEstructuras));
    if (QFileInfo::exists(ruta) || carpetaDatos.isEmpty())
        return ruta;
    const QString origen = QDir(carpetaDatos).filePath(QLatin1String(kArchivoEstructuras));
    if (QFileInfo::exists(origen)) {
        QDir().mkpath(carpetaGeneral);
        QFile::copy(origen, ruta);
    }
    return ruta;
}

QString ArchivoHermano(const QString &ruta, const QString &extension) {
    const QFileInfo info(ruta);
    return info.dir().filePath(info.completeBaseName() + u'.' + extension);
}

bool LeerArchivoEstructuras(const QString &ruta, QString *texto) {
    QFile file(ruta);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    const QByteArray bytes = file.readAll();
    QStringDecoder utf8(QStringDecoder::Utf8);
    QString decoded = utf8.decode(bytes);
    // Files written by older tools are in the Windows code page.
    *texto = utf8.hasError() ? QString::fromLatin1(bytes) : decoded;
    return true;
}

bool LeerEstructuras(const QString &base, const QString &version, QString *texto,
                     const QStringList &clientes) {
    QString out;
    if (!LeerArchivoEstructuras(base, &out))
        return false;
    QString adicional;
    if (!version.isEmpty() && LeerArchivoEstructuras(version, &adicional)) {
        if (!out.endsWith(u'\n'))
            out += QStringLiteral("\r\n");
        out += adicional;
    }
    for (const QString &cliente : clientes) {
        QString adiciones;
        if (LeerArchivoEstructuras(cliente, &adiciones))
            out = MezclarEstructuras(out, adiciones);
    }
    *texto = out;
    return true;
}

bool LeerEstructurasDe(const QString &base, QString *texto) {
    return LeerEstructuras(base, ArchivoHermano(base, QStringLiteral("VRT")), texto,
                           {ArchivoHermano(base, QStringLiteral("ESP"))});
}

QStringList ListaTablasBD(const QString &base, const QString &exclusion) {
    QString texto;
    if (!LeerEstructurasDe(base, &texto))
        return {};
    const bool sinGenerales = exclusion.contains(QStringLiteral("ExcluirTablasBDGeneral"));
    QStringList out;
    for (const QString &entrada : ListaTablas(texto)) {
        const QString tabla = entrada.section(u'|', 0, 0);
        if (!out.contains(tabla) && !(sinGenerales && EsTablaGeneral(tabla)))
            out << tabla;
    }
    return out;
}

} // namespace co
