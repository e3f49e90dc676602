#include "forms/grid_master.h"

#include "core/session.h"
#include "forms/field_search.h"
#include "forms/standard_handlers.h"

namespace co::forms {

MaestroRejilla::MaestroRejilla(TModuloDatos &datos, DeclaracionMaestro declaracion)
    : MaestroTabla(datos, declaracion.nombre, declaracion.titulo, declaracion.tabla,
                   FamiliaFormulario::MaestroRejilla),
      declaracion_(std::move(declaracion)) {
    grid1_ = &Add<DBGrid>(QStringLiteral("DBGrid1"), &DataSource1());
    grid1_->Columns = declaracion_.columnas;

    SetHandler(QStringLiteral("Table1BeforeEdit"), [this](Component *) {
        if (grid1_->SelectedIndex == columnaClave() && ActiveControl() == grid1_) {
            Mensajes().MensajeA(QStringLiteral("¡ No se puede modificar la clave del registro !"));
            Abort();
        }
    });
    SetHandler(QStringLiteral("DBGrid1ColExit"), [this](Component *sender) {
        ComprobarColumnasLista(*grid1_, grid1_->SelectedIndex);
        if (grid1_->SelectedIndex == columnaClave())
            comprobarClave(sender);
        else if (Table1().IsPending() && !Validar(grid1_))
            Abort();
    });
    SetEvent(*grid1_, QStringLiteral("OnColExit"), QStringLiteral("DBGrid1ColExit"));
    SetHandler(QStringLiteral("DataSource1StateChange"), [this](Component *) {
        ConmutarBotones(*this, Table1().IsPending());
        // A new record is keyed from the grid's first column.
        if (Table1().State() == DatasetState::Insert)
            grid1_->SelectedIndex = 0;
    });
    SetHandler(QStringLiteral("DBGrid1EditButtonClick"), [this](Component *) { editarMemo(); });
    SetHandler(QStringLiteral("DBGrid1KeyDown"), [this](Component *) { eliminarDesdeRejilla(); });
    // The key column finds a record of the master; a code column searches its own table.
    SetHandler(QStringLiteral("DBGrid1DblClick"), [this](Component *) {
        Field *f = grid1_->SelectedField();
        if (!f)
            return;
        if (f->DataType() == TipoCampo::ftMemo) {
            editarMemo(); // a memo is not searched: its text window opens
            return;
        }
        if (grid1_->SelectedIndex != columnaClave()) {
            // A column without a search of its own finds a record by its value.
            if (!BuscarDatosCampo(*this, Rutinas(), *f) &&
                Rutinas().Ventanas.BuscarRegistroPorCampo)
                Rutinas().Ventanas.BuscarRegistroPorCampo(Table1(), f->FieldName());
        } else if (Rutinas().Ventanas.BuscarRegistro)
            Rutinas().Ventanas.BuscarRegistro(Table1());
    });
}

void MaestroRejilla::editarMemo() {
    MessagePort *port = Mensajes().port();
    if ((!port && !Rutinas().Ventanas.EditorMemo) || (Table1().IsEmpty() && !Table1().IsPending()))
        return;
    const GridColumn *columna = nullptr;
    for (int i = 0; i < grid1_->Columns.size() && !columna; ++i) {
        const GridColumn &c = grid1_->Columns[i];
        const Field *f = Table1().FindField(c.FieldName);
        if (f && f->DataType() == TipoCampo::ftMemo &&
            (i == grid1_->SelectedIndex || !grid1_->SelectedField() ||
             grid1_->SelectedField()->DataType() != TipoCampo::ftMemo))
            columna = &c;
    }
    if (!columna)
        return;
    Field &memo = Table1().FieldByName(columna->FieldName);
    const QString actual = memo.AsString();
    QString texto = actual;
    if (Rutinas().Ventanas.EditorMemo) {
        const std::optional<QString> editado =
            Rutinas().Ventanas.EditorMemo(TituloMemo(*columna), actual);
        if (editado)
            texto = *editado;
    } else {
        texto = port->showTitled(u'P', TituloMemo(*columna), {}, actual);
    }
    if (texto == actual)
        return;
    if (!Table1().IsPending())
        Table1().Edit();
    memo.SetAsString(texto);
}

// Ctrl+Delete on the grid: a new record is dropped, a stored one deleted.
void MaestroRejilla::eliminarDesdeRejilla() {
    Table &t = Table1();
    if (t.IsEmpty() && !t.IsPending())
        return;
    if (Mensajes().MensajeC(QStringLiteral("¿ Está seguro de querer eliminar el registro ?")) !=
        u"SI")
        return;
    if (t.State() == DatasetState::Insert) {
        t.Cancel();
        return;
    }
    if (t.IsPending())
        t.Cancel();
    try {
        t.Delete();
    } catch (const EAbort &) {
        throw;
    } catch (const std::exception &) {
        Mensajes().MensajeA(QStringLiteral("¡ Este registro no puede eliminarse !"));
        Abort();
    }
}

int MaestroRejilla::columnaClave() const {
    for (int i = 0; i < grid1_->Columns.size(); ++i)
        if (grid1_->Columns[i].FieldName.compare(declaracion_.campoClave, Qt::CaseInsensitive) == 0)
            return i;
    return -1;
}

void MaestroRejilla::comprobarClave(Component *sender) {
    Field &clave = Table1().FieldByName(declaracion_.campoClave);
    Rutinas().ComprobarClave({*this, Table1(), clave, grid1_, FamiliaFormulario::MaestroRejilla,
                              false, sender, [this](Component *c) { return Validar(c); },
                              [this] { GrabarDatos(); }});
}

void MaestroRejilla::ComprobarListasAlGrabar() {
    ComprobarColumnasLista(*grid1_);
}

void MaestroRejilla::DespuesAbrir() {
    if (!ocultarPreciosVenta_ || !ocultarPreciosVenta_())
        return;
    for (GridColumn &c : grid1_->Columns)
        if (c.FieldName.startsWith(QStringLiteral("PrecioVenta"), Qt::CaseInsensitive))
            c.Visible = false;
}

} // namespace co::forms
