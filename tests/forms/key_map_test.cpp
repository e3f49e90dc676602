// The key map of the record screens on a grid master and on a form of data
// edits, headless, on both back-ends: focus moves of Enter with the key check,
// duplication, the keypad point, the record clipboard, the group copy, value
// clearing, coded texts, the keys that run the form's own handlers, and keys
// whose windows are not set.
#include "forms/field_search.h"
#include "forms/focus_moves.h"
#include "screen_fixture.h"

namespace co::forms::test {
namespace {

const QString kRango = QStringLiteral("¡ El valor debe estar entre 1 y 9999 !");
const QString kYaExiste = QStringLiteral("¡ Ya existe el registro !");

class KeyMap : public ScreenTest {
protected:
    // A new record in the grid with `texto` typed in the key column.
    void nuevaClave(const QString &texto) {
        form_->SelectColumn(*grid_, 0);
        table_->Append();
        if (!texto.isEmpty())
            table_->FieldByName(QStringLiteral("Codigo")).SetAsString(texto);
    }
    // A form of data edits on `PRUOBRA`, "Edit<field>" for each field given.
    Table &fichaObra(Form &form, const QStringList &campos) {
        auto &t = form.Add<Table>(*datos_, QStringLiteral("Table1"), QStringLiteral("PRUOBRA"));
        auto &ds = form.Add<DataSource>(QStringLiteral("DataSource1"), &t);
        for (const QString &c : campos)
            form.Add<DataControl>(ComponentKind::DBEdit, QStringLiteral("Edit") + c, &ds, c);
        return t;
    }
};

TEST(KeystrokeLog, KeepsCharactersAndOneSeparatorAndIsBounded) {
    EstadoTeclado e;
    e.RegistrarPulsacion({Qt::Key_A, Qt::NoModifier});
    e.RegistrarPulsacion({Qt::Key_7, Qt::NoModifier});
    e.RegistrarPulsacion({Qt::Key_C, Qt::ControlModifier});
    e.RegistrarPulsacion({Qt::Key_Return, Qt::NoModifier});
    e.RegistrarPulsacion({Qt::Key_X, Qt::ShiftModifier});
    e.RegistrarPulsacion({Qt::Key_F2, Qt::NoModifier}); // code 113 is within 40..122: "q"
    EXPECT_EQ(e.Pulsaciones, QStringLiteral("A7|q"));
    e.RegistrarPulsacion({Qt::Key_Space, Qt::NoModifier});
    EXPECT_EQ(e.UltimaPalabra(), QStringLiteral("q"));
    EXPECT_EQ(e.UltimaTecla, 32);
    e.RegistrarPulsacion({Qt::Key_Period, Qt::KeypadModifier});
    EXPECT_EQ(e.UltimaTecla, 110);
    e.Pulsaciones = QString(10001, u'A');
    e.RegistrarPulsacion({Qt::Key_B, Qt::NoModifier});
    EXPECT_EQ(e.Pulsaciones, QStringLiteral("B")) << "a log past 10000 is emptied first";
}

TEST_P(KeyMap, EnterMovesAlongTheGridAndKeyChecksRunOnLeavingTheKey) {
    incidencia(1, QStringLiteral("Lluvia"));
    table_->First();
    ASSERT_TRUE(pulsar(Qt::Key_Return));
    EXPECT_EQ(grid_->SelectedIndex, 1);
    EXPECT_EQ(form_->ActiveControl(), grid_);

    // Empty key in a new record: dropped without a word.
    nuevaClave({});
    EXPECT_TRUE(pulsar(Qt::Key_Return));
    EXPECT_EQ(table_->State(), DatasetState::Browse);
    EXPECT_EQ(grid_->SelectedIndex, 0);
    EXPECT_TRUE(messages_.texts().isEmpty()) << messages_.texts().join(u'\n').toStdString();
    EXPECT_EQ(filas(QStringLiteral("INCIDENC")), 1);

    for (const char *malo : {"0", "10000"}) {
        messages_.clear();
        table_->Cancel();
        nuevaClave(QString::fromLatin1(malo));
        pulsar(Qt::Key_Return);
        EXPECT_EQ(messages_.texts(), QStringList{kRango}) << malo;
        EXPECT_EQ(grid_->SelectedIndex, 0) << malo;
        EXPECT_EQ(table_->State(), DatasetState::Insert) << "the record stays pending";
    }
    table_->Cancel();
    messages_.clear();
    nuevaClave(QStringLiteral("9999"));
    pulsar(Qt::Key_Return);
    EXPECT_TRUE(messages_.texts().isEmpty());
    EXPECT_EQ(grid_->SelectedIndex, 1);

    table_->Cancel();
    nuevaClave(QStringLiteral("1"));
    pulsar(Qt::Key_Return);
    EXPECT_EQ(messages_.texts(), QStringList{kYaExiste});
    EXPECT_EQ(grid_->SelectedIndex, 0) << "the focus stays on the key";
    EXPECT_EQ(table_->FieldByName(QStringLiteral("Codigo")).AsInteger(), 1);
}

TEST_P(KeyMap, LastColumnGoesToTheNextRecordAndMemosKeepTheirEnter) {
    incidencia(1, QStringLiteral("Lluvia"));
    incidencia(2, QStringLiteral("Viento"));
    table_->First();
    form_->SelectColumn(*grid_, grid_->Columns.size() - 1);
    pulsar(Qt::Key_Enter);
    EXPECT_EQ(grid_->SelectedIndex, 0);
    EXPECT_EQ(table_->FieldByName(QStringLiteral("Codigo")).AsInteger(), 2);

    Component &memo = form_->AddControl(ComponentKind::Memo, QStringLiteral("Memo1"));
    form_->SetFocus(&memo);
    EXPECT_FALSE(pulsar(Qt::Key_Return)) << "a new line in a memo";
    EXPECT_EQ(ProcesarCaracterForm(*form_, *rutinas_, u'\r', Tecla{Qt::Key_Return, {}}),
              QChar(u'\r'));
    EXPECT_EQ(form_->ActiveControl(), &memo);
}

TEST_P(KeyMap, CtrlF5TogglesDuplicationAndDuplicationCopiesAllButTheKey) {
    EXPECT_TRUE(pulsar(Qt::Key_F5, Qt::ControlModifier));
    EXPECT_EQ(agregar_->Caption, QStringLiteral("&Agregar con Duplicación"));
    EXPECT_TRUE(agregar_->Checked);
    pulsar(Qt::Key_F5, Qt::ControlModifier);
    EXPECT_EQ(agregar_->Caption, QStringLiteral("&Agregar"));
    EXPECT_FALSE(agregar_->Checked);

    incidencia(3, QStringLiteral("Avería de grúa"), QStringLiteral("NO"));
    table_->Refresh();
    table_->First();
    table_->Append();
    EXPECT_TRUE(table_->FieldByName(QStringLiteral("Descripcion")).IsNull())
        << "no duplication while unchecked";
    table_->Cancel();

    pulsar(Qt::Key_F5, Qt::ControlModifier);
    table_->First();
    table_->Append();
    EXPECT_TRUE(table_->FieldByName(QStringLiteral("Codigo")).IsNull());
    EXPECT_EQ(table_->FieldByName(QStringLiteral("Descripcion")).AsString(),
              QStringLiteral("Avería de grúa"));
    EXPECT_EQ(table_->FieldByName(QStringLiteral("Imputable")).AsString(), QStringLiteral("NO"));
    EXPECT_EQ(table_->FieldByName(QStringLiteral("Tipo")).AsString(), QStringLiteral("Parada"));
    table_->FieldByName(QStringLiteral("Codigo")).SetAsInteger(4);
    table_->Post();
    EXPECT_EQ(consulta(QStringLiteral(
                  "SELECT Codigo, Descripcion, Imputable FROM INCIDENC ORDER BY Codigo")),
              (QStringList{QStringLiteral("3|Avería de grúa|NO"),
                           QStringLiteral("4|Avería de grúa|NO")}));
}

TEST_P(KeyMap, KeypadPointBecomesCommaOrColonAsTheFieldAsks) {
    Form form(QStringLiteral("fPRUOBRA"));
    Table &t = fichaObra(form, {QStringLiteral("HoraInicio"), QStringLiteral("Importe")});
    Component &hora = *form.FindComponent(QStringLiteral("EditHoraInicio"));
    Component &importe = *form.FindComponent(QStringLiteral("EditImporte"));
    t.Open();
    const Tecla punto{Qt::Key_Period, Qt::KeypadModifier};
    const Tecla puntoPrincipal{Qt::Key_Period, Qt::NoModifier};
    form.SetFocus(&hora);
    EXPECT_EQ(ProcesarCaracterForm(form, *rutinas_, u'.', punto), QChar(u':'));
    form.SetFocus(&importe);
    EXPECT_EQ(ProcesarCaracterForm(form, *rutinas_, u'.', punto), QChar(u','));
    EXPECT_EQ(ProcesarCaracterForm(form, *rutinas_, u'.', puntoPrincipal), QChar(u'.'));
    EXPECT_EQ(ProcesarCaracterForm(form, *rutinas_, u'7', Tecla{Qt::Key_7, Qt::KeypadModifier}),
              QChar(u'7'));
    sesion_->Teclado().DesactivarPuntoPorComaDecimal = QStringLiteral("SI");
    EXPECT_EQ(ProcesarCaracterForm(form, *rutinas_, u'.', punto), QChar(u'.'));
    form.SetFocus(&hora);
    EXPECT_EQ(ProcesarCaracterForm(form, *rutinas_, u'.', punto), QChar(u':'))
        << "hours keep the colon";

    // Carriage return outside a grid moves on and is swallowed.
    EXPECT_TRUE(ProcesarCaracterForm(form, *rutinas_, u'\r', Tecla{Qt::Key_Return, {}}).isNull());
    EXPECT_EQ(form.ActiveControl(), &importe);
}

// A chapter-like code: the second element of the key chosen, searched within
// the record's works; F2 and a double click on the data edit both run it.
TEST_P(KeyMap, DeclaredSearchFillsItsCodeFieldWithTheElementAsked) {
    ok(QStringLiteral("INSERT INTO PRUOBRA (CodigoObra, Nombre) VALUES ('4', 'Puente')"));
    Form form(QStringLiteral("fPRUOBRA"));
    Table &t = fichaObra(form, {QStringLiteral("Nombre"), QStringLiteral("Importe")});
    Component &nombre = *form.FindComponent(QStringLiteral("EditNombre"));
    Component &importe = *form.FindComponent(QStringLiteral("EditImporte"));
    form.DeclararBusqueda(t, QStringLiteral("nombre"),
                          {QStringLiteral("PRULINEA"), 1, [&t] {
                               return QStringLiteral("CodigoObra = ") +
                                      t.FieldByName(QStringLiteral("CodigoObra")).AsString();
                           }});
    t.Open();
    QStringList pedidas;
    ResultadoBusqueda respuesta = QStringList{QStringLiteral("4"), QStringLiteral("Tramo 2")};
    rutinas_->Ventanas.BuscarEnTabla = [&](const QString &tabla, const QString &restriccion) {
        pedidas << tabla + u'/' + restriccion;
        return respuesta;
    };
    form.SetFocus(&nombre);
    EXPECT_TRUE(pulsarEn(form, Qt::Key_F2));
    EXPECT_EQ(pedidas, QStringList{QStringLiteral("PRULINEA/CodigoObra = 4")});
    EXPECT_EQ(t.State(), DatasetState::Edit);
    EXPECT_EQ(t.FieldByName(QStringLiteral("Nombre")).AsString(), QStringLiteral("Tramo 2"));

    // Cancelled, or a key shorter than the element asked: the field keeps its value.
    for (const ResultadoBusqueda &r :
         {ResultadoBusqueda(), ResultadoBusqueda(QStringList{QStringLiteral("4")})}) {
        respuesta = r;
        EXPECT_TRUE(DobleClic(form, *rutinas_, nombre));
        EXPECT_EQ(t.FieldByName(QStringLiteral("Nombre")).AsString(), QStringLiteral("Tramo 2"));
    }
    EXPECT_EQ(pedidas.size(), 3);
    // A field with no search declared is no double click of the form's.
    EXPECT_FALSE(DobleClic(form, *rutinas_, importe));
    // The form's own handler wins over the declaration.
    form.SetHandler(QStringLiteral("BuscarDatosDBEdit"),
                    [&pedidas](Component *c) { pedidas << c->Name(); });
    pulsarEn(form, Qt::Key_F2);
    EXPECT_EQ(pedidas.last(), QStringLiteral("EditNombre"));
    EXPECT_EQ(pedidas.size(), 4);
}

TEST_P(KeyMap, RecordClipboardPastesByPositionAndLeavesIndexFieldsAlone) {
    incidencia(5, QStringLiteral("Helada"), QStringLiteral("NO"));
    table_->Refresh();
    table_->First();
    EXPECT_TRUE(pulsar(Qt::Key_C, Qt::ControlModifier | Qt::AltModifier));
    EXPECT_EQ(sesion_->Teclado().Portapapeles, QStringLiteral("5|Helada|NO|Parada|"));

    ok(QStringLiteral("INSERT INTO PRULINEA (CodigoObra, Linea, Texto) VALUES ('8', '2', 'x')"));
    Form lineas(QStringLiteral("fPRULINEA"));
    auto &t = lineas.Add<Table>(*datos_, QStringLiteral("Table1"), QStringLiteral("PRULINEA"));
    auto &ds = lineas.Add<DataSource>(QStringLiteral("DataSource1"), &t);
    auto &grid = lineas.Add<DBGrid>(QStringLiteral("DBGrid1"), &ds);
    t.Open();
    grid.DefaultColumns();
    lineas.SetFocus(&grid);
    pulsarEn(lineas, Qt::Key_V, Qt::ControlModifier | Qt::AltModifier);
    EXPECT_EQ(t.State(), DatasetState::Browse) << "pasting wants a pending dataset";
    EXPECT_EQ(t.FieldByName(QStringLiteral("Texto")).AsString(), QStringLiteral("x"));
    t.Edit();
    pulsarEn(lineas, Qt::Key_V, Qt::ControlModifier | Qt::AltModifier);
    EXPECT_EQ(t.FieldByName(QStringLiteral("CodigoObra")).AsInteger(), 8);
    EXPECT_EQ(t.FieldByName(QStringLiteral("Linea")).AsInteger(), 2);
    EXPECT_EQ(t.FieldByName(QStringLiteral("Texto")).AsString(), QStringLiteral("NO"));

    // An empty dataset copies an empty clipboard, and pasting it changes nothing.
    t.Cancel();
    ok(QStringLiteral("DELETE FROM INCIDENC"));
    table_->Refresh();
    pulsar(Qt::Key_C, Qt::ControlModifier | Qt::AltModifier);
    EXPECT_TRUE(sesion_->Teclado().Portapapeles.isEmpty());
}

TEST_P(KeyMap, TheKeyboardStateBelongsToItsSession) {
    incidencia(5, QStringLiteral("Helada"), QStringLiteral("NO"));
    table_->Refresh();
    table_->First();
    TfGENEINIC otra(settings_, &messages_);
    pulsar(Qt::Key_A);
    EXPECT_TRUE(pulsar(Qt::Key_C, Qt::ControlModifier | Qt::AltModifier));
    EXPECT_EQ(sesion_->Teclado().Portapapeles, QStringLiteral("5|Helada|NO|Parada|"));
    EXPECT_EQ(sesion_->Teclado().UltimaTecla, static_cast<int>(Qt::Key_C));
    EXPECT_TRUE(otra.Teclado().Portapapeles.isEmpty());
    EXPECT_TRUE(otra.Teclado().Pulsaciones.isEmpty());
    EXPECT_EQ(otra.Teclado().UltimaTecla, 0);
}

TEST_P(KeyMap, ShiftF5CopiesTheFieldOfTheLastRecordOfTheKeyGroup) {
    const std::tuple<int, int, const char *> filasLinea[] = {
        {1, 1, "uno"}, {1, 2, "dos"}, {2, 1, "otra"}};
    for (const auto &[obra, linea, texto] : filasLinea)
        ok(QStringLiteral("INSERT INTO PRULINEA (CodigoObra, Linea, Texto) VALUES ('%1', '%2', "
                          "'%3')")
               .arg(obra)
               .arg(linea)
               .arg(QString::fromLatin1(texto)));
    Form lineas(QStringLiteral("fPRULINEA"));
    auto &t = lineas.Add<Table>(*datos_, QStringLiteral("Table1"), QStringLiteral("PRULINEA"));
    auto &ds = lineas.Add<DataSource>(QStringLiteral("DataSource1"), &t);
    auto &grid = lineas.Add<DBGrid>(QStringLiteral("DBGrid1"), &ds);
    t.Open();
    grid.DefaultColumns();
    lineas.SetFocus(&grid);
    lineas.SelectColumn(grid, 2);
    pulsarEn(lineas, Qt::Key_F5, Qt::ShiftModifier);
    EXPECT_EQ(t.State(), DatasetState::Browse) << "only on a pending dataset";
    t.Append();
    t.FieldByName(QStringLiteral("CodigoObra")).SetAsInteger(1);
    t.FieldByName(QStringLiteral("Linea")).SetAsInteger(3);
    EXPECT_TRUE(pulsarEn(lineas, Qt::Key_F5, Qt::ShiftModifier));
    EXPECT_EQ(t.FieldByName(QStringLiteral("Texto")).AsString(), QStringLiteral("dos"))
        << "the last line of works 1, not of the table";
}

TEST_P(KeyMap, CtrlIClearsTheFieldAndARefusalLosesNothing) {
    incidencia(6, QStringLiteral("Nieve"));
    table_->Refresh();
    table_->First();
    form_->SelectColumn(*grid_, 1);
    EXPECT_TRUE(pulsar(Qt::Key_I, Qt::ControlModifier));
    EXPECT_EQ(table_->State(), DatasetState::Edit);
    EXPECT_TRUE(table_->FieldByName(QStringLiteral("Descripcion")).IsNull());
    table_->Cancel();
    form_->SelectColumn(*grid_, 0);
    pulsar(Qt::Key_I, Qt::ControlModifier);
    EXPECT_EQ(table_->FieldByName(QStringLiteral("Codigo")).AsInteger(), 0) << "a number gets 0";
    table_->Cancel();

    table_->ReadOnly = true;
    messages_.clear();
    form_->SelectColumn(*grid_, 1);
    pulsar(Qt::Key_I, Qt::ControlModifier);
    EXPECT_EQ(messages_.texts(), QStringList{QStringLiteral(
                                     "¡Ud. no tiene autorización para realizar modificaciones!")});
    EXPECT_EQ(table_->State(), DatasetState::Browse);
    EXPECT_EQ(table_->FieldByName(QStringLiteral("Descripcion")).AsString(),
              QStringLiteral("Nieve"));
}

TEST_P(KeyMap, CtrlTExpandsCodedTextsFromTheControlOrTheKeystrokeLog) {
    ok(QStringLiteral("INSERT INTO TEXTO (Codigo, Tipo, Texto) VALUES ('LLU', 'Normal', 'Lluvia "
                      "intensa')"));
    ok(QStringLiteral("INSERT INTO TEXTO (Codigo, Tipo, Texto) VALUES ('PLA', 'Plantilla', "
                      "'Hola <n>')"));
    Component &edit = form_->AddControl(ComponentKind::Edit, QStringLiteral("Edit1"));
    form_->SetFocus(&edit);
    edit.Text = QStringLiteral("LLU");
    EXPECT_TRUE(pulsar(Qt::Key_T, Qt::ControlModifier));
    EXPECT_EQ(edit.Text, QStringLiteral("Lluvia intensa"));

    edit.Text = QStringLiteral("NADA");
    pulsar(Qt::Key_T, Qt::ControlModifier);
    EXPECT_EQ(edit.Text, QStringLiteral("NADA")) << "no search window: the text stays";
    QStringList buscado;
    rutinas_->Ventanas.BuscarEnTabla = [&](const QString &tabla, const QString &) {
        buscado << tabla;
        return ResultadoBusqueda(QStringList{QStringLiteral("PLA")});
    };
    rutinas_->Ventanas.Plantilla = [](const QString &codigo, const QString &texto) {
        return codigo + u':' + QString(texto).replace(QStringLiteral("<n>"), QStringLiteral("Ana"));
    };
    pulsar(Qt::Key_T, Qt::ControlModifier);
    EXPECT_EQ(buscado, QStringList{QStringLiteral("TEXTO")});
    EXPECT_EQ(edit.Text, QStringLiteral("PLA:Hola Ana"));

    // In a grid the code is what was typed last.
    incidencia(7, QStringLiteral("x"));
    table_->Refresh();
    table_->First();
    form_->SetFocus(grid_);
    form_->SelectColumn(*grid_, 1);
    for (int k : {Qt::Key_L, Qt::Key_L, Qt::Key_U})
        pulsar(k);
    pulsar(Qt::Key_T, Qt::ControlModifier);
    EXPECT_EQ(table_->FieldByName(QStringLiteral("Descripcion")).AsString(),
              QStringLiteral("Lluvia intensa"));
}

TEST_P(KeyMap, KeysRunTheFormsOwnHandlersAndButtons) {
    QStringList log;
    for (const char *h :
         {"pbBusquedaEspecialClick", "DocumentacionElectronica1Click", "DBGrid1EditButtonClick",
          "BuscarDatosDBEdit", "IralPaneldeControl1Click"})
        form_->SetHandler(QString::fromLatin1(h), [&log, h](Component *sender) {
            log << QString::fromLatin1(h) + u'@' + (sender ? sender->Name() : QStringLiteral("-"));
        });
    EXPECT_TRUE(pulsar(Qt::Key_B, Qt::ControlModifier)) << "Ctrl+B with no button does nothing";
    EXPECT_FALSE(pulsar(Qt::Key_D, Qt::ControlModifier)) << "Ctrl+D needs the menu item";
    form_->AddControl(ComponentKind::Button, QStringLiteral("pbBusquedaEspecial"));
    form_->AddControl(ComponentKind::MenuItem, QStringLiteral("DocumentacionElectronica1"));
    pulsar(Qt::Key_B, Qt::ControlModifier);
    pulsar(Qt::Key_D, Qt::ControlModifier);
    pulsar(Qt::Key_Return, Qt::ControlModifier);
    pulsar(Qt::Key_F3);
    EXPECT_EQ(log, (QStringList{
                       QStringLiteral("pbBusquedaEspecialClick@pbBusquedaEspecial"),
                       QStringLiteral("DocumentacionElectronica1Click@DocumentacionElectronica1"),
                       QStringLiteral("DBGrid1EditButtonClick@DBGrid1"),
                       QStringLiteral("IralPaneldeControl1Click@-")}));
    Component &grabar = form_->AddControl(ComponentKind::Button, QStringLiteral("pbGrabar"));
    pulsar(Qt::Key_F3);
    EXPECT_EQ(form_->ActiveControl(), &grabar);
    Component &aceptar = form_->AddControl(ComponentKind::Button, QStringLiteral("pbAceptar"));
    pulsar(Qt::Key_F3);
    EXPECT_EQ(form_->ActiveControl(), &aceptar);

    // F2 on a text column runs the grid's double click; on a plain edit the form's search.
    log.clear();
    form_->SetHandler(QStringLiteral("DBGrid1DblClick"),
                      [&log](Component *) { log << QStringLiteral("DblClick"); });
    form_->SetFocus(grid_);
    form_->SelectColumn(*grid_, 1);
    pulsar(Qt::Key_F2);
    form_->SetFocus(&form_->AddControl(ComponentKind::Edit, QStringLiteral("EditBuscar")));
    pulsar(Qt::Key_F2);
    EXPECT_EQ(log, (QStringList{QStringLiteral("DblClick"),
                                QStringLiteral("BuscarDatosDBEdit@EditBuscar")}));
}

TEST_P(KeyMap, GridKeysToggleSelectionAndRestoreColumns) {
    const int columnas = grid_->Columns.size();
    grid_->Columns.removeLast();
    grid_->SelectedIndex = 2;
    EXPECT_TRUE(pulsar(Qt::Key_H, Qt::ControlModifier));
    EXPECT_EQ(grid_->Columns.size(), columnas);
    EXPECT_EQ(grid_->SelectedIndex, 0);
    EXPECT_TRUE(pulsar(Qt::Key_S, Qt::ControlModifier));
    EXPECT_TRUE(grid_->MultiSelect);
    pulsar(Qt::Key_S, Qt::ControlModifier);
    EXPECT_FALSE(grid_->MultiSelect);
}

// A window not in this build says so, once per key; a window set gets the record.
TEST_P(KeyMap, WindowsNotSetSayTheyAreNotAvailableAndSetOnesGetTheRecord) {
    incidencia(8, QStringLiteral("Niebla"));
    table_->Refresh();
    table_->First();
    const std::pair<int, Qt::KeyboardModifiers> teclas[] = {
        {Qt::Key_Z, Qt::ControlModifier}, {Qt::Key_Plus, Qt::ControlModifier | Qt::KeypadModifier},
        {Qt::Key_R, Qt::ControlModifier}, {Qt::Key_G, Qt::ControlModifier},
        {Qt::Key_L, Qt::ControlModifier}, {Qt::Key_A, Qt::ControlModifier},
        {Qt::Key_P, Qt::ControlModifier}, {Qt::Key_M, Qt::ControlModifier},
        {Qt::Key_F8, Qt::NoModifier},     {Qt::Key_F2, Qt::NoModifier}};
    for (const auto &[k, m] : teclas)
        pulsar(k, m);
    // Ctrl+A, Ctrl+P, Ctrl+M and F8 do not apply here (no access log, no printed
    // form code, no messaging, no administrator); F2 on the key finds no window.
    const QString noDisponible =
        QStringLiteral("Esta función aún no está disponible en esta versión.");
    EXPECT_EQ(messages_.texts(), QStringList(5, noDisponible))
        << "Ctrl+Z, Ctrl+numeric plus, Ctrl+R, Ctrl+G and Ctrl+L";
    messages_.clear();

    QStringList log;
    rutinas_->Ventanas.VisorCampos = [&](Dataset &d) { log << QStringLiteral("Z:") + d.Name(); };
    rutinas_->VisorCamposUsuario = [&](Dataset &d) { log << QStringLiteral("+:") + d.Name(); };
    rutinas_->ResponsabilidadDocumental = [&](Dataset &d) {
        log << QStringLiteral("R:") + d.Name();
    };
    rutinas_->Ventanas.ConfigurarRejilla = [&](DBGrid &g) {
        log << QStringLiteral("G:") + g.Name();
    };
    rutinas_->Ventanas.DialogoFuente = [&](Component &c) {
        log << QStringLiteral("L:") + c.Name();
    };
    for (const auto &[k, m] : teclas)
        pulsar(k, m);
    EXPECT_EQ(log, (QStringList{QStringLiteral("Z:Table1"), QStringLiteral("+:Table1"),
                                QStringLiteral("R:Table1"), QStringLiteral("G:DBGrid1"),
                                QStringLiteral("L:DBGrid1")}));
    log.clear();
    table_->Edit();
    pulsar(Qt::Key_Plus, Qt::ControlModifier | Qt::KeypadModifier);
    EXPECT_TRUE(log.isEmpty()) << "user fields only in Browse";
    table_->Cancel();

    // The font dialog is for grids and multi-line texts only.
    Component &edit = form_->AddControl(ComponentKind::Edit, QStringLiteral("EditNombre"));
    form_->SetFocus(&edit);
    EXPECT_FALSE(pulsar(Qt::Key_L, Qt::ControlModifier));
    Component &memo = form_->AddControl(ComponentKind::Memo, QStringLiteral("MemoNotas"));
    form_->SetFocus(&memo);
    EXPECT_TRUE(pulsar(Qt::Key_L, Qt::ControlModifier));
    EXPECT_EQ(log, QStringList{QStringLiteral("L:MemoNotas")});
    EXPECT_TRUE(messages_.texts().isEmpty()) << messages_.texts().join(u'\n').toStdString();
}

TEST_P(KeyMap, F8InAdministratorModeCollectsControlsAndGridColumns) {
    pulsar(Qt::Key_F8);
    EXPECT_TRUE(sesion_->Teclado().ControlesSeleccionados.lista().isEmpty())
        << "only in administrator mode";
    rutinas_->ModoAdministrador = true;
    messages_.answer(QStringLiteral("SI"));
    pulsar(Qt::Key_F8);
    grid_->SelectedIndex = 1;
    messages_.answer(QStringLiteral("NO"));
    pulsar(Qt::Key_F8);
    EXPECT_EQ(sesion_->Teclado().ControlesSeleccionados.lista(),
              (QStringList{QStringLiteral("TfPRUINCI.DBGrid1"),
                           QStringLiteral("TfPRUINCI.DBGrid1.Descripcion")}));
    DBGrid &suelta = form_->Add<DBGrid>(QStringLiteral("DBGrid2"));
    form_->SetFocus(&suelta);
    messages_.clear();
    messages_.answer(QStringLiteral("NO"));
    pulsar(Qt::Key_F8);
    EXPECT_EQ(messages_.texts().value(1),
              QStringLiteral("¡No ha sido agregada la columna a la lista de controles!. Intente "
                             "activar los datos asociados a la rejilla."));
}

CO_ON_BOTH_BACKENDS(KeyMap);

} // namespace
} // namespace co::forms::test
