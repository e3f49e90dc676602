#include "reports/rate_listing_filter.h"

namespace co {

using forms::ComponentKind;

FiltroListadoTarifas::FiltroListadoTarifas(TModuloDatos &datos, CreadorTablas &creador,
                                           std::function<ReportEnvironment()> entorno)
    : forms::Form(QStringLiteral("fOBRALTAR"), QStringLiteral("Listado de Tarifas")), datos_(datos),
      creador_(creador), entorno_(std::move(entorno)), rutinas_(datos) {
    const ParametrosListadoTarifas defecto;
    auto rango = [this](const QString &concepto, const QString &desde, const QString &hasta) {
        AddControl(ComponentKind::Label, QStringLiteral("LabelDesde") + concepto,
                   QStringLiteral("Desde ") + concepto);
        AddControl(ComponentKind::Edit, QStringLiteral("Desde") + concepto).Text = desde;
        AddControl(ComponentKind::Label, QStringLiteral("LabelHasta") + concepto,
                   QStringLiteral("Hasta"));
        AddControl(ComponentKind::Edit, QStringLiteral("Hasta") + concepto).Text = hasta;
    };
    rango(QStringLiteral("Tarifa"), QString::number(defecto.DesdeTarifa),
          QString::number(defecto.HastaTarifa));
    rango(QStringLiteral("Unidad"), defecto.DesdeUnidad, defecto.HastaUnidad);
    AddControl(ComponentKind::CheckBox, QStringLiteral("ListarConMasDescripcion"),
               QStringLiteral("Listar Con Más Descripción"));
    AddControl(ComponentKind::CheckBox, QStringLiteral("SepararEnPaginas"),
               QStringLiteral("Separar en Paginas"));
    AddControl(ComponentKind::CheckBox, QStringLiteral("VisualizacionPrevia"),
               QStringLiteral("Visualización Previa"))
        .Checked = true;
    AddControl(ComponentKind::Button, QStringLiteral("pbListar"), QStringLiteral("&Listar"));
    AddControl(ComponentKind::Button, QStringLiteral("pbSalir"), QStringLiteral("&Salir"));
    SetHandler(QStringLiteral("pbListarClick"), [this](forms::Component *) {
        if (runner_)
            runner_->pbListarClick(*this);
    });
}

QString FiltroListadoTarifas::Texto(const QString &control) const {
    const forms::Component *c = FindComponent(control);
    return c ? c->Text : QString();
}

bool FiltroListadoTarifas::Marcado(const QString &control) const {
    const forms::Component *c = FindComponent(control);
    return c && c->Checked;
}

QString FiltroListadoTarifas::Validar() {
    bool okDesde = false, okHasta = false;
    const int desde = Texto(QStringLiteral("DesdeTarifa")).trimmed().toInt(&okDesde);
    const int hasta = Texto(QStringLiteral("HastaTarifa")).trimmed().toInt(&okHasta);
    if (!okDesde || !okHasta)
        return QStringLiteral("¡El código de tarifa debe ser un número!");
    if (desde > hasta)
        return QStringLiteral("¡La tarifa inicial no puede ser mayor que la final!");
    if (Texto(QStringLiteral("DesdeUnidad")) > Texto(QStringLiteral("HastaUnidad")))
        return QStringLiteral("¡La unidad inicial no puede ser mayor que la final!");
    return {};
}

void FiltroListadoTarifas::CopiarParametros() {
    p_.DesdeTarifa = Texto(QStringLiteral("DesdeTarifa")).trimmed().toInt();
    p_.HastaTarifa = Texto(QStringLiteral("HastaTarifa")).trimmed().toInt();
    p_.DesdeUnidad = Texto(QStringLiteral("DesdeUnidad"));
    p_.HastaUnidad = Texto(QStringLiteral("HastaUnidad"));
    p_.ListarConMasDescripcion = Marcado(QStringLiteral("ListarConMasDescripcion"));
    p_.SepararEnPaginas = Marcado(QStringLiteral("SepararEnPaginas"));
}

std::unique_ptr<Report> FiltroListadoTarifas::CrearReport() {
    return std::make_unique<TfOBQRLTAR>(datos_, creador_, p_, entorno_(),
                                        TextoRestricciones(*this));
}

bool FiltroListadoTarifas::VisualizacionPrevia() const {
    return Marcado(QStringLiteral("VisualizacionPrevia"));
}

} // namespace co
