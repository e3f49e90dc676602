#pragma once
// `TModuloDatos`: the one statement layer. Every statement of the business code
// runs here as text, on a connection word, with option words; the operations
// return text (or false) and never throw for a failing statement.
//
// Result text: rows joined by CR LF; fields joined by "|", or with `FormatoINI`
// written Name=value and joined by "·". A failure starts with "Error.".
// Options (found by substring): Silenciosa, No Crear Tabla, ForzarNULL,
// DelimitadorCRLFMemo=<text>, NoEliminarUltimoCRLF, FormatoINI; for
// AbrirConsulta: Open, ExecSQL, Silencio.

#include "core/query.h"
#include "core/record_view.h"
#include "core/session.h"
#include "core/sql_dialect.h"
#include "core/sql_text.h"

#include <QHash>
#include <QString>
#include <QStringList>
#include <optional>

namespace co {

// Creates tables that a statement found missing. The table-definition module
// implements it from the structure files.
class TableCreator {
public:
    virtual ~TableCreator() = default;
    // Creates `tabla` (named as in the statement) for the current company, reached
    // through the connection word. A table that exists is left alone. Returns empty
    // on success, else the failure text.
    virtual QString CrearTabla(const QString &tabla, const QString &conexion) = 0;
};

// Stores an open query's rows in a temporary table and opens the query again on
// it: the `Temporal` option of `AbrirConsulta`. The temporary-table module
// implements it (materialised_query.h); the session's owner plugs it in.
class QueryMaterializer {
public:
    virtual ~QueryMaterializer() = default;
    // False with `motivo` in Spanish; the query is then left as it was.
    virtual bool MaterializarConsulta(Consulta &consulta, QString *motivo) = 0;
};

// Memo of statement results, as `EjecutarSQLCache` keeps it.
class SqlCache {
public:
    static constexpr int kLimite = 20000;
    bool contains(const QString &sql) const { return entries_.contains(key(sql)); }
    int size() const { return static_cast<int>(entries_.size()); }
    void clear() { entries_.clear(); }

    std::optional<QString> find(const QString &sql) const;
    void store(const QString &sql, const QString &result);

private:
    static QString key(const QString &sql);
    QHash<QString, QString> entries_;
};

class TModuloDatos {
public:
    explicit TModuloDatos(TfGENEINIC &sesion);

    TfGENEINIC &sesion() { return sesion_; }
    void setTableCreator(TableCreator *creator) { creator_ = creator; }
    void setQueryMaterializer(QueryMaterializer *materializer) { materializer_ = materializer; }

    QString EjecutarSQL(const QString &sql, const QString &conexion = {}, const QString &opciones = {});
    // The second channel: another connection to the same data; no table creation.
    QString EjecutarSQLADO(const QString &sql, const QString &conexion = {}, const QString &opciones = {});
    QString EjecutarSQLCache(const QString &sql, SqlCache &cache, const QString &opciones = {},
                             const QString &conexion = {});

    bool AbrirConsulta(Consulta &consulta, const QString &opciones = {});
    bool AbrirConsultaADO(Consulta &consulta, const QString &opciones = {});

    // Field values for a key ("v1;v2"); nullopt when no row has it.
    std::optional<QStringList> BuscarValores(const QString &tabla, const QString &valoresClave,
                                             const QStringList &campos);
    QString ClavePrimaria(const QString &tabla, const QString &indice = {});
    QString ColumnasTabla(const QString &tabla, const QString &opciones = {});
    // Result text of a catalog statement about `tabla`, remembered until a
    // statement of this session changes a structure (CREATE, ALTER, DROP);
    // temporary tables are read every time; `releer` reads it again.
    QString ConsultaCatalogo(const QString &sql, const QString &tabla, const QString &conexion,
                             bool releer = false);

    qlonglong SiguienteNumero(const RecordView &tabla, qlonglong incremento = 1, qlonglong maximo = -1,
                              qlonglong minimo = -1);
    double SumaCampo(const RecordView &tabla, const QStringList &camposClave, const QString &expresion,
                     const QStringList &valoresClave);
    QString ValorClave(const RecordView &tabla);
    bool AnularVacios(const RecordView &tabla);
    bool InsertarRegistro(const QString &lineas, const QString &conexion = {}, const QString &opciones = {});

    QString CondicionCampo(const QString &campo, const QString &desde, const QString &hasta,
                           const QString &tipo) const;
    QString FormatoLiteralSQL(const QVariant &valor) const;
    static QString NuevoIdentificador();

    bool CrearTablasSentencia(const QString &sql, const QString &conexion);
    QString NombreTablaSQL(const QString &tabla) const;
    QString BaseDatosDeTabla(const QString &tabla) const;

    // Column names in the case of the schema, for back-ends that fold them.
    void RegistrarNombres(const QStringList &nombres);
    QString NombreColumna(const QString &nombre) const { return nombres_.value(nombre.toLower(), nombre); }
    // Date and date-time columns of the structure files: the dialect step gives
    // them dates in their stored form.
    void RegistrarColumnasFecha(const QStringList &nombres);
    // Statements sent to the back-ends so far.
    int SentenciasEjecutadas() const { return statements_; }

private:
    QString run(const QString &sql, const QString &conexion, const QString &opciones, Canal canal);
    bool openQuery(Consulta &consulta, const QString &opciones, Canal canal);
    QList<ResultColumn> columnsOf(const QSqlQuery &query, const QString &sql) const;
    QString catalog(const QString &sql, const QString &tabla, const QString &conexion);
    QStringList keyOf(const RecordView &tabla);
    QString connectionOf(const RecordView &tabla) const;
    bool exec(const QSqlDatabase &db, QSqlQuery &query, const QString &sql);
    // Runs `sql` on a fresh forward-only query; on a missing table, and when
    // `crearDesde` is not empty, makes the tables of `crearDesde` and runs it again.
    bool execCreating(const QSqlDatabase &db, QSqlQuery &query, const QString &sql, const QString &crearDesde,
                      const QString &conexion, QString *why);
    void reportFailure(const QString &warning, const QString &statementCaption, const QString &sql);

    TfGENEINIC &sesion_;
    TableCreator *creator_ = nullptr;
    QueryMaterializer *materializer_ = nullptr;
    SqlCache metadatos_;
    QHash<QString, QString> nombres_;
    ColumnasFecha fechas_;
    int statements_ = 0;
};

} // namespace co
