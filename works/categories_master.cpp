#include "works/categories_master.h"

namespace co::works {

TfNOMICATE::TfNOMICATE(TModuloDatos &datos)
    : MaestroRejilla(datos, {QStringLiteral("fNOMICATE"),
                             QStringLiteral("Maestro de Categorías"),
                             QStringLiteral("CATEGORI"),
                             QStringLiteral("Codigo"),
                             {{QStringLiteral("Codigo"), QStringLiteral("Código"), {}},
                              {QStringLiteral("Descripcion"), QStringLiteral("Descripción"), {}}}}) {
    TextoModificacionFallida = QStringLiteral("¡El registro no ha sido modificado!");
}

} // namespace co::works
