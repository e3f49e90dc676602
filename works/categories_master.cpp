#include "works/categories_master.h"

#include "forms/grid_columns.h"

namespace co::works {

using forms::Columna;

TfNOMICATE::TfNOMICATE(TModuloDatos &datos)
    : MaestroRejilla(datos,
                     {QStringLiteral("fNOMICATE"),
                      QStringLiteral("Maestro de Categorías"),
                      QStringLiteral("CATEGORI"),
                      QStringLiteral("Codigo"),
                      {Columna("Codigo", "Código"), Columna("Descripcion", "Descripción")}}) {
    TextoModificacionFallida = QStringLiteral("¡El registro no ha sido modificado!");
}

} // namespace co::works
