#include "works/units_master.h"

#include "core/session.h"
#include "forms/grid_columns.h"

namespace co::works {

TfOBRAUNID::TfOBRAUNID(TModuloDatos &datos)
    : MaestroRejilla(
          datos, {QStringLiteral("fOBRAUNID"),
                  QStringLiteral("Maestro de Unidades"),
                  QStringLiteral("UNIDADOB"),
                  QStringLiteral("Codigo"),
                  {forms::Columna("Codigo", "Código"), forms::Columna("Descripcion", "Descripción"),
                   forms::Columna("DescripcionAmpliada", "Descripción Ampliada"),
                   forms::Columna("Unidad", "Unidad"), forms::Columna("PorcentajeIVA", "% IVA"),
                   forms::Columna("PorcentajeRgo", "% Recargo")}}) {}

QString TfOBRAUNID::TituloMemo(const forms::GridColumn &columna) const {
    return QStringLiteral("Unidad ") + Table1().FieldByName(QStringLiteral("Codigo")).AsString() +
           QStringLiteral(" - ") + columna.Title;
}

void TfOBRAUNID::ValoresIniciales() {
    const QString iva = forms::ParametroGeneral(Datos(), QStringLiteral("Iva1"));
    if (!iva.isEmpty())
        Table1().FieldByName(QStringLiteral("PorcentajeIVA")).SetValue(iva.toDouble());
}

} // namespace co::works
