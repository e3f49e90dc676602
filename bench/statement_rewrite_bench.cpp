// The rewrites of a statement (empty comparisons, "= NULL", the dialect step)
// against the floor of reading it once into pieces, on statements of 6,000
// and 60,000 comparisons (about 100 KB and 1 MB): the ratio stays flat when
// the rewrite is linear.
#include "statement_rewrite_bench.h"

#include "core/sql_dialect.h"
#include "core/sql_lexer.h"
#include "core/sql_text.h"

#include <cstdio>

namespace {

using co::Backend;

QString longStatement(int comparisons) {
    QString sql =
        QStringLiteral("SELECT TOP 10 Codigo FROM dbo.OBRA WITH(NOLOCK) WHERE Situacion = ''");
    for (int i = 0; i < comparisons; ++i)
        sql += i % 2 ? QStringLiteral(" AND Descripcion%1 <> ''").arg(i % 97)
                     : QStringLiteral(" OR Codigo = '%1 = $$ x'").arg(i);
    return sql;
}

const co::ColumnasFecha kFechas = {QStringLiteral("FECHA")};

void BM_Rewrite(benchmark::State &state) {
    const QString sql = longStatement(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        const QString normal = co::NormalizarVacios(sql, Backend::PostgreSQL);
        benchmark::DoNotOptimize(co::AdaptarSentencia(normal, Backend::PostgreSQL, &kFechas));
    }
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * sql.size() * 2);
}

void BM_RewriteFloor(benchmark::State &state) {
    const QString sql = longStatement(static_cast<int>(state.range(0)));
    for (auto _ : state)
        benchmark::DoNotOptimize(co::UnirTrozos(co::TrocearSentencia(sql, Backend::PostgreSQL)));
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * sql.size() * 2);
}

BENCHMARK(BM_Rewrite)
    ->Arg(6000)
    ->Arg(60000)
    ->Unit(benchmark::kMillisecond)
    ->Repetitions(5)
    ->ReportAggregatesOnly(true);
BENCHMARK(BM_RewriteFloor)
    ->Arg(6000)
    ->Arg(60000)
    ->Unit(benchmark::kMillisecond)
    ->Repetitions(5)
    ->ReportAggregatesOnly(true);

} // namespace

namespace co::bench {

void ImprimirReescritura(const RatioReporter &reporter) {
    std::printf("\nRewriting a statement against reading it into pieces once (median of 5):\n");
    reporter.printFigures("Rewrite, 6,000 comparisons", "BM_Rewrite/6000", "BM_RewriteFloor/6000");
    reporter.printFigures("Rewrite, 60,000 comparisons (1 MB)", "BM_Rewrite/60000",
                          "BM_RewriteFloor/60000");
}

} // namespace co::bench
