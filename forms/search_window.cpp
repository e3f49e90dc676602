#include "forms/search_window.h"

#include "core/connection_words.h"
#include "core/sql_text.h"
#include "core/users.h"
#include "forms/pick_list_check.h"
#include "core/table_catalog.h"
#include "forms/value_filters.h"

namespace co::forms {

namespace {
const QString kDatosBusqueda = QStringLiteral("DatosBusqueda");
const QString kIndicesBusqueda = QStringLiteral("IndicesBusqueda");
const QStringList kModos = {QStringLiteral("BusquedaAproximada"), QStringLiteral("BusquedaParcial"),
                            QStringLiteral("BusquedaFonetica")};
// Rows an unlimited search reads at a time, as the grid asks for them.
constexpr int kPaquete = 100;
} // namespace

QString TextoClaveFila(const Dataset &filas, const QStringList &clave, bool soloUltimoNulo) {
    QStringList presentes;
    for (const QString &c : clave)
        if (filas.FindField(c))
            presentes << c;
    QStringList valores;
    for (int i = 0; i < presentes.size(); ++i) {
        const QString valor = filas.FieldByName(presentes[i]).AsString();
        const bool nulo = valor.isEmpty() && (!soloUltimoNulo || i + 1 == presentes.size());
        valores << (nulo ? QStringLiteral("NULL") : valor);
    }
    return valores.join(QStringLiteral("\r\n"));
}

bool AbrirResultadosBusqueda(Query &filas, const QString &sql, DBGrid &grid,
                             const QString &claseForm, const OpcionesBusqueda &o) {
    filas.SQL = sql;
    try {
        filas.Open();
    } catch (const EDatabaseError &) {
        return false;
    }
    PrepararColumnasBusqueda(grid, claseForm, o);
    return true;
}

void PrepararColumnasBusqueda(DBGrid &grid, const QString &claseForm, const OpcionesBusqueda &o) {
    Dataset *ds = grid.DataSet();
    if (!ds)
        return;
    grid.Columns.clear();
    grid.DefaultColumns();
    for (GridColumn &c : grid.Columns) {
        Field *f = ds->FindField(c.FieldName);
        c.Title = EtiquetaCampo(c.FieldName);
        c.Visible = !o.ocultos.ColumnaOculta(claseForm, grid.Name(), ds->Name(), c.FieldName);
        if (!f)
            continue;
        if (f->Kind() == ColumnKind::Memo)
            c.Width = 200;
        else if (f->IsFloat())
            f->DisplayFormat = FormatoSegunNombre(c.FieldName, o.formatos);
        else if (f->IsDateTime()) {
            c.Width = 10;
            if (f->IsHourField())
                f->DisplayFormat = QStringLiteral("HH:MM:SS");
        }
    }
}

TfGENEBUSQ::TfGENEBUSQ(TModuloDatos &datos, Messenger &mensajes)
    : Form(QStringLiteral("fGENEBUSQ"), QStringLiteral("Buscar")), datos_(datos),
      mensajes_(mensajes) {
    declarar();
}

TfGENEBUSQ::~TfGENEBUSQ() {
    filas_->Close();
}

void TfGENEBUSQ::declarar() {
    dato_ = &AddControl(ComponentKind::Edit, QStringLiteral("DatoABuscar"));
    lista_ = &Add<DataControl>(ComponentKind::ComboBox, QStringLiteral("ListaCamposBusqueda"));
    limite_ = &Add<DataControl>(ComponentKind::ComboBox, QStringLiteral("NumeroMaximoRegistros"));
    limite_->Items = {QStringLiteral("1"), QStringLiteral("10"), QStringLiteral("100"),
                      QStringLiteral("1000"), QStringLiteral("Ilimitado")};
    for (const QString &m : kModos)
        AddControl(ComponentKind::CheckBox, m);
    Find<Component>(kModos[0])->Checked = true;
    AddControl(ComponentKind::CheckBox, QStringLiteral("ResultadosOrdenados"));
    AddControl(ComponentKind::CheckBox, QStringLiteral("MostrarCamposMemo"));
    panel_ = &AddControl(ComponentKind::Panel, QStringLiteral("PanelPersonalizarBusqueda"));
    panel_->Visible = false;
    barra_ = &AddControl(ComponentKind::Label, QStringLiteral("StatusBar1"));
    filas_ = &Add<Query>(datos_, QStringLiteral("ClientDataSet1"));
    filas_->ReadOnly = true;
    auto &fuente = Add<DataSource>(QStringLiteral("DataSource1"), filas_);
    grid_ = &Add<DBGrid>(QStringLiteral("DBGrid1"), &fuente);
    grid_->MemosEnLinea = true;
    const QList<QPair<const char *, const char *>> botones = {
        {"pbPersonalizarBusqueda", "Personalizar"},
        {"pbBuscar", "&Buscar"},
        {"pbConforme", "&Conforme"},
        {"pbCancelar", "C&ancelar"}};
    for (const auto &[nombre, titulo] : botones)
        AddControl(ComponentKind::Button, QString::fromLatin1(nombre), QString::fromUtf8(titulo));
    const QList<QPair<const char *, const char *>> menu = {
        {"LetraPequena", "Letra Pequeña"},
        {"FiltrarRegistrosporValorIguala", "Filtrar Registros por Valor &Igual a..."},
        {"FiltrarRegistrosporValorDesde", "Filtrar Registros por Valor &Desde..."},
        {"FiltrarRegistrosporValorHasta", "Filtrar Registros por Valor &Hasta..."},
        {"FiltrarRegistrosporValoresDesdeHasta1", "Filtrar Registros por Valores Desde/Hasta..."},
        {"CancelarFiltros1", "&Cancelar Filtros"},
        {"ListadoProgramable1", "Listado Programable"}};
    for (const auto &[nombre, titulo] : menu)
        AddControl(ComponentKind::MenuItem, QString::fromLatin1(nombre), QString::fromUtf8(titulo));

    auto en = [this](const char *nombre, std::function<void()> accion) {
        SetHandler(QString::fromLatin1(nombre), [accion](Component *) { accion(); });
    };
    en("pbBuscarClick", [this] { Buscar(); });
    en("DatoABuscarDblClick", [this] { Buscar(); });
    en("pbConformeClick", [this] { Conforme(); });
    en("DBGrid1DblClick", [this] { Conforme(); });
    en("pbCancelarClick", [this] { Cancelar(); });
    en("pbPersonalizarBusquedaClick", [this] {
        if (lista_->Items.isEmpty())
            rellenarListaCampos();
        panel_->Visible = !panel_->Visible;
    });
    en("ListaCamposBusquedaChange", [this] { ActualizarEstado(); });
    en("NumeroMaximoRegistrosChange", [this] { ActualizarEstado(); });
    for (int i = 0; i < kModos.size(); ++i)
        SetHandler(kModos[i] + QStringLiteral("Click"),
                   [this, i](Component *) { ElegirModo(static_cast<ModoBusqueda>(i)); });
    en("MostrarCamposMemoClick", [this] {
        CambiarMostrarMemos(!Find<Component>(QStringLiteral("MostrarCamposMemo"))->Checked);
    });
    en("LetraPequenaClick", [this] { CambiarLetraPequena(); });
    en("FiltrarRegistrosporValorIgualaClick", [this] { filtrar(0); });
    en("FiltrarRegistrosporValorDesdeClick", [this] { filtrar(1); });
    en("FiltrarRegistrosporValorHastaClick", [this] { filtrar(2); });
    en("FiltrarRegistrosporValoresDesdeHasta1Click", [this] {
        filtrar(1);
        filtrar(2);
    });
    en("CancelarFiltros1Click", [this] { quitarFiltros(); });
    en("ListadoProgramable1Click", [this] {
        if (ListadoRapido && filas_->Active())
            ListadoRapido(*filas_, QStringLiteral("Listado de la tabla ") + estado_.tabla,
                          QStringLiteral("L.Tabla"));
    });
}

bool TfGENEBUSQ::general() const {
    return EsTablaGeneral(estado_.tabla);
}

void TfGENEBUSQ::Abrir(const EstadoBusqueda &estado, const OpcionesBusqueda &opciones) {
    estado_ = estado;
    opciones_ = opciones;
    resultado_.reset();
    abierta_ = true;
    limite_->Enabled = datos_.sesion().backend() == Backend::PostgreSQL;
    filas_->Close();
    quitarFiltros();
    grid_->Columns.clear(); // the last search's table is not this one
    Caption = QStringLiteral("Buscar en la tabla") + u' ' + estado_.tabla;
    filas_->DatabaseName = general() ? kConexionGeneral : kConexionEmpresa;
    dato_->Text = estado_.textoInicial;
    SetFocus(dato_);
    lista_->Items.clear();
    lista_->Text.clear();
    columnasSinMemos_.clear();
    ultimaSentencia_.clear();
    limite_->Text = QStringLiteral("100");
    rellenarListaCampos();
    const bool pocas = LimiteBusqueda(limite_->Text, 1000).value_or(1001) <= 50;
    if (general() || !estado_.restriccion.isEmpty() || (!estado_.textoInicial.isEmpty() && pocas))
        Buscar(true);
}

void TfGENEBUSQ::rellenarListaCampos() {
    modoRellenando_ = true;
    const QString primaria = datos_.ClavePrimaria(estado_.tabla);
    QStringList items{primaria};
    QHash<int, QString> &indices = indicesLista_;
    indices = {{0, primaria}};
    for (int n = 2; n < 100; ++n) {
        const QString campos =
            datos_.ClavePrimaria(estado_.tabla, QStringLiteral("Clave%1").arg(n));
        // An index that does not exist answers with the primary key.
        if (campos.isEmpty() || campos == primaria)
            break;
        indices.insert(n, campos);
        items << campos;
    }
    for (const QString &c : datos_.ColumnasTabla(estado_.tabla).split(u';', Qt::SkipEmptyParts))
        if (!items.contains(c, Qt::CaseInsensitive))
            items << c;
    lista_->Items = items;

    QString almacenado;
    if (opciones_.opcionesPorUsuario)
        ValorUsuario(datos_, opciones_.usuario, kDatosBusqueda, almacenado);
    const OpcionesTabla o =
        LeerOpcionesTabla(EntradaOpciones(almacenado, estado_.tabla).value_or(QString()));
    Find<Component>(QStringLiteral("ResultadosOrdenados"))->Checked = o.ordenados;
    Find<Component>(QStringLiteral("MostrarCamposMemo"))->Checked = o.memos;
    const int elegido = std::max<qsizetype>(0, items.indexOf(o.listaCampos));
    lista_->Text = items.value(elegido);
    if (estado_.indice > 0 && indices.contains(estado_.indice))
        lista_->Text = indices.value(estado_.indice);
    if (const qsizetype i = items.indexOf(estado_.campo, Qt::CaseInsensitive);
        !estado_.campo.isEmpty() && i >= 0)
        lista_->Text = items.at(i);
    modoRellenando_ = false;
    ElegirModo(o.modo);
}

void TfGENEBUSQ::ElegirCampos(int n) {
    if (n < 0 || n >= lista_->Items.size())
        return;
    lista_->Text = lista_->Items.at(n);
    ActualizarEstado();
}

void TfGENEBUSQ::ElegirModo(ModoBusqueda modo) {
    for (int i = 0; i < kModos.size(); ++i)
        Find<Component>(kModos[i])->Checked = i == static_cast<int>(modo);
    ActualizarEstado();
}

ModoBusqueda TfGENEBUSQ::Modo() const {
    for (int i = 0; i < kModos.size(); ++i)
        if (Find<Component>(kModos[i])->Checked)
            return static_cast<ModoBusqueda>(i);
    return ModoBusqueda::Aproximada;
}

void TfGENEBUSQ::ActualizarEstado() {
    if (!modoRellenando_)
        barra_->Caption = TextoEstadoBusqueda(Modo(), lista_->Text);
}

void TfGENEBUSQ::CambiarMostrarMemos(bool mostrar) {
    Find<Component>(QStringLiteral("MostrarCamposMemo"))->Checked = mostrar;
    mensajes_.MensajeI(QStringLiteral("Para hacer efectiva esta opción debe escoger algún registro "
                                      "y volver a realizar la búsqueda"));
}

void TfGENEBUSQ::CambiarLetraPequena() {
    Component *item = Find<Component>(QStringLiteral("LetraPequena"));
    item->Checked = !item->Checked;
    for (GridColumn &c : grid_->Columns)
        c.Width = item->Checked ? (c.Width + 1) / 2 : c.Width * 2;
}

QString TfGENEBUSQ::columnasBusqueda() {
    if (!estado_.columnas.isEmpty())
        return estado_.columnas;
    if (Find<Component>(QStringLiteral("MostrarCamposMemo"))->Checked)
        return QStringLiteral("*");
    if (columnasSinMemos_.isEmpty())
        columnasSinMemos_ =
            datos_.ColumnasTabla(estado_.tabla, QStringLiteral("SinMemos")).replace(u';', u',');
    return columnasSinMemos_.isEmpty() ? QStringLiteral("*") : columnasSinMemos_;
}

void TfGENEBUSQ::Buscar(bool automatica) {
    if (lista_->Text.isEmpty())
        return;
    if (dato_->Text.isEmpty())
        ElegirModo(ModoBusqueda::Aproximada);
    PeticionBusqueda p;
    p.tabla = estado_.tabla;
    p.listaCampos = lista_->Text;
    p.dato = dato_->Text;
    p.modo = Modo();
    p.restriccion = estado_.restriccion;
    p.ordenados = Find<Component>(QStringLiteral("ResultadosOrdenados"))->Checked;
    p.columnas = columnasBusqueda();
    p.formatoFechaSQL = datos_.sesion().FormatoFechaSQL;
    for (const DeclaredColumn &c : ColumnasDeclaradas(datos_, estado_.tabla, filas_->DatabaseName))
        if (c.type == TipoCampo::ftString || c.type == TipoCampo::ftMemo)
            p.camposTexto << c.name;
    const std::optional<int> limite = LimiteBusqueda(limite_->Text);
    // Packets need a total order: the key ends it. A table without one is read whole.
    if (!limite)
        p.clave = datos_.ClavePrimaria(estado_.tabla);
    ultimaSentencia_ = limite ? ConLimite(SentenciaBusqueda(p), *limite) : SentenciaBusqueda(p);
    filas_->Close();
    quitarFiltros();
    filas_->PacketRecords = p.clave.isEmpty() ? -1 : kPaquete;
    AbrirResultadosBusqueda(*filas_, ultimaSentencia_, *grid_, QStringLiteral("T") + Name,
                            opciones_);
    if (!filas_->Active() || filas_->IsEmpty()) {
        if (!automatica)
            mensajes_.MensajeI(
                QStringLiteral("No hay datos que coincidan con el criterio de búsqueda"));
        SetFocus(dato_);
        return;
    }
    SetFocus(grid_);
    if (!lista_->Text.contains(u';'))
        for (int i = 2; i < grid_->Columns.size(); ++i)
            if (grid_->Columns[i].FieldName.compare(lista_->Text, Qt::CaseInsensitive) == 0)
                SelectColumn(*grid_, i);
}

// The window's conditions go with the filter text: its base filter is empty.
void TfGENEBUSQ::quitarFiltros() {
    CancelarFiltros(*filas_);
    filas_->SetFilter({});
}

void TfGENEBUSQ::Conforme() {
    const QString texto =
        filas_->Active() && !filas_->IsEmpty()
            ? TextoClaveFila(*filas_,
                             datos_.ClavePrimaria(estado_.tabla).split(u';', Qt::SkipEmptyParts),
                             true)
            : QString();
    if (texto.isEmpty()) {
        cerrar(std::nullopt);
        return;
    }
    guardarOpciones();
    cerrar(texto);
}

void TfGENEBUSQ::Cancelar() {
    cerrar(std::nullopt);
}

void TfGENEBUSQ::cerrar(std::optional<QString> resultado) {
    resultado_ = std::move(resultado);
    filas_->Close();
    abierta_ = false;
}

// Options are kept per user unless rights are off; general tables keep none.
void TfGENEBUSQ::guardarOpciones() {
    if (!opciones_.opcionesPorUsuario || general())
        return;
    guardarEntrada(
        kDatosBusqueda,
        TextoOpcionesTabla({lista_->Text, Modo(),
                            Find<Component>(QStringLiteral("ResultadosOrdenados"))->Checked,
                            Find<Component>(QStringLiteral("MostrarCamposMemo"))->Checked}));
    // The index of the field list chosen is offered first next time: 0 for the
    // primary key, n for `Clave<n>`, -1 for a list that is no index.
    if (!opciones_.desactivarIndicesPorUsuario)
        guardarEntrada(kIndicesBusqueda, QString::number(indicesLista_.key(lista_->Text, -1)));
}

// The table's entry of a user option, written only when it changed.
void TfGENEBUSQ::guardarEntrada(const QString &clave, const QString &valor) {
    QString almacenado;
    ValorUsuario(datos_, opciones_.usuario, clave, almacenado);
    if (EntradaOpciones(almacenado, estado_.tabla) == valor)
        return;
    GuardarValorUsuario(datos_, opciones_.usuario, clave,
                        ConEntradaOpciones(almacenado, estado_.tabla, valor));
}

void TfGENEBUSQ::filtrar(int tipo) {
    Field *f = grid_->SelectedField();
    if (f)
        FiltrarPorValor(*filas_, *f, static_cast<FiltroValor>(tipo), mensajes_);
}

bool TfGENEBUSQ::ProcesarTecla(const Tecla &t) {
    const bool ctrl = t.modifiers.testFlag(Qt::ControlModifier);
    Component *foco = ActiveControl();
    switch (t.key) {
    case Qt::Key_Escape:
        Cancelar();
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (foco == grid_)
            Conforme();
        else if (foco == dato_)
            Buscar();
        else if (foco == lista_ || foco == limite_)
            SetFocus(dato_);
        else
            return false;
        return true;
    case Qt::Key_Tab:
        if (foco != grid_)
            return false;
        SetFocus(FindComponent(QStringLiteral("pbConforme")));
        return true;
    case Qt::Key_F2:
        ElegirCampos(1);
        ElegirModo(ModoBusqueda::Fonetica);
        return true;
    case Qt::Key_F3:
        ElegirModo(Modo() == ModoBusqueda::Aproximada ? ModoBusqueda::Fonetica
                   : Modo() == ModoBusqueda::Fonetica ? ModoBusqueda::Parcial
                                                      : ModoBusqueda::Aproximada);
        return true;
    case Qt::Key_F4:
        CallHandler(QStringLiteral("pbPersonalizarBusquedaClick"));
        return true;
    case Qt::Key_L:
        if (!ctrl || foco != grid_)
            return false;
        if (DialogoFuente)
            DialogoFuente(*grid_);
        return true;
    default:
        break;
    }
    if (ctrl && t.key >= Qt::Key_1 && t.key <= Qt::Key_9) {
        ElegirCampos(t.key - Qt::Key_1);
        return true;
    }
    return false;
}

QChar TfGENEBUSQ::ProcesarCaracter(QChar c, const Tecla &t) {
    if (c == u'.' && t.tecladoNumerico() && ActiveControl() == dato_ &&
        !opciones_.desactivarPuntoPorComa)
        return u',';
    return c;
}

} // namespace co::forms
