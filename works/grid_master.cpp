#include "works/grid_master.h"

#include "core/general_parameters_table.h"
#include "core/session.h"
#include "forms/dataset_errors.h"

namespace co::works {

using namespace co::forms;

namespace {
const QString kSi = QStringLiteral("SI");

QString S(const char *text) {
    return QString::fromUtf8(text);
}
} // namespace

QString TituloMenuFicha() {
    return QStringLiteral("&Ficha");
}

QStringList ElementosMenuFicha() {
    return {QStringLiteral("Agregar"), QStringLiteral("Eliminar1"),
            QStringLiteral("CancelarEdicion1"), QStringLiteral("Cerrar1")};
}

QString ParametroGeneral(TModuloDatos &datos, const QString &campo) {
    const auto registro = LeerParametrosGenerales(datos);
    return registro ? registro->value(campo).toString() : QString();
}

MaestroRejilla::MaestroRejilla(TModuloDatos &datos, DeclaracionMaestro declaracion)
    : Form(declaracion.nombre, declaracion.titulo), datos_(datos),
      declaracion_(std::move(declaracion)), rutinas_(datos) {
    declarar();
}

MaestroRejilla::~MaestroRejilla() {
    for (forms::Dataset *d : Datasets())
        d->Close();
}

Messenger &MaestroRejilla::Mensajes() const {
    return datos_.sesion().mensajes();
}

void MaestroRejilla::declarar() {
    table1_ = &Add<Table>(datos_, QStringLiteral("Table1"), declaracion_.tabla);
    source1_ = &Add<DataSource>(QStringLiteral("DataSource1"), table1_);
    grid1_ = &Add<DBGrid>(QStringLiteral("DBGrid1"), source1_);
    grid1_->Columns = declaracion_.columnas;
    const QList<QPair<const char *, const char *>> botones = {
        {"pbAgregar", "&Agregar"},    {"pbEliminar", "&Eliminar"}, {"pbConforme", "&Conforme"},
        {"pbCancelar", "C&ancelar"},  {"pbPrimero", "Primero"},    {"pbAnterior", "Anterior"},
        {"pbSiguiente", "Siguiente"}, {"pbUltimo", "Último"},      {"pbSalir", "&Salir"}};
    for (const auto &[nombre, titulo] : botones)
        AddControl(ComponentKind::Button, QString::fromLatin1(nombre), S(titulo));
    const QList<QPair<const char *, const char *>> menu = {{"Agregar", "&Agregar"},
                                                           {"Eliminar1", "&Eliminar"},
                                                           {"CancelarEdicion1", "Cancelar Edición"},
                                                           {"Cerrar1", "&Cerrar"}};
    for (const auto &[nombre, titulo] : menu)
        AddControl(ComponentKind::MenuItem, QString::fromLatin1(nombre), S(titulo));

    auto en = [this](const char *nombre, std::function<void()> accion) {
        SetHandler(QString::fromLatin1(nombre), [accion](Component *) { accion(); });
    };
    en("pbAgregarClick", [this] { CallHandler(QStringLiteral("AgregarClick")); });
    en("AgregarClick", [this] {
        SetFocus(grid1_);
        table1_->Append();
    });
    en("pbEliminarClick", [this] { eliminar(); });
    en("Eliminar1Click", [this] { eliminar(); });
    en("pbConformeClick", [this] { grabarDatos(); });
    en("GrabarDatos", [this] { grabarDatos(); });
    en("pbCancelarClick", [this] { table1_->Cancel(); });
    en("CancelarEdicion1Click", [this] { table1_->Cancel(); });
    en("pbPrimeroClick", [this] { table1_->First(); });
    en("pbUltimoClick", [this] { table1_->Last(); });
    en("pbAnteriorClick", [this] {
        table1_->Prior();
        if (table1_->Bof())
            Mensajes().MensajeI(S("Está Vd. en el primer registro"));
    });
    en("pbSiguienteClick", [this] {
        table1_->Next();
        if (table1_->Eof())
            Mensajes().MensajeI(S("Está Vd. en el último registro"));
    });
    en("pbSalirClick", [this] { Close(); });
    en("Cerrar1Click", [this] { Close(); });
    en("FormCloseQuery", [this] { rutinas_.ConfirmarCierreForm(*this); });

    en("Table1BeforeEdit", [this] {
        if (grid1_->SelectedIndex == columnaClave() && ActiveControl() == grid1_) {
            Mensajes().MensajeA(S("¡ No se puede modificar la clave del registro !"));
            Abort();
        }
    });
    en("Table1NewRecord", [this] { ValoresIniciales(); });
    en("Table1CalcFields", [this] { CalcularCampos(); });
    en("Table1BeforePost", [this] {
        for (int i = 0; i < grid1_->Columns.size(); ++i)
            comprobarListas(i);
        if (!ValidacionWinControl(nullptr))
            Abort();
        AntesGrabar();
    });
    en("Table1AfterPost", [this] { rutinas_.DespuesGrabarRegistro(*table1_); });
    en("Table1BeforeDelete", [this] { rutinas_.AntesEliminarRegistro(*table1_); });
    SetHandler(QStringLiteral("DBGrid1ColExit"), [this](Component *sender) {
        comprobarListas(grid1_->SelectedIndex);
        if (grid1_->SelectedIndex == columnaClave())
            comprobarClave(sender);
        else if (table1_->IsPending() && !ValidacionWinControl(grid1_))
            Abort();
    });
    SetEvent(*grid1_, QStringLiteral("OnColExit"), QStringLiteral("DBGrid1ColExit"));
    // The key column finds a record of the master; a code column searches its own table.
    en("DBGrid1DblClick", [this] {
        Field *f = grid1_->SelectedField();
        if (!f)
            return;
        if (grid1_->SelectedIndex == columnaClave()) {
            if (rutinas_.Ventanas.BuscarRegistro)
                rutinas_.Ventanas.BuscarRegistro(*table1_);
        } else if (const QString tabla = TablaDeBusqueda(f->FieldName()); !tabla.isEmpty()) {
            BuscarCodigo(*table1_, f->FieldName(), tabla);
        }
    });
    en("DataSource1StateChange", [this] { cambioEstado(); });
    ConectarEventos();
    cambioEstado();
}

bool MaestroRejilla::Abrir(AperturaTablas &apertura) {
    FormularioTablas tablas = Tablas();
    if (!apertura.AbrirTablasForm(tablas))
        return false;
    source1_->AutoEdit = true;
    cambioEstado();
    return true;
}

QString MaestroRejilla::TablaDeBusqueda(const QString &) const {
    return {};
}

void MaestroRejilla::BuscarCodigo(forms::Dataset &dataset, const QString &campo, const QString &tabla) {
    if (!rutinas_.Ventanas.BuscarEnTabla)
        return;
    const QString codigo = rutinas_.Ventanas.BuscarEnTabla(tabla).section(u';', 0, 0);
    if (codigo.isEmpty())
        return;
    if (dataset.IsEmpty() && !dataset.IsPending())
        dataset.Append();
    else if (!dataset.IsPending())
        dataset.Edit();
    dataset.FieldByName(campo).SetAsString(codigo);
}

bool MaestroRejilla::ValidacionWinControl(Component *) {
    return true;
}

int MaestroRejilla::columnaClave() const {
    for (int i = 0; i < grid1_->Columns.size(); ++i)
        if (grid1_->Columns[i].FieldName.compare(declaracion_.campoClave, Qt::CaseInsensitive) == 0)
            return i;
    return -1;
}

void MaestroRejilla::comprobarClave(Component *sender) {
    Field &clave = table1_->FieldByName(declaracion_.campoClave);
    rutinas_.ComprobarClave(
        {*this, *table1_, clave, grid1_, FamiliaFormulario::MaestroRejilla, false, sender,
         [this](Component *c) { return ValidacionWinControl(c); }, [this] { grabarDatos(); }});
}

// A column with permitted values accepts only one of them; an empty value is
// left to the key check and the required fields.
void MaestroRejilla::comprobarListas(int columna) {
    if (columna < 0 || columna >= grid1_->Columns.size() || !table1_->IsPending())
        return;
    const GridColumn &c = grid1_->Columns[columna];
    if (c.PickList.isEmpty() || ActiveControl() == FindComponent(QStringLiteral("pbCancelar")))
        return;
    Field *f = table1_->FindField(c.FieldName);
    if (!f || f->IsNull() || c.PickList.contains(f->AsString()))
        return;
    Mensajes().MensajeA(S("¡ El valor \"") + f->AsString() + S("\" de la columna \"") + c.Title +
                        S("\" no es correcto !"));
    grid1_->SelectedIndex = columna;
    Abort();
}

void MaestroRejilla::grabarDatos() {
    const DatasetState estado = table1_->State();
    if (estado == DatasetState::Edit) {
        try {
            table1_->Post();
        } catch (const EDatabaseError &) {
            Mensajes().MensajeA(TextoModificacionFallida);
            table1_->Cancel();
            Abort();
        }
    } else if (estado == DatasetState::Insert) {
        try {
            table1_->Post();
        } catch (const EDatabaseError &) {
            Mensajes().MensajeA(S("¡ Este registro ya existe !"));
            table1_->Cancel();
            Abort();
        }
        // Entry goes on with the next new record.
        SetFocus(grid1_);
        table1_->Append();
    }
}

void MaestroRejilla::eliminar() {
    if (table1_->State() != DatasetState::Browse || table1_->IsEmpty())
        return;
    if (Mensajes().MensajeC(S("¿ Está seguro de querer eliminar el registro ?")) != kSi)
        return;
    try {
        table1_->Delete();
    } catch (const EDatabaseError &) {
        Mensajes().MensajeA(S("¡ Este registro no puede eliminarse !"));
        Abort();
    }
}

// The button switch: editing enables confirm and cancel, browsing the rest.
void MaestroRejilla::cambioEstado() {
    const bool editando = table1_->IsPending();
    for (const char *n : {"pbConforme", "pbCancelar", "CancelarEdicion1"})
        if (Component *c = FindComponent(QString::fromLatin1(n)))
            c->Enabled = editando;
    for (const char *n : {"pbEliminar", "Eliminar1", "pbAgregar", "Agregar", "Cerrar1"})
        if (Component *c = FindComponent(QString::fromLatin1(n)))
            c->Enabled = !editando;
}

void MaestroRejilla::OcultarPreciosVenta() {
    // A works parameter: with only percentages in use no sale price is kept.
    const QString soloPorcentajes = datos_.EjecutarSQL(
        QStringLiteral("SELECT AdmPorPorcentajes FROM PARAOBRA WHERE IdRegistro = 1"), {}, QStringLiteral("Silenciosa"));
    if (soloPorcentajes != kSi)
        return;
    for (GridColumn &c : grid1_->Columns)
        if (c.FieldName.startsWith(QStringLiteral("PrecioVenta"), Qt::CaseInsensitive))
            c.Visible = false;
}

} // namespace co::works
