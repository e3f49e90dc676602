#include "works/subcontracts_master.h"

#include "core/session.h"

#include <QDate>

namespace co::works {

namespace {
const QString kProveedor = QStringLiteral("CodigoProveedor");
forms::GridColumn columna(const char *campo, const char *titulo, bool soloLectura = false) {
    forms::GridColumn c{QString::fromLatin1(campo), QString::fromUtf8(titulo)};
    c.ReadOnly = soloLectura;
    return c;
}
} // namespace

TfOBRASUBC::TfOBRASUBC(TModuloDatos &datos)
    : MaestroRejilla(datos,
                     {QStringLiteral("fOBRASUBC"),
                      QStringLiteral("Maestro de Subcontrataciones"),
                      QStringLiteral("SUBCONTR"),
                      QStringLiteral("Codigo"),
                      {columna("Codigo", "Código"), columna("Descripcion", "Descripción"),
                       columna("Precio1", "Precio 1"), columna("Precio2", "Precio 2"),
                       columna("Precio3", "Precio 3"), columna("Precio4", "Precio 4"),
                       columna("PrecioVenta1", "P.Venta 1"), columna("PrecioVenta2", "P.Venta 2"),
                       columna("PrecioVenta3", "P.Venta 3"), columna("PrecioVenta4", "P.Venta 4"),
                       columna("CodigoProveedor", "Proveedor"),
                       columna("DescripcionProveedor", "Nombre Proveedor", true),
                       columna("FechaAlta", "Fecha Alta"), columna("TipoIVA", "Tipo IVA"),
                       columna("Observaciones", "Observaciones")}}) {
    Table1().AddCalculatedField(QStringLiteral("DescripcionProveedor"), TipoCampo::ftString, 40);
    DeclararBusqueda(Table1(), kProveedor, {QStringLiteral("PROVEEDR")});
    OcultarPreciosVenta();
}

void TfOBRASUBC::ValoresIniciales() {
    Table1().FieldByName(QStringLiteral("FechaAlta")).SetValue(QDateTime(QDate::currentDate(), {}));
    Table1().FieldByName(QStringLiteral("TipoIVA")).SetAsInteger(1);
}

bool TfOBRASUBC::ValidacionWinControl(forms::Component *sender) {
    if (sender) {
        const auto &columnas = DBGrid1().Columns;
        const int i = DBGrid1().SelectedIndex;
        if (i < 0 || i >= columnas.size() || columnas[i].FieldName != kProveedor)
            return true;
    }
    forms::Field &proveedor = Table1().FieldByName(kProveedor);
    if (proveedor.IsNull() ||
        Rutinas().ExisteClaveTabla(QStringLiteral("PROVEEDR"), proveedor.AsString()))
        return true;
    Mensajes().MensajeA(QStringLiteral("¡No existe el Proveedor!"));
    return false;
}

void TfOBRASUBC::CalcularCampos() {
    forms::Field &proveedor = Table1().FieldByName(kProveedor);
    QString nombre;
    if (!proveedor.IsNull())
        if (const auto v = Datos().BuscarValores(QStringLiteral("PROVEEDR"), proveedor.AsString(),
                                                 {QStringLiteral("Nombre")}))
            nombre = v->value(0);
    Table1().FieldByName(QStringLiteral("DescripcionProveedor")).SetAsString(nombre);
}

} // namespace co::works
