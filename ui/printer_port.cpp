#include "ui/printer_port.h"

#include "output/pdf_writer.h"

#include <QPageLayout>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinterInfo>

namespace co::ui {

namespace {

constexpr double kPuntosPorPulgada = 96; // layout units of the page document

QPageLayout::Orientation orientacionQt(Orientation o) {
    return o == Orientation::Landscape ? QPageLayout::Landscape : QPageLayout::Portrait;
}

// The page size of a page document page, portrait, in layout units.
QPageSize tamanoDe(const ReportPage &page) {
    const double w = std::min(page.width, page.height) / kPuntosPorPulgada;
    const double h = std::max(page.width, page.height) / kPuntosPorPulgada;
    return QPageSize(QSizeF(w, h), QPageSize::Inch, QString(), QPageSize::FuzzyMatch);
}

void prepararPagina(QPrinter &printer, const ReportPage &page) {
    printer.setPageSize(tamanoDe(page));
    printer.setPageOrientation(page.width > page.height ? QPageLayout::Landscape
                                                        : QPageLayout::Portrait);
}

} // namespace

QStringList QtPrinters::Impresoras() const {
    return QPrinterInfo::availablePrinterNames();
}

QString QtPrinters::ImpresoraPorDefecto() const {
    return QPrinterInfo::defaultPrinterName();
}

bool QtPrinters::DialogoImpresora(OpcionesImpresion &opciones) {
    QPrinter printer;
    if (!opciones.impresora.isEmpty())
        printer.setPrinterName(opciones.impresora);
    printer.setCopyCount(opciones.copias);
    printer.setPageOrientation(orientacionQt(opciones.orientacion));
    if (opciones.desdePagina > 0)
        printer.setFromTo(opciones.desdePagina, opciones.hastaPagina);
    QPrintDialog dialogo(&printer, parent_);
    dialogo.setOption(QAbstractPrintDialog::PrintPageRange, true);
    if (dialogo.exec() != QDialog::Accepted)
        return false;
    opciones.impresora = printer.printerName();
    opciones.copias = printer.copyCount();
    opciones.orientacion = printer.pageLayout().orientation() == QPageLayout::Landscape
                               ? Orientation::Landscape
                               : Orientation::Portrait;
    if (printer.printRange() == QPrinter::PageRange) {
        opciones.desdePagina = printer.fromPage();
        opciones.hastaPagina = printer.toPage();
    } else {
        opciones.desdePagina = opciones.hastaPagina = 0;
    }
    return true;
}

std::unique_ptr<PageSink> QtPrinters::AbrirImpresora(const OpcionesImpresion &opciones,
                                                     QString *motivo) {
    auto printer = std::make_unique<QPrinter>(QPrinter::HighResolution);
    if (!opciones.impresora.isEmpty())
        printer->setPrinterName(opciones.impresora);
    if (printer->outputFormat() == QPrinter::NativeFormat && !printer->isValid()) {
        *motivo = QStringLiteral("No hay impresoras disponibles");
        return nullptr;
    }
    printer->setCopyCount(std::max(1, opciones.copias));
    printer->setPageOrientation(orientacionQt(opciones.orientacion));
    return std::make_unique<PrinterPageSink>(std::move(printer));
}

PrinterPageSink::PrinterPageSink(std::unique_ptr<QPrinter> printer)
    : printer_(std::move(printer)) {}

PrinterPageSink::~PrinterPageSink() {
    if (painter_ && painter_->isActive())
        painter_->end();
}

bool PrinterPageSink::addPage(ReportPage &&page, QString *motivo) {
    if (!painter_) {
        // Fonts are sized in points against the device's resolution, so the
        // page is painted at the layout's own 96 dots per inch.
        printer_->setResolution(static_cast<int>(kPuntosPorPulgada));
        prepararPagina(*printer_, page);
        painter_ = std::make_unique<QPainter>();
        if (!painter_->begin(printer_.get())) {
            *motivo =
                QStringLiteral("No ha sido posible abrir la impresora ") + printer_->printerName();
            return false;
        }
    } else {
        prepararPagina(*printer_, page);
        if (!printer_->newPage()) {
            *motivo = QStringLiteral("La impresora no acepta más páginas");
            return false;
        }
    }
    PintarPagina(*painter_, page);
    return true;
}

bool PrinterPageSink::finish(QString *motivo) {
    if (painter_ && painter_->isActive() && !painter_->end()) {
        *motivo = QStringLiteral("La impresora no ha terminado el trabajo");
        return false;
    }
    return true;
}

} // namespace co::ui
