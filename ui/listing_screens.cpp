#include "ui/listing_screens.h"

#include "reports/listing_environment.h"
#include "ui/main_window.h"
#include "ui/report_preview.h"
#include "ui/window_placement.h"

#include <QApplication>
#include <QLabel>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPushButton>

namespace co::ui {

void MdiPreview::QuickReportPreview(std::unique_ptr<Report> report) {
    auto *preview = new TfGENEPREV(std::move(report), impresoras_);
    QMdiSubWindow *w = mdi_->addSubWindow(preview);
    w->setObjectName(QStringLiteral("fGENEPREV"));
    w->setAttribute(Qt::WA_DeleteOnClose);
    w->show();
    ColocarVentana(*mdi_, *w, mdi_->viewport()->size() * 0.9);
    preview->setFocus();
    preview->Construir();
}

TfOBRALTAR::TfOBRALTAR(Aplicacion &app, QMdiArea *mdi, QWidget *parent)
    : TfOBRALTAR(
          new FiltroListadoTarifas(
              app.datos(), app.creador(),
              [&app] { return EntornoListado(app, [] { QCoreApplication::processEvents(); }); }),
          mdi, parent) {}

TfOBRALTAR::TfOBRALTAR(FiltroListadoTarifas *filtro, QMdiArea *mdi, QWidget *parent)
    : FormView(std::unique_ptr<forms::Form>(filtro), filtro->Rutinas(), parent), impresoras_(this),
      previa_(mdi, impresoras_),
      runner_(filtro->Rutinas().Datos().sesion().mensajes(), this, &impresoras_, &previa_) {
    filtro->setRunner(&runner_);
    if (auto *salir = qobject_cast<QPushButton *>(widgetFor(QStringLiteral("pbSalir"))))
        connect(salir, &QPushButton::clicked, this, [this] {
            if (auto *sub = qobject_cast<QMdiSubWindow *>(parentWidget()))
                sub->close();
            else
                close();
        });
}

FiltroListadoTarifas &TfOBRALTAR::filtro() const {
    return static_cast<FiltroListadoTarifas &>(form());
}

void TfOBRALTAR::MostrarEstado(const QString &texto) {
    if (auto *barra = findChild<QLabel *>(QStringLiteral("StatusBar1")))
        barra->setText(texto);
}

void TfOBRALTAR::CursorOcupado(bool ocupado) {
    if (ocupado)
        QApplication::setOverrideCursor(Qt::WaitCursor);
    else
        QApplication::restoreOverrideCursor();
}

void RegistrarListados(TfOBRAMENU &ventana, Aplicacion &app) {
    QMdiArea *mdi = ventana.mdi();
    ventana.RegistrarPantalla(QStringLiteral("fOBRALTAR"), [&app, mdi](QWidget *parent) {
        return new TfOBRALTAR(app, mdi, parent);
    });
}

} // namespace co::ui
