// EjecutarSQL against a raw QSqlQuery of the same statement, on both back-ends:
// a 10,000-row SELECT and a single-row SELECT by key.
#include "demo_bench.h"
#include "demo_data.h"
#include "core/database.h"
#include "core/session.h"
#include "grid_open_bench.h"
#include "bench_installation.h"
#include "ratio_reporter.h"
#include "statement_rewrite_bench.h"

#include <QGuiApplication>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <memory>

namespace {

using co::Backend;

constexpr int kRows = 10000;
const QString kAll = QStringLiteral(
    "SELECT Codigo, Nombre, Importe, Fecha, Situacion FROM BENCHOBR ORDER BY Codigo");
const QString kOne = QStringLiteral(
    "SELECT Codigo, Nombre, Importe, Fecha, Situacion FROM BENCHOBR WHERE Codigo = '4321'");

using Installation = co::bench::BenchInstallation;

// The shared installation with the table of this benchmark, filled once.
Installation *installation(Backend backend) {
    static std::map<Backend, bool> filled;
    Installation *inst = co::bench::SharedInstallation(backend);
    if (!inst || filled[backend])
        return inst;
    co::TModuloDatos &d = *inst->datos;
    d.EjecutarSQL(QStringLiteral("DROP TABLE IF EXISTS BENCHOBR"), {},
                  QStringLiteral("Silenciosa"));
    d.EjecutarSQL(QStringLiteral(
        "CREATE TABLE BENCHOBR (Codigo INTEGER NOT NULL PRIMARY KEY, Nombre VARCHAR(40), "
        "Importe DOUBLE PRECISION, Fecha TIMESTAMP, Situacion VARCHAR(10))"));
    inst->sesion->IniciarTransaccion();
    for (int i = 1; i <= kRows; ++i)
        d.EjecutarSQL(
            QStringLiteral(
                "INSERT INTO BENCHOBR VALUES ('%1', 'Obra número %1', '%2', '2026-%3-%4 00:00:00', "
                "'Abierta')")
                .arg(i)
                .arg(i * 1.25)
                .arg(1 + i % 12, 2, 10, QLatin1Char('0'))
                .arg(1 + i % 28, 2, 10, QLatin1Char('0')));
    inst->sesion->FinalizarTransaccion();
    filled[backend] = true;
    return inst;
}

void layer(benchmark::State &state, Backend backend, const QString &sql) {
    Installation *inst = installation(backend);
    if (!inst) {
        state.SkipWithError("no database");
        return;
    }
    for (auto _ : state) {
        QString result = inst->datos->EjecutarSQL(sql);
        benchmark::DoNotOptimize(result);
    }
}

void raw(benchmark::State &state, Backend backend, const QString &sql) {
    Installation *inst = installation(backend);
    if (!inst) {
        state.SkipWithError("no database");
        return;
    }
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

void BM_EjecutarSQL_10000_SQLite(benchmark::State &s) {
    layer(s, Backend::SQLite, kAll);
}
void BM_Raw_10000_SQLite(benchmark::State &s) {
    raw(s, Backend::SQLite, kAll);
}
void BM_EjecutarSQL_1_SQLite(benchmark::State &s) {
    layer(s, Backend::SQLite, kOne);
}
void BM_Raw_1_SQLite(benchmark::State &s) {
    raw(s, Backend::SQLite, kOne);
}
void BM_EjecutarSQL_10000_PostgreSQL(benchmark::State &s) {
    layer(s, Backend::PostgreSQL, kAll);
}
void BM_Raw_10000_PostgreSQL(benchmark::State &s) {
    raw(s, Backend::PostgreSQL, kAll);
}
void BM_EjecutarSQL_1_PostgreSQL(benchmark::State &s) {
    layer(s, Backend::PostgreSQL, kOne);
}
void BM_Raw_1_PostgreSQL(benchmark::State &s) {
    raw(s, Backend::PostgreSQL, kOne);
}

// Floors and measured cases interleave so that drift of the machine hits both.
BENCHMARK(BM_Raw_10000_SQLite)
    ->Unit(benchmark::kMillisecond)
    ->Repetitions(5)
    ->ReportAggregatesOnly(true);
BENCHMARK(BM_EjecutarSQL_10000_SQLite)
    ->Unit(benchmark::kMillisecond)
    ->Repetitions(5)
    ->ReportAggregatesOnly(true);
BENCHMARK(BM_Raw_1_SQLite)
    ->Unit(benchmark::kMicrosecond)
    ->Repetitions(5)
    ->ReportAggregatesOnly(true);
BENCHMARK(BM_EjecutarSQL_1_SQLite)
    ->Unit(benchmark::kMicrosecond)
    ->Repetitions(5)
    ->ReportAggregatesOnly(true);
BENCHMARK(BM_Raw_10000_PostgreSQL)
    ->Unit(benchmark::kMillisecond)
    ->Repetitions(5)
    ->ReportAggregatesOnly(true);
BENCHMARK(BM_EjecutarSQL_10000_PostgreSQL)
    ->Unit(benchmark::kMillisecond)
    ->Repetitions(5)
    ->ReportAggregatesOnly(true);
BENCHMARK(BM_Raw_1_PostgreSQL)
    ->Unit(benchmark::kMicrosecond)
    ->Repetitions(5)
    ->ReportAggregatesOnly(true);
BENCHMARK(BM_EjecutarSQL_1_PostgreSQL)
    ->Unit(benchmark::kMicrosecond)
    ->Repetitions(5)
    ->ReportAggregatesOnly(true);

} // namespace

int main(int argc, char **argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv); // the report benchmark draws PDF pages
    benchmark::Initialize(&argc, argv);
    co::bench::RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    std::printf("\nStatement layer against a raw QSqlQuery of the same statement (median of 5):\n");
    reporter.printRatio("EjecutarSQL, 10,000 rows, SQLite", "BM_EjecutarSQL_10000_SQLite",
                        "BM_Raw_10000_SQLite", 1.5);
    reporter.printRatio("EjecutarSQL, single row, SQLite", "BM_EjecutarSQL_1_SQLite",
                        "BM_Raw_1_SQLite", 2.0);
    reporter.printRatio("EjecutarSQL, 10,000 rows, PostgreSQL", "BM_EjecutarSQL_10000_PostgreSQL",
                        "BM_Raw_10000_PostgreSQL", 1.5);
    reporter.printRatio("EjecutarSQL, single row, PostgreSQL", "BM_EjecutarSQL_1_PostgreSQL",
                        "BM_Raw_1_PostgreSQL", 2.0);
    std::printf("\nReport to PDF against composing the same rows without output:\n");
    reporter.printRatio("Report to PDF, 100,000 rows", "BM_ReportToPdf/100000",
                        "BM_ReportCompose/100000", 20.0);
    co::bench::ImprimirRejillas(reporter);
    co::bench::ImprimirReescritura(reporter);
    co::bench::ImprimirDemo(reporter);
    std::printf("\nSearch window from a key value against the raw indexed query (median of 15):\n");
    reporter.printRatio("Search, 100 of 1,000,000 rows, SQLite", "BM_Search_SQLite", "BM_SearchRaw_SQLite", 2.0);
    reporter.printRatio("Search, 100 of 1,000,000 rows, PostgreSQL", "BM_Search_PostgreSQL",
                        "BM_SearchRaw_PostgreSQL", 2.0);
    co::bench::LiberarDemo();
    co::bench::ReleaseInstallations();
    benchmark::Shutdown();
    return 0;
}
