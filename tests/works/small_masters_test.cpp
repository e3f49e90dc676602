// The five small works masters headless, on both back-ends: defaults of a new
// record, lists of permitted values, the key checks, lookups of related tables,
// the analysis groups of a machine, and the messages of failed writes.
#include "support/screen_test.h"
#include "works/categories_master.h"
#include "works/incidents_master.h"
#include "works/machines_master.h"
#include "works/subcontracts_master.h"
#include "works/units_master.h"
#include "works_fixture.h"

#include <QDate>
#include <gtest/gtest.h>
#include <type_traits>

namespace co::works {
namespace {

using namespace co::forms;

using co::test::ScreenTest;
using forms::DatasetState;

using SmallMasters = WorksScreenTest;

TEST_P(SmallMasters, UnitsTakeTheFirstVatRateAndKeepEnteringAfterAPost) {
    parametros({{QStringLiteral("Iva1"), 21.0}});
    ScreenTest<TfOBRAUNID> s(*datos_);
    ASSERT_TRUE(s.open());
    EXPECT_EQ(s.form().Caption, QStringLiteral("Maestro de Unidades"));
    ASSERT_TRUE(s.click(QStringLiteral("Agregar")));
    EXPECT_DOUBLE_EQ(s.form().Table1().FieldByName(QStringLiteral("PorcentajeIVA")).AsFloat(),
                     21.0);
    ASSERT_TRUE(s.type(QStringLiteral("Codigo"), QStringLiteral("M2")));
    ASSERT_TRUE(s.type(QStringLiteral("Descripcion"), QStringLiteral("Metro cuadrado")));
    ASSERT_TRUE(s.click(QStringLiteral("pbConforme")));
    EXPECT_EQ(s.form().Table1().State(), DatasetState::Insert) << "entry goes on";
    EXPECT_TRUE(s.click(QStringLiteral("pbCancelar")));
    EXPECT_EQ(s.values(QStringLiteral("Descripcion")),
              QStringList{QStringLiteral("Metro cuadrado")});
    EXPECT_TRUE(messages_.shown().isEmpty()) << messages_.texts().join(u'|').toStdString();
}

TEST_P(SmallMasters, AValueBeyondItsFieldIsToldAndStaysForCorrection) {
    ScreenTest<TfOBRAUNID> s(*datos_);
    ASSERT_TRUE(s.open());
    ASSERT_TRUE(s.click(QStringLiteral("Agregar")));
    ASSERT_TRUE(s.type(QStringLiteral("Codigo"), QStringLiteral("M3")));
    const QString larga =
        QStringLiteral("Metro cúbico de hormigón HA-25/B/20/IIa vertido con bomba en "
                       "cimientos"); // 71 characters for a width of 65
    ASSERT_TRUE(s.type(QStringLiteral("Descripcion"), larga));
    ASSERT_TRUE(s.type(QStringLiteral("PorcentajeIVA"), QStringLiteral("150")));
    forms::Table &t = s.form().Table1();
    EXPECT_FALSE(s.click(QStringLiteral("pbConforme")));
    EXPECT_EQ(
        messages_.texts(),
        QStringList{QStringLiteral(
            "¡El valor de Descripcion no puede tener más de 65 caracteres! Repita por favor")});
    EXPECT_EQ(t.State(), DatasetState::Insert) << "the record stays pending";
    EXPECT_EQ(t.FieldByName(QStringLiteral("Descripcion")).AsString(), larga) << "nothing is cut";
    ASSERT_TRUE(s.type(QStringLiteral("Descripcion"), larga.left(65)));
    EXPECT_FALSE(s.click(QStringLiteral("pbConforme")));
    EXPECT_EQ(
        messages_.texts().value(1),
        QStringLiteral("¡El valor de Porcentaje IVA debe estar entre 0 y 100! Repita por favor"));
    EXPECT_DOUBLE_EQ(t.FieldByName(QStringLiteral("PorcentajeIVA")).AsFloat(), 150.0);
    EXPECT_EQ(ok(QStringLiteral("SELECT COUNT(*) FROM UNIDADOB")), QStringLiteral("0"));
    ASSERT_TRUE(s.type(QStringLiteral("PorcentajeIVA"), QStringLiteral("100")));
    ASSERT_TRUE(s.click(QStringLiteral("pbConforme")));
    EXPECT_TRUE(s.click(QStringLiteral("pbCancelar")));
    EXPECT_EQ(s.values(QStringLiteral("Descripcion")), QStringList{larga.left(65)});
    EXPECT_EQ(messages_.texts().size(), 2) << messages_.texts().join(u'|').toStdString();
}

TEST_P(SmallMasters, ARepeatedUnitIsToldOnLeavingTheKeyAndOnPost) {
    ScreenTest<TfOBRAUNID> s(*datos_);
    ASSERT_TRUE(s.open());
    ASSERT_TRUE(s.click(QStringLiteral("Agregar")));
    ASSERT_TRUE(s.type(QStringLiteral("Codigo"), QStringLiteral("KG")));
    ASSERT_TRUE(s.click(QStringLiteral("pbConforme")));
    ASSERT_TRUE(s.type(QStringLiteral("Codigo"), QStringLiteral("KG")));
    EXPECT_FALSE(s.column(QStringLiteral("Descripcion")));
    EXPECT_EQ(messages_.texts().value(0), QStringLiteral("¡ Ya existe el registro !"));
    EXPECT_EQ(s.form().DBGrid1().SelectedIndex, 0) << "the focus stays on the key";
    EXPECT_FALSE(s.click(QStringLiteral("pbConforme")));
    EXPECT_EQ(messages_.texts().value(1), QStringLiteral("¡ Este registro ya existe !"));
    EXPECT_EQ(s.values(QStringLiteral("Codigo")), QStringList{QStringLiteral("KG")});
}

TEST_P(SmallMasters, TheExtendedDescriptionIsEditedInItsPopUp) {
    ScreenTest<TfOBRAUNID> s(*datos_);
    ASSERT_TRUE(s.open());
    ok(QStringLiteral("INSERT INTO UNIDADOB (Codigo, Descripcion) VALUES ('H', 'Hora')"));
    s.form().Table1().Refresh();
    s.form().Table1().First();
    messages_.answer(QStringLiteral("Hora de trabajo\ncon dos líneas"));
    ASSERT_TRUE(s.form().CallHandler(QStringLiteral("DBGrid1EditButtonClick")));
    ASSERT_FALSE(messages_.shown().isEmpty());
    EXPECT_EQ(messages_.shown().last().title, QStringLiteral("Unidad H - Descripción Ampliada"));
    ASSERT_TRUE(s.click(QStringLiteral("pbConforme")));
    EXPECT_EQ(s.values(QStringLiteral("DescripcionAmpliada")),
              QStringList{QStringLiteral("Hora de trabajo\ncon dos líneas")});
}

TEST_P(SmallMasters, IncidencesOfferTheirListsAndRefuseOtherValues) {
    ScreenTest<TfOBRAINCI> s(*datos_);
    ASSERT_TRUE(s.open());
    ASSERT_TRUE(s.click(QStringLiteral("Agregar")));
    forms::Table &t = s.form().Table1();
    EXPECT_EQ(t.FieldByName(QStringLiteral("Tipo")).AsString(), QStringLiteral("Trabajo"));
    EXPECT_EQ(t.FieldByName(QStringLiteral("Imputable")).AsString(), QStringLiteral("SI"));
    ASSERT_TRUE(s.type(QStringLiteral("Codigo"), QStringLiteral("7")));
    ASSERT_TRUE(s.type(QStringLiteral("Tipo"), QStringLiteral("Obra")));
    EXPECT_FALSE(s.column(QStringLiteral("Imputable")));
    EXPECT_EQ(messages_.texts().value(0),
              QStringLiteral("¡ El valor \"Obra\" de la columna \"Tipo\" no es correcto !"));
    EXPECT_EQ(t.State(), DatasetState::Insert) << "nothing typed is lost";
    ASSERT_TRUE(s.type(QStringLiteral("Tipo"), QStringLiteral("Maquina")));
    // The mark holds two letters: what is typed stays as typed, to be refused.
    ASSERT_TRUE(s.type(QStringLiteral("Imputable"), QStringLiteral("QUIZA")));
    EXPECT_EQ(t.FieldByName(QStringLiteral("Imputable")).AsString(), QStringLiteral("QUIZA"));
    ASSERT_TRUE(s.type(QStringLiteral("Imputable"), QStringLiteral("SÍ")));
    EXPECT_FALSE(s.click(QStringLiteral("pbConforme"))) << "the post checks every list";
    EXPECT_EQ(messages_.texts().value(1),
              QStringLiteral("¡ El valor \"SÍ\" de la columna \"Imputable\" no es correcto !"));
    ASSERT_TRUE(s.type(QStringLiteral("Imputable"), QStringLiteral("NO")));
    ASSERT_TRUE(s.click(QStringLiteral("pbConforme")));
    ASSERT_TRUE(s.reopen());
    EXPECT_EQ(s.values(QStringLiteral("Tipo")), QStringList{QStringLiteral("Maquina")});
    EXPECT_FALSE(IncidenciaImputable(QVariant()));
    EXPECT_FALSE(IncidenciaImputable(QStringLiteral("NO")));
    EXPECT_TRUE(IncidenciaImputable(QStringLiteral("SI")));
}

TEST_P(SmallMasters, CategoryKeysAreSmallNumbersAndAFailedChangeIsNotModified) {
    ScreenTest<TfNOMICATE> s(*datos_);
    ASSERT_TRUE(s.open());
    EXPECT_EQ(s.form().Caption, QStringLiteral("Maestro de Categorías"));
    for (const char *malo : {"0", "10000"}) {
        ASSERT_TRUE(s.click(QStringLiteral("Agregar")));
        ASSERT_TRUE(s.type(QStringLiteral("Codigo"), QString::fromLatin1(malo)));
        EXPECT_FALSE(s.column(QStringLiteral("Descripcion")));
        EXPECT_EQ(messages_.texts().last(),
                  QStringLiteral("¡ El valor debe estar entre 1 y 9999 !"));
        s.form().Table1().Cancel();
    }
    ASSERT_TRUE(s.click(QStringLiteral("Agregar")));
    ASSERT_TRUE(s.type(QStringLiteral("Codigo"), QStringLiteral("9999")));
    ASSERT_TRUE(s.type(QStringLiteral("Descripcion"), QStringLiteral("Oficial")));
    ASSERT_TRUE(s.click(QStringLiteral("pbConforme")));
    ASSERT_TRUE(s.click(QStringLiteral("pbCancelar")));
    messages_.clear();
    ASSERT_TRUE(s.type(QStringLiteral("Descripcion"), QStringLiteral("Peón")));
    ok(QStringLiteral("DELETE FROM CATEGORI WHERE Codigo = 9999"));
    EXPECT_FALSE(s.click(QStringLiteral("pbConforme")));
    EXPECT_EQ(messages_.texts().value(0), QStringLiteral("¡El registro no ha sido modificado!"));
    EXPECT_EQ(s.form().Table1().State(), DatasetState::Browse);
}

TEST_P(SmallMasters, DeletingAsksFirst) {
    ScreenTest<TfNOMICATE> s(*datos_);
    ASSERT_TRUE(s.open());
    ok(QStringLiteral("INSERT INTO CATEGORI (Codigo, Descripcion) VALUES (3, 'Peón')"));
    s.form().Table1().Refresh();
    s.form().Table1().First();
    ASSERT_TRUE(s.click(QStringLiteral("Eliminar1")));
    EXPECT_EQ(messages_.texts().value(0),
              QStringLiteral("¿ Está seguro de querer eliminar el registro ?"));
    EXPECT_EQ(s.values(QStringLiteral("Codigo")), QStringList{QStringLiteral("3")})
        << "NO keeps it";
    messages_.answer(QStringLiteral("SI"));
    ASSERT_TRUE(s.click(QStringLiteral("Eliminar1")));
    EXPECT_TRUE(s.values(QStringLiteral("Codigo")).isEmpty());
}

TEST_P(SmallMasters, SubcontractsOpenTodayAndNeedAnExistingSupplier) {
    tabla(QStringLiteral("PROVEEDR"),
          {QStringLiteral("INSERT INTO PROVEEDR (Codigo, Nombre) VALUES (40, 'Grúas O''Neill')")});
    ScreenTest<TfOBRASUBC> s(*datos_);
    ASSERT_TRUE(s.open());
    ASSERT_TRUE(s.click(QStringLiteral("Agregar")));
    forms::Table &t = s.form().Table1();
    EXPECT_EQ(t.FieldByName(QStringLiteral("FechaAlta")).AsDateTime().date(), QDate::currentDate());
    EXPECT_EQ(t.FieldByName(QStringLiteral("TipoIVA")).AsInteger(), 1);
    ASSERT_TRUE(s.type(QStringLiteral("Codigo"), QStringLiteral("GRUA")));
    ASSERT_TRUE(s.type(QStringLiteral("CodigoProveedor"), QStringLiteral("41")));
    EXPECT_FALSE(s.column(QStringLiteral("FechaAlta")));
    EXPECT_EQ(messages_.texts().value(0), QStringLiteral("¡No existe el Proveedor!"));
    EXPECT_FALSE(s.click(QStringLiteral("pbConforme"))) << "the post checks again";
    EXPECT_EQ(messages_.texts().size(), 2);
    ASSERT_TRUE(s.type(QStringLiteral("CodigoProveedor"), QStringLiteral("40")));
    ASSERT_TRUE(s.click(QStringLiteral("pbConforme")));
    ASSERT_TRUE(s.reopen());
    s.form().Table1().First();
    EXPECT_EQ(s.form().Table1().FieldByName(QStringLiteral("DescripcionProveedor")).AsString(),
              QStringLiteral("Grúas O'Neill"));
}

TEST_P(SmallMasters, SalePricesHideWhenOnlyPercentagesAreUsed) {
    // The sale price columns left visible once the screen is open.
    auto visibles = [this]<class Pantalla>(std::type_identity<Pantalla>, const TMDObra *obra) {
        ScreenTest<Pantalla> s(*datos_);
        if (obra)
            s.form().ModuloObra.Usar(*obra);
        EXPECT_TRUE(s.open());
        QStringList out;
        for (const auto &c : s.form().DBGrid1().Columns)
            if (c.Visible && c.FieldName.startsWith(QStringLiteral("PrecioVenta")))
                out << c.FieldName;
        return out;
    };
    // Without a row the settings' default holds: percentages only.
    EXPECT_TRUE(visibles(std::type_identity<TfOBRAMAQU>(), nullptr).isEmpty());
    ok(QStringLiteral("INSERT INTO PARAOBRA (IdRegistro, AdmPorPorcentajes) VALUES ('1', 'NO')"));
    EXPECT_EQ(visibles(std::type_identity<TfOBRAMAQU>(), nullptr).size(), 4);
    // The session's module is asked, not the table: it holds what it read.
    TMDObra obra(*datos_);
    ok(QStringLiteral("UPDATE PARAOBRA SET AdmPorPorcentajes = 'SI' WHERE IdRegistro = 1"));
    EXPECT_EQ(visibles(std::type_identity<TfOBRASUBC>(), &obra).size(), 4);
    obra.RefrescarParametros();
    EXPECT_TRUE(visibles(std::type_identity<TfOBRAMAQU>(), &obra).isEmpty());
    EXPECT_TRUE(visibles(std::type_identity<TfOBRASUBC>(), &obra).isEmpty());
}

TEST_P(SmallMasters, MachineGroupsFollowTheMachineAndPostWithIt) {
    tabla(QStringLiteral("GRANALIS"),
          {QStringLiteral("INSERT INTO GRANALIS (Codigo, Descripcion, CategoriaGrupo) VALUES "
                          "('GA1', 'Movimiento de tierras', 'Obra civil')")});
    ScreenTest<TfOBRAMAQU> s(*datos_);
    ASSERT_TRUE(s.open());
    ok(QStringLiteral("INSERT INTO GRANTAB (NombreTabla, ClaveTabla, GrupoAnalisis) VALUES "
                      "('OTRATABL', 'EXC', 'GA1')"));
    ASSERT_TRUE(s.click(QStringLiteral("Agregar")));
    ASSERT_TRUE(s.type(QStringLiteral("Codigo"), QStringLiteral("EXC")));
    forms::Table &g = s.form().Table2();
    ASSERT_TRUE(s.form().Rutinas().Ejecutar([&] {
        g.Append();
        g.FieldByName(QStringLiteral("GrupoAnalisis")).SetAsString(QStringLiteral("GA1"));
    }));
    ASSERT_TRUE(s.click(QStringLiteral("pbConforme")));
    EXPECT_EQ(g.State(), DatasetState::Browse) << "the pending group posted with the machine";
    ASSERT_TRUE(s.click(QStringLiteral("pbCancelar")));
    ASSERT_TRUE(s.reopen());
    s.form().Table1().First();
    forms::Table &g2 = s.form().Table2();
    ASSERT_EQ(g2.RecordCount(), 1) << "only this machine's groups";
    EXPECT_EQ(g2.FieldByName(QStringLiteral("CategoriaGA")).AsString(),
              QStringLiteral("Obra civil"));
    EXPECT_EQ(g2.FieldByName(QStringLiteral("DescripcionGA")).AsString(),
              QStringLiteral("Movimiento de tierras"));
    // A group that cannot be saved stops the machine's post.
    ASSERT_TRUE(s.type(QStringLiteral("Descripcion"), QStringLiteral("Excavadora")));
    ASSERT_TRUE(s.form().Rutinas().Ejecutar([&] {
        g2.Append();
        g2.FieldByName(QStringLiteral("GrupoAnalisis")).SetAsString(QStringLiteral("GA1"));
    }));
    EXPECT_FALSE(s.click(QStringLiteral("pbConforme")));
    EXPECT_EQ(messages_.texts().last(),
              QStringLiteral("¡ Los datos de Grupos de Análisis no han sido registrados !. "
                             "Inténtelo de nuevo."));
    EXPECT_EQ(s.form().Table1().State(), DatasetState::Edit);
}

CO_ON_BOTH_BACKENDS(SmallMasters);

} // namespace
} // namespace co::works
