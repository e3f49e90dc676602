#include "works/subcontracts_master.h"

#include "forms/grid_columns.h"

#include <QDate>

namespace co::works {

using forms::Columna;

TfOBRASUBC::TfOBRASUBC(TModuloDatos &datos)
    : MaestroRejilla(datos,
                     {QStringLiteral("fOBRASUBC"),
                      QStringLiteral("Maestro de Subcontrataciones"),
                      QStringLiteral("SUBCONTR"),
                      QStringLiteral("Codigo"),
                      {Columna("Codigo", "Código"), Columna("Descripcion", "Descripción"),
                       Columna("Precio1", "Precio 1"), Columna("Precio2", "Precio 2"),
                       Columna("Precio3", "Precio 3"), Columna("Precio4", "Precio 4"),
                       Columna("PrecioVenta1", "P.Venta 1"), Columna("PrecioVenta2", "P.Venta 2"),
                       Columna("PrecioVenta3", "P.Venta 3"), Columna("PrecioVenta4", "P.Venta 4"),
                       Columna("CodigoProveedor", "Proveedor"),
                       Columna("DescripcionProveedor", "Nombre Proveedor").SoloLectura(),
                       Columna("FechaAlta", "Fecha Alta"), Columna("TipoIVA", "Tipo IVA"),
                       Columna("Observaciones", "Observaciones")}}) {
    const QString proveedor = QStringLiteral("CodigoProveedor");
    DeclararDescripcion(Table1(), proveedor, QStringLiteral("PROVEEDR"),
                        {{QStringLiteral("Nombre"), QStringLiteral("DescripcionProveedor")}});
    DeclararExistencia(proveedor, QStringLiteral("PROVEEDR"),
                       QStringLiteral("¡No existe el Proveedor!"));
    DeclararBusqueda(Table1(), proveedor, {QStringLiteral("PROVEEDR")});
    OcultarPreciosVenta([this] { return ModuloObra().ParametrosAdmPorPorcentajes(); });
}

void TfOBRASUBC::ValoresIniciales() {
    Table1().FieldByName(QStringLiteral("FechaAlta")).SetValue(QDateTime(QDate::currentDate(), {}));
    Table1().FieldByName(QStringLiteral("TipoIVA")).SetAsInteger(1);
}

} // namespace co::works
