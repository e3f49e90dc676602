#include "forms/key_map.h"

#include "forms/focus_moves.h"
#include "forms/form.h"
#include "forms/key_actions.h"
#include "forms/maintenance_routines.h"
#include "forms/record_copy.h"
#include "forms/table.h"

namespace co {

using namespace co::forms;

namespace {

constexpr Qt::KeyboardModifiers kMods =
    Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;

bool es(const Tecla &t, int key, Qt::KeyboardModifiers mods) {
    return t.key == key && (t.modifiers & kMods) == mods;
}

const QString kAgregar = QStringLiteral("&Agregar");
const QString kAgregarDuplicando = QStringLiteral("&Agregar con Duplicación");

bool alternarDuplicacion(Form &form) {
    Component *agregar = form.FindComponent(QStringLiteral("Agregar"));
    if (!agregar)
        return true;
    agregar->Checked = !agregar->Checked;
    agregar->Caption = agregar->Checked ? kAgregarDuplicando : kAgregar;
    return true;
}

DBGrid *rejillaEnfocada(Form &form) {
    return dynamic_cast<DBGrid *>(form.ActiveControl());
}

Dataset *datasetPendiente(DBGrid *grid) {
    Dataset *ds = grid ? grid->DataSet() : nullptr;
    return ds && ds->Active() && ds->IsPending() ? ds : nullptr;
}

bool enfocarAceptar(Form &form) {
    for (const char *nombre : {"pbAceptar", "pbGrabar"})
        if (Component *c = form.FindComponent(QString::fromLatin1(nombre))) {
            form.SetFocus(c);
            return true;
        }
    form.CallHandler(QStringLiteral("IralPaneldeControl1Click"));
    return true;
}

bool teclaRejilla(Form &form, RutinasFormulario &rutinas, const Tecla &t) {
    DBGrid *grid = rejillaEnfocada(form);
    if (!grid)
        return false;
    if (es(t, Qt::Key_F5, Qt::ShiftModifier)) {
        if (Dataset *ds = datasetPendiente(grid)) {
            auto *table = dynamic_cast<Table *>(ds);
            if (Field *f = grid->SelectedField(); table && f)
                CopiarCampoGrupo(*table, *f);
        }
        return true;
    }
    if (es(t, Qt::Key_C, Qt::ControlModifier | Qt::AltModifier)) {
        if (Dataset *ds = grid->DataSet())
            rutinas.Datos().sesion().Teclado().Portapapeles = CopiarRegistro(*ds);
        return true;
    }
    if (es(t, Qt::Key_V, Qt::ControlModifier | Qt::AltModifier)) {
        if (Dataset *ds = datasetPendiente(grid))
            PegarRegistro(*ds, rutinas.Datos().sesion().Teclado().Portapapeles,
                          QStringLiteral("SinIndices"));
        return true;
    }
    if (es(t, Qt::Key_G, Qt::ControlModifier)) {
        if (rutinas.Ventanas.ConfigurarRejilla)
            rutinas.Ventanas.ConfigurarRejilla(*grid);
        else
            FuncionNoDisponible(rutinas);
        return true;
    }
    if (es(t, Qt::Key_H, Qt::ControlModifier)) {
        // The screen's family keeps the columns it declared; a grid of no
        // family gets its dataset's fields.
        if (!form.CallHandler(grid->Name() + QStringLiteral("RestaurarColumnas"), grid))
            grid->DefaultColumns();
        grid->SelectedIndex = 0;
        return true;
    }
    if (es(t, Qt::Key_S, Qt::ControlModifier)) {
        grid->MultiSelect = !grid->MultiSelect;
        return true;
    }
    // A screen deletes the grid's record or line on Ctrl+Delete in its `<Grid>KeyDown`.
    if (es(t, Qt::Key_Delete, Qt::ControlModifier))
        return form.CallHandler(grid->Name() + QStringLiteral("KeyDown"), grid);
    if ((t.key == Qt::Key_Return || t.key == Qt::Key_Enter) &&
        (t.modifiers & kMods) == Qt::ControlModifier) {
        form.CallHandler(grid->Name() + QStringLiteral("EditButtonClick"), grid);
        return true;
    }
    return false;
}

bool teclaDatos(Form &form, RutinasFormulario &rutinas, const Tecla &t) {
    if (es(t, Qt::Key_Z, Qt::ControlModifier)) {
        Dataset *ds = DatasetEnfocado(form);
        if (ds && ds->Active()) {
            if (rutinas.Ventanas.VisorCampos)
                rutinas.Ventanas.VisorCampos(*ds);
            else
                FuncionNoDisponible(rutinas);
        }
        return ds != nullptr;
    }
    if (t.key == Qt::Key_Plus && t.tecladoNumerico() &&
        (t.modifiers & kMods) == Qt::ControlModifier) {
        Dataset *ds = DatasetEnfocado(form);
        if (ds && ds->State() == DatasetState::Browse) {
            if (rutinas.VisorCamposUsuario)
                rutinas.VisorCamposUsuario(*ds);
            else
                FuncionNoDisponible(rutinas);
        }
        return ds != nullptr;
    }
    if (es(t, Qt::Key_R, Qt::ControlModifier)) {
        DBGrid *grid = rejillaEnfocada(form);
        Dataset *ds = grid ? grid->DataSet() : nullptr;
        if (!grid) {
            auto *source = form.Find<DataSource>(QStringLiteral("DataSource1"));
            ds = source ? source->DataSet : nullptr;
            if (ds && ds->State() != DatasetState::Browse)
                ds = nullptr;
        }
        if (ds && ds->Active()) {
            if (rutinas.ResponsabilidadDocumental)
                rutinas.ResponsabilidadDocumental(*ds);
            else
                FuncionNoDisponible(rutinas);
        }
        return ds != nullptr;
    }
    if (es(t, Qt::Key_I, Qt::ControlModifier))
        return VaciarCampo(form);
    if (es(t, Qt::Key_T, Qt::ControlModifier))
        return ExpandirTextoCodificado(form, rutinas);
    if (es(t, Qt::Key_A, Qt::ControlModifier))
        return HistorialRegistro(form, rutinas);
    if (es(t, Qt::Key_P, Qt::ControlModifier))
        return ConfigurarImpreso(form, rutinas);
    return false;
}

bool procesar(Form &form, RutinasFormulario &rutinas, const Tecla &t) {
    Component *foco = form.ActiveControl();
    if ((t.key == Qt::Key_Return || t.key == Qt::Key_Enter) &&
        (t.modifiers & kMods) == Qt::NoModifier) {
        if (EsTextoMultilinea(foco))
            return false;
        if (auto *grid = dynamic_cast<DBGrid *>(foco))
            SiguienteColumna(form, *grid);
        else
            SiguienteControl(form);
        return true;
    }
    if (es(t, Qt::Key_F5, Qt::ControlModifier))
        return alternarDuplicacion(form);
    // Esc is the shortcut of "Cancelar Edición".
    if (es(t, Qt::Key_Escape, Qt::NoModifier)) {
        Component *cancelar = form.FindComponent(QStringLiteral("CancelarEdicion1"));
        if (!cancelar || !cancelar->Enabled)
            return false;
        form.Click(cancelar->Name());
        return true;
    }
    if (teclaRejilla(form, rutinas, t))
        return true;
    if (es(t, Qt::Key_L, Qt::ControlModifier)) {
        if (!foco || !(foco->Kind() == ComponentKind::DBGrid ||
                       foco->Kind() == ComponentKind::StringGrid || EsTextoMultilinea(foco)))
            return false;
        if (rutinas.Ventanas.DialogoFuente)
            rutinas.Ventanas.DialogoFuente(*foco);
        else
            FuncionNoDisponible(rutinas);
        return true;
    }
    if (teclaDatos(form, rutinas, t))
        return true;
    if (es(t, Qt::Key_F2, Qt::NoModifier))
        return BuscarF2(form, rutinas);
    if (es(t, Qt::Key_B, Qt::ControlModifier)) {
        if (form.FindComponent(QStringLiteral("pbBusquedaEspecial")))
            form.Click(QStringLiteral("pbBusquedaEspecial"));
        return true;
    }
    if (es(t, Qt::Key_F8, Qt::NoModifier))
        return OcultarControl(form, rutinas);
    if (es(t, Qt::Key_F3, Qt::NoModifier))
        return enfocarAceptar(form);
    if (es(t, Qt::Key_M, Qt::ControlModifier)) {
        if (!rutinas.MensajeriaInterna)
            return false;
        if (rutinas.Ventanas.Mensajeria)
            rutinas.Ventanas.Mensajeria();
        else
            FuncionNoDisponible(rutinas);
        return true;
    }
    if (es(t, Qt::Key_D, Qt::ControlModifier)) {
        if (!form.FindComponent(QStringLiteral("DocumentacionElectronica1")))
            return false;
        form.Click(QStringLiteral("DocumentacionElectronica1"));
        return true;
    }
    return false;
}

bool esCampoHora(Field *f) {
    return f && f->IsHourField();
}

} // namespace

bool ProcesarTeclaForm(Form &form, RutinasFormulario &rutinas, const Tecla &tecla) {
    rutinas.Datos().sesion().Teclado().RegistrarPulsacion(tecla);
    bool consumida = false;
    // A refusal is told in the system's words; an abort just stops the key.
    rutinas.Ejecutar([&] { consumida = procesar(form, rutinas, tecla); });
    return consumida;
}

QChar ProcesarCaracterForm(Form &form, RutinasFormulario &rutinas, QChar caracter,
                           const Tecla &tecla) {
    Component *foco = form.ActiveControl();
    if (caracter == u'\r') {
        if (EsTextoMultilinea(foco))
            return caracter;
        try {
            if (auto *grid = dynamic_cast<DBGrid *>(foco))
                SiguienteColumna(form, *grid);
            else
                SiguienteControl(form);
        } catch (const EAbort &) {
        } catch (const EDatabaseError &) {
            // Moving off a refused record keeps it pending; the post key tells why.
        }
        return {};
    }
    if (caracter == u'.' && CodigoTeclaVirtual(tecla) == 110) {
        Field *f = CampoEnfocado(form);
        if (esCampoHora(f))
            return u':';
        if (rutinas.Datos().sesion().Teclado().DesactivarPuntoPorComaDecimal != u"SI")
            return u',';
    }
    return caracter;
}

} // namespace co
