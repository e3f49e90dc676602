#pragma once
// The report object of a listing: its design, made ready when it is created
// (company name, restrictions line, style, listing font and margin,
// translated captions), and its before-print step, which fills the rows and
// hands them over as a data source.
//
// The cancellation flag is process-wide and reset at each report creation.
// While a report builds, a cancellation request asks "El listado será
// cancelado a continuación. ¿Desea continuar con el listado?"; "SI" goes on.

#include "core/messages.h"
#include "output/listing_settings.h"
#include "output/report_composer.h"
#include "output/restrictions_line.h"

#include <QImage>
#include <functional>
#include <memory>

namespace co {

// What a report takes from the session and the desktop.
struct ReportEnvironment {
    Messenger *mensajes = nullptr;
    ParametrosListado parametros;
    CurrencyValues monedas;
    CurrencyDisplay display;
    QString nombreEmpresa;
    QString rutaLogotipo; // LOGO.BMP, shown when the file exists
    std::function<QString(const QString &)> traducir;
    QDate fecha = QDate::currentDate();
    // Lets the window queue run during long loops, so that Esc arrives.
    std::function<void()> ceder;
};

// A cancellation request (Esc, `CancelarelListado1`). With no report
// building it shows "¡No es posible cancelar el listado en este momento!"
// and returns false.
bool SolicitarCancelacionListado(Messenger &mensajes);
bool ListadoEnCurso();

class Report {
public:
    explicit Report(ReportEnvironment entorno);
    virtual ~Report();
    Report(const Report &) = delete;
    Report &operator=(const Report &) = delete;

    ReportDesign Diseno;
    int Copias = 1;
    QString Impresora;

    // `FormCreate`, once the subclass has built its design.
    void Crear(const QString &textoRestricciones = {});

    // `QuickReportBeforePrint`: set titles and fields, fill the rows. Null stops
    // the print (a failure was already told by the statement layer).
    virtual std::unique_ptr<ReportDataSource> AntesDeImprimir() = 0;

    // Runs the before-print step and composes into `sink`. No rows shows
    // "No existen datos para listar"; a cancelled run ends with Cancelado.
    ResultadoComposicion Preparar(PageSink &sink, QString *motivo);

    Messenger &mensajes() { return *entorno_.mensajes; }
    const ReportEnvironment &entorno() const { return entorno_; }
    // Set when Crear built the line.
    std::optional<RestriccionesListado> &restricciones() { return restricciones_; }

private:
    bool continuar();

    ReportEnvironment entorno_;
    std::optional<RestriccionesListado> restricciones_;
    qint64 filas_ = 0;
};

} // namespace co
