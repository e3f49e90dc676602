// The demo company at a million report rows (`--escala` chosen for it) against
// a bare bulk insert of the same rows in the same run, on each back-end; and
// the memory the making takes, which must not grow with the scale.
#include "demo_bench.h"

#include "demo_data.h"

#include <benchmark/benchmark.h>
#include <cstdio>

namespace {

using co::Backend;

void medir(benchmark::State &state, Backend backend, bool suelo) {
    co::bench::DatosDemo *d = co::bench::DemoBanco(backend);
    if (!d) {
        state.SkipWithError("no database");
        return;
    }
    for (auto _ : state)
        state.SetIterationTime(suelo ? d->segundosSuelo : d->segundosDemo);
    state.counters["report_rows"] = static_cast<double>(d->filasPartes);
    state.counters["escala"] = d->escala;
    state.counters["peak_rss_added_MB"] = static_cast<double>(d->memoriaKb) / 1024.0;
}

void BM_DemoEscala_SQLite(benchmark::State &s) {
    medir(s, Backend::SQLite, false);
}
void BM_DemoSuelo_SQLite(benchmark::State &s) {
    medir(s, Backend::SQLite, true);
}
void BM_DemoEscala_PostgreSQL(benchmark::State &s) {
    medir(s, Backend::PostgreSQL, false);
}
void BM_DemoSuelo_PostgreSQL(benchmark::State &s) {
    medir(s, Backend::PostgreSQL, true);
}

BENCHMARK(BM_DemoEscala_SQLite)->UseManualTime()->Iterations(1)->Unit(benchmark::kSecond);
BENCHMARK(BM_DemoSuelo_SQLite)->UseManualTime()->Iterations(1)->Unit(benchmark::kSecond);
BENCHMARK(BM_DemoEscala_PostgreSQL)->UseManualTime()->Iterations(1)->Unit(benchmark::kSecond);
BENCHMARK(BM_DemoSuelo_PostgreSQL)->UseManualTime()->Iterations(1)->Unit(benchmark::kSecond);

} // namespace

namespace co::bench {

void ImprimirDemo(const RatioReporter &reporter) {
    std::printf("\nThe demo company at a million report rows against a bare bulk insert of the "
                "same rows:\n");
    for (const Backend b : {Backend::SQLite, Backend::PostgreSQL}) {
        const std::string nombre = b == Backend::SQLite ? "SQLite" : "PostgreSQL";
        DatosDemo *d = DemoBanco(b);
        if (!d) {
            std::printf("%-48s missing\n", ("Demo, " + nombre).c_str());
            continue;
        }
        reporter.printRatio("Demo --escala, " + std::to_string(d->filasPartes) + " rows, " + nombre,
                            "BM_DemoEscala_" + nombre, "BM_DemoSuelo_" + nombre, 2.0);
        std::printf("  --escala %.2f: %.2f min against %.2f min; peak memory added %.1f MB\n",
                    d->escala, d->segundosDemo / 60.0, d->segundosSuelo / 60.0,
                    static_cast<double>(d->memoriaKb) / 1024.0);
    }
}

} // namespace co::bench
