#include "core/temporary_cleanup.h"

#include "core/connection_factory.h"
#include "core/connection_words.h"
#include "core/temporary_tables.h"

#include <QCryptographicHash>
#include <QFile>
#include <QFileInfo>
#include <QSet>

namespace co {
namespace {

const QString kSinCrear = QStringLiteral("Silenciosa,No Crear Tabla");

int borrar(const QString &carpeta, const QString &patron) {
    if (carpeta.isEmpty())
        return 0;
    QDir dir(carpeta);
    dir.setNameFilters({patron});
    dir.setFilter(QDir::Files | QDir::Hidden | QDir::System);
    int borrados = 0;
    for (const QString &archivo : dir.entryList())
        if (QFile::remove(dir.filePath(archivo)))
            ++borrados;
    return borrados;
}

QString instalacionDe(const TfGENEINIC &sesion) {
    const InstallationSettings &s = sesion.instalacion();
    return sesion.backend() == Backend::PostgreSQL
               ? s.ServidorBaseDatos + u'|' + s.AliasBaseDatosGeneral.toLower()
               : QFileInfo(generalFile(s)).absoluteFilePath();
}

QString archivoBloqueo(const QString &carpeta, const QString &clave, int slot) {
    return QDir(carpeta).filePath(
        QStringLiteral("control-obras-temp-%1-%2.lock").arg(clave).arg(slot));
}

std::unique_ptr<QLockFile> bloqueo(const QString &archivo) {
    auto lock = std::make_unique<QLockFile>(archivo);
    // Only a dead holder makes a lock stale, never its age.
    lock->setStaleLockTime(0);
    return lock;
}

} // namespace

int LimpiarArchivosTemporales(const QString &carpetaAplicacion, const QString &carpetaTemporal,
                              const QString &carpetaPrivada) {
    return borrar(carpetaAplicacion, QStringLiteral("_QS*.*")) +
           borrar(carpetaTemporal, QStringLiteral("QRP*.TMP")) +
           borrar(carpetaPrivada, QStringLiteral("TEMP*.*"));
}

TemporaryTablesClaim::TemporaryTablesClaim(const TfGENEINIC &sesion,
                                           const QString &carpetaBloqueos) {
    const QByteArray fuente = (instalacionDe(sesion) + u'|' + IdentificadorMaquina() + u'|' +
                               sesion.CodigoUsuario + u'|' + QString::number(NumeroPrograma()))
                                  .toUtf8();
    const QString clave = QString::fromLatin1(
        QCryptographicHash::hash(fuente, QCryptographicHash::Sha1).toHex().left(16));
    int propio = -1;
    for (int slot = 0; slot < kSlots && propio < 0; ++slot) {
        auto lock = bloqueo(archivoBloqueo(carpetaBloqueos, clave, slot));
        if (lock->tryLock(0)) {
            lock_ = std::move(lock);
            propio = slot;
        }
    }
    if (propio < 0)
        return;
    alone_ = true;
    for (int slot = 0; slot < kSlots && alone_; ++slot) {
        if (slot == propio)
            continue;
        auto otro = bloqueo(archivoBloqueo(carpetaBloqueos, clave, slot));
        if (otro->tryLock(0))
            otro->unlock();
        else
            alone_ = false;
    }
}

TemporaryTablesClaim::~TemporaryTablesClaim() = default;

int LimpiarTablasTemporales(TModuloDatos &datos, const TemporaryTablesClaim &claim) {
    if (!claim.held() || !claim.alone())
        return -1;
    TfGENEINIC &sesion = datos.sesion();
    const QString filas = datos.EjecutarSQL(
        QStringLiteral("SELECT NombreTablaTemporalOrg, NombreTablaTemporal FROM NOMBTTEM"),
        kConexionGeneral, kSinCrear);
    const QString existentes = datos.EjecutarSQL(traitsOf(sesion.backend()).temporaryTablesQuery,
                                                 kConexionGeneral, kSinCrear);
    if (EsResultadoError(filas) || EsResultadoError(existentes))
        return 0;
    QSet<QString> hay;
    for (const QString &t : existentes.split(QStringLiteral("\r\n"), Qt::SkipEmptyParts))
        hay.insert(t.toUpper());
    const QString inicio = QStringLiteral("TEMP_") + IdentificadorMaquina() + u'_';
    const QString fin = u'_' + QString::number(NumeroPrograma()) + u'_' + sesion.CodigoUsuario;
    int borradas = 0;
    for (const QString &fila : filas.split(QStringLiteral("\r\n"), Qt::SkipEmptyParts)) {
        const QString largo = fila.section(u'|', 0, 0);
        const QString corto = fila.section(u'|', 1);
        if (!largo.startsWith(inicio) || !largo.endsWith(fin) || !hay.contains(corto.toUpper()))
            continue;
        const QString r =
            datos.EjecutarSQL(QStringLiteral("DROP TABLE ") + corto, kConexionGeneral, kSinCrear);
        if (!EsResultadoError(r))
            ++borradas;
    }
    return borradas;
}

} // namespace co
