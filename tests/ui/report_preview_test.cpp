// The preview offscreen: pages shown while the rest is composed, closing and
// printing refused while building, cancellation, page ranges sent to the
// printer, and the exports written from the composed pages.
#include "output/report_runner.h"
#include "ui/listing_screens.h"
#include "ui/report_preview.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QFile>
#include <QLabel>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QProcess>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace co::ui {
namespace {

// A report of `filas` generated rows, one detail line each.
class GeneratedReport : public Report {
public:
    GeneratedReport(ReportEnvironment e, int filas) : Report(std::move(e)), filas_(filas) {
        Diseno.Title = QStringLiteral("Listado de Prueba");
        Diseno.PageHeader = Banda(QStringLiteral("PageHeader"), BandType::PageHeader, 20);
        ReportControl titulo =
            Control(QStringLiteral("TituloListado"), ControlKind::Label, 0, 0, 300);
        titulo.Caption = Diseno.Title;
        Diseno.PageHeader->add(titulo);
        ReportControl campo = Control(QStringLiteral("Texto"), ControlKind::Field, 0, 0, 300);
        campo.DataField = QStringLiteral("Texto");
        Diseno.BandaDetalle.add(campo);
    }
    std::unique_ptr<ReportDataSource> AntesDeImprimir() override {
        return std::make_unique<GeneratedDataSource>(
            QList<SourceField>{{QStringLiteral("Texto"), ColumnKind::Text}}, filas_,
            [](qint64 n, QVariantList &v) { v = {QStringLiteral("Linea %1").arg(n + 1)}; });
    }

private:
    int filas_;
};

// Records what is printed, page by page.
class RecordingPrinters : public PrinterPort {
public:
    QStringList Impresoras() const override { return {QStringLiteral("Oficina")}; }
    QString ImpresoraPorDefecto() const override { return QStringLiteral("Oficina"); }
    bool DialogoImpresora(OpcionesImpresion &o) override {
        ++dialogos;
        o.desdePagina = rangoDialogo.first;
        o.hastaPagina = rangoDialogo.second;
        return aceptar;
    }
    std::unique_ptr<PageSink> AbrirImpresora(const OpcionesImpresion &o, QString *) override {
        opciones = o;
        impresas.clear();
        auto sink = std::make_unique<Recorder>(impresas);
        return sink;
    }
    struct Recorder : PageSink {
        explicit Recorder(QList<int> &out) : out_(out) {}
        bool addPage(ReportPage &&page, QString *) override {
            out_ << page.number;
            return true;
        }
        QList<int> &out_;
    };
    int dialogos = 0;
    bool aceptar = true;
    std::pair<int, int> rangoDialogo{0, 0};
    OpcionesImpresion opciones;
    QList<int> impresas;
};

struct PreviewTest : ::testing::Test {
    ScriptedMessages port;
    Messenger mensajes{&port};
    RecordingPrinters impresoras;
    QMdiArea mdi;
    std::function<void()> alCeder;

    ReportEnvironment entorno(const QString &dialogo = QStringLiteral("SI")) {
        ReportEnvironment e;
        e.mensajes = &mensajes;
        e.parametros.SolicitarDialogoImpresora = dialogo;
        e.fecha = QDate(2026, 5, 1);
        e.ceder = [this] {
            QCoreApplication::processEvents();
            if (alCeder)
                alCeder();
        };
        return e;
    }
    // A preview in the MDI area, not yet built.
    TfGENEPREV *abrir(int filas, const QString &dialogo = QStringLiteral("SI")) {
        auto *p =
            new TfGENEPREV(std::make_unique<GeneratedReport>(entorno(dialogo), filas), impresoras);
        QMdiSubWindow *w = mdi.addSubWindow(p);
        w->setAttribute(Qt::WA_DeleteOnClose);
        w->show();
        return p;
    }
};

TEST_F(PreviewTest, PagesAppearAndClosingIsRefusedWhileBuilding) {
    TfGENEPREV *p = abrir(3000);
    int paginasVistas = -1;
    bool intentado = false;
    alCeder = [&] {
        if (intentado || p->Paginas() < 2)
            return;
        intentado = true;
        paginasVistas = p->Paginas();
        EXPECT_TRUE(p->Construyendo());
        EXPECT_EQ(p->Estado(), QStringLiteral("En Progreso"));
        EXPECT_FALSE(mdi.subWindowList().first()->close());
        p->pbImprimirClick();
        EXPECT_FALSE(p->Exportar(QStringLiteral("/tmp/nunca"), 2));
    };
    ASSERT_EQ(p->Construir(), ResultadoComposicion::Completo);
    ASSERT_TRUE(intentado);
    EXPECT_LT(paginasVistas, p->Paginas()) << "pages must show before the report is complete";
    EXPECT_EQ(p->Estado(), QStringLiteral("Finalizada"));
    EXPECT_EQ(port.texts().mid(0, 3),
              (QStringList{
                  QStringLiteral(
                      "¡Debe esperar a que finalice el informe para cerrar la previsualización!"),
                  QStringLiteral("¡Debe esperar a que finalice el informe en curso!"),
                  QStringLiteral("¡Debe esperar a que finalice el informe en curso!")}));
    EXPECT_TRUE(impresoras.impresas.isEmpty());
    EXPECT_EQ(mdi.subWindowList().size(), 1);
    // Finished: it closes.
    EXPECT_TRUE(mdi.subWindowList().first()->close());
}

TEST_F(PreviewTest, CancellingAsksAndClosesOnlyWhenConfirmed) {
    TfGENEPREV *p = abrir(3000);
    int peticiones = 0;
    alCeder = [&] {
        if (peticiones < 2 && p->Paginas() >= 1 + peticiones) {
            ++peticiones;
            p->CancelarelListado1Click();
        }
    };
    port.answer(QStringLiteral("SI")); // first time: go on
    port.answer(QStringLiteral("NO")); // second: cancel
    EXPECT_EQ(p->Construir(), ResultadoComposicion::Cancelado);
    EXPECT_EQ(port.texts().count(QStringLiteral(
                  "El listado será cancelado a continuación. ¿Desea continuar con el listado?")),
              2);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(mdi.subWindowList().isEmpty());
}

TEST_F(PreviewTest, EmptyReportSaysSoAndCloses) {
    abrir(0)->Construir();
    EXPECT_EQ(port.texts(), QStringList{QStringLiteral("No existen datos para listar")});
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(mdi.subWindowList().isEmpty());
}

TEST_F(PreviewTest, NavigationAndZoomStayInRange) {
    TfGENEPREV *p = abrir(200);
    ASSERT_EQ(p->Construir(), ResultadoComposicion::Completo);
    ASSERT_GT(p->Paginas(), 2);
    p->IrAPagina(p->Paginas() + 5);
    EXPECT_EQ(p->PaginaActual(), p->Paginas());
    p->IrAPagina(-3);
    EXPECT_EQ(p->PaginaActual(), 1);
    p->setZoom(1000);
    EXPECT_EQ(p->Zoom(), 400);
    p->setZoom(50);
    auto *pagina = p->findChild<QLabel *>(QStringLiteral("Pagina"));
    ASSERT_NE(pagina, nullptr);
    EXPECT_EQ(pagina->pixmap().width(), qRound(p->paginas().first().width * 0.5));
}

TEST_F(PreviewTest, PrintsTheChosenRangeOrOnePage) {
    TfGENEPREV *p = abrir(200);
    ASSERT_EQ(p->Construir(), ResultadoComposicion::Completo);
    const int total = p->Paginas();
    ASSERT_GE(total, 3);
    impresoras.rangoDialogo = {2, total + 10};
    p->pbImprimirClick();
    EXPECT_EQ(impresoras.dialogos, 1);
    QList<int> esperadas;
    for (int n = 2; n <= total; ++n)
        esperadas << n;
    EXPECT_EQ(impresoras.impresas, esperadas);
    // One page: the page shown, whatever range the dialog had.
    p->IrAPagina(3);
    p->pbImprimirPaginaClick();
    EXPECT_EQ(impresoras.impresas, QList<int>{3});
    // A cancelled dialog prints nothing.
    impresoras.aceptar = false;
    impresoras.impresas.clear();
    p->pbImprimirClick();
    EXPECT_TRUE(impresoras.impresas.isEmpty());
}

TEST_F(PreviewTest, WithoutDialogPrintsAtOnceOnTheDefaultPrinter) {
    TfGENEPREV *p = abrir(200, QStringLiteral("NO"));
    ASSERT_EQ(p->Construir(), ResultadoComposicion::Completo);
    p->pbImprimirClick();
    EXPECT_EQ(impresoras.dialogos, 0);
    EXPECT_EQ(impresoras.opciones.impresora, QStringLiteral("Oficina"));
    EXPECT_EQ(impresoras.impresas.size(), p->Paginas());
}

TEST_F(PreviewTest, ExportsByFilterIndexAndTellsFailures) {
    QTemporaryDir dir;
    TfGENEPREV *p = abrir(120);
    ASSERT_EQ(p->Construir(), ResultadoComposicion::Completo);
    int preguntado = 0;
    p->setDialogoGuardar([&](const QString &, const QString &filtros, int *indice) {
        ++preguntado;
        EXPECT_EQ(filtros,
                  QStringLiteral(
                      "Archivos de Texto (*.TXT);;Formato CSV (*.CSV);;Documento HTML (*.HTM)"));
        *indice = 2;
        return dir.filePath(QStringLiteral("listado"));
    });
    p->pbExportarClick();
    EXPECT_EQ(preguntado, 1);
    QFile csv(dir.filePath(QStringLiteral("listado.CSV")));
    ASSERT_TRUE(csv.open(QIODevice::ReadOnly));
    const QStringList lineas = QString::fromUtf8(csv.readAll()).split(u'\n', Qt::SkipEmptyParts);
    EXPECT_EQ(lineas.first(), QStringLiteral("Listado de Prueba"));
    EXPECT_EQ(lineas.size(), 121); // header once, every row
    EXPECT_EQ(lineas.last(), QStringLiteral("Linea 120"));

    EXPECT_TRUE(p->Exportar(dir.filePath(QStringLiteral("l.htm")), 3));
    EXPECT_TRUE(QFile::exists(dir.filePath(QStringLiteral("l.htm"))));
    EXPECT_FALSE(p->Exportar(QStringLiteral("/no/existe/listado"), 1));
    EXPECT_TRUE(port.texts().last().startsWith(
        QStringLiteral("¡No ha sido posible grabar el informe! Motivo: ")));

    EXPECT_TRUE(p->ExportarAPDF(dir.filePath(QStringLiteral("listado"))));
    QProcess texto;
    texto.start(QStringLiteral("pdftotext"),
                {dir.filePath(QStringLiteral("listado.pdf")), QStringLiteral("-")});
    ASSERT_TRUE(texto.waitForFinished(30000));
    EXPECT_TRUE(
        QString::fromUtf8(texto.readAllStandardOutput()).contains(QStringLiteral("Linea 120")));
    EXPECT_FALSE(p->ExportarAPDF(QStringLiteral("/no/existe/listado")));
    EXPECT_TRUE(port.texts().last().startsWith(
        QStringLiteral("Se ha producido un error al generar el archivo PDF. Motivo: ")));
}

TEST_F(PreviewTest, SpreadsheetExportAsksFirstAndStopsOnNo) {
    QTemporaryDir dir;
    TfGENEPREV *p = abrir(30);
    ASSERT_EQ(p->Construir(), ResultadoComposicion::Completo);
    p->setDialogoGuardar([&](const QString &, const QString &, int *indice) {
        *indice = 1;
        return dir.filePath(QStringLiteral("hoja"));
    });
    port.answer(QStringLiteral("NO"));
    p->pbExportarAExcelClick();
    EXPECT_EQ(
        port.texts().last(),
        QStringLiteral(
            "No se garantiza que la exportación a hoja Excel desde la previsualización muestre "
            "todos los datos que espera. ¿Desea continuar en cualquier caso?"));
    EXPECT_FALSE(QFile::exists(dir.filePath(QStringLiteral("hoja.xlsx"))));
    port.answer(QStringLiteral("SI"));
    p->pbExportarAExcelClick();
    EXPECT_TRUE(QFile::exists(dir.filePath(QStringLiteral("hoja.xlsx"))));
}

} // namespace
} // namespace co::ui
