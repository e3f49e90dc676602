// Opening a grid screen's table on the demo company's material and labour
// reports (about 100,000 and 800,000 rows) until its first page is shown
// (Table + the grid's DatasetModel), against a raw QSqlQuery of that first
// page, on both back-ends; with the memory the opening takes, which must not
// grow with the table.
#include "grid_open_bench.h"
#include "core/database.h"
#include "bench_installation.h"
#include "demo_data.h"
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
    co::TModuloDatos *datos = nullptr;
    QSqlDatabase raw;
};

// The demo company's material and labour reports, about a tenth of a million
// and most of a million rows at the scale of the demo benchmark.
struct TablaDemo {
    const char *nombre;
    const char *columnas;
    const char *clave;
};
const TablaDemo kTablas[] = {
    {"PARMATOB",
     "Numero, Fecha, Hora, CodigoProveedor, CodigoMaterial, Descripcion, Unidad, CodigoObra, CodigoCapitulo, "
     "Cantidad, Precio, Importe, NumeroAlbaran, Observaciones, NumeroFactura, NumeroMovimiento, NumeroPedido, "
     "LineaPedido, Automatico",
     "Numero"},
    {"PARTEOB",
     "CodigoOperario, Fecha, Hora, Tipo, CodigoObra, CodigoCapitulo, Horas, TipoHoras, CuotaHoraria, Importe, "
     "Observaciones, CodigoIncidencia, NumeroFactura",
     "CodigoOperario, Fecha, Hora"},
};

QString tabla(int cual) {
    return QString::fromLatin1(kTablas[cual].nombre);
}

std::map<Backend, Rejilla> rejillas;

Rejilla *rejilla(Backend backend) {
    co::bench::DatosDemo *d = co::bench::DemoBanco(backend);
    if (!d)
        return nullptr;
    Rejilla &r = rejillas[backend];
    r.datos = d->instalacion.datos.get();
    r.raw = d->instalacion.raw;
    return &r;
}

int filasDe(Rejilla &r, int cual) {
    QSqlQuery q(r.raw);
    q.exec(QStringLiteral("SELECT COUNT(*) FROM ") + tabla(cual));
    return q.next() ? q.value(0).toInt() : 0;
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
    state.counters["rows"] = filasDe(*r, filas);
    state.counters["open_peak_rss_kB"] = static_cast<double>(memoria);
}

void primeraPagina(benchmark::State &state, Backend backend) {
    Rejilla *r = rejilla(backend);
    if (!r) {
        state.SkipWithError("no database");
        return;
    }
    const TablaDemo &t = kTablas[state.range(0)];
    const QString sql = QStringLiteral("SELECT %1 FROM %2 ORDER BY %3 LIMIT %4")
                            .arg(QString::fromLatin1(t.columnas), QString::fromLatin1(t.nombre),
                                 QString::fromLatin1(t.clave))
                            .arg(co::ui::DatasetModel::kChunk);
    const int columnas = static_cast<int>(QString::fromLatin1(t.columnas).count(u',')) + 1;
    for (auto _ : state) {
        QSqlQuery q(r->raw);
        q.setForwardOnly(true);
        q.exec(sql);
        while (q.next())
            for (int i = 0; i < columnas; ++i) {
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
        ->Arg(0)                                                                                   \
        ->Arg(1)                                                                                   \
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
    std::printf("\nA grid screen's first page on the demo company's reports against a raw query of that page "
                "(median of 5):\n");
    for (const char *b : {"SQLite", "PostgreSQL"})
        for (const int n : {0, 1})
            reporter.printRatio(std::string("Grid open, ") + kTablas[n].nombre + ", " + b,
                                std::string("BM_GridOpen_") + b + "/" + std::to_string(n),
                                std::string("BM_RawFirstPage_") + b + "/" + std::to_string(n), 2.0);
    rejillas.clear();
}

} // namespace co::bench
