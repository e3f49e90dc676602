// The search windows headless: the statement of a search, the options kept per
// user, the keys of the window, the search by approximation and the association
// of plain edits with tables, on both back-ends. The modal run is a script.
#include "forms/search_associations.h"
#include "search_fixture.h"

#include <QDir>
#include <QFile>
#include <algorithm>
#include <gtest/gtest.h>

namespace co::forms {
namespace {

// --- the texts, apart from any database

TEST(SearchText, LastPairIsALowerBoundEarlierPairsAreEqualities) {
    PeticionBusqueda p;
    p.tabla = QStringLiteral("LINEA");
    p.listaCampos = QStringLiteral("Serie;Numero;Linea");
    p.dato = QStringLiteral("12,5");
    p.columnas = QStringLiteral("Serie,Numero");
    EXPECT_EQ(CondicionesBusqueda(p), QStringLiteral(" (Serie = '12') AND  (Numero >= '5') "));
    p.restriccion = QStringLiteral("Serie > 0");
    p.ordenados = true;
    EXPECT_EQ(
        SentenciaBusqueda(p),
        QStringLiteral("SELECT Serie,Numero FROM LINEA WITH(NOLOCK)  WHERE  (Serie = '12') AND  "
                       "(Numero >= '5')  AND (Serie > 0) ORDER BY Serie,Numero,Linea"));
    p.dato.clear();
    p.ordenados = false;
    EXPECT_EQ(SentenciaBusqueda(p),
              QStringLiteral("SELECT Serie,Numero FROM LINEA WITH(NOLOCK)  WHERE Serie > 0"));
    p.restriccion.clear();
    EXPECT_EQ(SentenciaBusqueda(p), QStringLiteral("SELECT Serie,Numero FROM LINEA WITH(NOLOCK) "));
}

TEST(SearchText, PartialMatchesByStartAndPhoneticAnywhereQuotesDoubled) {
    PeticionBusqueda p;
    p.listaCampos = QStringLiteral("Nombre");
    p.dato = QStringLiteral("O'Br");
    p.modo = ModoBusqueda::Parcial;
    EXPECT_EQ(CondicionesBusqueda(p), QStringLiteral(" (Nombre LIKE 'O''Br%') "));
    p.modo = ModoBusqueda::Fonetica;
    EXPECT_EQ(CondicionesBusqueda(p), QStringLiteral(" (Nombre LIKE '%O''Br%') "));
    p.modo = ModoBusqueda::Aproximada;
    EXPECT_EQ(CondicionesBusqueda(p), QStringLiteral(" (Nombre >= 'O''Br') "));
}

TEST(SearchText, DatesAndHoursTakeTheSqlFormatInApproximateModeOnly) {
    PeticionBusqueda p;
    p.listaCampos = QStringLiteral("Fecha;HoraInicio");
    p.dato = QStringLiteral("3/2/2024,9:05");
    EXPECT_EQ(
        CondicionesBusqueda(p),
        QStringLiteral(" (Fecha = '2024-02-03') AND  (HoraInicio >= '1899-12-30 09:05:00') "));
    p.dato = QStringLiteral("31/2/2024,no es hora");
    EXPECT_EQ(CondicionesBusqueda(p),
              QStringLiteral(" (Fecha = '31/2/2024') AND  (HoraInicio >= 'no es hora') "));
    p.modo = ModoBusqueda::Parcial;
    p.dato = QStringLiteral("3/2/2024");
    EXPECT_EQ(CondicionesBusqueda(p), QStringLiteral(" (Fecha LIKE '3/2/2024%') "));
}

TEST(SearchText, LimitReadsZeroAsOneAndUnlimitedAsNone) {
    EXPECT_EQ(LimiteBusqueda(QStringLiteral("0")), 1);
    EXPECT_EQ(LimiteBusqueda(QStringLiteral("1000")), 1000);
    EXPECT_EQ(LimiteBusqueda(QStringLiteral("Ilimitado")), std::nullopt);
    EXPECT_EQ(LimiteBusqueda(QStringLiteral("mucho"), 1000), 1000);
    EXPECT_EQ(ConLimite(QStringLiteral("SELECT * FROM X"), 1),
              QStringLiteral("SELECT TOP 1 * FROM X"));
}

TEST(SearchText, OptionEntriesReplaceOnlyTheirTable) {
    EXPECT_EQ(TextoOpcionesTabla({QStringLiteral("Nombre"), ModoBusqueda::Fonetica, true, true}),
              QStringLiteral("Nombre(F)(O)(M)"));
    const OpcionesTabla o = LeerOpcionesTabla(QStringLiteral("Serie;Numero(P)(M)"));
    EXPECT_EQ(o.listaCampos, QStringLiteral("Serie;Numero"));
    EXPECT_EQ(o.modo, ModoBusqueda::Parcial);
    EXPECT_FALSE(o.ordenados);
    EXPECT_TRUE(o.memos);
    const QString antes = QStringLiteral("CLIENTE:Nombre(A),OBRA:Codigo(F)(O)");
    EXPECT_EQ(EntradaOpciones(antes, QStringLiteral("obra")), QStringLiteral("Codigo(F)(O)"));
    EXPECT_EQ(EntradaOpciones(antes, QStringLiteral("ARTICULO")), std::nullopt);
    EXPECT_EQ(ConEntradaOpciones(antes, QStringLiteral("OBRA"), QStringLiteral("Nombre(P)")),
              QStringLiteral("CLIENTE:Nombre(A),OBRA:Nombre(P)"));
    EXPECT_EQ(ConEntradaOpciones({}, QStringLiteral("OBRA"), QStringLiteral("Nombre(P)")),
              QStringLiteral("OBRA:Nombre(P)"));
}

TEST(SearchText, SpellingVariantsFollowTheReplacementChain) {
    EXPECT_EQ(PatronAproximado(QStringLiteral("V")), QStringLiteral("[bv]"));
    EXPECT_EQ(PatronAproximado(QStringLiteral("txe")), QStringLiteral("[ct][hxz][eé]"));
    EXPECT_EQ(PatronAproximado(QStringLiteral("Ky")), QStringLiteral("[ck][iíy]"));
    const QString re = PatronComoExpresion(QStringLiteral("%[bv]_1.%"));
    EXPECT_EQ(re, QStringLiteral("^.*[bBvV].1\\..*$"));
}

// --- the windows on a database

using test::columna;
using test::Search;
using test::tecla;

TEST_P(Search, NumericCodeInApproximateModeGivesTheCodesUpward) {
    QStringList vistos;
    guion_.busq = [&](TfGENEBUSQ &v) {
        EXPECT_EQ(v.Caption, QStringLiteral("Buscar en la tabla PRUCLI"));
        EXPECT_EQ(v.ListaCamposBusqueda().Items.mid(0, 4),
                  (QStringList{"Codigo", "Nombre;Codigo", "Nombre", "Poblacion"}));
        EXPECT_EQ(v.NumeroMaximoRegistros().Text, QStringLiteral("100"));
        EXPECT_EQ(v.NumeroMaximoRegistros().Enabled, backend() == Backend::PostgreSQL);
        EXPECT_TRUE(v.UltimaSentencia().isEmpty()) << "a table of the company waits for the user";
        v.DatoABuscar().Text = QStringLiteral("1000");
        ASSERT_TRUE(v.ProcesarTecla(tecla(Qt::Key_Return)));
        vistos = columna(v.ClientDataSet1(), QStringLiteral("Codigo"));
        ASSERT_TRUE(v.SetFocus(&v.DBGrid1()));
        v.ClientDataSet1().First();
        ASSERT_TRUE(v.ProcesarTecla(tecla(Qt::Key_Return)));
    };
    const ResultadoBusqueda r = busquedas_->BuscarEnTabla(QStringLiteral("PRUCLI"));
    std::sort(vistos.begin(), vistos.end(),
              [](const QString &a, const QString &b) { return a.toInt() < b.toInt(); });
    EXPECT_EQ(vistos, (QStringList{"1000", "1001", "20000", "20001", "20002", "30000"}));
    ASSERT_TRUE(r.has_value());
    EXPECT_EQ(r->size(), 1);
    EXPECT_GE(r->first().toInt(), 1000);
    EXPECT_TRUE(ventana().DatoABuscar().Text.isEmpty());
}

TEST_P(Search, TwoFieldKeyGivesEqualityThenLowerBound) {
    guion_.busq = [&](TfGENEBUSQ &v) {
        EXPECT_EQ(v.ListaCamposBusqueda().Text, QStringLiteral("Serie;Numero;Sufijo"));
        v.Find<Component>(QStringLiteral("ResultadosOrdenados"))->Checked = true;
        v.DatoABuscar().Text = QStringLiteral("12,5");
        v.Buscar();
        EXPECT_EQ(columna(v.ClientDataSet1(), QStringLiteral("Numero")), (QStringList{"5", "9"}));
        EXPECT_EQ(columna(v.ClientDataSet1(), QStringLiteral("Serie")), (QStringList{"12", "12"}));
        // The record whose last key field is empty gives an empty last element.
        v.ClientDataSet1().Last();
        v.Conforme();
    };
    const ResultadoBusqueda r = busquedas_->BuscarEnTabla(QStringLiteral("PRULIN"));
    ASSERT_TRUE(r.has_value());
    EXPECT_EQ(*r, (QStringList{"12", "9", ""}));
}

TEST_P(Search, EmptyDataListsFromTheStartInApproximateMode) {
    guion_.busq = [&](TfGENEBUSQ &v) {
        v.ElegirModo(ModoBusqueda::Parcial);
        EXPECT_EQ(v.TextoEstado(), QStringLiteral("Búsqueda Parcial por Codigo"));
        v.Find<Component>(QStringLiteral("ResultadosOrdenados"))->Checked = true;
        v.ProcesarTecla(tecla(Qt::Key_Return));
        EXPECT_EQ(v.Modo(), ModoBusqueda::Aproximada);
        EXPECT_EQ(v.TextoEstado(), QStringLiteral("Búsqueda Aproximada por Codigo"));
        EXPECT_EQ(columna(v.ClientDataSet1(), QStringLiteral("Codigo")).first(),
                  QStringLiteral("5"));
        EXPECT_EQ(v.ClientDataSet1().RecordCount(), 8);
        // "0" as the limit reads one row.
        v.NumeroMaximoRegistros().Text = QStringLiteral("0");
        v.Buscar();
        EXPECT_EQ(v.ClientDataSet1().RecordCount(), 1);
        EXPECT_TRUE(v.UltimaSentencia().startsWith(QStringLiteral("SELECT TOP 1 ")));
    };
    busquedas_->BuscarEnTabla(QStringLiteral("PRUCLI"));
    EXPECT_EQ(guion_.veces, 1);
    EXPECT_TRUE(messages_.texts().isEmpty());
}

TEST_P(Search, QuoteInTheDataIsDoubledAndNoMatchIsTold) {
    guion_.busq = [&](TfGENEBUSQ &v) {
        v.ElegirCampos(2);
        v.ElegirModo(ModoBusqueda::Parcial);
        v.DatoABuscar().Text = QStringLiteral("O'Bri");
        v.Buscar();
        EXPECT_EQ(columna(v.ClientDataSet1(), QStringLiteral("Nombre")),
                  QStringList{QStringLiteral("O'Brien")});
        EXPECT_EQ(v.ActiveControl(), &v.DBGrid1());
        v.DatoABuscar().Text = QStringLiteral("Zz'");
        v.Buscar();
        EXPECT_EQ(v.ActiveControl(), &v.DatoABuscar());
    };
    EXPECT_FALSE(busquedas_->BuscarEnTabla(QStringLiteral("PRUCLI")).has_value());
    EXPECT_EQ(messages_.texts(), QStringList{QStringLiteral(
                                     "No hay datos que coincidan con el criterio de búsqueda")});
}

TEST_P(Search, OptionsAreKeptPerUserAndOfferedAgain) {
    guion_.busq = [&](TfGENEBUSQ &v) {
        v.ProcesarTecla(tecla(Qt::Key_3, Qt::ControlModifier));
        v.ProcesarTecla(tecla(Qt::Key_F3)); // Aproximada -> Fonética
        v.ProcesarTecla(tecla(Qt::Key_F3)); // Fonética -> Parcial
        v.Find<Component>(QStringLiteral("ResultadosOrdenados"))->Checked = true;
        v.DatoABuscar().Text = QStringLiteral("Ped");
        v.Buscar();
        v.Conforme();
    };
    ASSERT_EQ(busquedas_->BuscarEnTabla(QStringLiteral("PRUCLI")),
              QStringList{QStringLiteral("30000")});
    QString almacenado;
    ValorUsuario(*datos_, QStringLiteral("ANA"), QStringLiteral("DatosBusqueda"), almacenado);
    EXPECT_EQ(almacenado, QStringLiteral("PRUCLI:Nombre(P)(O)"));
    // A field list that is no index keeps no index.
    ValorUsuario(*datos_, QStringLiteral("ANA"), QStringLiteral("IndicesBusqueda"), almacenado);
    EXPECT_EQ(almacenado, QStringLiteral("PRUCLI:-1"));
    guion_.busq = [&](TfGENEBUSQ &v) {
        EXPECT_EQ(v.ListaCamposBusqueda().Text, QStringLiteral("Nombre"));
        EXPECT_EQ(v.Modo(), ModoBusqueda::Parcial);
        EXPECT_TRUE(v.Find<Component>(QStringLiteral("ResultadosOrdenados"))->Checked);
        EXPECT_FALSE(v.Find<Component>(QStringLiteral("MostrarCamposMemo"))->Checked);
    };
    busquedas_->BuscarEnTabla(QStringLiteral("PRUCLI"));
    // The index kept for the table is offered first.
    GuardarValorUsuario(*datos_, QStringLiteral("ANA"), QStringLiteral("IndicesBusqueda"),
                        QStringLiteral("PRUCLI:2"));
    guion_.busq = [&](TfGENEBUSQ &v) {
        EXPECT_EQ(v.ListaCamposBusqueda().Text, QStringLiteral("Nombre;Codigo"));
        // The primary key chosen now is the index kept from here on.
        v.ProcesarTecla(tecla(Qt::Key_1, Qt::ControlModifier));
        v.Buscar();
        v.Conforme();
    };
    busquedas_->BuscarEnTabla(QStringLiteral("PRUCLI"), 2);
    ValorUsuario(*datos_, QStringLiteral("ANA"), QStringLiteral("IndicesBusqueda"), almacenado);
    EXPECT_EQ(almacenado, QStringLiteral("PRUCLI:0"));
    guion_.busq = [&](TfGENEBUSQ &v) {
        EXPECT_EQ(v.ListaCamposBusqueda().Text, QStringLiteral("Codigo"));
    };
    busquedas_->BuscarEnTabla(QStringLiteral("PRUCLI"), 2);
    EXPECT_EQ(guion_.veces, 4);
}

TEST_P(Search, KeysOfTheWindow) {
    guion_.busq = [&](TfGENEBUSQ &v) {
        v.ProcesarTecla(tecla(Qt::Key_F2));
        EXPECT_EQ(v.ListaCamposBusqueda().Text, QStringLiteral("Nombre;Codigo"));
        EXPECT_EQ(v.Modo(), ModoBusqueda::Fonetica);
        v.ProcesarTecla(tecla(Qt::Key_F3));
        EXPECT_EQ(v.Modo(), ModoBusqueda::Parcial);
        v.ProcesarTecla(tecla(Qt::Key_F3));
        EXPECT_EQ(v.Modo(), ModoBusqueda::Aproximada);
        EXPECT_FALSE(v.PanelPersonalizarBusqueda().Visible);
        v.ProcesarTecla(tecla(Qt::Key_F4));
        EXPECT_TRUE(v.PanelPersonalizarBusqueda().Visible);
        EXPECT_TRUE(v.ProcesarTecla(tecla(Qt::Key_9, Qt::ControlModifier)));
        EXPECT_EQ(v.ListaCamposBusqueda().Text, QStringLiteral("Nombre;Codigo"))
            << "no ninth item: unchanged";
        const Tecla punto{Qt::Key_Period, Qt::KeypadModifier};
        EXPECT_EQ(v.ProcesarCaracter(u'.', punto), u',');
        EXPECT_EQ(v.ProcesarCaracter(u'.', tecla(Qt::Key_Period)), u'.');
        ASSERT_TRUE(v.ProcesarTecla(tecla(Qt::Key_Escape)));
        EXPECT_FALSE(v.Abierta());
    };
    EXPECT_FALSE(busquedas_->BuscarEnTabla(QStringLiteral("PRUCLI")).has_value());
}

TEST_P(Search, RestrictionSearchesAtOnceAndFindRecordMovesTheTable) {
    Table t(*datos_, QStringLiteral("Table1"), QStringLiteral("PRUCLI"));
    t.Open();
    t.Locate(QStringLiteral("Codigo"), {999});
    guion_.busq = [&](TfGENEBUSQ &v) {
        EXPECT_EQ(v.DatoABuscar().Text, QStringLiteral("999"));
        EXPECT_EQ(columna(v.ClientDataSet1(), QStringLiteral("Codigo")), (QStringList{"20001"}));
        v.Conforme();
    };
    const ResultadoBusqueda r =
        busquedas_->BuscarRegistroFiltrado(t, 0, QStringLiteral("Nombre = 'Tzema'"));
    ASSERT_TRUE(r.has_value());
    EXPECT_EQ(t.FieldByName(QStringLiteral("Nombre")).AsString(), QStringLiteral("Tzema"));
    // The restriction was for that search only.
    guion_.busq = [&](TfGENEBUSQ &v) { EXPECT_TRUE(v.UltimaSentencia().isEmpty()); };
    busquedas_->BuscarEnTabla(QStringLiteral("PRUCLI"));
    EXPECT_TRUE(messages_.texts().isEmpty());
}

TEST_P(Search, SpellingVariantsFoundOnBothBackends) {
    opciones_.busquedaAproximadaActivada = true;
    QStringList hallados;
    guion_.busa = [&](TfGENEBUSA &v) {
        EXPECT_EQ(v.Caption, QStringLiteral("Búsqueda por Aproximación en la tabla PRUCLI"));
        ASSERT_EQ(v.ValueListEditor.size(), 3);
        v.Buscar();
        v.PonerValor(QStringLiteral("Nombre"), QStringLiteral("vaca"));
        v.Buscar();
        hallados = columna(v.Query1(), QStringLiteral("Nombre"));
        v.PonerValor(QStringLiteral("Nombre"), QStringLiteral("chema"));
        v.Buscar();
        hallados += columna(v.Query1(), QStringLiteral("Nombre"));
        v.Query1().First();
        v.SetFocus(&v.DBGrid1());
        v.ProcesarTecla(tecla(Qt::Key_Return));
    };
    const ResultadoBusqueda r = busquedas_->BuscarEnTabla(QStringLiteral("PRUCLI"));
    hallados.sort();
    EXPECT_EQ(hallados, (QStringList{QStringLiteral("Bacá Hermanos"), QStringLiteral("Chema"),
                                     QStringLiteral("Txema"), QStringLiteral("Tzema"),
                                     QStringLiteral("Vaca y Cía"), QStringLiteral("baca")}));
    EXPECT_EQ(messages_.texts(),
              QStringList{QStringLiteral(
                  "¡Debe introducir alguna restricción para realizar la búsqueda!")});
    ASSERT_TRUE(r.has_value());
    EXPECT_TRUE(QStringList({"20000", "20001", "20002"}).contains(r->value(0)));
}

TEST_P(Search, ClosingWithNoRowLeavesTheEditAsItWas) {
    ASSERT_TRUE(AsociarControl(dir_.path(), QStringLiteral("EditCliente"), QStringLiteral("PRUCLI"))
                    .isEmpty());
    Form f(QStringLiteral("fPRUEBA"));
    Component &edit = f.AddControl(ComponentKind::Edit, QStringLiteral("EditCliente"));
    edit.Text = QStringLiteral("77");
    guion_.busq = [&](TfGENEBUSQ &v) {
        v.DatoABuscar().Text = QStringLiteral("20001");
        v.Buscar();
        v.Cancelar();
    };
    busquedas_->BuscarPorAsociacion(edit);
    EXPECT_EQ(edit.Text, QStringLiteral("77"));
    EXPECT_TRUE(messages_.texts().isEmpty());
    guion_.busq = [&](TfGENEBUSQ &v) {
        v.DatoABuscar().Text = QStringLiteral("20001");
        v.Buscar();
        v.Conforme();
    };
    busquedas_->BuscarPorAsociacion(edit);
    EXPECT_EQ(edit.Text, QStringLiteral("20001"));
}

TEST_P(Search, AssociationIsAskedForWrittenAndReadBack) {
    Form f(QStringLiteral("fPRUEBA"));
    Component &edit = f.AddControl(ComponentKind::Edit, QStringLiteral("EditCodigoCliente"));
    ASSERT_TRUE(
        AsociarControl(dir_.path(), QStringLiteral("EditOtro"), QStringLiteral("OBRA")).isEmpty());
    guion_.tablaElegida = QStringLiteral("PRUCLI");
    guion_.busq = [&](TfGENEBUSQ &v) {
        v.DatoABuscar().Text = QStringLiteral("1001");
        v.Buscar();
        v.Conforme();
    };
    messages_.answer(QStringLiteral("SI"));
    messages_.answer(QStringLiteral("SI"));
    busquedas_->BuscarPorAsociacion(edit);
    EXPECT_EQ(
        messages_.texts(),
        (QStringList{
            QStringLiteral(
                "No existe una Tabla de Búsqueda asociada al control \"Codigo Cliente\". "
                "¿Desea localizar una tabla adecuada ahora?"),
            QStringLiteral("¿Desea asociar el control Codigo Cliente con la tabla PRUCLI de forma "
                           "permanente?")}));
    EXPECT_TRUE(guion_.tablasOfrecidas.contains(QStringLiteral("OBRA")));
    EXPECT_FALSE(guion_.tablasOfrecidas.contains(QStringLiteral("USUARIO")));
    EXPECT_EQ(edit.Text, QStringLiteral("1001"));
    EXPECT_EQ(TablaAsociada(dir_.path(), QStringLiteral("EditCodigoCliente")),
              QStringLiteral("PRUCLI"));
    EXPECT_EQ(TablaAsociada(dir_.path(), QStringLiteral("EditOtro")), QStringLiteral("OBRA"));
    // Known now: no question the second time.
    messages_.clear();
    edit.Text.clear();
    busquedas_->BuscarPorAsociacion(edit);
    EXPECT_TRUE(messages_.texts().isEmpty());
    EXPECT_EQ(edit.Text, QStringLiteral("1001"));
}

TEST_P(Search, AssociationThatCannotBeSavedIsTold) {
    opciones_.carpetaPrograma = dir_.filePath(QStringLiteral("no/existe"));
    Form f(QStringLiteral("fPRUEBA"));
    Component &edit = f.AddControl(ComponentKind::Edit, QStringLiteral("EditCliente"));
    guion_.tablaElegida = QStringLiteral("PRUCLI");
    messages_.answer(QStringLiteral("SI"));
    messages_.answer(QStringLiteral("SI"));
    busquedas_->BuscarPorAsociacion(edit);
    ASSERT_EQ(messages_.texts().size(), 3);
    EXPECT_TRUE(messages_.texts().last().startsWith(
        QStringLiteral("No ha sido posible grabar los datos en la tabla de búsquedas. Motivo: ")));
    EXPECT_EQ(guion_.veces, 1) << "the search runs all the same";
    // Declined: nothing is offered and nothing runs.
    messages_.clear();
    busquedas_->BuscarPorAsociacion(edit);
    EXPECT_EQ(guion_.veces, 1);
}

CO_ON_BOTH_BACKENDS(Search);

} // namespace
} // namespace co::forms
