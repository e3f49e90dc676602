#include "forms/form_preparation.h"

#include "core/hidden_controls.h"
#include "core/keystroke_log.h"
#include "core/rights.h"
#include "core/session.h"
#include "core/users.h"
#include "forms/form.h"
#include "forms/maintenance_routines.h"
#include "forms/multiple_delete.h"
#include "forms/table.h"

namespace co::forms {
namespace {

void soloLectura(Form &form, RutinasFormulario &rutinas, const OpcionesPreparacion &o) {
    if (!o.derechosActivos)
        return;
    TModuloDatos &datos = rutinas.Datos();
    if (NivelAccesoPrograma(datos, datos.sesion().CodigoUsuario, form.Caption) != kNivelSoloLectura)
        return;
    for (Dataset *ds : form.Datasets())
        if (dynamic_cast<Table *>(ds))
            ds->ReadOnly = true;
}

void manejadoresComunes(Form &form, RutinasFormulario &rutinas) {
    for (Dataset *ds : form.Datasets()) {
        if (!ds->AvisoValorCampo)
            ds->AvisoValorCampo = [&rutinas](const QString &texto) {
                rutinas.Datos().sesion().mensajes().MensajeA(texto);
            };
        auto *table = dynamic_cast<Table *>(ds);
        if (!table || table->TableName().isEmpty())
            continue;
        if (!ds->HasHandler(QStringLiteral("AfterPost")))
            ds->SetHandler(QStringLiteral("AfterPost"),
                           [&rutinas](Dataset &d) { rutinas.DespuesGrabarRegistro(d); });
        if (!ds->HasHandler(QStringLiteral("BeforeDelete")))
            ds->SetHandler(QStringLiteral("BeforeDelete"),
                           [&rutinas](Dataset &d) { rutinas.AntesEliminarRegistro(d); });
    }
    if (!form.HasHandler(QStringLiteral("FormCloseQuery")))
        form.SetHandler(QStringLiteral("FormCloseQuery"),
                        [&form, &rutinas](Component *) { rutinas.ConfirmarCierreForm(form); });
    if (!rutinas.EliminarDatosAsociados) {
        TModuloDatos &datos = rutinas.Datos();
        rutinas.EliminarDatosAsociados = [&datos](Table &t) {
            return co::forms::EliminarDatosAsociados(datos, t);
        };
    }
}

void ocultarControles(Form &form, RutinasFormulario &rutinas, const OpcionesPreparacion &o) {
    TModuloDatos &datos = rutinas.Datos();
    const ControlesNoVisibles ocultos = ControlesNoVisibles::Leer(
        datos, datos.sesion().CodigoUsuario, o.modoAdministrador, o.modoControlesNoVisibles);
    const QString clase = ClaseFormulario(form);
    for (Component *c : form.Components()) {
        if (o.modoAdministrador)
            c->Hint = NombreControl(clase, c->Name());
        if (ocultos.lista().isEmpty())
            continue;
        if (ocultos.ControlOculto(clase, c->Name()))
            c->Visible = false;
        auto *grid = dynamic_cast<DBGrid *>(c);
        Dataset *ds = grid ? grid->DataSet() : nullptr;
        if (!ds)
            continue;
        for (GridColumn &col : grid->Columns)
            if (ocultos.ColumnaOculta(clase, grid->Name(), ds->Name(), col.FieldName))
                col.Visible = false;
    }
}

void documentosYBusquedas(Form &form, RutinasFormulario &rutinas, const OpcionesPreparacion &o) {
    auto *table = form.Find<Table>(QStringLiteral("Table1"));
    if (o.documentacionElectronica && table &&
        form.FindComponent(QStringLiteral("DocumentacionElectronica1")) &&
        !table->HasHandler(QStringLiteral("AfterScroll")))
        table->SetHandler(QStringLiteral("AfterScroll"), [&form, &rutinas](Dataset &) {
            if (rutinas.Ventanas.DocumentosAbiertos && rutinas.Ventanas.DocumentosAbiertos())
                form.Click(QStringLiteral("DocumentacionElectronica1"));
        });
    const QString busqueda = QStringLiteral("BusquedaPorAsociacion");
    for (Component *c : form.Components()) {
        if (c->Kind() != ComponentKind::Edit ||
            !form.EventHandler(*c, QStringLiteral("OnDblClick")).isEmpty())
            continue;
        form.SetEvent(*c, QStringLiteral("OnDblClick"), busqueda);
        if (!form.HasHandler(busqueda))
            form.SetHandler(busqueda, [&rutinas](Component *sender) {
                if (sender && rutinas.Ventanas.BusquedaAsociacion)
                    rutinas.Ventanas.BusquedaAsociacion(*sender);
            });
    }
}

} // namespace

QString ClaseFormulario(const Form &form) {
    return QStringLiteral("T") + form.Name;
}

void AplicarFormatosForm(Form &form, const FormatosNumericos &formatos) {
    for (Dataset *ds : form.Datasets()) {
        AplicarFormatos(*ds, formatos);
        if (Field *cambio = ds->FindField(QStringLiteral("Cambio")))
            cambio->Alignment = Qt::AlignLeft;
    }
}

void PrepararForm(Form &form, RutinasFormulario &rutinas, const OpcionesPreparacion &o) {
    AplicarFormatosForm(form, o.formatos);
    soloLectura(form, rutinas, o);
    manejadoresComunes(form, rutinas);
    QString punto;
    TModuloDatos &datos = rutinas.Datos();
    ValorUsuario(datos, datos.sesion().CodigoUsuario,
                 QStringLiteral("DesactivarPuntoPorComaDecimal"), punto, QStringLiteral("NO"));
    datos.sesion().Teclado().DesactivarPuntoPorComaDecimal =
        punto.isEmpty() ? QStringLiteral("NO") : punto;
    if (Component *previa = form.FindComponent(QStringLiteral("VisualizacionPrevia")))
        previa->Checked = o.visualizacionPrevia;
    rutinas.ModoAdministrador = o.modoAdministrador;
    rutinas.DerechosUsuarioActivos = o.derechosActivos;
    rutinas.RegistroAccesosActivado = o.registroAccesos;
    rutinas.ResponsabilidadDocumentalActivada = o.responsabilidadDocumental;
    rutinas.MensajeriaInterna = o.mensajeriaInterna;
    ocultarControles(form, rutinas, o);
    documentosYBusquedas(form, rutinas, o);
}

} // namespace co::forms
