// The printer sink on a real Qt printer set to PDF output: every page of a
// composed listing arrives on paper, with its texts, and a failed start is told.
#include "output/report_runner.h"
#include "ui/printer_port.h"

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace co::ui {
namespace {

std::unique_ptr<QPrinter> impresoraPDF(const QString &ruta) {
    auto p = std::make_unique<QPrinter>(QPrinter::HighResolution);
    p->setOutputFormat(QPrinter::PdfFormat);
    p->setOutputFileName(ruta);
    return p;
}

QString textoPDF(const QString &ruta) {
    QProcess p;
    p.start(QStringLiteral("pdftotext"), {QStringLiteral("-layout"), ruta, QStringLiteral("-")});
    p.waitForFinished(30000);
    return QString::fromUtf8(p.readAllStandardOutput());
}

ReportDesign lineas() {
    ReportDesign d;
    d.PageFooter = Banda(QStringLiteral("PageFooter"), BandType::PageFooter, 20);
    ReportControl pagina =
        Control(QStringLiteral("NumeroPagina"), ControlKind::PageNumber, 0, 2, 200);
    pagina.Caption = QStringLiteral("Página ");
    d.PageFooter->add(pagina);
    ReportControl campo = Control(QStringLiteral("Texto"), ControlKind::Field, 0, 0, 400);
    campo.DataField = QStringLiteral("Texto");
    d.BandaDetalle.add(campo);
    return d;
}

TEST(PrinterPort, APdfPrinterGetsEveryPageWithItsTexts) {
    QTemporaryDir dir;
    const QString ruta = dir.path() + QStringLiteral("/impreso.pdf");
    GeneratedDataSource filas(
        {{QStringLiteral("Texto"), ColumnKind::Text}}, 150,
        [](qint64 n, QVariantList &v) { v[0] = QStringLiteral("Línea %1").arg(n + 1); });
    PrinterPageSink sink(impresoraPDF(ruta));
    QString motivo;
    ComposeStats stats;
    ASSERT_EQ(ComponerReport(lineas(), filas, sink, ComposeContext{}, &motivo, &stats),
              ResultadoComposicion::Completo)
        << motivo.toStdString();
    ASSERT_GT(stats.pages, 1);
    const QString texto = textoPDF(ruta);
    EXPECT_EQ(texto.count(u'\f'), stats.pages) << "one form feed a page";
    for (const QString &s : {QStringLiteral("Línea 1"), QStringLiteral("Línea 150"),
                             QStringLiteral("Página %1").arg(stats.pages)})
        EXPECT_TRUE(texto.contains(s)) << s.toStdString();
}

TEST(PrinterPort, AnUnwritableOutputStopsAtTheFirstPageWithAReason) {
    PrinterPageSink sink(impresoraPDF(QStringLiteral("/no/existe/impreso.pdf")));
    ReportPage page;
    page.number = 1;
    page.width = 794;
    page.height = 1123;
    QString motivo;
    EXPECT_FALSE(sink.addPage(std::move(page), &motivo));
    EXPECT_TRUE(motivo.startsWith(QStringLiteral("No ha sido posible abrir la impresora")))
        << motivo.toStdString();
}

} // namespace
} // namespace co::ui
