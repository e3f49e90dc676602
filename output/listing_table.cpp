#include "output/listing_table.h"

#include "core/connection_words.h"
#include "core/temporary_tables.h"

namespace co {

namespace {

const QString kError = QStringLiteral("Error.");

bool falla(QString *motivo, const QString &texto) {
    if (motivo)
        *motivo = texto;
    return false;
}

// The name of column 1 of a temporary definition: "/C/1/<name>/...".
QString primeraColumna(const QString &definicion) {
    for (const QString &linea : definicion.split(u'\n')) {
        const QString l = linea.trimmed();
        if (l.startsWith(QStringLiteral("/C/1/")))
            return l.section(u'/', 3, 3);
    }
    return {};
}

// A number the statement layer returned as text, or -1 on a failure.
qint64 numeroDe(const QString &texto) {
    bool ok = false;
    const qint64 n = texto.trimmed().toLongLong(&ok);
    return ok ? n : -1;
}

} // namespace

bool TablaListado::Crear(const QString &definicion, QString *motivo) {
    filas_ = 0;
    columnaFila_ = primeraColumna(definicion);
    if (columnaFila_.isEmpty())
        return falla(motivo, QStringLiteral("La tabla temporal del listado no tiene columna 1 "
                                            "para el número de fila."));
    return CrearTablaTemporal(datos_, creador_, propietario_, definicion, &nombre_, motivo);
}

QString TablaListado::NombreCualificado() const {
    return datos_.sesion().AliasGeneralSQL() + QStringLiteral(".dbo.") + nombre_;
}

QString TablaListado::SentenciaLlenado(const OrigenListado &origen, qint64 previas) const {
    QStringList condiciones = origen.condiciones;
    condiciones.removeAll(QString());
    QString sql = QStringLiteral("INSERT INTO ") + NombreCualificado() + QStringLiteral(" (") +
                  columnaFila_ + QStringLiteral(", ") + origen.columnas.join(QStringLiteral(", ")) +
                  QStringLiteral(") SELECT ROW_NUMBER() OVER (ORDER BY ") + origen.orden +
                  QStringLiteral(") + ") + QString::number(previas) + QStringLiteral(", ") +
                  origen.expresiones.join(QStringLiteral(", ")) + QStringLiteral(" FROM ") +
                  origen.desde;
    if (!condiciones.isEmpty())
        sql += QStringLiteral(" WHERE ") + condiciones.join(QStringLiteral(" AND "));
    return sql + QStringLiteral(" ORDER BY ") + origen.orden;
}

bool TablaListado::Llenar(const OrigenListado &origen, QString *motivo) {
    if (nombre_.isEmpty())
        return falla(motivo, QStringLiteral("La tabla temporal del listado no está creada."));
    if (origen.columnas.size() != origen.expresiones.size() || origen.columnas.isEmpty())
        return falla(motivo, QStringLiteral("Las columnas de la tabla temporal no corresponden "
                                            "con las de la consulta del listado."));
    const QString hecho = datos_.EjecutarSQL(SentenciaLlenado(origen, filas_), kConexionEmpresa);
    if (EsResultadoError(hecho))
        return falla(motivo, hecho.mid(kError.size()).trimmed());
    const qint64 filas = numeroDe(datos_.EjecutarSQL(
        QStringLiteral("SELECT COUNT(*) FROM ") + NombreCualificado(), kConexionEmpresa));
    if (filas < 0)
        return falla(motivo, QStringLiteral("No se ha podido contar las filas de la tabla "
                                            "temporal del listado."));
    filas_ = filas;
    return true;
}

std::unique_ptr<ReportDataSource> TablaListado::Lector(int porBloque) const {
    return std::make_unique<BloquesDataSource>(datos_, NombreCualificado(), columnaFila_,
                                               porBloque);
}

bool BloquesDataSource::leerBloque(qint64 desde, QString *motivo) {
    bloque_ = Consulta();
    bloque_.DatabaseName = kConexionEmpresa;
    bloque_.SQL = QStringLiteral("SELECT * FROM %1 WHERE %2 >= '%3' AND %2 < '%4' ORDER BY %2")
                      .arg(tabla_, columnaFila_)
                      .arg(desde)
                      .arg(desde + porBloque_);
    fila_ = -1;
    if (!datos_.AbrirConsulta(bloque_))
        return falla(motivo, QStringLiteral("No se ha podido leer la tabla temporal del listado."));
    siguiente_ = desde + porBloque_;
    return true;
}

bool BloquesDataSource::open(QString *motivo) {
    total_ = numeroDe(
        datos_.EjecutarSQL(QStringLiteral("SELECT COUNT(*) FROM ") + tabla_, kConexionEmpresa));
    if (total_ < 0)
        return falla(motivo, QStringLiteral("No se ha podido leer la tabla temporal del listado."));
    if (!leerBloque(1, motivo))
        return false;
    names_.clear();
    for (const ResultColumn &c : bloque_.Fields())
        names_ << c.name;
    return true;
}

bool BloquesDataSource::next() {
    if (fila_ + 1 < bloque_.RecordCount()) {
        ++fila_;
        return true;
    }
    // Numbers are dense from 1, so a block past the count ends the rows.
    if (siguiente_ > total_ || !leerBloque(siguiente_, nullptr))
        return false;
    return next();
}

} // namespace co
