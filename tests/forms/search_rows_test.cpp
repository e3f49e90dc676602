// The rows of the search window: an unlimited answer read in packets as the
// grid moves on, the value filters of its grid with the current value
// proposed, and its font key, on both back-ends.
#include "search_fixture.h"

#include <algorithm>

namespace co::forms {
namespace {

TEST(SearchText, KeyFieldsEndTheOrderWithoutRepeatingIt) {
    PeticionBusqueda p;
    p.tabla = QStringLiteral("LINEA");
    p.listaCampos = QStringLiteral("Numero;serie");
    p.columnas = QStringLiteral("*");
    p.clave = QStringLiteral("Serie;Numero;Linea");
    EXPECT_EQ(SentenciaBusqueda(p),
              QStringLiteral("SELECT * FROM LINEA WITH(NOLOCK)  ORDER BY Serie,Numero,Linea"))
        << "unordered: the key alone";
    p.ordenados = true;
    EXPECT_EQ(SentenciaBusqueda(p),
              QStringLiteral("SELECT * FROM LINEA WITH(NOLOCK)  ORDER BY Numero,serie,Linea"));
    p.clave.clear();
    EXPECT_EQ(SentenciaBusqueda(p),
              QStringLiteral("SELECT * FROM LINEA WITH(NOLOCK)  ORDER BY Numero,serie"));
}

// 250 rows whose names repeat, some of them null.
class SearchRows : public test::Search {
protected:
    static constexpr int kFilas = 250;

    void SetUp() override {
        Search::SetUp();
        if (HasFatalFailure())
            return;
        ok(QStringLiteral("CREATE TABLE PRUPAQ (Codigo INTEGER NOT NULL, Nombre VARCHAR(20), "
                          "CONSTRAINT PRUPAQ_Clave1 PRIMARY KEY (Codigo))"));
        QStringList filas;
        for (int i = 1; i <= kFilas; ++i)
            filas << QStringLiteral("(%1, %2)")
                         .arg(i)
                         .arg(nombre(i).isNull() ? QStringLiteral("NULL")
                                                 : Entrecomillar(nombre(i)));
        ok(QStringLiteral("INSERT INTO PRUPAQ (Codigo, Nombre) VALUES ") + filas.join(u','));
    }
    static QString nombre(int codigo) {
        if (codigo % 50 == 0)
            return {};
        return QStringLiteral("N") + QChar(u"CAB"[codigo % 3]);
    }
    // The codes in the order of name then code, nulls where the back-end puts them.
    QStringList porNombre() const {
        QList<int> codigos;
        for (int i = 1; i <= kFilas; ++i)
            codigos << i;
        const bool nulosPrimero = backend() == Backend::SQLite;
        std::sort(codigos.begin(), codigos.end(), [&](int a, int b) {
            const bool na = nombre(a).isNull(), nb = nombre(b).isNull();
            if (na != nb)
                return nulosPrimero ? na : nb;
            return std::pair(nombre(a), a) < std::pair(nombre(b), b);
        });
        QStringList out;
        for (int c : codigos)
            out << QString::number(c);
        return out;
    }
    // Walks the whole answer row by row: the codes, and the rows held at each step.
    static std::pair<QStringList, QList<qlonglong>> recorrer(Query &filas) {
        QStringList codigos;
        QList<qlonglong> leidas;
        for (filas.First(); !filas.Eof(); filas.Next()) {
            codigos << filas.FieldByName(QStringLiteral("Codigo")).AsString();
            leidas << filas.RecordsFetched();
        }
        return {codigos, leidas};
    }
    static void buscarIlimitado(TfGENEBUSQ &v, bool ordenados) {
        v.NumeroMaximoRegistros().Text = QStringLiteral("Ilimitado");
        v.ElegirCampos(
            static_cast<int>(v.ListaCamposBusqueda().Items.indexOf(QStringLiteral("Nombre"))));
        v.Find<Component>(QStringLiteral("ResultadosOrdenados"))->Checked = ordenados;
        v.DatoABuscar().Text.clear();
        v.Buscar();
    }
};

TEST_P(SearchRows, UnlimitedAnswersArriveInPacketsOfAHundredInOrder) {
    QString elegido;
    guion_.busq = [&](TfGENEBUSQ &v) {
        Query &filas = v.ClientDataSet1();
        buscarIlimitado(v, true);
        EXPECT_FALSE(v.UltimaSentencia().contains(QStringLiteral("TOP")));
        EXPECT_TRUE(v.UltimaSentencia().endsWith(QStringLiteral(" ORDER BY Nombre,Codigo")))
            << v.UltimaSentencia().toStdString();
        EXPECT_EQ(filas.RecordsFetched(), 100) << "the first packet only";
        const auto [codigos, leidas] = recorrer(filas);
        ASSERT_EQ(leidas.size(), kFilas);
        EXPECT_EQ(leidas[99], 100);
        EXPECT_EQ(leidas[100], 200) << "the 101st row brings the second packet";
        EXPECT_EQ(leidas[199], 200);
        EXPECT_EQ(leidas[200], 250);
        EXPECT_EQ(codigos, porNombre()) << "in order, none repeated or missed";
        EXPECT_EQ(filas.RecordCount(), kFilas);

        // A fresh search reads one packet again; the chosen row lies in the third.
        buscarIlimitado(v, false);
        EXPECT_TRUE(v.UltimaSentencia().endsWith(QStringLiteral(" ORDER BY Codigo")));
        EXPECT_EQ(filas.RecordsFetched(), 100);
        EXPECT_EQ(filas.MoveBy(229), 229);
        EXPECT_EQ(filas.RecordsFetched(), 250);
        elegido = filas.FieldByName(QStringLiteral("Codigo")).AsString();
        EXPECT_EQ(elegido, QStringLiteral("230"));
        ASSERT_EQ(v.ActiveControl(), &v.DBGrid1());
        v.ProcesarTecla(test::tecla(Qt::Key_Return));
    };
    const ResultadoBusqueda r = busquedas_->BuscarEnTabla(QStringLiteral("PRUPAQ"));
    ASSERT_TRUE(r.has_value());
    EXPECT_EQ(*r, QStringList{elegido});
    EXPECT_TRUE(messages_.texts().isEmpty()) << messages_.texts().join(u'\n').toStdString();
}

TEST_P(SearchRows, OtherLimitsReadEverythingAtOnce) {
    guion_.busq = [&](TfGENEBUSQ &v) {
        v.NumeroMaximoRegistros().Text = QStringLiteral("1000");
        v.Buscar();
        EXPECT_TRUE(v.UltimaSentencia().startsWith(QStringLiteral("SELECT TOP 1000 ")));
        EXPECT_FALSE(v.UltimaSentencia().contains(QStringLiteral("ORDER BY")));
        EXPECT_EQ(v.ClientDataSet1().RecordsFetched(), kFilas);
        v.NumeroMaximoRegistros().Text = QStringLiteral("100");
        v.Buscar();
        EXPECT_EQ(v.ClientDataSet1().RecordsFetched(), 100);
        EXPECT_EQ(v.ClientDataSet1().RecordCount(), 100) << "a limit is no packet: no more come";
    };
    busquedas_->BuscarEnTabla(QStringLiteral("PRUPAQ"));
}

TEST_P(SearchRows, FiltersOverAnUnlimitedAnswerReachTheRowsNotReadYet) {
    guion_.busq = [&](TfGENEBUSQ &v) {
        Query &filas = v.ClientDataSet1();
        buscarIlimitado(v, false);
        ASSERT_TRUE(v.SelectColumn(v.DBGrid1(), 0));
        ASSERT_EQ(v.DBGrid1().SelectedField()->FieldName(), QStringLiteral("Codigo"));
        messages_.answer(QStringLiteral("240"));
        v.Click(QStringLiteral("FiltrarRegistrosporValorDesde"));
        EXPECT_EQ(filas.Filter(), QStringLiteral("(Codigo >= '240')"));
        EXPECT_EQ(test::columna(filas, QStringLiteral("Codigo")).size(), 11);
    };
    busquedas_->BuscarEnTabla(QStringLiteral("PRUPAQ"));
}

int columnaDe(const DBGrid &grid, const QString &campo) {
    for (int i = 0; i < grid.Columns.size(); ++i)
        if (grid.Columns[i].FieldName == campo)
            return i;
    return -1;
}

TEST_P(SearchRows, ValueFiltersProposeTheCurrentValueAndACancelChangesNothing) {
    guion_.busq = [&](TfGENEBUSQ &v) {
        Query &filas = v.ClientDataSet1();
        v.ProcesarTecla(test::tecla(Qt::Key_Return));
        ASSERT_EQ(filas.RecordCount(), 8);
        ASSERT_TRUE(v.SelectColumn(v.DBGrid1(), columnaDe(v.DBGrid1(), QStringLiteral("Codigo"))));
        ASSERT_TRUE(filas.Locate(QStringLiteral("Codigo"), {1000}));
        // Nothing typed: the proposed value is the one accepted.
        v.Click(QStringLiteral("FiltrarRegistrosporValorIguala"));
        EXPECT_EQ(filas.Filter(), QStringLiteral("(Codigo = '1000')"));
        EXPECT_EQ(test::columna(filas, QStringLiteral("Codigo")), QStringList{"1000"});
        messages_.cancel();
        v.Click(QStringLiteral("FiltrarRegistrosporValorDesde"));
        EXPECT_EQ(filas.Filter(), QStringLiteral("(Codigo = '1000')")) << "cancelled";
        EXPECT_EQ(filas.RecordCount(), 1);

        // Cancelling the filters empties the window's list of conditions.
        v.Click(QStringLiteral("CancelarFiltros1"));
        EXPECT_EQ(filas.RecordCount(), 8);
        EXPECT_TRUE(filas.Filter().isEmpty());
        messages_.answer(QStringLiteral("1000"));
        messages_.answer(QStringLiteral("20001"));
        v.Click(QStringLiteral("FiltrarRegistrosporValoresDesdeHasta1"));
        EXPECT_EQ(filas.Filter(), QStringLiteral("(Codigo >= '1000') AND (Codigo <= '20001')"));
        EXPECT_EQ(test::columna(filas, QStringLiteral("Codigo")),
                  (QStringList{"1000", "1001", "20000", "20001"}));
        messages_.cancel();
        messages_.cancel();
        v.Click(QStringLiteral("FiltrarRegistrosporValoresDesdeHasta1"));
        EXPECT_EQ(filas.RecordCount(), 4);

        // The label of a name column, and a value the field cannot take.
        ASSERT_TRUE(v.SelectColumn(v.DBGrid1(), columnaDe(v.DBGrid1(), QStringLiteral("Nombre"))));
        filas.First();
        v.Click(QStringLiteral("FiltrarRegistrosporValorIguala"));
        EXPECT_EQ(filas.Filter(), QStringLiteral("(Codigo >= '1000') AND (Codigo <= '20001') AND "
                                                 "(Nombre = 'baca')"));
        EXPECT_EQ(filas.RecordCount(), 1);
    };
    busquedas_->BuscarEnTabla(QStringLiteral("PRUCLI"));
    EXPECT_EQ(messages_.texts(),
              (QStringList{QStringLiteral("Introduzca el valor del campo Codigo"),
                           QStringLiteral("Introduzca el valor Desde Codigo"),
                           QStringLiteral("Introduzca el valor Desde Codigo"),
                           QStringLiteral("Introduzca el valor Hasta Codigo"),
                           QStringLiteral("Introduzca el valor Desde Codigo"),
                           QStringLiteral("Introduzca el valor Hasta Codigo"),
                           QStringLiteral("Introduzca el valor del campo Nombre")}));
}

TEST_P(SearchRows, CtrlLOnTheGridAsksTheViewForAFont) {
    QStringList rejillas;
    guion_.busq = [&](TfGENEBUSQ &v) {
        v.DialogoFuente = [&](DBGrid &g) { rejillas << g.Name(); };
        EXPECT_FALSE(v.ProcesarTecla(test::tecla(Qt::Key_L, Qt::ControlModifier)))
            << "not in DatoABuscar";
        v.ProcesarTecla(test::tecla(Qt::Key_Return));
        ASSERT_EQ(v.ActiveControl(), &v.DBGrid1());
        EXPECT_FALSE(v.ProcesarTecla(test::tecla(Qt::Key_L)));
        EXPECT_TRUE(rejillas.isEmpty());
        EXPECT_TRUE(v.ProcesarTecla(test::tecla(Qt::Key_L, Qt::ControlModifier)));
        EXPECT_EQ(rejillas, QStringList{QStringLiteral("DBGrid1")});
        v.DialogoFuente = nullptr;
        EXPECT_TRUE(v.ProcesarTecla(test::tecla(Qt::Key_L, Qt::ControlModifier)))
            << "no view to ask: the key is still the grid's";
    };
    busquedas_->BuscarEnTabla(QStringLiteral("PRUCLI"));
    EXPECT_EQ(rejillas.size(), 1);
}

CO_ON_BOTH_BACKENDS(SearchRows);

} // namespace
} // namespace co::forms
