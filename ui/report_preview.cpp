#include "ui/report_preview.h"

#include "output/pdf_writer.h"
#include "output/xlsx_export.h"

#include <QApplication>
#include <QCloseEvent>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QMdiSubWindow>
#include <QPainter>
#include <QProgressBar>
#include <QScrollArea>
#include <QScrollBar>
#include <QSpinBox>
#include <QToolButton>
#include <QVBoxLayout>

namespace co::ui {

namespace {

const QString kEsperarInforme = QStringLiteral("¡Debe esperar a que finalice el informe en curso!");
const QString kEsperarCierre =
    QStringLiteral("¡Debe esperar a que finalice el informe para cerrar la previsualización!");
const QString kPreguntaExcel = QStringLiteral(
    "No se garantiza que la exportación a hoja Excel desde la previsualización muestre todos los "
    "datos que espera. ¿Desea continuar en cualquier caso?");

QString conExtension(QString ruta, const QString &ext) {
    if (!ruta.endsWith(ext, Qt::CaseInsensitive))
        ruta += ext;
    return ruta;
}

QString dialogoQt(QWidget *parent, const QString &titulo, const QString &filtros, int *indice) {
    QString elegido;
    const QString ruta = QFileDialog::getSaveFileName(parent, titulo, QString(), filtros, &elegido);
    *indice = static_cast<int>(filtros.split(QStringLiteral(";;")).indexOf(elegido)) + 1;
    return ruta;
}

} // namespace

class PreviewSink : public PageSink {
public:
    explicit PreviewSink(TfGENEPREV &preview) : preview_(preview) {}
    bool addPage(ReportPage &&page, QString *) override {
        preview_.paginaRecibida(std::move(page));
        return true;
    }

private:
    TfGENEPREV &preview_;
};

TfGENEPREV::TfGENEPREV(std::unique_ptr<Report> report, PrinterPort &impresoras, QWidget *parent)
    : QWidget(parent), report_(std::move(report)), impresoras_(impresoras) {
    setObjectName(QStringLiteral("fGENEPREV"));
    setWindowTitle(QStringLiteral("Previsualización: ") + report_->Diseno.Title);
    dialogoGuardar_ = [this](const QString &t, const QString &f, int *i) {
        return dialogoQt(this, t, f, i);
    };
    auto boton = [this](const QString &nombre, const QString &texto, auto accion) {
        auto *b = new QToolButton(this);
        b->setObjectName(nombre);
        b->setText(texto);
        b->setToolTip(texto);
        connect(b, &QToolButton::clicked, this, accion);
        return b;
    };
    SpinEditPagina = new QSpinBox(this);
    SpinEditPagina->setObjectName(QStringLiteral("SpinEditPagina"));
    SpinEditPagina->setRange(1, 1);
    connect(SpinEditPagina, &QSpinBox::valueChanged, this, [this] { mostrarPagina(); });
    SpinEditZoom = new QSpinBox(this);
    SpinEditZoom->setObjectName(QStringLiteral("SpinEditZoom"));
    SpinEditZoom->setRange(10, 400);
    SpinEditZoom->setSingleStep(10);
    SpinEditZoom->setSuffix(QStringLiteral(" %"));
    SpinEditZoom->setValue(100);
    connect(SpinEditZoom, &QSpinBox::valueChanged, this, [this] { mostrarPagina(); });
    LabelEstado = new QLabel(this);
    LabelEstado->setObjectName(QStringLiteral("LabelEstado"));
    LabelPaginas = new QLabel(this);
    ProgressBar1 = new QProgressBar(this);
    ProgressBar1->setObjectName(QStringLiteral("ProgressBar1"));
    ProgressBar1->setMaximumWidth(120);

    auto *barra = new QHBoxLayout;
    barra->addWidget(
        boton(QStringLiteral("pbPrimeraPagina"), QStringLiteral("<<"), [this] { IrAPagina(1); }));
    barra->addWidget(SpinEditPagina);
    barra->addWidget(LabelPaginas);
    barra->addWidget(boton(QStringLiteral("pbUltimaPagina"), QStringLiteral(">>"),
                           [this] { IrAPagina(Paginas()); }));
    barra->addWidget(SpinEditZoom);
    barra->addWidget(boton(QStringLiteral("pbZoomToFit"), QStringLiteral("Página"),
                           [this] { pbZoomToFitClick(); }));
    barra->addWidget(
        boton(QStringLiteral("pbZoomTo100"), QStringLiteral("100%"), [this] { setZoom(100); }));
    barra->addWidget(boton(QStringLiteral("pbZoomToWidth"), QStringLiteral("Ancho"),
                           [this] { pbZoomToWidthClick(); }));
    barra->addWidget(boton(QStringLiteral("pbImprimir"), QStringLiteral("Imprimir"),
                           [this] { pbImprimirClick(); }));
    barra->addWidget(boton(QStringLiteral("pbImprimirPagina"), QStringLiteral("Imprimir Página"),
                           [this] { pbImprimirPaginaClick(); }));
    barra->addWidget(boton(QStringLiteral("pbExportar"), QStringLiteral("Exportar"),
                           [this] { pbExportarClick(); }));
    barra->addWidget(boton(QStringLiteral("pbExportarAExcel"), QStringLiteral("Excel"),
                           [this] { pbExportarAExcelClick(); }));
    barra->addWidget(boton(QStringLiteral("pbExportarAPDF"), QStringLiteral("PDF"),
                           [this] { pbExportarAPDFClick(); }));
    barra->addStretch();
    barra->addWidget(ProgressBar1);
    barra->addWidget(LabelEstado);

    area_ = new QScrollArea(this);
    area_->setBackgroundRole(QPalette::Dark);
    area_->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
    pagina_ = new QLabel;
    pagina_->setObjectName(QStringLiteral("Pagina"));
    area_->setWidget(pagina_);

    auto *layout = new QVBoxLayout(this);
    layout->addLayout(barra);
    layout->addWidget(area_, 1);
    setFocusPolicy(Qt::StrongFocus);
}

TfGENEPREV::~TfGENEPREV() = default;

QString TfGENEPREV::Estado() const {
    return LabelEstado->text();
}

ResultadoComposicion TfGENEPREV::Construir() {
    construyendo_ = true;
    LabelEstado->setText(QStringLiteral("En Progreso"));
    ProgressBar1->setRange(0, 0);
    PreviewSink sink(*this);
    QString motivo;
    const ResultadoComposicion r = report_->Preparar(sink, &motivo);
    construyendo_ = false;
    ProgressBar1->setRange(0, 100);
    if (r == ResultadoComposicion::Completo) {
        ProgressBar1->setValue(100);
        LabelEstado->setText(QStringLiteral("Finalizada"));
        return r;
    }
    if (r == ResultadoComposicion::Fallo && !motivo.isEmpty())
        report_->mensajes().MensajeA(QStringLiteral("¡Error Imprimiendo!. Motivo: ") + motivo);
    cerrarVentana();
    return r;
}

void TfGENEPREV::paginaRecibida(ReportPage &&page) {
    paginas_.push_back(std::move(page));
    SpinEditPagina->setMaximum(Paginas());
    LabelPaginas->setText(QStringLiteral("de %1").arg(Paginas()));
    if (Paginas() == 1)
        mostrarPagina();
    // The page shows now, not when the whole report is done.
    QCoreApplication::processEvents();
}

void TfGENEPREV::mostrarPagina() {
    const int n = PaginaActual();
    if (n < 1 || n > Paginas())
        return;
    const ReportPage &page = paginas_.at(n - 1);
    const double z = Zoom() / 100.0;
    QImage img(QSize(qRound(page.width * z), qRound(page.height * z)), QImage::Format_RGB32);
    img.fill(Qt::white);
    QPainter p(&img);
    p.setRenderHint(QPainter::Antialiasing);
    p.setRenderHint(QPainter::TextAntialiasing);
    p.scale(z, z);
    PintarPagina(p, page);
    p.end();
    pagina_->setPixmap(QPixmap::fromImage(img));
    pagina_->resize(img.size());
}

void TfGENEPREV::IrAPagina(int numero) {
    SpinEditPagina->setValue(std::clamp(numero, 1, std::max(1, Paginas())));
    mostrarPagina();
}

int TfGENEPREV::PaginaActual() const {
    return SpinEditPagina->value();
}

void TfGENEPREV::setZoom(int porcentaje) {
    SpinEditZoom->setValue(porcentaje);
}

int TfGENEPREV::Zoom() const {
    return SpinEditZoom->value();
}

void TfGENEPREV::pbZoomToFitClick() {
    if (paginas_.isEmpty())
        return;
    const QSize v = area_->viewport()->size();
    const ReportPage &p = paginas_.first();
    setZoom(static_cast<int>(std::min(100.0 * v.width() / p.width, 100.0 * v.height() / p.height)));
}

void TfGENEPREV::pbZoomToWidthClick() {
    if (paginas_.isEmpty())
        return;
    const int ancho = area_->viewport()->width() - area_->verticalScrollBar()->sizeHint().width();
    setZoom(static_cast<int>(100.0 * ancho / paginas_.first().width));
}

bool TfGENEPREV::rechazarSiConstruye() {
    if (!construyendo_)
        return false;
    report_->mensajes().MensajeA(kEsperarInforme);
    return true;
}

bool TfGENEPREV::reproducir(PageSink &sink, QString *motivo) const {
    return ReproducirPaginas(paginas_, sink, motivo);
}

void TfGENEPREV::imprimir(int desde, int hasta, bool soloEsta) {
    Report &r = *report_;
    OpcionesImpresion o;
    if (r.entorno().parametros.SolicitarDialogoImpresora == u"NO") {
        o.impresora = r.Impresora.isEmpty() ? impresoras_.ImpresoraPorDefecto() : r.Impresora;
        o.copias = r.Copias;
        o.orientacion = r.Diseno.Page.orientation;
        o.desdePagina = desde;
        o.hastaPagina = hasta;
    } else {
        o.desdePagina = desde;
        o.hastaPagina = hasta;
        if (!SolicitarImpresora(r, impresoras_, o))
            return;
        if (soloEsta) {
            o.desdePagina = desde;
            o.hastaPagina = hasta;
        }
    }
    QString motivo;
    std::unique_ptr<PageSink> sink = impresoras_.AbrirImpresora(o, &motivo);
    bool ok = sink != nullptr;
    if (ok) {
        const int primera = o.desdePagina > 0 ? o.desdePagina : 1;
        const int ultima = o.hastaPagina > 0 ? std::min(o.hastaPagina, Paginas()) : Paginas();
        for (int n = primera; ok && n <= ultima; ++n) {
            ReportPage copia = paginas_.at(n - 1);
            ok = sink->addPage(std::move(copia), &motivo);
        }
        ok = ok && sink->finish(&motivo);
    }
    if (!ok)
        r.mensajes().MensajeA(QStringLiteral("¡Error Imprimiendo!. Motivo: ") + motivo);
}

void TfGENEPREV::pbImprimirClick() {
    if (rechazarSiConstruye() || paginas_.isEmpty())
        return;
    imprimir(0, 0, false);
}

void TfGENEPREV::pbImprimirPaginaClick() {
    if (rechazarSiConstruye() || paginas_.isEmpty())
        return;
    imprimir(PaginaActual(), PaginaActual(), true);
}

bool TfGENEPREV::Exportar(const QString &ruta, int indiceFiltro) {
    if (rechazarSiConstruye())
        return false;
    QString motivo = QStringLiteral("Formato de exportación desconocido");
    std::unique_ptr<PageSink> sink = SinkExportacion(indiceFiltro, ruta, report_->Diseno.Title);
    if (sink && reproducir(*sink, &motivo))
        return true;
    report_->mensajes().MensajeA(QStringLiteral("¡No ha sido posible grabar el informe! Motivo: ") +
                                 motivo);
    return false;
}

bool TfGENEPREV::ExportarAExcel(const QString &ruta) {
    if (rechazarSiConstruye())
        return false;
    XlsxExportSink sink(conExtension(ruta, QStringLiteral(".xlsx")));
    QString motivo;
    if (reproducir(sink, &motivo))
        return true;
    report_->mensajes().MensajeA(QStringLiteral("¡No ha sido posible grabar el informe! Motivo: ") +
                                 motivo);
    return false;
}

bool TfGENEPREV::ExportarAPDF(const QString &ruta) {
    if (rechazarSiConstruye())
        return false;
    const PageSetup &page = report_->Diseno.Page;
    PdfPageSink sink(conExtension(ruta, QStringLiteral(".pdf")),
                     NombreTamanoPapel(page.paper, page.orientation), report_->Diseno.Title);
    QString motivo;
    if (reproducir(sink, &motivo))
        return true;
    sink.discard();
    report_->mensajes().MensajeA(
        QStringLiteral("Se ha producido un error al generar el archivo PDF. Motivo: ") + motivo);
    return false;
}

void TfGENEPREV::pbExportarClick() {
    if (rechazarSiConstruye())
        return;
    QString filtros = QString::fromLatin1(kFiltroExportacion);
    // "Name|pattern|Name|pattern" as Qt filters: "Name;;Name" (the name holds the pattern).
    QStringList partes = filtros.split(u'|');
    QStringList qt;
    for (int i = 0; i < partes.size(); i += 2)
        qt << partes.at(i);
    int indice = 0;
    const QString ruta =
        dialogoGuardar_(QStringLiteral("Exportar"), qt.join(QStringLiteral(";;")), &indice);
    if (!ruta.isEmpty())
        Exportar(ruta, indice);
}

void TfGENEPREV::pbExportarAExcelClick() {
    if (rechazarSiConstruye())
        return;
    if (report_->mensajes().MensajeC(kPreguntaExcel) == u"NO")
        return;
    int indice = 0;
    const QString ruta = dialogoGuardar_(QStringLiteral("Exportar a Excel"),
                                         QStringLiteral("Libro de Excel (*.XLSX)"), &indice);
    if (!ruta.isEmpty())
        ExportarAExcel(ruta);
}

void TfGENEPREV::pbExportarAPDFClick() {
    if (rechazarSiConstruye())
        return;
    int indice = 0;
    const QString ruta = dialogoGuardar_(QStringLiteral("Exportar a PDF"),
                                         QStringLiteral("Archivos PDF (*.PDF)"), &indice);
    if (!ruta.isEmpty())
        ExportarAPDF(ruta);
}

void TfGENEPREV::CancelarelListado1Click() {
    SolicitarCancelacionListado(report_->mensajes());
}

void TfGENEPREV::closeEvent(QCloseEvent *event) {
    if (construyendo_) {
        report_->mensajes().MensajeA(kEsperarCierre);
        event->ignore();
        return;
    }
    event->accept();
}

void TfGENEPREV::keyPressEvent(QKeyEvent *event) {
    if (event->key() == Qt::Key_Escape && construyendo_) {
        CancelarelListado1Click();
        return;
    }
    QWidget::keyPressEvent(event);
}

void TfGENEPREV::cerrarVentana() {
    if (auto *sub = qobject_cast<QMdiSubWindow *>(parentWidget()))
        sub->close();
    else
        close();
}

} // namespace co::ui
