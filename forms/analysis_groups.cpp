#include "forms/analysis_groups.h"

#include "core/session.h"
#include "forms/dataset_errors.h"
#include "forms/field_search.h"
#include "forms/grid_columns.h"

namespace co::forms {

namespace {
const QString kGrupo = QStringLiteral("GrupoAnalisis");
}

GruposAnalisis::GruposAnalisis(MaestroTabla &maestro, const QString &tablaMaestro,
                               const QString &campoClave)
    : maestro_(maestro), tablaMaestro_(tablaMaestro), campoClave_(campoClave) {
    tabla_ =
        &maestro.Add<Table>(maestro.Datos(), QStringLiteral("Table2"), QStringLiteral("GRANTAB"));
    maestro.DeclararDescripcion(
        *tabla_, kGrupo, QStringLiteral("GRANALIS"),
        {{QStringLiteral("CategoriaGrupo"), QStringLiteral("CategoriaGA"), 30},
         {QStringLiteral("Descripcion"), QStringLiteral("DescripcionGA")}});
    auto &fuente = maestro.Add<DataSource>(QStringLiteral("DataSource2"), tabla_);
    rejilla_ = &maestro.Add<DBGrid>(QStringLiteral("DBGrid2"), &fuente);
    rejilla_->Columns = {Columna(kGrupo, QStringLiteral("G.A.")),
                         Columna("CategoriaGA", "Categoría").SoloLectura(),
                         Columna("DescripcionGA", "Descripción").SoloLectura()};

    Table &maestra = maestro.Table1();
    maestro.AlEvento(maestra, EventoDatos::AfterScroll, [this](Component *) { seguirMaestro(); });
    maestro.AlEvento(maestra, EventoDatos::AfterCancel, [this](Component *) { seguirMaestro(); });
    maestro.AlEvento(maestra, EventoDatos::BeforePost, [this](Component *) { grabarPendientes(); });
    maestro.AlEvento(*tabla_, EventoDatos::NewRecord, [this](Component *) {
        tabla_->FieldByName(QStringLiteral("NombreTabla")).SetAsString(tablaMaestro_);
        tabla_->FieldByName(QStringLiteral("ClaveTabla"))
            .SetAsString(maestro_.Table1().FieldByName(campoClave_).AsString());
    });
    maestro.DeclararBusqueda(*tabla_, kGrupo, {QStringLiteral("GRANALIS")});
    maestro.SetHandler(QStringLiteral("DBGrid2DblClick"), [this](Component *) {
        if (maestro_.Table1().Active() && !maestro_.Table1().IsEmpty())
            BuscarDatosCampo(maestro_, maestro_.Rutinas(), tabla_->FieldByName(kGrupo));
    });
    auto antes = std::move(maestro.Preparar);
    maestro.Preparar = [this, antes] {
        if (antes)
            antes();
        seguirMaestro();
    };
}

void GruposAnalisis::seguirMaestro() {
    if (!tabla_->Active() || !maestro_.Table1().Active())
        return;
    const QVariantList clave{tablaMaestro_, maestro_.Table1().FieldByName(campoClave_).AsString()};
    tabla_->SetRange(clave, clave);
}

void GruposAnalisis::grabarPendientes() {
    if (!tabla_->IsPending())
        return;
    try {
        tabla_->Post();
    } catch (const EValorCampo &e) {
        maestro_.Datos().sesion().mensajes().MensajeA(e.Texto());
        Abort();
    } catch (const EDatabaseError &) {
        maestro_.Datos().sesion().mensajes().MensajeA(
            QStringLiteral("¡ Los datos de Grupos de Análisis no han sido "
                           "registrados !. Inténtelo de nuevo."));
        Abort();
    }
}

} // namespace co::forms
