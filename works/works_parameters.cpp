#include "works/works_parameters.h"

#include "forms/dataset_errors.h"
#include "works/works_data.h"

namespace co::works {

namespace {

using forms::ControlFicha;

QList<ControlFicha> controles() {
    const QStringList siNo{QStringLiteral("SI"), QStringLiteral("NO")};
    const QStringList descripciones{QStringLiteral("Descripcion"),
                                    QStringLiteral("DescripcionAmpliada"),
                                    QStringLiteral("Descripcion+DescripcionAmpliada")};
    // In screen order; the flags without a label of their own are named by their field.
    return {
        {QStringLiteral("PorGastosIndirectos"), QStringLiteral("% Gastos Indirectos"), {}},
        {QStringLiteral("PorGastosGenerales"), QStringLiteral("% Gastos Generales y B.I."), {}},
        {QStringLiteral("PorSoloGastosGenerales"), QStringLiteral("% Solo Gastos Generales"), {}},
        {QStringLiteral("PorSoloBenefIndustrial"),
         QStringLiteral("% Solo Beneficio Industrial"),
         {}},
        {QStringLiteral("CoeficienteRevision"), QStringLiteral("Coeficiente Revision Precios"), {}},
        {QStringLiteral("DtoRetencionVto"), QStringLiteral("Descontar Retencion Vto."), siNo},
        {QStringLiteral("DiasVtoRetencion"), QStringLiteral("Dias Retención"), {}},
        {QStringLiteral("DtoRetencionFactura"), QStringLiteral("Descontar Retención Factura"),
         siNo},
        {QStringLiteral("CfgDescripcionPresupuesto"),
         QStringLiteral("Descripción Impreso Presupuesto"), descripciones},
        {QStringLiteral("CfgDescripcionFactura"), QStringLiteral("Descripción Impreso Factura"),
         descripciones},
        {QStringLiteral("PlantillaPresupuesto"), QStringLiteral("Plantilla Presupuesto"), {}},
        {QStringLiteral("PlantillaFactura"), QStringLiteral("Plantilla Factura"), {}},
        {QStringLiteral("MultiPartes"), QStringLiteral("MultiPartes"), siNo},
        {QStringLiteral("PartesSeparados"), QStringLiteral("P.Separados"), siNo},
        {QStringLiteral("ModificarPartes"), QStringLiteral("Modificar Partes"), siNo},
        {QStringLiteral("AdmPorPorcentajes"), QStringLiteral("Administración por Porcentajes"),
         siNo},
        {QStringLiteral("ContadorMultiMarcajes"), QStringLiteral("Contador MultiMarcajes"), siNo},
    };
}

} // namespace

TfOBRAPARA::TfOBRAPARA(TModuloDatos &datos)
    : MaestroFicha(datos, {QStringLiteral("fOBRAPARA"),
                           QStringLiteral("Parámetros de Control de Obras"),
                           QStringLiteral("PARAOBRA"),
                           {},
                           controles(),
                           true}) {
    // One row only: appending is refused once it exists; deleting always,
    // in place of the shared confirmation.
    AlEvento(Table1(), forms::EventoDatos::BeforeInsert, [this](forms::Component *) {
        if (!Table1().IsEmpty())
            forms::Abort();
    });
    SetHandler(forms::NombreManejador(Table1(), forms::EventoDatos::BeforeDelete),
               [](forms::Component *) { forms::Abort(); });
    AddHandler(QStringLiteral("FormClose"), [this](forms::Component *) {
        if (AlCerrar)
            AlCerrar();
    });
}

void TfOBRAPARA::DespuesAbrir() {
    if (!Table1().IsEmpty())
        return;
    Table1().Append();
    for (const auto &[campo, valor] : ValoresPorDefectoParametrosObra())
        Table1().FieldByName(campo).SetValue(valor);
    Table1().Post();
}

} // namespace co::works
