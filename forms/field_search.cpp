#include "forms/field_search.h"

#include "forms/form.h"
#include "forms/maintenance_routines.h"

namespace co::forms {

bool BuscarDatosCampo(Form &form, RutinasFormulario &rutinas, Field &campo) {
    const BusquedaCampo *busqueda = form.BusquedaDeclarada(campo);
    if (!busqueda)
        return false;
    if (!rutinas.Ventanas.BuscarEnTabla)
        return true;
    const QString restriccion = busqueda->restriccion ? busqueda->restriccion() : QString();
    const ResultadoBusqueda elegido = rutinas.Ventanas.BuscarEnTabla(busqueda->tabla, restriccion);
    if (!elegido || elegido->size() <= busqueda->elemento)
        return true;
    Dataset &dataset = campo.DataSet();
    if (!dataset.IsPending()) {
        if (dataset.IsEmpty())
            dataset.Append();
        else
            dataset.Edit();
    }
    campo.SetAsString(elegido->at(busqueda->elemento));
    return true;
}

bool DobleClic(Form &form, RutinasFormulario &rutinas, Component &control) {
    if (form.RunEvent(control, QStringLiteral("OnDblClick")) ||
        form.CallHandler(control.Name() + QStringLiteral("DblClick"), &control))
        return true;
    Field *campo = nullptr;
    if (auto *grid = dynamic_cast<DBGrid *>(&control))
        campo = grid->SelectedField();
    else if (auto *dc = dynamic_cast<DataControl *>(&control))
        campo = dc->BoundField();
    return campo && BuscarDatosCampo(form, rutinas, *campo);
}

} // namespace co::forms
