#include "works/incidents_master.h"

#include "forms/grid_columns.h"

namespace co::works {

using forms::Columna;

TfOBRAINCI::TfOBRAINCI(TModuloDatos &datos)
    : MaestroRejilla(
          datos,
          {QStringLiteral("fOBRAINCI"),
           QStringLiteral("Maestro de Incidencias"),
           QStringLiteral("INCIDENC"),
           QStringLiteral("Codigo"),
           {Columna("Codigo", "Código"), Columna("Descripcion", "Descripción"),
            Columna("Tipo", "Tipo").Lista({QStringLiteral("Trabajo"), QStringLiteral("Maquina")}),
            Columna("Imputable", "Imputable")
                .Lista({QStringLiteral("SI"), QStringLiteral("NO")})}}) {}

void TfOBRAINCI::ValoresIniciales() {
    Table1().FieldByName(QStringLiteral("Tipo")).SetAsString(QStringLiteral("Trabajo"));
    Table1().FieldByName(QStringLiteral("Imputable")).SetAsString(QStringLiteral("SI"));
}

bool IncidenciaImputable(const QVariant &imputable) {
    return imputable.toString() == QStringLiteral("SI");
}

} // namespace co::works
