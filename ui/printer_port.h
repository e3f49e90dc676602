#pragma once
// The machine's printers for the report engine, through QtPrintSupport: the
// installed printers, the printer dialog, and a sink that paints each page of
// the page document on a QPrinter (vector text, as in the PDF).

#include "output/report_runner.h"

#include <QPrinter>
#include <memory>

class QWidget;

namespace co::ui {

class QtPrinters : public PrinterPort {
public:
    explicit QtPrinters(QWidget *parent = nullptr) : parent_(parent) {}

    QStringList Impresoras() const override;
    QString ImpresoraPorDefecto() const override;
    // Copies printer, copies, orientation and page range both ways.
    bool DialogoImpresora(OpcionesImpresion &opciones) override;
    std::unique_ptr<PageSink> AbrirImpresora(const OpcionesImpresion &opciones,
                                             QString *motivo) override;

private:
    QWidget *parent_;
};

// Paints pages on a printer set up by the caller; the printer's page follows
// each page's size. The job starts at the first page and ends at finish().
class PrinterPageSink : public PageSink {
public:
    explicit PrinterPageSink(std::unique_ptr<QPrinter> printer);
    ~PrinterPageSink() override;

    bool addPage(ReportPage &&page, QString *motivo) override;
    bool finish(QString *motivo) override;

private:
    std::unique_ptr<QPrinter> printer_;
    std::unique_ptr<QPainter> painter_;
};

} // namespace co::ui
