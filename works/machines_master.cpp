#include "works/machines_master.h"

#include "core/session.h"
#include "forms/dataset_errors.h"
#include "forms/field_search.h"

namespace co::works {

using forms::GridColumn;

namespace {
const QString kTabla = QStringLiteral("MAQUINOB");

QList<GridColumn> columnasMaquina() {
    QList<GridColumn> c{{QStringLiteral("Codigo"), QStringLiteral("Código"), {}},
                        {QStringLiteral("Descripcion"), QStringLiteral("Descripción"), {}}};
    for (int i = 1; i <= 4; ++i)
        c.append(
            {QStringLiteral("CuotaHoraria%1").arg(i), QStringLiteral("Cuota Horaria %1").arg(i)});
    for (int i = 1; i <= 4; ++i)
        c.append({QStringLiteral("PrecioVenta%1").arg(i), QStringLiteral("P.Venta %1").arg(i)});
    return c;
}
} // namespace

TfOBRAMAQU::TfOBRAMAQU(TModuloDatos &datos)
    : MaestroRejilla(datos, {QStringLiteral("fOBRAMAQU"), QStringLiteral("Maestro de Maquinas"),
                             kTabla, QStringLiteral("Codigo"), columnasMaquina()}) {
    table2_ = &Add<forms::Table>(datos, QStringLiteral("Table2"), QStringLiteral("GRANTAB"));
    table2_->AddCalculatedField(QStringLiteral("CategoriaGA"), TipoCampo::ftString, 30);
    table2_->AddCalculatedField(QStringLiteral("DescripcionGA"), TipoCampo::ftString, 40);
    auto &source2 = Add<forms::DataSource>(QStringLiteral("DataSource2"), table2_);
    grid2_ = &Add<forms::DBGrid>(QStringLiteral("DBGrid2"), &source2);
    GridColumn categoria{QStringLiteral("CategoriaGA"), QStringLiteral("Categoría"), {}};
    categoria.ReadOnly = true;
    GridColumn descripcion{QStringLiteral("DescripcionGA"), QStringLiteral("Descripción"), {}};
    descripcion.ReadOnly = true;
    grid2_->Columns = {
        {QStringLiteral("GrupoAnalisis"), QStringLiteral("G.A."), {}}, categoria, descripcion};
    OcultarPreciosVenta();

    SetHandler(QStringLiteral("Table1AfterScroll"),
               [this](forms::Component *) { apuntarGrupos(); });
    SetHandler(QStringLiteral("Table1AfterCancel"),
               [this](forms::Component *) { apuntarGrupos(); });
    SetHandler(QStringLiteral("Table2CalcFields"), [this](forms::Component *) { calcularGrupo(); });
    SetHandler(QStringLiteral("Table2NewRecord"), [this](forms::Component *) {
        table2_->FieldByName(QStringLiteral("NombreTabla")).SetAsString(kTabla);
        table2_->FieldByName(QStringLiteral("ClaveTabla"))
            .SetAsString(Table1().FieldByName(QStringLiteral("Codigo")).AsString());
    });
    // Groups belong to a machine: without one there is nothing to search for.
    DeclararBusqueda(*table2_, QStringLiteral("GrupoAnalisis"), {QStringLiteral("GRANALIS")});
    SetHandler(QStringLiteral("DBGrid2DblClick"), [this](forms::Component *) {
        if (Table1().Active() && !Table1().IsEmpty())
            forms::BuscarDatosCampo(*this, Rutinas(),
                                    table2_->FieldByName(QStringLiteral("GrupoAnalisis")));
    });
    Preparar = [this] { apuntarGrupos(); };
    ConectarEventos();
}

// The groups grid follows the current machine.
void TfOBRAMAQU::apuntarGrupos() {
    if (!table2_->Active() || !Table1().Active())
        return;
    const QVariantList clave{kTabla, Table1().FieldByName(QStringLiteral("Codigo")).AsString()};
    table2_->SetRange(clave, clave);
}

void TfOBRAMAQU::calcularGrupo() {
    QStringList valores{QString(), QString()};
    const QString grupo = table2_->FieldByName(QStringLiteral("GrupoAnalisis")).AsString();
    if (!grupo.isEmpty())
        if (const auto v = Datos().BuscarValores(
                QStringLiteral("GRANALIS"), grupo,
                {QStringLiteral("CategoriaGrupo"), QStringLiteral("Descripcion")}))
            valores = *v;
    table2_->FieldByName(QStringLiteral("CategoriaGA")).SetAsString(valores.value(0));
    table2_->FieldByName(QStringLiteral("DescripcionGA")).SetAsString(valores.value(1));
}

void TfOBRAMAQU::AntesGrabar() {
    if (!table2_->IsPending())
        return;
    try {
        table2_->Post();
    } catch (const forms::EDatabaseError &) {
        Mensajes().MensajeA(QStringLiteral("¡ Los datos de Grupos de Análisis no han sido "
                                           "registrados !. Inténtelo de nuevo."));
        forms::Abort();
    }
}

} // namespace co::works
