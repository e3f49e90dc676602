#pragma once
// The report runner: how every listing goes from its filter form to paper, a
// PDF file or the preview. Chief header of the output library.
//
//  - `ImprimirReport(report, destino)`: "PDF:" + path writes a PDF file; a
//    printer's name prints on the first installed printer whose name contains
//    it (none matching prints nothing, silently); empty prints on the default
//    printer when `SolicitarDialogoImpresora` is "NO", else after the printer
//    dialog. Printers and the dialog belong to the desktop (PrinterPort).
//  - `ReportRunner::pbListarClick`: the run of a filter form, with its busy
//    flag and the status text "Creando informe...", cleared in all cases.
//  - `ListadoTabla`: the quick listing of any query.

#include "output/page_document.h"
#include "output/page_exports.h"
#include "output/pdf_writer.h"
#include "output/quick_listing.h"
#include "output/report_composer.h"
#include "output/report_design.h"
#include "output/report_object.h"

#include <QString>
#include <QStringList>
#include <memory>

namespace co {

// What the printer dialog chooses, and the page range of the preview's print.
struct OpcionesImpresion {
    QString impresora;
    int copias = 1;
    Orientation orientacion = Orientation::Portrait;
    int desdePagina = 0; // 0: all pages
    int hastaPagina = 0;
};

// The printers of the machine; implemented by the desktop.
class PrinterPort {
public:
    virtual ~PrinterPort() = default;
    virtual QStringList Impresoras() const = 0;
    virtual QString ImpresoraPorDefecto() const = 0;
    // The printer dialog; false when the user cancels it.
    virtual bool DialogoImpresora(OpcionesImpresion &opciones) = 0;
    // A sink that prints the pages it gets; null with `motivo` on failure.
    virtual std::unique_ptr<PageSink> AbrirImpresora(const OpcionesImpresion &opciones,
                                                     QString *motivo) = 0;
};

// `SolicitarImpresora`: runs the dialog and copies printer, copies and
// orientation to the report. False when cancelled.
bool SolicitarImpresora(Report &report, PrinterPort &impresoras, OpcionesImpresion &opciones);

// True when the report went out complete.
bool ImprimirReport(Report &report, const QString &destino, PrinterPort *impresoras = nullptr);

// What the run needs of a filter form.
class ListingFilter {
public:
    virtual ~ListingFilter() = default;
    // The form's own checks; empty when the run may go on, else the message.
    virtual QString Validar() = 0;
    // Copies the controls to the listing parameters.
    virtual void CopiarParametros() = 0;
    virtual std::unique_ptr<Report> CrearReport() = 0;
    virtual bool VisualizacionPrevia() const = 0;
};

// `StatusBar1` and the cursor of the filter form.
class StatusPort {
public:
    virtual ~StatusPort() = default;
    virtual void MostrarEstado(const QString &texto) = 0;
    virtual void CursorOcupado(bool ocupado) = 0;
};

// `QuickReportPreview`: the preview takes the report and keeps it until it closes.
class PreviewPort {
public:
    virtual ~PreviewPort() = default;
    virtual void QuickReportPreview(std::unique_ptr<Report> report) = 0;
};

class ReportRunner {
public:
    ReportRunner(Messenger &mensajes, StatusPort *estado = nullptr,
                 PrinterPort *impresoras = nullptr, PreviewPort *previa = nullptr)
        : mensajes_(mensajes), estado_(estado), impresoras_(impresoras), previa_(previa) {}

    // The destination used when the preview is off (empty: the printer).
    void setDestino(const QString &destino) { destino_ = destino; }

    // False when refused (busy, validation) or when the output failed.
    bool pbListarClick(ListingFilter &filtro);
    bool Ocupado() const { return ocupado_; }

private:
    Messenger &mensajes_;
    StatusPort *estado_;
    PrinterPort *impresoras_;
    PreviewPort *previa_;
    QString destino_;
    bool ocupado_ = false;
};

} // namespace co
