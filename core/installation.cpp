#include "core/installation.h"

#include <QDir>
#include <QFile>
#include <QHash>
#include <QSaveFile>
#include <QTextStream>

namespace co {

bool LeerInstalacion(const QString &carpeta, InstallationSettings *out) {
    QHash<QString, QString> values;
    QFile file(QDir(carpeta).filePath(QLatin1String(kArchivoInstalacion)));
    const bool ok = file.open(QIODevice::ReadOnly | QIODevice::Text);
    if (ok) {
        QTextStream in(&file);
        while (!in.atEnd()) {
            const QString line = in.readLine();
            const int eq = line.indexOf(u'=');
            if (eq > 0)
                values.insert(line.left(eq).trimmed(), line.mid(eq + 1).trimmed());
        }
    }
    auto value = [&](const char *key, const QString &fallback) {
        const QString v = values.value(QLatin1String(key));
        return v.isEmpty() ? fallback : v;
    };
    const QString here = QDir(carpeta).absolutePath();
    out->TipoBaseDatos = value("TipoBaseDatos", QStringLiteral("Paradox"));
    out->AliasBaseDatosGeneral = value("AliasBaseDatosGeneral", QStringLiteral("general"));
    out->PathBaseDatosGeneral = QDir(here).absoluteFilePath(value("PathBaseDatosGeneral", here));
    out->AliasBaseDatos = value("AliasBaseDatos", QStringLiteral("empresa"));
    out->PathArchivosTemporales = value("PathArchivosTemporales", QString());
    out->NombrePrimeraEmpresa = value("NombrePrimeraEmpresa", QString());
    out->CodigoPrimerUsuario = value("CodigoPrimerUsuario", QStringLiteral("ADMIN"));
    out->ServidorBaseDatos = value("ServidorBaseDatos", QString());
    return ok;
}

bool EscribirInstalacion(const QString &carpeta, const InstallationSettings &s) {
    QDir().mkpath(carpeta);
    // Written aside and renamed: a crash never leaves a half-written file.
    QSaveFile file(QDir(carpeta).filePath(QLatin1String(kArchivoInstalacion)));
    if (!file.open(QIODevice::WriteOnly | QIODevice::Text))
        return false;
    QTextStream out(&file);
    out << "TipoBaseDatos=" << s.TipoBaseDatos << '\n'
        << "AliasBaseDatosGeneral=" << s.AliasBaseDatosGeneral << '\n'
        << "PathBaseDatosGeneral=" << s.PathBaseDatosGeneral << '\n'
        << "AliasBaseDatos=" << s.AliasBaseDatos << '\n'
        << "PathArchivosTemporales=" << s.PathArchivosTemporales << '\n'
        << "NombrePrimeraEmpresa=" << s.NombrePrimeraEmpresa << '\n'
        << "CodigoPrimerUsuario=" << s.CodigoPrimerUsuario << '\n'
        << "ServidorBaseDatos=" << s.ServidorBaseDatos << '\n';
    out.flush();
    return out.status() == QTextStream::Ok && file.commit();
}

} // namespace co
