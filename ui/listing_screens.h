#pragma once
// The listings reachable from the main window: their filter windows and the
// preview as an MDI child. `RegistrarListados` registers each filter form
// under its form name ("fOBRALTAR": the rate listing).

#include "core/startup.h"
#include "output/report_runner.h"
#include "reports/rate_listing.h"
#include "ui/printer_port.h"

#include <QWidget>

class QCheckBox;
class QLabel;
class QLineEdit;
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

// `TfOBRALTAR`: the filter window of the rate listing.
class TfOBRALTAR : public QWidget, public ListingFilter, public StatusPort {
public:
    TfOBRALTAR(Aplicacion &app, QMdiArea *mdi, QWidget *parent = nullptr);

    // ListingFilter
    QString Validar() override;
    void CopiarParametros() override;
    std::unique_ptr<Report> CrearReport() override;
    bool VisualizacionPrevia() const override;
    // StatusPort
    void MostrarEstado(const QString &texto) override;
    void CursorOcupado(bool ocupado) override;

    bool pbListarClick();
    const ParametrosListadoTarifas &parametros() const { return p_; }

    QLineEdit *DesdeTarifa, *HastaTarifa, *DesdeUnidad, *HastaUnidad;
    QCheckBox *ListarConMasDescripcion, *SepararEnPaginas, *VisualizacionPrevia_;
    QLabel *StatusBar1;

private:
    QString textoRestricciones() const;

    Aplicacion &app_;
    QtPrinters impresoras_;
    MdiPreview previa_;
    ReportRunner runner_;
    ParametrosListadoTarifas p_;
};

void RegistrarListados(TfOBRAMENU &ventana, Aplicacion &app);

} // namespace co::ui
