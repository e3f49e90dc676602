#include "core/installation.h"

#include "core/connection_words.h"
#include "core/folder_creation.h"
#include "core/settings_file.h"

#include <QDir>
#include <QHash>
#include <QRegularExpression>
#include <QSaveFile>

namespace co {
namespace {

// Room is left in a company alias for the company number.
constexpr int kLargoAliasEmpresa = kLargoNombreDatos - 10;

bool fail(QString *motivo, const QString &texto) {
    if (motivo)
        *motivo = texto;
    return false;
}

QHash<QString, QString> parse(const QByteArray &bytes) {
    QHash<QString, QString> values;
    const QString text = QString::fromUtf8(bytes);
    for (const QStringView line : QStringView(text).split(u'\n')) {
        const qsizetype eq = line.indexOf(u'=');
        if (eq <= 0)
            continue;
        const QString key = line.left(eq).trimmed().toString();
        // The first line of a name wins, as in the INI files.
        if (!key.isEmpty() && !values.contains(key))
            values.insert(key, line.mid(eq + 1).trimmed().toString());
    }
    return values;
}

} // namespace

QString ProblemaNombreDatos(const QString &nombre, int largo) {
    static const QRegularExpression plain(QStringLiteral("^[A-Za-z_][A-Za-z0-9_]*$"));
    if (!plain.match(nombre).hasMatch())
        return QStringLiteral("sólo puede tener letras sin acentos, dígitos y \"_\", y no puede "
                              "empezar por un dígito");
    if (nombre.size() > largo)
        return QStringLiteral("no puede tener más de %1 caracteres").arg(largo);
    const QString lower = nombre.toLower();
    if (lower.startsWith(QLatin1String("pg_")) || lower == u"information_schema" ||
        lower == u"main" || lower == u"temp")
        return QStringLiteral("es un nombre reservado de la base de datos");
    return {};
}

bool LeerInstalacion(const QString &carpeta, InstallationSettings *out, QString *motivo) {
    const ArchivoParametros archivo =
        LeerArchivoParametros(QDir(carpeta).filePath(QLatin1String(kArchivoInstalacion)));
    QHash<QString, QString> values;
    bool ok = archivo.estado == ArchivoParametros::Estado::Ok;
    if (archivo.estado == ArchivoParametros::Estado::NoExiste) {
        fail(motivo, QStringLiteral("el archivo no existe"));
    } else if (!ok) {
        fail(motivo, archivo.motivo);
    } else {
        values = parse(archivo.contenido);
        if (values.isEmpty())
            ok = fail(motivo, QStringLiteral("el archivo no tiene ningún parámetro"));
    }
    auto value = [&](const char *key, const QString &fallback) {
        const QString v = values.value(QLatin1String(key));
        return v.isEmpty() ? fallback : v;
    };
    const QString here = QDir(carpeta).absolutePath();
    out->TipoBaseDatos = value("TipoBaseDatos", kTipoEmbebido);
    out->AliasBaseDatosGeneral = value("AliasBaseDatosGeneral", QStringLiteral("general"));
    out->PathBaseDatosGeneral = QDir(here).absoluteFilePath(value("PathBaseDatosGeneral", here));
    out->AliasBaseDatos = value("AliasBaseDatos", QStringLiteral("empresa"));
    out->PathArchivosTemporales = value("PathArchivosTemporales", QString());
    out->NombrePrimeraEmpresa = value("NombrePrimeraEmpresa", QString());
    out->CodigoPrimerUsuario = value("CodigoPrimerUsuario", QStringLiteral("ADMIN"));
    out->ServidorBaseDatos = value("ServidorBaseDatos", QString());
    return ok;
}

bool EscribirInstalacion(const QString &carpeta, const InstallationSettings &s, QString *motivo) {
    const QList<std::pair<const char *, QString>> lines = {
        {"TipoBaseDatos", s.TipoBaseDatos},
        {"AliasBaseDatosGeneral", s.AliasBaseDatosGeneral},
        {"PathBaseDatosGeneral", s.PathBaseDatosGeneral},
        {"AliasBaseDatos", s.AliasBaseDatos},
        {"PathArchivosTemporales", s.PathArchivosTemporales},
        {"NombrePrimeraEmpresa", s.NombrePrimeraEmpresa},
        {"CodigoPrimerUsuario", s.CodigoPrimerUsuario},
        {"ServidorBaseDatos", s.ServidorBaseDatos},
    };
    QByteArray bytes;
    for (const auto &[key, value] : lines) {
        if (value.contains(u'\n') || value.contains(u'\r'))
            return fail(motivo, QStringLiteral("El valor de %1 no puede tener saltos de línea.")
                                    .arg(QLatin1String(key)));
        bytes += key;
        bytes += '=';
        bytes += value.toUtf8();
        bytes += '\n';
    }
    const QString path = QDir(carpeta).filePath(QLatin1String(kArchivoInstalacion));
    if (!CrearCarpeta(carpeta, motivo))
        return false;
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return fail(motivo, QStringLiteral("No ha sido posible escribir el archivo %1: %2.")
                                .arg(path, file.errorString()));
    // Before any byte is written: the temporary file becomes the file itself.
    if (ServidorConClave(s.ServidorBaseDatos) &&
        !file.setPermissions(QFileDevice::ReadOwner | QFileDevice::WriteOwner)) {
        file.cancelWriting();
        return fail(motivo, QStringLiteral("No ha sido posible proteger el archivo %1: %2.")
                                .arg(path, file.errorString()));
    }
    if (file.write(bytes) != bytes.size() || !file.commit())
        return fail(motivo, QStringLiteral("No ha sido posible escribir el archivo %1: %2.")
                                .arg(path, file.errorString()));
    return true;
}

bool ValidarInstalacion(const InstallationSettings &s, QString *motivo) {
    const QString general = ProblemaNombreDatos(s.AliasBaseDatosGeneral);
    if (!general.isEmpty())
        return fail(motivo,
                    QStringLiteral("El valor \"%1\" de AliasBaseDatosGeneral no es válido: %2.")
                        .arg(s.AliasBaseDatosGeneral, general));
    const QString empresa = ProblemaNombreDatos(s.AliasBaseDatos, kLargoAliasEmpresa);
    if (!empresa.isEmpty())
        return fail(motivo, QStringLiteral("El valor \"%1\" de AliasBaseDatos no es válido: %2.")
                                .arg(s.AliasBaseDatos, empresa));
    const QRegularExpression company(
        QStringLiteral("^%1\\d*$").arg(QRegularExpression::escape(s.AliasBaseDatos)),
        QRegularExpression::CaseInsensitiveOption);
    if (company.match(s.AliasBaseDatosGeneral).hasMatch())
        return fail(motivo,
                    QStringLiteral("El valor \"%1\" de AliasBaseDatosGeneral no es válido: "
                                   "es el nombre de los datos de una empresa (AliasBaseDatos "
                                   "\"%2\" seguido de su número).")
                        .arg(s.AliasBaseDatosGeneral, s.AliasBaseDatos));
    return true;
}

bool ServidorConClave(const QString &servidorBaseDatos) {
    static const QRegularExpression password(QStringLiteral("(^|\\s)password\\s*="),
                                             QRegularExpression::CaseInsensitiveOption);
    return password.match(servidorBaseDatos).hasMatch();
}

QString ServidorSinClave(const QString &servidorBaseDatos, QString *clave) {
    QStringList kept;
    for (const QString &word : servidorBaseDatos.split(u' ', Qt::SkipEmptyParts)) {
        const qsizetype eq = word.indexOf(u'=');
        if (eq > 0 && word.left(eq).trimmed().compare(u"password", Qt::CaseInsensitive) == 0) {
            if (clave)
                *clave = word.mid(eq + 1);
            continue;
        }
        kept << word;
    }
    return kept.join(u' ');
}

} // namespace co
