#include "core/database.h"

#include "core/connection_words.h"
#include "core/number_text.h"
#include "core/sql_dialect.h"
#include "core/sql_lexer.h"
#include "core/statement_trace.h"

#include <QDateTime>
#include <QSqlError>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QUuid>

namespace co {
namespace {

const QString kNoEsPosible = QStringView(kFalloSentencia).toString();
const QString kErrorLectura = QStringLiteral("Error. ¡Se ha producido un error en la Sentencia SQL!. Motivo: ");
const QString kErrorLecturaADO = QStringLiteral("Error. Se ha producido un error en la Sentencia SQL!. Motivo: ");
const QString kHayError = QStringLiteral("Hay un error en la siguiente Sentencia SQL: \r\n");
// One statement a call: a second one after ";" is refused, never run.
const QString kVariasSentencias =
    QStringLiteral("El texto contiene más de una sentencia SQL; ejecute las sentencias de una en una.");
const QString kConjuntoVacio = QStringLiteral("Conjunto_Vacio");

} // namespace

// ---- cache ---------------------------------------------------------------

QString SqlCache::key(const QString &sql) {
    QString k = sql;
    return k.replace(u'=', QStringLiteral("$IGUAL$"));
}

std::optional<QString> SqlCache::find(const QString &sql) const {
    const auto it = entries_.constFind(key(sql));
    if (it == entries_.cend())
        return std::nullopt;
    if (*it == kConjuntoVacio)
        return QString();
    QString value = *it;
    return value.replace(QStringLiteral("$IGUAL$"), QStringLiteral("=")).replace(QStringLiteral("$CRLF$"), QStringLiteral("\r\n"));
}

void SqlCache::store(const QString &sql, const QString &result) {
    if (entries_.size() > kLimite)
        entries_.clear();
    QString value = result;
    value.replace(u'=', QStringLiteral("$IGUAL$")).replace(QStringLiteral("\r\n"), QStringLiteral("$CRLF$"));
    entries_.insert(key(sql), value.isEmpty() ? kConjuntoVacio : value);
}

// ---- statements ----------------------------------------------------------

TModuloDatos::TModuloDatos(TfGENEINIC &sesion) : sesion_(sesion) {}

void TModuloDatos::RegistrarNombres(const QStringList &nombres) {
    for (const QString &n : nombres)
        nombres_.insert(n.toLower(), n);
}

void TModuloDatos::RegistrarColumnasFecha(const QStringList &nombres) {
    for (const QString &n : nombres)
        fechas_.insert(n.toUpper());
}

QList<ResultColumn> TModuloDatos::columnsOf(const QSqlQuery &query, const QString &sql) const {
    const QSqlRecord record = query.record();
    QList<ResultColumn> columns;
    columns.reserve(record.count());
    QHash<QString, QString> written;
    if (sesion_.backend() == Backend::PostgreSQL)
        for (const QString &word : IdentificadoresDeSentencia(sql, Backend::PostgreSQL))
            written.insert(word.toLower(), word);
    for (int i = 0; i < record.count(); ++i) {
        QString name = record.fieldName(i);
        if (sesion_.backend() == Backend::PostgreSQL)
            name = written.value(name, nombres_.value(name, name));
        columns.append({name, columnKind(sesion_.backend(), query, i)});
    }
    return columns;
}

// Runs one statement. On PostgreSQL a failing statement inside a transaction
// would doom the whole transaction: a savepoint keeps it alive, as the business
// code expects a failure to cost that statement only.
bool TModuloDatos::exec(const QSqlDatabase &db, QSqlQuery &query, const QString &sql) {
    ++statements_;
    sesion_.crashPoints().pass();
    if (sesion_.backend() != Backend::PostgreSQL || !sesion_.TransaccionActiva())
        return query.exec(sql);
    QSqlQuery control(db);
    control.exec(QStringLiteral("SAVEPOINT co_sentencia"));
    if (query.exec(sql))
        return true;
    control.exec(QStringLiteral("ROLLBACK TO SAVEPOINT co_sentencia"));
    return false;
}

bool TModuloDatos::execCreating(const QSqlDatabase &db, QSqlQuery &query, const QString &sql,
                                const QString &crearDesde, const QString &conexion, QString *why) {
    auto run = [&] {
        query = QSqlQuery(db);
        query.setForwardOnly(true);
        query.setNumericalPrecisionPolicy(QSql::LowPrecisionDouble);
        return exec(db, query, sql);
    };
    if (run())
        return true;
    *why = failureText(sesion_.backend(), query.lastError());
    // A missing table is made from its definition and the statement tried once more.
    if (crearDesde.isEmpty() || !EsTablaInexistente(*why) || !CrearTablasSentencia(crearDesde, conexion))
        return false;
    if (run())
        return true;
    *why = failureText(sesion_.backend(), query.lastError());
    return false;
}

void TModuloDatos::reportFailure(const QString &warning, const QString &caption, const QString &sql) {
    sesion_.mensajes().MensajeA(warning);
    sesion_.mensajes().MensajePlano(caption + sql);
}

QString TModuloDatos::run(const QString &sql, const QString &conexion, const QString &opciones, Canal canal) {
    const bool principal = canal == Canal::Principal;
    const bool silenciosa = TieneOpcion(opciones, QStringLiteral("Silenciosa"));
    const QString verbo = sql.section(u' ', 0, 0);
    const bool esSelect = verbo == u"SELECT";
    auto fallo = [&](const QString &prefix, const QString &why, const QString &caption) {
        const QString result = prefix + why;
        if (!principal)
            AnadirTrazaSQL(sesion_.ArchivoTrazaSQL,
                           LineaTrazaSQL(sesion_.CodigoUsuario, QDateTime::currentDateTime(),
                                         result + QStringLiteral(" Sentencia SQL: ") + sql));
        if (!silenciosa)
            reportFailure(result, caption, sql);
        return result;
    };

    QString motivo;
    const std::optional<QSqlDatabase> db = sesion_.conexion(conexion, canal, &motivo);
    if (!db)
        return fallo(kNoEsPosible, motivo, kHayError);

    const Backend backend = sesion_.backend();
    if (HayVariasSentencias(sql, backend))
        return fallo(kNoEsPosible, kVariasSentencias, kHayError);
    QString texto = NormalizarVacios(sql, backend);
    if (esSelect)
        texto = ReescribirIgualNull(texto, TieneOpcion(opciones, QStringLiteral("ForzarNULL")), backend);
    if (verbo == u"CREATE") {
        const QStringList palabras = IdentificadoresDeSentencia(texto, backend);
        RegistrarNombres(palabras);
        for (int i = 1; i < palabras.size(); ++i)
            for (const char *tipo : {"TIMESTAMP", "DATE", "DATETIME"})
                if (palabras.at(i).compare(QLatin1String(tipo), Qt::CaseInsensitive) == 0)
                    fechas_.insert(palabras.at(i - 1).toUpper());
    }
    const QString adapted = AdaptarSentencia(texto, backend, &fechas_);

    QSqlQuery query(*db);
    const bool crear = principal && !TieneOpcion(opciones, QStringLiteral("No Crear Tabla")) && verbo != u"EXEC";
    QString why;
    if (!execCreating(*db, query, adapted, crear ? texto : QString(), conexion, &why))
        return fallo(kNoEsPosible, why, kHayError);
    for (const char *cambio : {"CREATE", "ALTER", "DROP"})
        if (verbo.compare(QLatin1String(cambio), Qt::CaseInsensitive) == 0)
            metadatos_.clear();

    const bool leeFilas = principal ? (esSelect || verbo == u"EXEC") : esSelect;
    if (!leeFilas || !query.isSelect())
        return {};
    ResultOptions options = ResultOptions::fromWords(opciones);
    options.skipRowguid = principal;
    QString result;
    if (!LeerResultado(sesion_.backend(), query, columnsOf(query, texto), options, &result, &why))
        return fallo(principal ? kErrorLectura : kErrorLecturaADO, why, QStringLiteral("SentenciaSQL:\r\n"));
    return result;
}

QString TModuloDatos::EjecutarSQL(const QString &sql, const QString &conexion, const QString &opciones) {
    return run(sql, conexion, opciones, Canal::Principal);
}

QString TModuloDatos::EjecutarSQLADO(const QString &sql, const QString &conexion, const QString &opciones) {
    return run(sql, conexion, opciones, Canal::Secundario);
}

QString TModuloDatos::EjecutarSQLCache(const QString &sql, SqlCache &cache, const QString &opciones,
                                       const QString &conexion) {
    if (const std::optional<QString> hit = cache.find(sql))
        return *hit;
    const QString result = EjecutarSQL(sql, conexion, opciones);
    if (!EsResultadoError(result))
        cache.store(sql, result);
    return result;
}

bool TModuloDatos::CrearTablasSentencia(const QString &sql, const QString &conexion) {
    if (!creator_)
        return false;
    bool ok = false;
    for (const QString &tabla : TablasDeSentencia(sql))
        ok = creator_->CrearTabla(tabla, conexion).isEmpty();
    return ok;
}

// ---- query objects -------------------------------------------------------

bool TModuloDatos::openQuery(Consulta &consulta, const QString &opciones, Canal canal) {
    consulta.Close();
    QString conexion = consulta.DatabaseName;
    if (conexion.startsWith(u'?'))
        conexion = conexion.mid(1);
    if (conexion.isEmpty())
        conexion = kConexionEmpresa;
    bool open = TieneOpcion(opciones, QStringLiteral("Open"));
    if (!open && !TieneOpcion(opciones, QStringLiteral("ExecSQL"))) {
        const QString first = consulta.SQL.trimmed().section(u' ', 0, 0).toUpper();
        open = first == u"SELECT" || first == u"(SELECT";
    }
    const bool silencio = TieneOpcion(opciones, QStringLiteral("Silencio"));
    auto fallo = [&](const QString &why) {
        if (!silencio)
            reportFailure(QStringLiteral("¡No es posible ejecutar la sentencia SQL. Motivo: ") + why, kHayError,
                          consulta.SQL);
        return false;
    };
    QString motivo;
    const std::optional<QSqlDatabase> db = sesion_.conexion(conexion, canal, &motivo);
    if (!db)
        return fallo(motivo);
    if (HayVariasSentencias(consulta.SQL, sesion_.backend()))
        return fallo(kVariasSentencias);
    const QString adapted = AdaptarSentencia(consulta.SQL, sesion_.backend(), &fechas_);
    QSqlQuery query(*db);
    QString why;
    if (!execCreating(*db, query, adapted, canal == Canal::Principal ? consulta.SQL : QString(), conexion, &why))
        return fallo(why);
    QList<ResultColumn> columns;
    QList<QVariantList> rows;
    if (open && query.isSelect()) {
        columns = columnsOf(query, consulta.SQL);
        const int n = columns.size();
        while (query.next()) {
            QVariantList row;
            row.reserve(n);
            for (int i = 0; i < n; ++i)
                row.append(ValorTipado(query.value(i), columns[i].kind));
            rows.append(std::move(row));
        }
        if (query.lastError().type() != QSqlError::NoError)
            return fallo(failureText(sesion_.backend(), query.lastError()));
    }
    consulta.setResult(std::move(columns), std::move(rows), query.numRowsAffected());
    if (open && TieneOpcion(opciones, QStringLiteral("Temporal"))) {
        if (!materializer_)
            return fallo(QStringLiteral("No es posible guardar la consulta en una tabla temporal: "
                                        "la sesión no tiene tablas temporales."));
        QString motivo;
        if (!materializer_->MaterializarConsulta(consulta, &motivo))
            return fallo(motivo);
    }
    return true;
}

bool TModuloDatos::AbrirConsulta(Consulta &consulta, const QString &opciones) {
    return openQuery(consulta, opciones, Canal::Principal);
}

bool TModuloDatos::AbrirConsultaADO(Consulta &consulta, const QString &opciones) {
    return openQuery(consulta, opciones, Canal::Secundario);
}

// ---- catalog -------------------------------------------------------------

QString TModuloDatos::NombreTablaSQL(const QString &tabla) const {
    // Both back-ends find general and temporary tables by the search order of
    // the connection; a name needs no prefix.
    return tabla;
}

QString TModuloDatos::BaseDatosDeTabla(const QString &tabla) const {
    return EsTablaGeneral(tabla) || EsTablaTemporal(tabla) ? kConexionGeneral : kConexionEmpresa;
}

QString TModuloDatos::ConsultaCatalogo(const QString &sql, const QString &tabla, const QString &conexion,
                                       bool releer) {
    if (EsTablaTemporal(tabla) || releer) {
        const QString result = EjecutarSQL(sql, conexion, QStringLiteral("Silenciosa"));
        if (!EsResultadoError(result) && !EsTablaTemporal(tabla))
            metadatos_.store(sql, result);
        return result;
    }
    return EjecutarSQLCache(sql, metadatos_, QStringLiteral("Silenciosa"), conexion);
}

QString TModuloDatos::catalog(const QString &sql, const QString &tabla, const QString &conexion) {
    const QString result = ConsultaCatalogo(sql, tabla, conexion);
    if (EsResultadoError(result))
        return {};
    QStringList names = result.split(QStringLiteral("\r\n"), Qt::SkipEmptyParts);
    if (sesion_.backend() == Backend::PostgreSQL)
        for (QString &n : names)
            n = nombres_.value(n, n);
    return names.join(u';');
}

QString TModuloDatos::ClavePrimaria(const QString &tabla, const QString &indice) {
    const QString bare = NombreTablaSinEsquema(tabla);
    QString index = indice.isEmpty() ? bare + QStringLiteral("_Clave1")
                                     : indice.contains(u'_') ? indice : bare + u'_' + indice;
    const BackendTraits &t = traitsOf(sesion_.backend());
    const QString conexion = BaseDatosDeTabla(bare);
    const bool primary = index.compare(bare + QStringLiteral("_Clave1"), Qt::CaseInsensitive) == 0 ||
                         index.endsWith(QStringLiteral("_<Primary>"));
    if (!primary) {
        const QString key = catalog(t.indexColumnsQuery.arg(index.replace(u'\'', QString())), bare, conexion);
        if (!key.isEmpty())
            return key;
    }
    return catalog(t.primaryKeyQuery.arg(QString(bare).remove(u'\'')), bare, conexion);
}

QString TModuloDatos::ColumnasTabla(const QString &tabla, const QString &opciones) {
    QString conexion, bare = tabla;
    if (tabla.contains(u'.')) {
        conexion = u'?' + tabla.section(u'.', 0, 0);
        bare = tabla.section(u'.', -1);
    } else {
        conexion = BaseDatosDeTabla(tabla);
    }
    const bool sinMemos = TieneOpcion(opciones, QStringLiteral("SinMemos")) ||
                          TieneOpcion(opciones, QStringLiteral("Sin Campos Memo"));
    const BackendTraits &t = traitsOf(sesion_.backend());
    return catalog((sinMemos ? t.columnsWithoutMemoQuery : t.columnsQuery).arg(bare.remove(u'\'')), bare, conexion);
}

// ---- values and keys ---------------------------------------------------

QString TModuloDatos::CondicionCampo(const QString &campo, const QString &desde, const QString &hasta,
                                     const QString &tipo) const {
    return co::CondicionCampo(campo, desde, hasta, tipo, sesion_.FormatoFechaSQL);
}

QString TModuloDatos::FormatoLiteralSQL(const QVariant &valor) const {
    return co::FormatoLiteralSQL(valor, sesion_.FormatoFechaSQL, sesion_.FechaNula);
}

QString TModuloDatos::NuevoIdentificador() {
    return QUuid::createUuid().toString(QUuid::WithoutBraces).toUpper();
}

std::optional<QStringList> TModuloDatos::BuscarValores(const QString &tabla, const QString &valoresClave,
                                                       const QStringList &campos) {
    const QString nombre = NombreTablaSQL(tabla);
    const QStringList clave = ClavePrimaria(nombre).split(u';', Qt::SkipEmptyParts);
    const QStringList valores = valoresClave.split(u';');
    QStringList condiciones;
    for (int i = 0; i < clave.size(); ++i) {
        QString v = i < valores.size() ? valores[i] : QString();
        if (v.count(u'/') == 2)
            v = FechaParaSQL(v, sesion_.FormatoFechaSQL);
        condiciones << (v.isEmpty() ? QStringLiteral("(%1 = '' OR %1 IS NULL)").arg(clave[i])
                                    : QStringLiteral("(%1 = %2)").arg(clave[i], Entrecomillar(v)));
    }
    Consulta q;
    q.DatabaseName = BaseDatosDeTabla(nombre);
    q.SQL = QStringLiteral("SELECT ") + campos.join(QStringLiteral(", ")) + QStringLiteral(" FROM ") + nombre;
    if (!condiciones.isEmpty())
        q.SQL += QStringLiteral(" WHERE ") + condiciones.join(QStringLiteral(" AND "));
    if (!AbrirConsulta(q, QStringLiteral("Silencio")) || q.RecordCount() == 0)
        return std::nullopt;
    QStringList out;
    for (int c = 0; c < q.Fields().size(); ++c)
        out << TextoValor(q.Value(0, c), q.Fields()[c].kind);
    return out;
}

QStringList TModuloDatos::keyOf(const RecordView &tabla) {
    QStringList key = tabla.keyFields();
    if (key.isEmpty())
        key = ClavePrimaria(tabla.tableName()).split(u';', Qt::SkipEmptyParts);
    return key;
}

QString TModuloDatos::connectionOf(const RecordView &tabla) const {
    return tabla.connectionName().isEmpty() ? BaseDatosDeTabla(tabla.tableName()) : tabla.connectionName();
}

qlonglong TModuloDatos::SiguienteNumero(const RecordView &tabla, qlonglong incremento, qlonglong maximo,
                                        qlonglong minimo) {
    const QStringList key = keyOf(tabla);
    if (key.isEmpty())
        return incremento;
    const QString numerador = key.last();
    const ColumnKind kind = tabla.fieldKind(numerador);
    const bool texto = kind == ColumnKind::Text || kind == ColumnKind::Memo;
    // A text numerator is compared as a number, which both back-ends need spelt out.
    const QString valor = texto ? QStringLiteral("CAST(%1 AS INTEGER)").arg(numerador) : numerador;
    QStringList condiciones;
    if (texto)
        condiciones << QStringLiteral("ISNUMERIC(%1) = 1").arg(numerador);
    if (minimo != -1)
        condiciones << valor + QStringLiteral(" >= ") + QString::number(minimo);
    if (maximo != -1)
        condiciones << valor + QStringLiteral(" <= ") + QString::number(maximo);
    for (int i = 0; i + 1 < key.size(); ++i)
        condiciones << key[i] + u'=' + FormatoLiteralSQL(tabla.value(key[i]));
    QString where;
    for (int i = 0; i < condiciones.size(); ++i)
        where += (i == 0 ? QStringLiteral(" WHERE ") : QStringLiteral(" AND ")) + QStringLiteral(" (") +
                 condiciones[i] + QStringLiteral(") ");
    const QString sql = QStringLiteral("SELECT MAX(") + valor + QStringLiteral(") ") + QStringLiteral(" FROM ") +
                        NombreTablaSQL(tabla.tableName()) + QStringLiteral(" WITH(NOLOCK) ") + where;
    const QString result = EjecutarSQL(sql, u'?' + connectionOf(tabla), QStringLiteral("Silenciosa"));
    bool ok = false;
    const qlonglong highest = result.trimmed().toLongLong(&ok);
    return (ok ? highest : 0) + incremento;
}

double TModuloDatos::SumaCampo(const RecordView &tabla, const QStringList &camposClave, const QString &expresion,
                               const QStringList &valoresClave) {
    QStringList campos = camposClave;
    QStringList valores = valoresClave;
    if (campos.isEmpty()) {
        campos = keyOf(tabla);
        if (valores.isEmpty())
            for (const QString &c : campos)
                valores << TextoValor(tabla.value(c), tabla.fieldKind(c));
    }
    QStringList condiciones;
    for (int i = 0; i < campos.size(); ++i) {
        const QString v = i < valores.size() ? valores[i] : QString();
        condiciones << CondicionCampo(campos[i], v, v, QStringLiteral("ftString"));
    }
    QString sql = QStringLiteral("SELECT SUM(") + expresion + QStringLiteral(") FROM ") + NombreTablaSQL(tabla.tableName());
    if (!condiciones.isEmpty())
        sql += QStringLiteral(" WHERE ") + condiciones.join(QStringLiteral(" AND "));
    QString result = EjecutarSQL(sql, connectionOf(tabla), QStringLiteral("Silenciosa"));
    if (EsResultadoError(result))
        return 0.0;
    return LeerDecimal(result).value_or(0.0);
}

QString TModuloDatos::ValorClave(const RecordView &tabla) {
    QString out;
    for (const QString &campo : keyOf(tabla)) {
        const QVariant v = ValorTipado(tabla.value(campo), tabla.fieldKind(campo));
        if (v.typeId() == QMetaType::QDateTime && campo.toUpper().contains(QStringLiteral("HORA")))
            out += v.toDateTime().time().toString(QStringLiteral("hh:mm:ss"));
        else
            out += TextoValor(v, tabla.fieldKind(campo));
        out += u';';
    }
    return out;
}

bool TModuloDatos::AnularVacios(const RecordView &tabla) {
    if (sesion_.backend() != Backend::PostgreSQL)
        return true;
    QStringList asignaciones;
    for (const QString &campo : tabla.fieldNames()) {
        if (tabla.fieldKind(campo) != ColumnKind::Memo)
            continue;
        const QString v = tabla.value(campo).toString();
        asignaciones << campo + (v.isEmpty() ? QStringLiteral(" = NULL") : QStringLiteral(" = ") + Entrecomillar(v));
    }
    if (asignaciones.isEmpty())
        return true;
    QStringList condiciones;
    for (const QString &campo : keyOf(tabla))
        condiciones << campo + QStringLiteral(" = ") + FormatoLiteralSQL(tabla.value(campo));
    const QString sql = QStringLiteral("UPDATE ") + NombreTablaSQL(tabla.tableName()) + QStringLiteral("  SET ") +
                        asignaciones.join(QStringLiteral(", ")) + QStringLiteral("  WHERE ") +
                        condiciones.join(QStringLiteral(" AND "));
    return !EsResultadoError(EjecutarSQL(sql, connectionOf(tabla)));
}

bool TModuloDatos::InsertarRegistro(const QString &lineas, const QString &conexion, const QString &opciones) {
    QStringList lines = lineas.split(u'\n');
    for (QString &l : lines)
        l.remove(u'\r');
    if (lines.isEmpty() || lines.first().trimmed().isEmpty())
        return false;
    const QString tabla = lines.takeFirst().trimmed();
    QStringList nombres, valores;
    for (const QString &line : std::as_const(lines)) {
        const int eq = line.indexOf(u'=');
        if (eq <= 0)
            continue;
        const QString nombre = line.left(eq).remove(u'\'').trimmed();
        const QString valor = line.mid(eq + 1).remove(u'\'');
        if (nombre.isEmpty() || valor.isEmpty())
            continue;
        nombres << nombre;
        valores << Entrecomillar(valor);
    }
    if (nombres.isEmpty())
        return false;
    const QString sql = QStringLiteral("INSERT INTO ") + tabla + QStringLiteral(" (") + nombres.join(QStringLiteral(", ")) +
                        QStringLiteral(") ") + QStringLiteral(" VALUES (") + valores.join(QStringLiteral(", ")) +
                        QStringLiteral(") ");
    const QString result = TieneOpcion(opciones, QStringLiteral("ADOConnection"))
                               ? EjecutarSQLADO(sql, conexion, opciones)
                               : EjecutarSQL(sql, conexion, opciones);
    return result.isEmpty();
}

} // namespace co
