// The search window on a 1,000,000-row table shaped like CLIENTE: a search from
// a key value that reads its 100 rows into the window's memory, against the raw
// indexed query of the same rows through QSqlQuery, on both back-ends.
#include "bench_installation.h"
#include "forms/search_window.h"

#include <QSqlQuery>
#include <QSqlRecord>
#include <benchmark/benchmark.h>
#include <map>

namespace {

using co::Backend;
using co::bench::BenchInstallation;

constexpr int kRows = 1000000;
const QString kColumns = QStringLiteral("Codigo,Nombre,RazonSocial,Domicilio,Poblacion,Provincia,"
                                        "CodigoPostal,Telefono,NIF,FormaPago,Descuento");

BenchInstallation *clientes(Backend backend) {
    static std::map<Backend, bool> filled;
    BenchInstallation *inst = co::bench::SharedInstallation(backend);
    if (!inst || filled[backend])
        return inst;
    co::TModuloDatos &d = *inst->datos;
    d.EjecutarSQL(QStringLiteral("DROP TABLE IF EXISTS BENCHCLI"), {},
                  QStringLiteral("Silenciosa"));
    d.EjecutarSQL(QStringLiteral(
        "CREATE TABLE BENCHCLI (Codigo INTEGER NOT NULL, Nombre VARCHAR(40), RazonSocial "
        "VARCHAR(40), "
        "Domicilio VARCHAR(40), Poblacion VARCHAR(30), Provincia VARCHAR(30), CodigoPostal "
        "VARCHAR(10), "
        "Telefono VARCHAR(20), NIF VARCHAR(15), FormaPago INTEGER, Descuento DOUBLE PRECISION, "
        "Observaciones TEXT, CONSTRAINT BENCHCLI_Clave1 PRIMARY KEY (Codigo))"));
    const QString valores = QStringLiteral("i, 'Cliente ' || i, 'Razon social ' || i, 'Calle Mayor "
                                           "' || i, 'Bilbao', 'Bizkaia', '48001', "
                                           "'944000000', 'B' || i, 1, 0.5, 'Notas del cliente'");
    const QString relleno =
        backend == Backend::PostgreSQL
            ? QStringLiteral("INSERT INTO BENCHCLI SELECT %1 FROM generate_series(1, %2) AS g(i)")
            : QStringLiteral(
                  "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < %2) "
                  "INSERT INTO BENCHCLI SELECT %1 FROM n");
    QSqlQuery q(inst->raw);
    q.exec(relleno.arg(valores).arg(kRows));
    if (backend == Backend::PostgreSQL)
        q.exec(QStringLiteral("ANALYZE BENCHCLI"));
    filled[backend] = true;
    return inst;
}

void search(benchmark::State &state, Backend backend) {
    BenchInstallation *inst = clientes(backend);
    if (!inst) {
        state.SkipWithError("no database");
        return;
    }
    co::forms::TfGENEBUSQ ventana(*inst->datos, inst->sesion->mensajes());
    co::forms::OpcionesBusqueda o;
    o.opcionesPorUsuario = false;
    ventana.Abrir({QStringLiteral("BENCHCLI"), 0, {}, {}, {}}, o);
    ventana.Find<co::forms::Component>(QStringLiteral("ResultadosOrdenados"))->Checked = true;
    ventana.DatoABuscar().Text = QStringLiteral("500000");
    for (auto _ : state) {
        ventana.Buscar();
        if (ventana.ClientDataSet1().RecordCount() != 100)
            state.SkipWithError("the search did not read 100 rows");
    }
}

void raw(benchmark::State &state, Backend backend) {
    BenchInstallation *inst = clientes(backend);
    if (!inst) {
        state.SkipWithError("no database");
        return;
    }
    const QString sql =
        QStringLiteral("SELECT %1 FROM BENCHCLI WHERE Codigo >= 500000 ORDER BY Codigo LIMIT 100")
            .arg(kColumns);
    for (auto _ : state) {
        QSqlQuery q(inst->raw);
        q.setForwardOnly(true);
        q.exec(sql);
        const int columns = q.record().count();
        while (q.next())
            for (int i = 0; i < columns; ++i) {
                QVariant v = q.value(i);
                benchmark::DoNotOptimize(v);
            }
    }
}

void BM_SearchRaw_SQLite(benchmark::State &s) {
    raw(s, Backend::SQLite);
}
void BM_Search_SQLite(benchmark::State &s) {
    search(s, Backend::SQLite);
}
void BM_SearchRaw_PostgreSQL(benchmark::State &s) {
    raw(s, Backend::PostgreSQL);
}
void BM_Search_PostgreSQL(benchmark::State &s) {
    search(s, Backend::PostgreSQL);
}

// A search takes a fraction of a millisecond and the server shares the cores:
// more repetitions keep the medians steady.
#define CO_SEARCH_BENCH(name)                                                                      \
    BENCHMARK(name)                                                                                \
        ->Unit(benchmark::kMicrosecond)                                                            \
        ->MinTime(0.5)                                                                             \
        ->Repetitions(15)                                                                          \
        ->ReportAggregatesOnly(true)

CO_SEARCH_BENCH(BM_SearchRaw_SQLite);
CO_SEARCH_BENCH(BM_Search_SQLite);
CO_SEARCH_BENCH(BM_SearchRaw_PostgreSQL);
CO_SEARCH_BENCH(BM_Search_PostgreSQL);

} // namespace
