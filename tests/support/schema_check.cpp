#include "support/schema_check.h"

#include "core/definition_text.h"

#include <QSet>

namespace co::test {
namespace {

const QString kOpciones = QStringLiteral("Silenciosa,No Crear Tabla");

struct Catalogo {
    Backend backend;
    const char *tablas;
    const char *indices; // %1: the table
};

constexpr Catalogo kCatalogo[] = {
    {Backend::SQLite, "SELECT name FROM sqlite_master WHERE type = 'table'",
     "SELECT name FROM sqlite_master WHERE type = 'index' AND upper(tbl_name) = upper('%1') "
     "AND name NOT LIKE 'sqlite_autoindex%'"},
    {Backend::PostgreSQL,
     "SELECT table_name FROM information_schema.tables WHERE table_schema = current_schema()",
     "SELECT indexname FROM pg_indexes WHERE schemaname = current_schema() "
     "AND tablename = lower('%1') AND indexname NOT LIKE '%\\_clave1'"},
};

const Catalogo &catalogo(Backend backend) {
    return backend == Backend::PostgreSQL ? kCatalogo[1] : kCatalogo[0];
}

QStringList lineas(TModuloDatos &datos, const QString &sql, const QString &conexion) {
    const QString r = datos.EjecutarSQL(sql, conexion, kOpciones);
    if (r.startsWith(QStringLiteral("Error.")))
        return {QStringLiteral("¿") + r + u'?'};
    QStringList out;
    for (const QString &l : r.split(QStringLiteral("\r\n"), Qt::SkipEmptyParts))
        out << l.trimmed().toUpper();
    return out;
}

QStringList mayusculas(QStringList l) {
    for (QString &s : l)
        s = s.trimmed().toUpper();
    return l;
}

} // namespace

QStringList TablasEnBase(TModuloDatos &datos, const QString &conexion) {
    QStringList t =
        lineas(datos, QString::fromLatin1(catalogo(datos.sesion().backend()).tablas), conexion);
    t.sort();
    return t;
}

QStringList IndicesDeTabla(TModuloDatos &datos, const QString &conexion, const QString &tabla) {
    QStringList i =
        lineas(datos, QString::fromLatin1(catalogo(datos.sesion().backend()).indices).arg(tabla),
               conexion);
    i.sort();
    return i;
}

QStringList DefectosEsquema(TModuloDatos &datos, const QString &conexion,
                            const QString &estructuras) {
    const BackendTraits &traits = traitsOf(datos.sesion().backend());
    QSet<QString> definidas;
    for (const QString &linea : LineasDefinicion(estructuras))
        definidas.insert(LeerLineaDefinicion(linea).tabla.toUpper());
    QStringList defectos;
    for (const QString &tabla : TablasEnBase(datos, conexion)) {
        if (!definidas.contains(tabla))
            continue;
        QStringList campos, clave;
        for (const QString &linea :
             LineasDefinicion(DefinicionTabla(tabla, estructuras, QStringLiteral("Campos")))) {
            const LineaDefinicion l = LeerLineaDefinicion(linea);
            campos << l.nombre.toUpper();
            if (l.esClave())
                clave << l.nombre.toUpper();
        }
        const QStringList columnas = lineas(datos, traits.columnsQuery.arg(tabla), conexion);
        if (columnas != campos)
            defectos << QStringLiteral("%1: columnas %2, definidas %3")
                            .arg(tabla, columnas.join(u';'), campos.join(u';'));
        const QStringList claveEnBase = lineas(datos, traits.primaryKeyQuery.arg(tabla), conexion);
        if (claveEnBase != clave)
            defectos << QStringLiteral("%1: clave %2, definida %3")
                            .arg(tabla, claveEnBase.join(u';'), clave.join(u';'));
        const QStringList indices = IndicesDeTabla(datos, conexion, tabla);
        for (const QString &linea :
             LineasDefinicion(DefinicionTabla(tabla, estructuras, QStringLiteral("Indices")))) {
            const LineaDefinicion l = LeerLineaDefinicion(linea);
            if (l.nombre == u"<Primary>")
                continue;
            const QString nombre = (tabla + u'_' + l.nombre).toUpper();
            if (!indices.contains(nombre)) {
                defectos << QStringLiteral("%1: falta el índice %2").arg(tabla, nombre);
                continue;
            }
            const QStringList enBase =
                lineas(datos, traits.indexColumnsQuery.arg(nombre), conexion);
            const QStringList definidos = mayusculas(l.tipo.split(u';', Qt::SkipEmptyParts));
            if (enBase != definidos)
                defectos << QStringLiteral("%1: el índice %2 tiene %3, definido %4")
                                .arg(tabla, nombre, enBase.join(u';'), definidos.join(u';'));
        }
    }
    return defectos;
}

} // namespace co::test
