// Start of the desktop program to a ready main window (installation opened,
// user logged in, company selected, menu built), against a bare Qt main window
// shown in the same run.
#include "core/startup.h"
#include "ratio_reporter.h"
#include "ui/desktop_session.h"

#include <QApplication>
#include <QMainWindow>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>
#include <cstdio>

namespace {

QTemporaryDir *installation = nullptr;

co::OpcionesArranque opciones() {
    co::OpcionesArranque o;
    o.carpetaInstalacion = o.carpetaAplicacion = installation->path();
    o.carpetaDatos = QStringLiteral(CO_DATA_DIR);
    o.linea.ParametroUsuario = QStringLiteral("ADMIN");
    return o;
}

void BM_BareWindow(benchmark::State &state) {
    for (auto _ : state) {
        QMainWindow w;
        w.show();
        QApplication::processEvents();
    }
}

void BM_DesktopStart(benchmark::State &state) {
    for (auto _ : state) {
        co::ScriptedMessages port;
        co::ui::DesktopSession session(opciones(), &port);
        if (!session.Arrancar()) {
            state.SkipWithError("the session did not start");
            return;
        }
        QApplication::processEvents();
    }
}

BENCHMARK(BM_BareWindow)->Unit(benchmark::kMillisecond)->Repetitions(5)->ReportAggregatesOnly(true);
BENCHMARK(BM_DesktopStart)->Unit(benchmark::kMillisecond)->Repetitions(5)->ReportAggregatesOnly(true);

} // namespace

int main(int argc, char **argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    QTemporaryDir dir;
    installation = &dir;
    {
        // A fresh installation with its first user and company, made once.
        co::ScriptedMessages port;
        co::OpcionesArranque made = opciones();
        made.crearInstalacion = true;
        co::Aplicacion first(made, &port);
        if (!first.Iniciar()) {
            std::fprintf(stderr, "no installation\n");
            return 1;
        }
    }
    benchmark::Initialize(&argc, argv);
    co::bench::RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    std::printf("\nDesktop start to a ready main window (median of 5):\n");
    reporter.printFigures("Start, login, company and menu", "BM_DesktopStart", "BM_BareWindow");
    benchmark::Shutdown();
    return 0;
}
