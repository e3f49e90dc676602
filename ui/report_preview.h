#pragma once
// `TfGENEPREV`: the report preview, an MDI child that owns its report until it
// closes. Construir() composes the report on the window thread; each page is
// shown as it arrives ("En Progreso", then "Finalizada"), and the window queue
// runs meanwhile so that Esc and the buttons reach the preview. While the
// report builds, closing, printing and exporting are refused with the
// system's messages. Prints and exports read the pages already composed.

#include "output/report_runner.h"

#include <QList>
#include <QWidget>
#include <functional>
#include <memory>

class QLabel;
class QProgressBar;
class QScrollArea;
class QSpinBox;
class QToolButton;

namespace co::ui {

class TfGENEPREV : public QWidget {
public:
    // The save dialog: title and Qt filters in; path and 1-based filter index
    // out; an empty path when cancelled.
    using DialogoGuardar =
        std::function<QString(const QString &titulo, const QString &filtros, int *indice)>;

    TfGENEPREV(std::unique_ptr<Report> report, PrinterPort &impresoras, QWidget *parent = nullptr);
    ~TfGENEPREV() override;

    ResultadoComposicion Construir();
    bool Construyendo() const { return construyendo_; }
    QString Estado() const;
    int Paginas() const { return static_cast<int>(paginas_.size()); }
    const QList<ReportPage> &paginas() const { return paginas_; }

    void IrAPagina(int numero);
    int PaginaActual() const;
    void setZoom(int porcentaje);
    int Zoom() const;
    void pbZoomToFitClick();
    void pbZoomToWidthClick();

    void pbImprimirClick();
    void pbImprimirPaginaClick();
    void pbExportarClick();
    void pbExportarAExcelClick();
    void pbExportarAPDFClick();
    void CancelarelListado1Click();

    // The steps after the save dialog; false when refused or failed (told).
    bool Exportar(const QString &ruta, int indiceFiltro);
    bool ExportarAExcel(const QString &ruta);
    bool ExportarAPDF(const QString &ruta);

    void setDialogoGuardar(DialogoGuardar dialogo) { dialogoGuardar_ = std::move(dialogo); }

protected:
    void closeEvent(QCloseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    friend class PreviewSink;
    void paginaRecibida(ReportPage &&page);
    void mostrarPagina();
    bool rechazarSiConstruye();
    void imprimir(int desde, int hasta, bool soloEsta);
    bool reproducir(PageSink &sink, QString *motivo) const;
    void cerrarVentana();

    std::unique_ptr<Report> report_;
    PrinterPort &impresoras_;
    QList<ReportPage> paginas_;
    bool construyendo_ = false;
    DialogoGuardar dialogoGuardar_;

    QSpinBox *SpinEditPagina;
    QSpinBox *SpinEditZoom;
    QLabel *LabelEstado;
    QLabel *LabelPaginas;
    QProgressBar *ProgressBar1;
    QScrollArea *area_;
    QLabel *pagina_;
};

} // namespace co::ui
