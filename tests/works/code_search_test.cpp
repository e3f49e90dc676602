// Double click (and F2) on the code columns of the small works masters opens the
// search on the right table and puts the chosen code in the record; on the key
// column it finds a record of the master itself.
#include "forms/key_map.h"
#include "support/screen_test.h"
#include "works/machines_master.h"
#include "works/subcontracts_master.h"
#include "works_fixture.h"

#include <gtest/gtest.h>

namespace co::works {
namespace {

using namespace co::forms;

using co::test::ScreenTest;

class CodeSearch : public WorksScreenTest {
protected:
    // The search hooks answer `codigo` and note the tables asked for.
    void ganchos(forms::RutinasFormulario &r, const forms::ResultadoBusqueda &elegido) {
        r.Ventanas.BuscarEnTabla = [this, elegido](const QString &tabla, const QString &) {
            pedidas_ << tabla;
            return elegido;
        };
        r.Ventanas.BuscarRegistro = [this](forms::Table &t) {
            pedidas_ << QStringLiteral("registro ") + t.TableName();
        };
    }
    QStringList pedidas_;
};

TEST_P(CodeSearch, SupplierColumnSearchesSuppliersAndKeyColumnTheMaster) {
    ok(QStringLiteral("INSERT INTO PROVEEDR (Codigo, Nombre) VALUES (7, 'Siete')"));
    ScreenTest<TfOBRASUBC> s(*datos_);
    ASSERT_TRUE(s.open());
    ganchos(s.form().Rutinas(), QStringList{QStringLiteral("7"), QStringLiteral("X")});
    ASSERT_TRUE(s.click(QStringLiteral("Agregar")));
    ASSERT_TRUE(s.type(QStringLiteral("Codigo"), QStringLiteral("S1")));
    ASSERT_TRUE(s.column(QStringLiteral("CodigoProveedor")));
    EXPECT_TRUE(ProcesarTeclaForm(s.form(), s.form().Rutinas(), Tecla{Qt::Key_F2, Qt::NoModifier}));
    EXPECT_EQ(s.form().Table1().FieldByName(QStringLiteral("CodigoProveedor")).AsString(),
              QStringLiteral("7"));
    // A column with no search table opens nothing.
    ASSERT_TRUE(s.column(QStringLiteral("Descripcion")));
    s.form().CallHandler(QStringLiteral("DBGrid1DblClick"));
    EXPECT_EQ(pedidas_, QStringList{QStringLiteral("PROVEEDR")});
    // Cancelled: the field keeps its value.
    ganchos(s.form().Rutinas(), std::nullopt);
    ASSERT_TRUE(s.column(QStringLiteral("CodigoProveedor")));
    s.form().CallHandler(QStringLiteral("DBGrid1DblClick"));
    EXPECT_EQ(s.form().Table1().FieldByName(QStringLiteral("CodigoProveedor")).AsString(),
              QStringLiteral("7"));
    s.form().Table1().Cancel();
    ASSERT_TRUE(s.column(QStringLiteral("Codigo")));
    s.form().CallHandler(QStringLiteral("DBGrid1DblClick"));
    EXPECT_EQ(pedidas_.last(), QStringLiteral("registro SUBCONTR"));
}

TEST_P(CodeSearch, AnalysisGroupColumnSearchesTheGroups) {
    ok(QStringLiteral("INSERT INTO MAQUINOB (Codigo, Descripcion) VALUES ('M1', 'Grua')"));
    ScreenTest<TfOBRAMAQU> s(*datos_);
    ASSERT_TRUE(s.open());
    ganchos(s.form().Rutinas(), QStringList{QStringLiteral("GA3")});
    auto *grid2 = s.form().Find<forms::DBGrid>(QStringLiteral("DBGrid2"));
    ASSERT_NE(grid2, nullptr);
    ASSERT_TRUE(s.form().SetFocus(grid2));
    EXPECT_TRUE(ProcesarTeclaForm(s.form(), s.form().Rutinas(), Tecla{Qt::Key_F2, Qt::NoModifier}));
    EXPECT_EQ(pedidas_, QStringList{QStringLiteral("GRANALIS")});
    forms::Dataset *grupos = grid2->DataSet();
    EXPECT_EQ(grupos->FieldByName(QStringLiteral("GrupoAnalisis")).AsString(),
              QStringLiteral("GA3"));
    EXPECT_EQ(grupos->FieldByName(QStringLiteral("ClaveTabla")).AsString(), QStringLiteral("M1"));
}

CO_ON_BOTH_BACKENDS(CodeSearch);

} // namespace
} // namespace co::works
