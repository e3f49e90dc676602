#include "works/machines_master.h"

#include "forms/grid_columns.h"

namespace co::works {

namespace {
QList<forms::GridColumn> columnasMaquina() {
    QList<forms::GridColumn> c{forms::Columna("Codigo", "Código"),
                               forms::Columna("Descripcion", "Descripción")};
    for (int i = 1; i <= 4; ++i)
        c << forms::Columna(QStringLiteral("CuotaHoraria%1").arg(i),
                            QStringLiteral("Cuota Horaria %1").arg(i));
    for (int i = 1; i <= 4; ++i)
        c << forms::Columna(QStringLiteral("PrecioVenta%1").arg(i),
                            QStringLiteral("P.Venta %1").arg(i));
    return c;
}
} // namespace

TfOBRAMAQU::TfOBRAMAQU(TModuloDatos &datos)
    : MaestroRejilla(datos,
                     {QStringLiteral("fOBRAMAQU"), QStringLiteral("Maestro de Maquinas"),
                      QStringLiteral("MAQUINOB"), QStringLiteral("Codigo"), columnasMaquina()}),
      grupos_(*this, QStringLiteral("MAQUINOB"), QStringLiteral("Codigo")) {
    OcultarPreciosVenta([this] { return ModuloObra().ParametrosAdmPorPorcentajes(); });
}

} // namespace co::works
