// The rows of the search window: the value filters of its grid, with the
// current value proposed, and its font key, on both back-ends.
#include "search_fixture.h"

namespace co::forms {
namespace {

class SearchRows : public test::Search {};

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
