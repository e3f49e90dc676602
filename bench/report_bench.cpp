// A long listing to PDF: time to the first page, time per 1,000 rows and peak
// memory at 10,000 and 100,000 rows, against composing the same rows into a
// sink that drops the pages (the floor: the engine without the PDF). The
// listing-table case runs the real road on the embedded back-end: fill the
// temporary table once from a source table, then compose from it by blocks.
#include "bench_installation.h"
#include "core/table_creation.h"
#include "output/listing_table.h"
#include "output/pdf_writer.h"
#include "output/report_composer.h"
#include "peak_memory.h"

#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>
#include <cstdio>

namespace {

using namespace co;

std::unique_ptr<GeneratedDataSource> rows(qint64 count) {
    return std::make_unique<GeneratedDataSource>(
        QList<SourceField>{{QStringLiteral("CodigoObra"), ColumnKind::Integer},
                           {QStringLiteral("Descripcion"), ColumnKind::Text},
                           {QStringLiteral("Importe"), ColumnKind::Float}},
        count, [](qint64 i, QVariantList &v) {
            v[0] = static_cast<int>(i / 50);
            v[1] = QStringLiteral("Parte de trabajo número %1").arg(i);
            v[2] = (i % 997) * 1.25;
        });
}

ReportDesign design() {
    ReportDesign d;
    d.PageHeader = Banda(QStringLiteral("PageHeader"), BandType::PageHeader, 40);
    ReportControl t = Control(QStringLiteral("TituloListado"), ControlKind::Label, 0, 0, 700, 20);
    t.Caption = QStringLiteral("Listado de Partes");
    d.PageHeader->add(t);
    ReportGroup g;
    g.Expression = QStringLiteral("Temporal.CodigoObra");
    g.Header = Banda(QStringLiteral("BandaCabecera"), BandType::BandaCabecera, 18);
    ReportControl obra = Control(QStringLiteral("CodigoObra"), ControlKind::Field, 0, 1, 80);
    obra.DataField = QStringLiteral("CodigoObra");
    g.Header.add(obra);
    g.Footer = Banda(QStringLiteral("BandaPie"), BandType::BandaPie, 18);
    ReportControl suma = Control(QStringLiteral("Suma"), ControlKind::Sum, 600, 1, 100);
    suma.DataField = QStringLiteral("SUM(Importe)");
    suma.Tag = kTagMoneda;
    g.Footer->add(suma);
    d.Groups << g;
    ReportControl desc = Control(QStringLiteral("Descripcion"), ControlKind::Field, 20, 0, 400);
    desc.DataField = QStringLiteral("Descripcion");
    d.BandaDetalle.add(desc);
    ReportControl imp = Control(QStringLiteral("Importe"), ControlKind::Field, 600, 0, 100);
    imp.DataField = QStringLiteral("Importe");
    imp.Alignment = Alineacion::Derecha;
    d.BandaDetalle.add(imp);
    d.PageFooter = Banda(QStringLiteral("PageFooter"), BandType::PageFooter, 20);
    ReportControl n = Control(QStringLiteral("Pagina"), ControlKind::PageNumber, 600, 2, 100);
    n.Caption = QStringLiteral("Página ");
    d.PageFooter->add(n);
    return d;
}

// Passes pages on and marks the time the first one has been written.
class Timed : public PageSink {
public:
    Timed(PageSink *next, QElapsedTimer &clock) : next_(next), clock_(clock) {}
    bool addPage(ReportPage &&page, QString *motivo) override {
        const bool ok = next_ ? next_->addPage(std::move(page), motivo) : true;
        if (firstMs_ < 0)
            firstMs_ = clock_.nsecsElapsed() / 1e6;
        return ok;
    }
    bool finish(QString *motivo) override { return next_ ? next_->finish(motivo) : true; }
    double firstMs() const { return firstMs_; }

private:
    PageSink *next_;
    QElapsedTimer &clock_;
    double firstMs_ = -1;
};

void run(benchmark::State &state, bool pdf) {
    const qint64 count = state.range(0);
    QTemporaryDir dir;
    double first = 0;
    long peak = 0;
    for (auto _ : state) {
        co::bench::ResetPeakMemory();
        PdfPageSink file(dir.path() + QStringLiteral("/bench.pdf"), QStringLiteral("A4"));
        QElapsedTimer clock;
        clock.start();
        Timed sink(pdf ? &file : nullptr, clock);
        auto source = rows(count);
        QString motivo;
        if (ComponerReport(design(), *source, sink, ComposeContext{}, &motivo) !=
            ResultadoComposicion::Completo)
            state.SkipWithError(motivo.toUtf8().constData());
        first = sink.firstMs();
        peak = co::bench::PeakMemoryKb();
    }
    state.counters["first_page_ms"] = first;
    state.counters["peak_rss_MB"] = peak / 1024.0;
    state.counters["rows"] = static_cast<double>(count);
}

// An embedded installation whose table BENCHREP holds `count` rows like rows().
std::unique_ptr<co::bench::BenchInstallation> instalacion(qint64 count) {
    auto inst = std::make_unique<co::bench::BenchInstallation>();
    if (!co::bench::AbrirInstalacion(*inst, Backend::SQLite, QStringLiteral("benchrep")))
        return nullptr;
    inst->datos->EjecutarSQL(QStringLiteral("CREATE TABLE BENCHREP (Numero INTEGER, CodigoObra "
                                            "INTEGER, Descripcion VARCHAR(60), Importe FLOAT)"));
    inst->datos->EjecutarSQL(
        QStringLiteral("INSERT INTO BENCHREP WITH RECURSIVE n(i) AS (SELECT 0 UNION ALL SELECT "
                       "i + 1 FROM n WHERE i < %1) SELECT i, i / 50, 'Parte de trabajo número ' "
                       "|| i, (i % 997) * 1.25 FROM n")
            .arg(count - 1));
    return inst;
}

void BM_ListingTableToPdf(benchmark::State &state) {
    const qint64 count = state.range(0);
    std::unique_ptr<co::bench::BenchInstallation> inst = instalacion(count);
    if (!inst) {
        state.SkipWithError("no installation");
        return;
    }
    double first = 0, fill = 0;
    long peak = 0;
    for (auto _ : state) {
        co::bench::ResetPeakMemory();
        QElapsedTimer clock;
        clock.start();
        TablaListado tabla(*inst->datos, *inst->creador, QStringLiteral("fBENCH"));
        OrigenListado o;
        o.columnas = {QStringLiteral("CodigoObra"), QStringLiteral("Descripcion"),
                      QStringLiteral("Importe")};
        o.expresiones = o.columnas;
        o.desde = QStringLiteral("BENCHREP");
        o.orden = QStringLiteral("Numero");
        QString motivo;
        if (!tabla.Crear(QStringLiteral("Tabla Temporal\r\n/C/1/Linea/ftInteger/0/*\r\n"
                                        "/C/2/CodigoObra/ftInteger/0/\r\n/C/3/Descripcion/"
                                        "ftString/60/\r\n/C/4/Importe/ftFloat/0/\r\n"
                                        "/I/1/<Primary>/Linea"),
                         &motivo) ||
            !tabla.Llenar(o, &motivo) || tabla.Filas() != count) {
            state.SkipWithError(motivo.toUtf8().constData());
            return;
        }
        fill = clock.nsecsElapsed() / 1e6;
        PdfPageSink file(inst->dir.path() + QStringLiteral("/bench.pdf"), QStringLiteral("A4"));
        Timed sink(&file, clock);
        std::unique_ptr<ReportDataSource> source = tabla.Lector();
        if (ComponerReport(design(), *source, sink, ComposeContext{}, &motivo) !=
            ResultadoComposicion::Completo)
            state.SkipWithError(motivo.toUtf8().constData());
        first = sink.firstMs();
        peak = co::bench::PeakMemoryKb();
    }
    state.counters["fill_ms"] = fill;
    state.counters["first_page_ms"] = first; // the fill included, as the preview sees it
    state.counters["peak_rss_MB"] = peak / 1024.0;
    state.counters["rows"] = static_cast<double>(count);
}

void BM_ReportToPdf(benchmark::State &s) {
    run(s, true);
}
void BM_ReportCompose(benchmark::State &s) {
    run(s, false);
}

BENCHMARK(BM_ReportCompose)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond)->Iterations(1);
BENCHMARK(BM_ReportToPdf)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond)->Iterations(1);
BENCHMARK(BM_ListingTableToPdf)
    ->Arg(10000)
    ->Arg(100000)
    ->Unit(benchmark::kMillisecond)
    ->Iterations(1);

} // namespace
