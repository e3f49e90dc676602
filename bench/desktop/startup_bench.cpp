// Start of the desktop program to a ready main window (installation opened,
// user logged in, company selected, menu built), against its floor measured in
// the same run: a bare Qt main window shown and the two databases of the
// installation (the general data and company 1) opened as every session opens
// them.
#include "core/installation.h"
#include "core/session.h"
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

void BM_WindowAndDatabases(benchmark::State &state) {
    // The folder holds no INSTALACION: its defaults, as the desktop takes them.
    co::InstallationSettings settings;
    QString motivo;
    co::LeerInstalacion(installation->path(), &settings);
    for (auto _ : state) {
        QMainWindow w;
        w.show();
        co::ScriptedMessages port;
        co::TfGENEINIC sesion(settings, &port);
        sesion.CodigoEmpresa = 1;
        if (!sesion.Conectar(&motivo)) {
            state.SkipWithError(qPrintable(motivo));
            return;
        }
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

BENCHMARK(BM_WindowAndDatabases)
    ->Unit(benchmark::kMillisecond)
    ->Repetitions(5)
    ->ReportAggregatesOnly(true);
BENCHMARK(BM_DesktopStart)
    ->Unit(benchmark::kMillisecond)
    ->Repetitions(5)
    ->ReportAggregatesOnly(true);

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
    reporter.printFigures("Start, login, company and menu", "BM_DesktopStart",
                          "BM_WindowAndDatabases");
    benchmark::Shutdown();
    return 0;
}
