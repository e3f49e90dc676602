#include "ui/listing_screens.h"

#include "reports/listing_environment.h"
#include "ui/main_window.h"
#include "ui/report_preview.h"

#include <QApplication>
#include <QCheckBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QIntValidator>
#include <QLabel>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QVBoxLayout>

namespace co::ui {

void MdiPreview::QuickReportPreview(std::unique_ptr<Report> report) {
    auto *preview = new TfGENEPREV(std::move(report), impresoras_);
    QMdiSubWindow *w = mdi_->addSubWindow(preview);
    w->setObjectName(QStringLiteral("fGENEPREV"));
    w->setAttribute(Qt::WA_DeleteOnClose);
    w->resize(mdi_->size() * 0.9);
    w->show();
    preview->setFocus();
    preview->Construir();
}

TfOBRALTAR::TfOBRALTAR(Aplicacion &app, QMdiArea *mdi, QWidget *parent)
    : QWidget(parent), app_(app), impresoras_(this), previa_(mdi, impresoras_),
      runner_(app.sesion().mensajes(), this, &impresoras_, &previa_) {
    setObjectName(QStringLiteral("fOBRALTAR"));
    setWindowTitle(QStringLiteral("Listado de Tarifas"));
    auto edit = [this](const QString &nombre, const QString &valor, int max) {
        auto *e = new QLineEdit(valor, this);
        e->setObjectName(nombre);
        e->setMaxLength(max);
        return e;
    };
    const ParametrosListadoTarifas defecto;
    DesdeTarifa = edit(QStringLiteral("DesdeTarifa"), QString::number(defecto.DesdeTarifa), 3);
    HastaTarifa = edit(QStringLiteral("HastaTarifa"), QString::number(defecto.HastaTarifa), 3);
    DesdeTarifa->setValidator(new QIntValidator(0, 999, this));
    HastaTarifa->setValidator(new QIntValidator(0, 999, this));
    DesdeUnidad = edit(QStringLiteral("DesdeUnidad"), defecto.DesdeUnidad, 30);
    HastaUnidad = edit(QStringLiteral("HastaUnidad"), defecto.HastaUnidad, 30);
    auto check = [this](const QString &nombre, const QString &caption, bool on) {
        auto *c = new QCheckBox(caption, this);
        c->setObjectName(nombre);
        c->setChecked(on);
        return c;
    };
    ListarConMasDescripcion = check(QStringLiteral("ListarConMasDescripcion"),
                                    QStringLiteral("Listar Con Más Descripción"), false);
    SepararEnPaginas =
        check(QStringLiteral("SepararEnPaginas"), QStringLiteral("Separar en Paginas"), false);
    VisualizacionPrevia_ =
        check(QStringLiteral("VisualizacionPrevia"), QStringLiteral("Visualización Previa"), true);
    StatusBar1 = new QLabel(this);
    StatusBar1->setObjectName(QStringLiteral("StatusBar1"));
    auto *pbListar = new QPushButton(QStringLiteral("&Listar"), this);
    pbListar->setObjectName(QStringLiteral("pbListar"));
    auto *pbSalir = new QPushButton(QStringLiteral("&Salir"), this);
    pbSalir->setObjectName(QStringLiteral("pbSalir"));
    connect(pbListar, &QPushButton::clicked, this, [this] { pbListarClick(); });
    connect(pbSalir, &QPushButton::clicked, this, [this] {
        if (auto *sub = qobject_cast<QMdiSubWindow *>(parentWidget()))
            sub->close();
        else
            close();
    });

    auto *rangos = new QFormLayout;
    auto fila = [&](const QString &etiqueta, QLineEdit *desde, QLineEdit *hasta) {
        auto *h = new QHBoxLayout;
        h->addWidget(desde);
        h->addWidget(new QLabel(QStringLiteral("Hasta"), this));
        h->addWidget(hasta);
        rangos->addRow(etiqueta, h);
    };
    fila(QStringLiteral("Desde Tarifa"), DesdeTarifa, HastaTarifa);
    fila(QStringLiteral("Desde Unidad"), DesdeUnidad, HastaUnidad);
    auto *botones = new QHBoxLayout;
    botones->addStretch();
    botones->addWidget(pbListar);
    botones->addWidget(pbSalir);
    auto *layout = new QVBoxLayout(this);
    layout->addLayout(rangos);
    layout->addWidget(ListarConMasDescripcion);
    layout->addWidget(SepararEnPaginas);
    layout->addWidget(VisualizacionPrevia_);
    layout->addLayout(botones);
    layout->addWidget(StatusBar1);
}

QString TfOBRALTAR::Validar() {
    bool okDesde = false, okHasta = false;
    const int desde = DesdeTarifa->text().trimmed().toInt(&okDesde);
    const int hasta = HastaTarifa->text().trimmed().toInt(&okHasta);
    if (!okDesde || !okHasta)
        return QStringLiteral("¡El código de tarifa debe ser un número!");
    if (desde > hasta)
        return QStringLiteral("¡La tarifa inicial no puede ser mayor que la final!");
    if (DesdeUnidad->text() > HastaUnidad->text())
        return QStringLiteral("¡La unidad inicial no puede ser mayor que la final!");
    return {};
}

void TfOBRALTAR::CopiarParametros() {
    p_.DesdeTarifa = DesdeTarifa->text().trimmed().toInt();
    p_.HastaTarifa = HastaTarifa->text().trimmed().toInt();
    p_.DesdeUnidad = DesdeUnidad->text();
    p_.HastaUnidad = HastaUnidad->text();
    p_.ListarConMasDescripcion = ListarConMasDescripcion->isChecked();
    p_.SepararEnPaginas = SepararEnPaginas->isChecked();
}

QString TfOBRALTAR::textoRestricciones() const {
    QList<ControlFiltro> controles;
    for (QLineEdit *e : {DesdeTarifa, HastaTarifa, DesdeUnidad, HastaUnidad})
        controles.append({e->objectName(), ControlFiltro::Tipo::Edit, e->text(), {}, false, true});
    for (QCheckBox *c : {ListarConMasDescripcion, SepararEnPaginas, VisualizacionPrevia_})
        controles.append(
            {c->objectName(), ControlFiltro::Tipo::CheckBox, {}, c->text(), c->isChecked(), true});
    return TextoRestricciones(controles);
}

std::unique_ptr<Report> TfOBRALTAR::CrearReport() {
    auto r = std::make_unique<TfOBQRLTAR>(
        app_.datos(), p_, EntornoListado(app_, [] { QCoreApplication::processEvents(); }),
        textoRestricciones());
    return r;
}

bool TfOBRALTAR::VisualizacionPrevia() const {
    return VisualizacionPrevia_->isChecked();
}

void TfOBRALTAR::MostrarEstado(const QString &texto) {
    StatusBar1->setText(texto);
}

void TfOBRALTAR::CursorOcupado(bool ocupado) {
    if (ocupado)
        QApplication::setOverrideCursor(Qt::WaitCursor);
    else
        QApplication::restoreOverrideCursor();
}

bool TfOBRALTAR::pbListarClick() {
    return runner_.pbListarClick(*this);
}

void RegistrarListados(TfOBRAMENU &ventana, Aplicacion &app) {
    QMdiArea *mdi = ventana.mdi();
    ventana.RegistrarPantalla(QStringLiteral("fOBRALTAR"), [&app, mdi](QWidget *parent) {
        return new TfOBRALTAR(app, mdi, parent);
    });
}

} // namespace co::ui
