// Opening a grid screen's table on 100,000 and 1,000,000 rows until its first
// page is shown (Table + the grid's DatasetModel), against a raw QSqlQuery of
// that first page, on both back-ends; with the memory the opening takes, which
// must not grow with the table.
#include "grid_open_bench.h"
#include "core/database.h"
#include "bench_installation.h"
#include "core/session.h"
#include "forms/form.h"
#include "forms/table.h"
#include "peak_memory.h"
#include "ui/dataset_model.h"

#include <QFile>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <memory>

namespace {

using co::Backend;

struct Rejilla {
    QTemporaryDir dir;
    std::unique_ptr<co::TfGENEINIC> sesion;
    std::unique_ptr<co::TModuloDatos> datos;
    QSqlDatabase raw;
    co::ScriptedMessages messages;
};

std::map<Backend, std::unique_ptr<Rejilla>> rejillas;

QString tabla(int filas) {
    return QStringLiteral("BGRD%1").arg(filas / 1000);
}

// Fills the table in one statement: a million single inserts would take the run.
bool llenar(Rejilla &r, Backend backend, int filas) {
    QSqlQuery q(r.raw);
    const QString t = tabla(filas);
    q.exec(QStringLiteral("DROP TABLE IF EXISTS ") + t);
    if (!q.exec(QStringLiteral("CREATE TABLE ") + t +
                QStringLiteral(" (Codigo VARCHAR(8) NOT NULL PRIMARY KEY, Descripcion "
                               "VARCHAR(40), CuotaHoraria1 DOUBLE PRECISION, PrecioVenta1 "
                               "DOUBLE PRECISION)")))
        return false;
    const QString serie =
        backend == Backend::PostgreSQL
            ? QStringLiteral("SELECT i FROM generate_series(1, %1) AS s(i)").arg(filas)
            : QStringLiteral("WITH RECURSIVE s(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM s "
                             "WHERE i < %1) SELECT i FROM s")
                  .arg(filas);
    const QString codigo = backend == Backend::PostgreSQL
                               ? QStringLiteral("LPAD(CAST(i AS VARCHAR(8)), 8, '0')")
                               : QStringLiteral("printf('%08d', i)");
    return q.exec(QStringLiteral("INSERT INTO ") + t + QStringLiteral(" SELECT ") + codigo +
                  QStringLiteral(", 'Máquina ' || CAST(i AS VARCHAR(8)), i * 1.5, i * 2.0 FROM (") +
                  serie + QStringLiteral(") AS n"));
}

Rejilla *rejilla(Backend backend) {
    auto &slot = rejillas[backend];
    if (slot)
        return slot.get();
    auto r = std::make_unique<Rejilla>();
    const auto s = co::bench::AjustesBanco(backend, r->dir.path(), QStringLiteral("grid"));
    if (!s)
        return nullptr;
    r->sesion = std::make_unique<co::TfGENEINIC>(*s, &r->messages);
    QString motivo;
    if (!r->sesion->Conectar(&motivo)) {
        std::fprintf(stderr, "%s\n", qPrintable(motivo));
        return nullptr;
    }
    r->datos = std::make_unique<co::TModuloDatos>(*r->sesion);
    r->raw = *r->sesion->conexion(QStringLiteral("Database"), co::Canal::Principal, &motivo);
    for (int filas : {100000, 1000000})
        if (!llenar(*r, backend, filas)) {
            std::fprintf(stderr, "could not fill %s\n", qPrintable(tabla(filas)));
            return nullptr;
        }
    slot = std::move(r);
    return slot.get();
}

// What a grid screen does on opening: its table, its grid's model, the first page
// read. Returns the statements the table sent; false when the page was not shown.
bool abrir(Rejilla &r, int filas, int *sentencias) {
    co::forms::Form form(QStringLiteral("fBENCH"));
    auto &t = form.Add<co::forms::Table>(*r.datos, QStringLiteral("Table1"), tabla(filas));
    auto &source = form.Add<co::forms::DataSource>(QStringLiteral("DataSource1"), &t);
    auto &grid = form.Add<co::forms::DBGrid>(QStringLiteral("DBGrid1"), &source);
    t.Open();
    co::ui::DatasetModel model(grid, [](const std::function<void()> &a) {
        a();
        return true;
    });
    benchmark::DoNotOptimize(model.data(model.index(0, 1), Qt::DisplayRole));
    *sentencias = t.StatementsRun();
    return model.rowCount() == co::ui::DatasetModel::kChunk;
}

void abrirRejilla(benchmark::State &state, Backend backend) {
    Rejilla *r = rejilla(backend);
    if (!r) {
        state.SkipWithError("no database");
        return;
    }
    const int filas = static_cast<int>(state.range(0));
    int sentencias = 0;
    // The memory of one opening is read apart: reading /proc is not the opening's time.
    co::bench::ResetPeakMemory();
    const long antes = co::bench::PeakMemoryKb();
    abrir(*r, filas, &sentencias);
    const long memoria = co::bench::PeakMemoryKb() - antes;
    for (auto _ : state)
        if (!abrir(*r, filas, &sentencias))
            state.SkipWithError("first page not shown");
    state.counters["statements"] = sentencias;
    state.counters["peak_rss_MB"] = static_cast<double>(co::bench::PeakMemoryKb()) / 1024.0;
    state.counters["rows"] = filas;
    state.counters["open_peak_rss_kB"] = static_cast<double>(memoria);
}

void primeraPagina(benchmark::State &state, Backend backend) {
    Rejilla *r = rejilla(backend);
    if (!r) {
        state.SkipWithError("no database");
        return;
    }
    const QString sql =
        QStringLiteral("SELECT Codigo, Descripcion, CuotaHoraria1, PrecioVenta1 "
                       "FROM ") +
        tabla(static_cast<int>(state.range(0))) +
        QStringLiteral(" ORDER BY Codigo LIMIT %1").arg(co::ui::DatasetModel::kChunk);
    for (auto _ : state) {
        QSqlQuery q(r->raw);
        q.setForwardOnly(true);
        q.exec(sql);
        while (q.next())
            for (int i = 0; i < 4; ++i) {
                QVariant v = q.value(i);
                benchmark::DoNotOptimize(v);
            }
    }
}

void BM_RawFirstPage_SQLite(benchmark::State &s) {
    primeraPagina(s, Backend::SQLite);
}
void BM_GridOpen_SQLite(benchmark::State &s) {
    abrirRejilla(s, Backend::SQLite);
}
void BM_RawFirstPage_PostgreSQL(benchmark::State &s) {
    primeraPagina(s, Backend::PostgreSQL);
}
void BM_GridOpen_PostgreSQL(benchmark::State &s) {
    abrirRejilla(s, Backend::PostgreSQL);
}

#define CO_GRID_BENCH(name)                                                                        \
    BENCHMARK(name)                                                                                \
        ->Arg(100000)                                                                              \
        ->Arg(1000000)                                                                             \
        ->Unit(benchmark::kMillisecond)                                                            \
        ->Repetitions(5)                                                                           \
        ->ReportAggregatesOnly(true)

CO_GRID_BENCH(BM_RawFirstPage_SQLite);
CO_GRID_BENCH(BM_GridOpen_SQLite);
CO_GRID_BENCH(BM_RawFirstPage_PostgreSQL);
CO_GRID_BENCH(BM_GridOpen_PostgreSQL);

} // namespace

namespace co::bench {

// Prints the grid ratios; called by the benchmark program's main.
void ImprimirRejillas(const RatioReporter &reporter) {
    std::printf("\nA grid screen's first page against a raw query of that page (median of 5):\n");
    for (const char *b : {"SQLite", "PostgreSQL"})
        for (const char *n : {"100000", "1000000"})
            reporter.printRatio(std::string("Grid open, ") + n + " rows, " + b,
                                std::string("BM_GridOpen_") + b + "/" + n,
                                std::string("BM_RawFirstPage_") + b + "/" + n, 2.0);
    rejillas.clear();
}

} // namespace co::bench
