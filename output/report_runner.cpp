#include "output/report_runner.h"

namespace co {

namespace {

const QString kPrefijoPDF = QStringLiteral("PDF:");

bool imprimirEn(Report &report, PrinterPort &impresoras, const OpcionesImpresion &opciones) {
    QString motivo;
    std::unique_ptr<PageSink> sink = impresoras.AbrirImpresora(opciones, &motivo);
    ResultadoComposicion r = ResultadoComposicion::Fallo;
    if (sink)
        r = report.Preparar(*sink, &motivo);
    if (r == ResultadoComposicion::Fallo && !motivo.isEmpty())
        report.mensajes().MensajeA(QStringLiteral("¡Error Imprimiendo!. Motivo: ") + motivo);
    return r == ResultadoComposicion::Completo;
}

bool imprimirPDF(Report &report, const QString &ruta) {
    const PageSetup &page = report.Diseno.Page;
    PdfPageSink sink(ruta, NombreTamanoPapel(page.paper, page.orientation), report.Diseno.Title);
    QString motivo;
    const ResultadoComposicion r = report.Preparar(sink, &motivo);
    if (r == ResultadoComposicion::Completo)
        return true;
    sink.discard();
    if (r == ResultadoComposicion::Fallo && !motivo.isEmpty())
        report.mensajes().MensajeA(
            QStringLiteral("Se ha producido un error al generar el archivo PDF. Motivo: ") +
            motivo);
    return false;
}

// Clears the status, the cursor and the busy flag however the run ends.
class RunGuard {
public:
    RunGuard(StatusPort *estado, bool &ocupado) : estado_(estado), ocupado_(ocupado) {
        ocupado_ = true;
        if (estado_) {
            estado_->MostrarEstado(QStringLiteral("Creando informe..."));
            estado_->CursorOcupado(true);
        }
    }
    ~RunGuard() {
        if (estado_) {
            estado_->MostrarEstado({});
            estado_->CursorOcupado(false);
        }
        ocupado_ = false;
    }

private:
    StatusPort *estado_;
    bool &ocupado_;
};

} // namespace

bool SolicitarImpresora(Report &report, PrinterPort &impresoras, OpcionesImpresion &opciones) {
    opciones.impresora =
        report.Impresora.isEmpty() ? impresoras.ImpresoraPorDefecto() : report.Impresora;
    opciones.copias = report.Copias;
    opciones.orientacion = report.Diseno.Page.orientation;
    if (!impresoras.DialogoImpresora(opciones))
        return false;
    report.Impresora = opciones.impresora;
    report.Copias = opciones.copias;
    report.Diseno.Page.orientation = opciones.orientacion;
    return true;
}

bool ImprimirReport(Report &report, const QString &destino, PrinterPort *impresoras) {
    if (destino.startsWith(kPrefijoPDF))
        return imprimirPDF(report, destino.mid(kPrefijoPDF.size()));
    if (!impresoras) {
        report.mensajes().MensajeA(QStringLiteral("¡Error Imprimiendo!. Motivo: ") +
                                   QStringLiteral("No hay impresoras disponibles"));
        return false;
    }
    OpcionesImpresion opciones;
    opciones.copias = report.Copias;
    opciones.orientacion = report.Diseno.Page.orientation;
    if (!destino.isEmpty()) {
        for (const QString &nombre : impresoras->Impresoras())
            if (nombre.contains(destino)) {
                report.Impresora = opciones.impresora = nombre;
                return imprimirEn(report, *impresoras, opciones);
            }
        return false;
    }
    if (report.entorno().parametros.SolicitarDialogoImpresora == u"NO") {
        opciones.impresora =
            report.Impresora.isEmpty() ? impresoras->ImpresoraPorDefecto() : report.Impresora;
        return imprimirEn(report, *impresoras, opciones);
    }
    if (!SolicitarImpresora(report, *impresoras, opciones))
        return false;
    return imprimirEn(report, *impresoras, opciones);
}

bool ReportRunner::pbListarClick(ListingFilter &filtro) {
    if (ocupado_)
        return false;
    const QString error = filtro.Validar();
    if (!error.isEmpty()) {
        mensajes_.MensajeA(error);
        return false;
    }
    RunGuard guard(estado_, ocupado_);
    filtro.CopiarParametros();
    std::unique_ptr<Report> report = filtro.CrearReport();
    if (!report)
        return false;
    if (filtro.VisualizacionPrevia() && previa_) {
        previa_->QuickReportPreview(std::move(report));
        return true;
    }
    return ImprimirReport(*report, destino_, impresoras_);
}

} // namespace co
