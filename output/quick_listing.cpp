#include "output/quick_listing.h"

#include <cmath>

namespace co {

namespace {

int anchoDe(ColumnKind kind) {
    switch (kind) {
    case ColumnKind::Integer:
        return 60;
    case ColumnKind::Float:
        return 90;
    case ColumnKind::DateTime:
        return 75;
    case ColumnKind::Boolean:
        return 30;
    case ColumnKind::Memo:
        return 220;
    default:
        return 150;
    }
}

class QuickListingReport : public Report {
public:
    QuickListingReport(const Consulta &consulta, ReportEnvironment entorno)
        : Report(std::move(entorno)), consulta_(consulta) {}
    std::unique_ptr<ReportDataSource> AntesDeImprimir() override {
        return std::make_unique<ConsultaDataSource>(consulta_);
    }

private:
    const Consulta &consulta_;
};

} // namespace

ReportDesign DisenoListadoTabla(const QList<ResultColumn> &campos, const QString &titulo) {
    ReportDesign d;
    d.Title = titulo;
    int total = 0;
    for (const ResultColumn &c : campos)
        total += anchoDe(c.kind) + 4;
    if (total > d.Page.bodyWidth())
        d.Page.orientation = Orientation::Landscape;
    const double factor =
        std::min(1.0, static_cast<double>(d.Page.bodyWidth()) / std::max(total, 1));

    ReportBand cabecera = Banda(QStringLiteral("PageHeader"), BandType::PageHeader, 60);
    ReportControl empresa =
        Control(QStringLiteral("TituloNombreEmpresa"), ControlKind::Label, 0, 0, 300, 16);
    empresa.Font.bold = true;
    cabecera.add(empresa);
    ReportControl titular =
        Control(QStringLiteral("TituloListado"), ControlKind::Label, 0, 18, d.Page.bodyWidth(), 20);
    titular.Caption = titulo;
    titular.Font = FontSpec{QStringLiteral("Arial"), 12, true, false};
    titular.Alignment = Alineacion::Centro;
    cabecera.add(titular);
    ReportControl fecha = Control(QStringLiteral("FechaListado"), ControlKind::Date,
                                  d.Page.bodyWidth() - 120, 0, 120, 16);
    fecha.Caption = QStringLiteral("Fecha: ");
    fecha.Alignment = Alineacion::Derecha;
    cabecera.add(fecha);

    int x = 0;
    for (const ResultColumn &c : campos) {
        const int w = static_cast<int>(std::floor(anchoDe(c.kind) * factor));
        const Alineacion a = c.kind == ColumnKind::Float || c.kind == ColumnKind::Integer
                                 ? Alineacion::Derecha
                                 : Alineacion::Izquierda;
        ReportControl rotulo =
            Control(QStringLiteral("Rotulo") + c.name, ControlKind::Label, x, 42, w, 16);
        rotulo.Caption = c.name;
        rotulo.Font.bold = true;
        rotulo.Alignment = a;
        cabecera.add(rotulo);
        ReportControl campo = Control(c.name, ControlKind::Field, x, 0, w, 16);
        campo.DataField = c.name;
        campo.Alignment = a;
        campo.AutoStretch = c.kind == ColumnKind::Memo;
        d.BandaDetalle.add(campo);
        x += static_cast<int>(std::floor((anchoDe(c.kind) + 4) * factor));
    }
    ReportControl raya =
        Control(QStringLiteral("LineaCabecera"), ControlKind::Line, 0, 59, d.Page.bodyWidth(), 1);
    cabecera.add(raya);
    d.PageHeader = cabecera;

    ReportBand pie = Banda(QStringLiteral("PageFooter"), BandType::PageFooter, 20);
    ReportControl pagina = Control(QStringLiteral("NumeroPagina"), ControlKind::PageNumber,
                                   d.Page.bodyWidth() - 120, 2, 120, 16);
    pagina.Caption = QStringLiteral("Página ");
    pagina.Alignment = Alineacion::Derecha;
    pie.add(pagina);
    d.PageFooter = pie;
    return d;
}

std::unique_ptr<Report> ListadoTabla(const Consulta &consulta, const QString &contexto,
                                     const QString &titulo, ReportEnvironment entorno) {
    Messenger &mensajes = *entorno.mensajes;
    if (!consulta.Active() || consulta.RecordCount() == 0) {
        mensajes.MensajeI(QStringLiteral("No hay registros para listar"));
        return nullptr;
    }
    if (consulta.RecordCount() > kLimiteListadoTabla &&
        mensajes.MensajeC(
            QStringLiteral("El informe tiene más de 1000 registros. ¿Desea continuar?")) != u"SI")
        return nullptr;
    auto report = std::make_unique<QuickListingReport>(consulta, std::move(entorno));
    report->Diseno = DisenoListadoTabla(consulta.Fields(), titulo.isEmpty() ? contexto : titulo);
    report->Crear();
    return report;
}

} // namespace co
