#include "output/report_object.h"

#include "output/report_style.h"

#include <QFileInfo>

namespace co {

namespace {

// Process-wide, as the listings share one cancellation flag.
bool g_building = false;
bool g_requested = false;
bool g_cancelled = false;

constexpr int kFilasPorCesion = 100;

} // namespace

bool SolicitarCancelacionListado(Messenger &mensajes) {
    if (!g_building) {
        mensajes.MensajeA(QStringLiteral("¡No es posible cancelar el listado en este momento!"));
        return false;
    }
    g_requested = true;
    return true;
}

bool ListadoEnCurso() {
    return g_building;
}

Report::Report(ReportEnvironment entorno) : entorno_(std::move(entorno)) {
    g_requested = false;
    g_cancelled = false;
}

Report::~Report() = default;

void Report::Crear(const QString &textoRestricciones) {
    if (Diseno.PageHeader) {
        ReportBand &cabecera = *Diseno.PageHeader;
        if (ReportControl *empresa = cabecera.control(QStringLiteral("TituloNombreEmpresa")))
            empresa->Caption = entorno_.nombreEmpresa;
        if (ReportControl *logo = cabecera.control(QStringLiteral("TituloLogotipoEmpresa")))
            if (!entorno_.rutaLogotipo.isEmpty() && QFileInfo::exists(entorno_.rutaLogotipo))
                logo->Picture = QImage(entorno_.rutaLogotipo);
        restricciones_ = PrepararRestricciones(cabecera, textoRestricciones,
                                               entorno_.parametros.ListarRestricciones != u"NO",
                                               Diseno.Page.bodyWidth());
        AjustarRestricciones(cabecera, *restricciones_, Diseno.Page.orientation);
    }
    AplicarEstiloReport(Diseno, entorno_.parametros.TipoCombinacionTramas);
    AplicarParametrosListado(Diseno, entorno_.parametros);
    TraducirCaptions(Diseno, entorno_.traducir);
}

bool Report::continuar() {
    if (entorno_.ceder && ++filas_ % kFilasPorCesion == 0)
        entorno_.ceder();
    if (g_requested) {
        g_requested = false;
        const QString respuesta = mensajes().MensajeC(QStringLiteral(
            "El listado será cancelado a continuación. ¿Desea continuar con el listado?"));
        g_cancelled = respuesta != u"SI";
    }
    return !g_cancelled;
}

ResultadoComposicion Report::Preparar(PageSink &sink, QString *motivo) {
    std::unique_ptr<ReportDataSource> datos = AntesDeImprimir();
    if (!datos)
        return ResultadoComposicion::Fallo;
    ComposeContext ctx;
    ctx.monedas = entorno_.monedas;
    ctx.display = entorno_.display;
    ctx.plantillaNumerica = entorno_.parametros.PlantillaNumericaStd;
    ctx.fecha = entorno_.fecha;
    ctx.continuar = [this] { return continuar(); };
    filas_ = 0;
    g_building = true;
    const ResultadoComposicion r = ComponerReport(Diseno, *datos, sink, ctx, motivo);
    g_building = false;
    g_requested = false;
    if (r == ResultadoComposicion::SinDatos)
        mensajes().MensajeI(QStringLiteral("No existen datos para listar"));
    return r;
}

} // namespace co
