#pragma once
// The listings reachable from the main window: their filter windows and the
// preview as an MDI child. `RegistrarListados` registers each filter form
// under its form name ("fOBRALTAR": the rate listing).

#include "core/startup.h"
#include "output/report_runner.h"
#include "reports/rate_listing_filter.h"
#include "ui/form_view.h"
#include "ui/printer_port.h"

class QMdiArea;

namespace co::ui {

class TfOBRAMENU;

// Opens the preview of a report as an MDI child and composes it there.
class MdiPreview : public PreviewPort {
public:
    MdiPreview(QMdiArea *mdi, PrinterPort &impresoras) : mdi_(mdi), impresoras_(impresoras) {}
    void QuickReportPreview(std::unique_ptr<Report> report) override;

private:
    QMdiArea *mdi_;
    PrinterPort &impresoras_;
};

// `TfOBRALTAR`: the filter window of the rate listing, the form
// `FiltroListadoTarifas` drawn by the form view; `pbListar` runs it through the
// report runner, `pbSalir` closes the window.
class TfOBRALTAR : public FormView, public StatusPort {
public:
    TfOBRALTAR(Aplicacion &app, QMdiArea *mdi, QWidget *parent = nullptr);

    FiltroListadoTarifas &filtro() const;
    // StatusPort
    void MostrarEstado(const QString &texto) override;
    void CursorOcupado(bool ocupado) override;

private:
    TfOBRALTAR(FiltroListadoTarifas *filtro, QMdiArea *mdi, QWidget *parent);

    QtPrinters impresoras_;
    MdiPreview previa_;
    ReportRunner runner_;
};

void RegistrarListados(TfOBRAMENU &ventana, Aplicacion &app);

} // namespace co::ui
