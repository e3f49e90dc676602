#include "forms/standard_handlers.h"

namespace co::forms {
namespace {

Dataset *principal(Form &form) {
    auto *ds = form.Find<DataSource>(QStringLiteral("DataSource1"));
    return ds ? ds->DataSet : nullptr;
}

void alta(Form &form, Dataset &ds, FamiliaFormulario familia) {
    if (familia == FamiliaFormulario::MaestroRejilla) {
        if (Component *grid = form.FindComponent(QStringLiteral("DBGrid1")))
            form.SetFocus(grid);
        ds.Append();
    } else {
        ds.Insert();
    }
}

void siNoHay(Form &form, const QString &nombre, Form::Handler handler) {
    if (!form.HasHandler(nombre))
        form.SetHandler(nombre, std::move(handler));
}

} // namespace

void ConmutarBotones(Form &form, bool editando) {
    for (const char *n : {"pbConforme", "pbCancelar", "CancelarEdicion1"})
        if (Component *c = form.FindComponent(QString::fromLatin1(n)))
            c->Enabled = editando;
    for (const char *n : {"pbEliminar", "Eliminar1", "pbAgregar", "Agregar", "EliminacionMultiple1",
                          "Buscar", "FiltrarRegistros1", "CopiarRegistrosaOtrasEmpresas1",
                          "DocumentacionElectronica1", "Cerrar1"})
        if (Component *c = form.FindComponent(QString::fromLatin1(n)))
            c->Enabled = !editando;
}

bool GrabarDatos(Form &form, Dataset &ds, RutinasFormulario &rutinas, FamiliaFormulario familia,
                 const QString &textoModificacionFallida) {
    const DatasetState estado = ds.State();
    if (estado != DatasetState::Edit && estado != DatasetState::Insert)
        return true;
    Messenger &m = rutinas.Datos().sesion().mensajes();
    try {
        ds.Post();
    } catch (const EAbort &) {
        return false; // a validator told why; the record stays pending
    } catch (const EValorCampo &e) {
        m.MensajeA(e.Texto()); // nothing typed is lost: the record stays pending
        return false;
    } catch (const EDatabaseError &) {
        if (estado == DatasetState::Insert)
            m.MensajeA(QStringLiteral("¡ Este registro ya existe !"));
        else if (!textoModificacionFallida.isEmpty())
            m.MensajeA(textoModificacionFallida);
        else
            m.MensajeA(QStringLiteral("¡ Imposible modificar el registro. Es posible que esté "
                                      "siendo modificado por otro usuario. !"));
        ds.Cancel();
        return false;
    }
    if (estado == DatasetState::Insert)
        alta(form, ds, familia);
    return true;
}

void ManejadoresEstandar(Form &form, RutinasFormulario &rutinas, FamiliaFormulario familia) {
    Messenger &m = rutinas.Datos().sesion().mensajes();
    siNoHay(form, QStringLiteral("pbPrimeroClick"), [&form](Component *) {
        if (Dataset *ds = principal(form))
            ds->First();
    });
    siNoHay(form, QStringLiteral("pbUltimoClick"), [&form](Component *) {
        if (Dataset *ds = principal(form))
            ds->Last();
    });
    siNoHay(form, QStringLiteral("pbAnteriorClick"), [&form, &m](Component *) {
        Dataset *ds = principal(form);
        if (!ds)
            return;
        ds->Prior();
        if (ds->Bof())
            m.MensajeI(QStringLiteral("Está Vd. en el primer registro"));
    });
    siNoHay(form, QStringLiteral("pbSiguienteClick"), [&form, &m](Component *) {
        Dataset *ds = principal(form);
        if (!ds)
            return;
        ds->Next();
        if (ds->Eof())
            m.MensajeI(QStringLiteral("Está Vd. en el último registro"));
    });
    siNoHay(form, QStringLiteral("AgregarClick"), [&form, familia](Component *) {
        if (Dataset *ds = principal(form))
            alta(form, *ds, familia);
    });
    siNoHay(form, QStringLiteral("Eliminar1Click"), [&form, &m](Component *) {
        Dataset *ds = principal(form);
        if (!ds || ds->State() != DatasetState::Browse || ds->IsEmpty())
            return;
        if (m.MensajeC(QStringLiteral("¿ Está seguro de querer eliminar el registro ?")) != u"SI")
            return;
        try {
            ds->Delete();
        } catch (const std::exception &) {
            m.MensajeA(QStringLiteral("¡ Este registro no puede eliminarse !"));
            Abort();
        }
    });
    siNoHay(form, QStringLiteral("pbConformeClick"), [&form, &rutinas, familia](Component *) {
        // A refused post stops the event chain with the record as it was left.
        if (Dataset *ds = principal(form); ds && !GrabarDatos(form, *ds, rutinas, familia))
            Abort();
    });
    siNoHay(form, QStringLiteral("pbCancelarClick"), [&form](Component *) {
        if (Dataset *ds = principal(form))
            ds->Cancel();
    });
    if (familia == FamiliaFormulario::MaestroRejilla)
        siNoHay(form, QStringLiteral("Table1BeforeEdit"), [&form, &m](Component *) {
            auto *grid = form.Find<DBGrid>(QStringLiteral("DBGrid1"));
            Field *f = grid ? grid->SelectedField() : nullptr;
            if (f && grid->DataSet()->IndexFields().contains(f->FieldName(), Qt::CaseInsensitive)) {
                m.MensajeA(QStringLiteral("¡ No se puede modificar la clave del registro !"));
                Abort();
            }
        });
    siNoHay(form, QStringLiteral("DataSource1StateChange"), [&form](Component *) {
        Dataset *ds = principal(form);
        ConmutarBotones(form, ds && ds->IsPending());
    });
}

} // namespace co::forms
