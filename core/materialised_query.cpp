#include "core/materialised_query.h"

#include "core/connection_words.h"
#include "core/table_ddl.h"
#include "core/temporary_tables.h"

#include <limits>

namespace co {
namespace {

const QString kSilenciosa = QStringLiteral("Silenciosa,No Crear Tabla");

bool falla(QString *motivo, const QString &texto) {
    if (motivo)
        *motivo = texto;
    return false;
}

bool fueraDe32Bits(const QVariant &v) {
    const qlonglong n = v.toLongLong();
    return n > std::numeric_limits<qint32>::max() || n < std::numeric_limits<qint32>::min();
}

// The type word of a column the back-end gave no type for, from its values.
QString palabraPorValores(const Consulta &consulta, int columna) {
    QString palabra;
    for (int fila = 0; fila < consulta.RecordCount(); ++fila) {
        const QVariant v = consulta.Value(fila, columna);
        if (v.isNull() || !v.isValid())
            continue;
        QString esta;
        switch (v.typeId()) {
        case QMetaType::Int:
        case QMetaType::UInt:
        case QMetaType::LongLong:
        case QMetaType::ULongLong:
            esta = fueraDe32Bits(v) ? QStringLiteral("ftFloat") : QStringLiteral("ftInteger");
            break;
        case QMetaType::Double:
        case QMetaType::Float:
            esta = QStringLiteral("ftFloat");
            break;
        case QMetaType::QDateTime:
        case QMetaType::QDate:
            esta = QStringLiteral("ftDateTime");
            break;
        case QMetaType::QByteArray:
            esta = QStringLiteral("ftBlob");
            break;
        default:
            esta = QStringLiteral("ftMemo");
        }
        // Integers and floats mixed are floats; any other mixture is text.
        if (palabra.isEmpty() || palabra == esta)
            palabra = esta;
        else if ((palabra == u"ftInteger" && esta == u"ftFloat") ||
                 (palabra == u"ftFloat" && esta == u"ftInteger"))
            palabra = QStringLiteral("ftFloat");
        else
            palabra = QStringLiteral("ftMemo");
    }
    return palabra.isEmpty() ? QStringLiteral("ftMemo") : palabra;
}

QString lineaColumna(const Consulta &consulta, int columna) {
    const ResultColumn &c = consulta.Fields().at(columna);
    QString palabra, longitud = QStringLiteral("0");
    switch (c.kind) {
    case ColumnKind::Text:
        palabra = QStringLiteral("ftString");
        longitud = QStringLiteral("MAX");
        break;
    case ColumnKind::Memo:
        palabra = QStringLiteral("ftMemo");
        break;
    case ColumnKind::Integer:
        palabra = QStringLiteral("ftInteger");
        for (int fila = 0; fila < consulta.RecordCount(); ++fila)
            if (fueraDe32Bits(consulta.Value(fila, columna)))
                palabra = QStringLiteral("ftFloat");
        break;
    case ColumnKind::Float:
        palabra = QStringLiteral("ftFloat");
        break;
    case ColumnKind::DateTime:
        palabra = QStringLiteral("ftDateTime");
        break;
    case ColumnKind::Boolean:
        palabra = QStringLiteral("ftBoolean");
        break;
    case ColumnKind::Blob:
        palabra = QStringLiteral("ftBlob");
        break;
    case ColumnKind::Unknown:
        palabra = palabraPorValores(consulta, columna);
        break;
    }
    return QStringLiteral("/C/%1/%2/%3/%4/\r\n").arg(columna + 1).arg(c.name, palabra, longitud);
}

} // namespace

bool MaterializarConsultaTemporal(TModuloDatos &datos, Consulta &consulta, QString *motivo,
                                  const QString &propietario) {
    if (!consulta.Active() && !datos.AbrirConsulta(consulta, QStringLiteral("Open")))
        return falla(motivo, QStringLiteral("No se ha podido abrir la consulta: ") + consulta.SQL);
    if (consulta.Fields().isEmpty())
        return falla(motivo, QStringLiteral("La sentencia no devuelve columnas que guardar en una "
                                            "tabla temporal: ") +
                                 consulta.SQL);
    QString nombre;
    if (!NombreTablaTemporal(datos, propietario, 0, &nombre, motivo))
        return false;
    QString campos;
    for (int i = 0; i < consulta.Fields().size(); ++i) {
        const QString columna = consulta.Fields().at(i).name;
        if (!EsIdentificadorValido(columna))
            return falla(motivo, QStringLiteral("La columna \"%1\" de la consulta no tiene un "
                                                "nombre válido para una tabla temporal: dé un "
                                                "nombre a la columna con AS.")
                                     .arg(columna));
        campos += lineaColumna(consulta, i);
    }
    QString problema;
    const std::optional<EstructuraTabla> tabla = LeerEstructuraTabla(nombre, campos, {}, &problema);
    if (!tabla)
        return falla(motivo, QStringLiteral("No es posible guardar la consulta en una tabla "
                                            "temporal. Motivo: ") +
                                 problema);
    TfGENEINIC &sesion = datos.sesion();
    datos.EjecutarSQL(QStringLiteral("DROP TABLE ") + nombre, kConexionGeneral, kSilenciosa);
    const QString crear = SentenciasCreacion(*tabla, sesion.backend(), sesion.FechaNula).crear;
    const QString creada = datos.EjecutarSQL(crear, kConexionGeneral, kSilenciosa);
    if (EsResultadoError(creada))
        return falla(motivo, MotivoResultado(creada));

    const QString cualificado = sesion.AliasGeneralSQL() + QStringLiteral(".dbo.") + nombre;
    QString conexion = consulta.DatabaseName.startsWith(u'?') ? consulta.DatabaseName.mid(1)
                                                              : consulta.DatabaseName;
    // The general connection does not know the general data by its alias.
    if (conexion.isEmpty() || conexion == kConexionGeneral)
        conexion = kConexionEmpresa;
    // SQLite: another connection keeps the table's old shape until it reads it,
    // and a positional INSERT is checked against that shape.
    datos.EjecutarSQL(QStringLiteral("SELECT COUNT(*) FROM ") + cualificado, conexion, kSilenciosa);
    const QString llenada =
        datos.EjecutarSQL(QStringLiteral("INSERT INTO ") + cualificado + u' ' + consulta.SQL,
                          conexion, QStringLiteral("Silenciosa"));
    if (EsResultadoError(llenada))
        return falla(motivo, MotivoResultado(llenada));

    Consulta temporal;
    temporal.DatabaseName = conexion;
    temporal.SQL = QStringLiteral("SELECT * FROM ") + cualificado;
    if (!datos.AbrirConsulta(temporal, QStringLiteral("Open,Silencio")))
        return falla(motivo, QStringLiteral("No se ha podido abrir la tabla temporal ") + nombre);
    consulta = temporal;
    return true;
}

bool MaterializadorConsultas::MaterializarConsulta(Consulta &consulta, QString *motivo) {
    return MaterializarConsultaTemporal(datos_, consulta, motivo);
}

} // namespace co
