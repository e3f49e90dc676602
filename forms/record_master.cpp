#include "forms/record_master.h"

#include "core/general_parameters_table.h"
#include "core/session.h"
#include "forms/key_actions.h"
#include "forms/multiple_delete.h"
#include "forms/numbered_document.h"
#include "forms/pick_list_check.h"
#include "forms/record_copy.h"
#include "forms/standard_handlers.h"

namespace co::forms {

QList<Boton> BotonesRegistro() {
    return {{QStringLiteral("pbAgregar"), QStringLiteral("&Agregar")},
            {QStringLiteral("pbEliminar"), QStringLiteral("&Eliminar")},
            {QStringLiteral("pbConforme"), QStringLiteral("&Conforme")},
            {QStringLiteral("pbCancelar"), QStringLiteral("C&ancelar")},
            {QStringLiteral("pbPrimero"), QStringLiteral("Primero")},
            {QStringLiteral("pbAnterior"), QStringLiteral("Anterior")},
            {QStringLiteral("pbSiguiente"), QStringLiteral("Siguiente")},
            {QStringLiteral("pbUltimo"), QStringLiteral("Último")},
            {QStringLiteral("pbSalir"), QStringLiteral("&Salir")}};
}

QList<Boton> BotonesDialogo() {
    return {{QStringLiteral("pbGrabar"), QStringLiteral("&Grabar")},
            {QStringLiteral("pbCancelar"), QStringLiteral("&Cancelar")}};
}

QString TituloMenuFicha() {
    return QStringLiteral("&Ficha");
}

QList<Boton> MenuFicha() {
    return {{QStringLiteral("Agregar"), QStringLiteral("&Agregar")},
            {QStringLiteral("Eliminar1"), QStringLiteral("&Eliminar")},
            {QStringLiteral("CancelarEdicion1"), QStringLiteral("Cancelar Edición")},
            {QStringLiteral("Buscar"), QStringLiteral("&Buscar...")},
            {QStringLiteral("FiltrarRegistros1"), QStringLiteral("&Filtrar Registros...")},
            {QStringLiteral("EliminacionMultiple1"), QStringLiteral("Eliminación &Múltiple")},
            {QStringLiteral("CopiarRegistrosaOtrasEmpresas1"),
             QStringLiteral("C&opiar Registros a Otras Empresas...")},
            {QStringLiteral("Refrescar1"), QStringLiteral("&Refrescar")},
            {QStringLiteral("ListadoProgramable1"), QStringLiteral("Listado &Programable...")},
            {QStringLiteral("FormatoOriginal1"), QStringLiteral("Imprimir Formato &Original...")},
            {QStringLiteral("APaginaCompleta1"), QStringLiteral("Imprimir a Página &Completa...")},
            {QStringLiteral("Cerrar1"), QStringLiteral("&Cerrar")}};
}

QStringList ElementosMenuFicha() {
    QStringList out;
    for (const Boton &b : MenuFicha())
        out << b.nombre;
    return out;
}

QString ParametroGeneral(TModuloDatos &datos, const QString &campo) {
    const auto registro = LeerParametrosGenerales(datos);
    return registro ? registro->value(campo).toString() : QString();
}

MaestroTabla::MaestroTabla(TModuloDatos &datos, const QString &nombre, const QString &titulo,
                           const QString &tabla, FamiliaFormulario familia,
                           const QList<Boton> &botones, const QList<Boton> &menu)
    : Form(nombre, titulo), datos_(datos), familia_(familia), rutinas_(datos) {
    table1_ = &Add<Table>(datos_, QStringLiteral("Table1"), tabla);
    source1_ = &Add<DataSource>(QStringLiteral("DataSource1"), table1_);
    for (const Boton &b : botones)
        AddControl(ComponentKind::Button, b.nombre, b.titulo);
    for (const Boton &m : menu)
        AddControl(ComponentKind::MenuItem, m.nombre, m.titulo);

    ManejadoresEstandar(*this, rutinas_, familia_);
    auto en = [this](const char *nombre, std::function<void()> accion) {
        SetHandler(QString::fromLatin1(nombre), [accion](Component *) { accion(); });
    };
    en("pbConformeClick", [this] { GrabarDatos(); });
    en("GrabarDatos", [this] { GrabarDatos(); });
    en("pbGrabarClick", [this] {
        GrabarDatos();
        Close();
    });
    en("pbAgregarClick", [this] { CallHandler(QStringLiteral("AgregarClick")); });
    en("pbEliminarClick", [this] { CallHandler(QStringLiteral("Eliminar1Click")); });
    en("CancelarEdicion1Click", [this] { CallHandler(QStringLiteral("pbCancelarClick")); });
    en("pbSalirClick", [this] { Close(); });
    en("Cerrar1Click", [this] { Close(); });
    en("FormCloseQuery", [this] { rutinas_.ConfirmarCierreForm(*this); });
    // The record current when the new one began is the one "Agregar con
    // Duplicación" copies.
    en("Table1BeforeInsert",
       [this] { claveAnterior_ = table1_->IsEmpty() ? QString() : rutinas_.TextoClave(*table1_); });
    en("Table1NewRecord", [this] {
        const Component *agregar = FindComponent(QStringLiteral("Agregar"));
        if (agregar && agregar->Caption == QStringLiteral("&Agregar con Duplicación") &&
            !claveAnterior_.isEmpty())
            DuplicarRegistro(*table1_, claveAnterior_);
        ValoresIniciales();
        if (!campoNumero_.isEmpty())
            NumeroNuevo(*table1_, campoNumero_);
    });
    en("Table1CalcFields", [this] { CalcularCampos(); });
    en("Table1BeforePost", [this] {
        ComprobarListasAlGrabar();
        if (!Validar(nullptr))
            Abort();
        if (!campoNumero_.isEmpty())
            ReasignarNumeroRepetido(*table1_, campoNumero_, rutinas_);
        AntesGrabar();
    });
    en("Table1AfterPost", [this] { rutinas_.DespuesGrabarRegistro(*table1_); });
    en("Table1BeforeDelete", [this] { rutinas_.AntesEliminarRegistro(*table1_); });
    en("ListadoProgramable1Click", [this] { ListadoProgramable(*table1_); });
    en("Buscar1Click", [this] {
        if (table1_->IsPending())
            return;
        if (rutinas_.Ventanas.BuscarRegistro)
            rutinas_.Ventanas.BuscarRegistro(*table1_);
        else
            FuncionNoDisponible(rutinas_);
    });
    // The filter window and the copy to other companies are not in this build.
    en("FiltrarRegistros1Click", [this] { FuncionNoDisponible(rutinas_); });
    en("CopiarRegistrosaOtrasEmpresas1Click", [this] { FuncionNoDisponible(rutinas_); });
    en("EliminacionMultiple1Click", [this] {
        if (!table1_->IsPending())
            EliminacionMultiple(*table1_, Mensajes());
    });
    en("pbRefrescarClick", [this] {
        if (!table1_->IsPending())
            table1_->Refresh();
    });
    auto imprimir = [this](bool paginaCompleta) {
        if (rutinas_.Ventanas.ImprimirFormulario)
            rutinas_.Ventanas.ImprimirFormulario(paginaCompleta);
        else
            FuncionNoDisponible(rutinas_);
    };
    en("FormatoOriginal1Click", [imprimir] { imprimir(false); });
    en("APaginaCompleta1Click", [imprimir] { imprimir(true); });
    if (Component *buscar = FindComponent(QStringLiteral("Buscar")))
        SetEvent(*buscar, QStringLiteral("OnClick"), QStringLiteral("Buscar1Click"));
    if (Component *refrescar = FindComponent(QStringLiteral("Refrescar1")))
        SetEvent(*refrescar, QStringLiteral("OnClick"), QStringLiteral("pbRefrescarClick"));
    ConectarEventos();
    ConmutarBotones(*this, false);
}

MaestroTabla::~MaestroTabla() {
    // The screen's own part is gone by now: closing must not reach its handlers.
    for (Dataset *d : Datasets()) {
        d->SetHandler(QStringLiteral("OnStateChange"), {});
        d->SetDataChangeHandler({});
        d->Close();
    }
}

Messenger &MaestroTabla::Mensajes() const {
    return datos_.sesion().mensajes();
}

bool MaestroTabla::Abrir(AperturaTablas &apertura) {
    FormularioTablas tablas = Tablas();
    if (!apertura.AbrirTablasForm(tablas))
        return false;
    source1_->AutoEdit = true;
    CallHandler(QStringLiteral("DataSource1StateChange"), source1_);
    const bool abierto = rutinas_.Ejecutar([this] { DespuesAbrir(); });
    // The columns as the screen stated them, for Ctrl+H after the user changed them.
    for (Component *c : Components())
        if (auto *grid = dynamic_cast<DBGrid *>(c)) {
            SetHandler(
                grid->Name() + QStringLiteral("RestaurarColumnas"),
                [grid, declaradas = grid->Columns](Component *) { grid->Columns = declaradas; });
        }
    return abierto;
}

bool MaestroTabla::ValidacionWinControl(Component *) {
    return true;
}

void MaestroTabla::DeclararExistencia(const QString &campo, const QString &tabla,
                                      const QString &mensaje) {
    existencias_.append({campo, tabla, mensaje});
}

bool MaestroTabla::Validar(Component *sender) {
    const Field *dejado = nullptr;
    if (auto *grid = dynamic_cast<DBGrid *>(sender))
        dejado = grid->DataSet() == table1_ ? grid->SelectedField() : nullptr;
    else if (auto *control = dynamic_cast<DataControl *>(sender))
        dejado = control->DataSet() == table1_ ? control->BoundField() : nullptr;
    for (const Existencia &e : existencias_) {
        if (sender && (!dejado || dejado->FieldName().compare(e.campo, Qt::CaseInsensitive) != 0))
            continue;
        const Field &codigo = table1_->FieldByName(e.campo);
        if (codigo.IsNull() || codigo.AsString().isEmpty() ||
            rutinas_.ExisteClaveTabla(e.tabla, codigo.AsString()))
            continue;
        Mensajes().MensajeA(e.mensaje);
        return false;
    }
    return ValidacionWinControl(sender);
}

void MaestroTabla::DeclararDescripcion(Dataset &dataset, const QString &campoCodigo,
                                       const QString &tabla,
                                       const QList<CampoDescripcion> &campos) {
    QStringList origen;
    for (const CampoDescripcion &c : campos) {
        dataset.AddCalculatedField(c.calculado, TipoCampo::ftString, c.ancho);
        origen << c.campoTabla;
    }
    AlEvento(dataset, EventoDatos::CalcFields,
             [this, &dataset, campoCodigo, tabla, origen, campos](Component *) {
                 const Field &codigo = dataset.FieldByName(campoCodigo);
                 QStringList valores;
                 if (!codigo.IsNull() && !codigo.AsString().isEmpty())
                     if (const auto v = datos_.BuscarValores(tabla, codigo.AsString(), origen))
                         valores = *v;
                 for (int i = 0; i < campos.size(); ++i)
                     dataset.FieldByName(campos[i].calculado).SetAsString(valores.value(i));
             });
}

void MaestroTabla::ComprobarColumnasLista(DBGrid &grid, int columna) {
    if (!grid.DataSet() || !grid.DataSet()->IsPending() ||
        ActiveControl() == FindComponent(QStringLiteral("pbCancelar")))
        return;
    const int desde = columna < 0 ? 0 : columna;
    const int hasta = columna < 0 ? int(grid.Columns.size()) : columna + 1;
    for (int i = desde; i < hasta; ++i)
        if (!ComprobarColumnaLista(grid, i, Mensajes())) {
            grid.SelectedIndex = i;
            Abort();
        }
}

void MaestroTabla::ListadoProgramable(Dataset &dataset) {
    if (rutinas_.Ventanas.ListadoProgramable)
        rutinas_.Ventanas.ListadoProgramable(dataset);
}

void MaestroTabla::GrabarDatos() {
    if (!forms::GrabarDatos(*this, *table1_, rutinas_, familia_, TextoModificacionFallida))
        Abort();
}

} // namespace co::forms
