#include "forms/lines_master.h"

#include "core/session.h"
#include "forms/standard_handlers.h"

namespace co::forms {

MaestroConLineas::MaestroConLineas(TModuloDatos &datos, DeclaracionFicha cabecera,
                                   DeclaracionLineas lineas)
    : MaestroFicha(datos, std::move(cabecera)), lineas_(std::move(lineas)) {
    table2_ = &Add<Table>(datos, QStringLiteral("Table2"), lineas_.tabla);
    source2_ = &Add<DataSource>(QStringLiteral("DataSource2"), table2_);
    grid2_ = &Add<DBGrid>(QStringLiteral("DBGrid2"), source2_);
    grid2_->Columns = lineas_.columnas;

    auto en = [this](const char *nombre, std::function<void()> accion) {
        SetHandler(QString::fromLatin1(nombre), [accion](Component *) { accion(); });
    };
    // The sender is the source when the record changed, nothing when a field did.
    SetHandler(QStringLiteral("DataSource1DataChange"), [this](Component *sender) {
        if (sender)
            enlazarLineas();
    });
    // A pending line is confirmed like a pending header; the lines follow the
    // header from the moment their table opens.
    en("DataSource2StateChange", [this] {
        ConmutarBotones(*this, Table1().IsPending() || table2_->IsPending());
        if (table2_->State() == DatasetState::Browse && !table2_->HasRange())
            enlazarLineas();
    });
    en("Table2BeforeInsert", [this] {
        if (claveCabecera().contains(QVariant()))
            Abort();
        enlazarLineas();
    });
    en("Table2NewRecord", [this] {
        const QStringList campos = Table1().PrimaryKey();
        const QVariantList clave = claveCabecera();
        for (int i = 0; i < campos.size(); ++i)
            table2_->FieldByName(campos[i]).SetValue(clave[i]);
        table2_->FieldByName(lineas_.campoLinea).SetAsInteger(Datos().SiguienteNumero(*table2_));
        ValoresInicialesLinea();
    });
    SetHandler(QStringLiteral("DBGrid2ColExit"),
               [this](Component *sender) { salidaColumna(sender); });
    SetEvent(*grid2_, QStringLiteral("OnColExit"), QStringLiteral("DBGrid2ColExit"));
    en("Table2BeforePost", [this] {
        ComprobarColumnasLista(*grid2_);
        if (!ValidacionLinea(nullptr)) {
            Mensajes().MensajeA(QStringLiteral("¡ La línea no ha sido grabada !"));
            Abort();
        }
    });
    en("Table2AfterPost", [this] { Rutinas().DespuesGrabarRegistro(*table2_); });
    en("Table2BeforeDelete", [this] { Rutinas().AntesEliminarRegistro(*table2_); });
    en("Table1BeforeCancel", [this] { cancelarCabecera(); });
    en("DBGrid2KeyDown", [this] { eliminarLinea(); });
    en("Eliminar1Click", [this] { eliminarCabecera(); });
    en("pbConformeClick", [this] {
        if (Table1().IsPending())
            GrabarDatos();
        else
            grabarLinea();
    });
    en("GrabarDatos", [this] { CallHandler(QStringLiteral("pbConformeClick")); });
    en("ListadoProgramable1Click", [this] {
        const QString lineas = Mensajes().MensajeC(
            QStringLiteral("¿Desea realizar el Listado Programable de las Líneas?"));
        ListadoProgramable(lineas == u"SI" ? *table2_ : Table1());
    });
    ConectarEventos();
}

// The header's key values, null where not yet given.
QVariantList MaestroConLineas::claveCabecera() {
    QVariantList clave;
    for (const QString &campo : Table1().PrimaryKey()) {
        const QVariant v = Table1().FieldByName(campo).Value();
        clave << (v.toString().isEmpty() ? QVariant() : v);
    }
    return clave;
}

void MaestroConLineas::enlazarLineas() {
    if (!table2_->Active())
        return;
    const QVariantList clave = claveCabecera();
    table2_->SetRange(clave, clave);
}

void MaestroConLineas::AntesGrabar() {
    grabarLinea();
}

bool MaestroConLineas::ValidacionLinea(Component *) {
    return true;
}

// The line's number column is its key: checked as a grid master's key, the
// line's validator in the place of the form's.
void MaestroConLineas::salidaColumna(Component *sender) {
    if (!table2_->IsPending())
        return;
    ComprobarColumnasLista(*grid2_, grid2_->SelectedIndex);
    const Field *linea = grid2_->SelectedField();
    if (!linea || linea->FieldName().compare(lineas_.campoLinea, Qt::CaseInsensitive) != 0) {
        if (!ValidacionLinea(grid2_))
            Abort();
        return;
    }
    Rutinas().ComprobarClave({*this, *table2_, table2_->FieldByName(lineas_.campoLinea), grid2_,
                              FamiliaFormulario::MaestroRejilla, false, sender,
                              [this](Component *c) { return ValidacionLinea(c); },
                              [this] { grabarLinea(); }});
}

void MaestroConLineas::grabarLinea() {
    if (!table2_->IsPending())
        return;
    try {
        table2_->Post();
    } catch (const EValorCampo &e) {
        // Nothing typed is lost: the line stays pending for correction.
        Mensajes().MensajeA(e.Texto());
        Abort();
    } catch (const EDatabaseError &) {
        Mensajes().MensajeA(QStringLiteral("¡ No se puede grabar la línea porque está bloqueada "
                                           "por otro usuario o porque el dato introducido no es "
                                           "válido !"));
        table2_->Cancel();
        Abort();
    }
}

void MaestroConLineas::eliminarLinea() {
    if (table2_->IsEmpty() && !table2_->IsPending())
        return;
    if (Mensajes().MensajeC(QStringLiteral("¿ Está seguro de querer eliminar la linea ?")) != u"SI")
        return;
    try {
        // A line never posted is only dropped.
        const bool nueva = table2_->State() == DatasetState::Insert;
        if (table2_->IsPending())
            table2_->Cancel();
        if (!nueva)
            table2_->Delete();
    } catch (const std::exception &) {
        Mensajes().MensajeA(QStringLiteral("¡ Se ha producido un error eliminando la linea !"));
        Abort();
    }
}

void MaestroConLineas::eliminarCabecera() {
    if (Table1().State() != DatasetState::Browse || Table1().IsEmpty())
        return;
    if (Mensajes().MensajeC(QStringLiteral(
            "¿Está seguro de querer eliminar el registro y todas sus líneas?")) != u"SI")
        return;
    bool hecho = false;
    {
        TransaccionGuard transaccion(Datos().sesion(), Table1().ConnectionWord());
        try {
            for (table2_->First(); !table2_->IsEmpty();)
                table2_->Delete();
            Table1().Delete();
            hecho = transaccion.commit();
        } catch (const std::exception &) {
        }
    }
    if (hecho)
        return;
    // What was deleted before the failure came back with the rollback.
    Table1().Refresh();
    table2_->Refresh();
    Mensajes().MensajeA(QStringLiteral("¡ Se ha producido un error eliminando el registro !"));
    Abort();
}

void MaestroConLineas::cancelarCabecera() {
    const bool nueva = Table1().State() == DatasetState::Insert;
    if (table2_->IsPending())
        table2_->Cancel();
    if (!nueva || ActiveControl() == CampoClave() || claveCabecera().contains(QVariant()))
        return;
    // Lines may have been written under a header that is now dropped.
    if (Rutinas().ExisteClave(Table1(), Rutinas().TextoClave(Table1())))
        return;
    enlazarLineas();
    for (table2_->First(); !table2_->IsEmpty();)
        table2_->Delete();
}

} // namespace co::forms
