// The pick-list check and the value filters of list forms on the grid master,
// on both back-ends.
#include "forms/pick_list_check.h"
#include "forms/value_filters.h"
#include "screen_fixture.h"

namespace co::forms::test {
namespace {

class ListChecks : public ScreenTest {
protected:
    Field &campo(const char *nombre) { return table_->FieldByName(QString::fromLatin1(nombre)); }
};

TEST(FieldLabel, SplitsNamesIntoWords) {
    EXPECT_EQ(EtiquetaCampo(QStringLiteral("PorcentajeIVA")), QStringLiteral("Porcentaje IVA"));
    EXPECT_EQ(EtiquetaCampo(QStringLiteral("CodigoObra")), QStringLiteral("Codigo Obra"));
    EXPECT_EQ(EtiquetaCampo(QStringLiteral("Tipo")), QStringLiteral("Tipo"));
}

TEST_P(ListChecks, PickListsAcceptOnlyTheirItems) {
    grid_->Columns[2].PickList = {QStringLiteral("SI"), QStringLiteral("NO")};
    grid_->Columns[2].Title = QStringLiteral("Imputable");
    table_->Append();
    grid_->SelectedIndex = 2;
    campo("Codigo").SetAsInteger(1);
    campo("Imputable").SetAsString(QStringLiteral("si"));
    EXPECT_FALSE(ComprobarListasValores(*form_, sesion_->mensajes()));
    EXPECT_EQ(messages_.texts(),
              QStringList{QStringLiteral("¡ El valor \"si\" de la columna \"Imputable\" no es "
                                         "correcto !")});
    campo("Imputable").SetAsString(QStringLiteral("NO"));
    EXPECT_TRUE(ComprobarListasValores(*form_, sesion_->mensajes()));
    campo("Imputable").SetAsString(QStringLiteral("X"));
    campo("Codigo").Clear();
    EXPECT_TRUE(ComprobarListasValores(*form_, sesion_->mensajes()))
        << "a record left empty is not checked";
    campo("Codigo").SetAsInteger(1);
    Component &cancelar = form_->AddControl(ComponentKind::Button, QStringLiteral("pbCancelar"));
    form_->SetFocus(&cancelar);
    EXPECT_TRUE(ComprobarListasValores(*form_, sesion_->mensajes()));

    auto &combo = form_->Add<DataControl>(ComponentKind::DBComboBox, QStringLiteral("ComboTipo"),
                                          source_, QStringLiteral("Tipo"));
    combo.Items = {QStringLiteral("Parada"), QStringLiteral("Retraso")};
    form_->SetFocus(&combo);
    campo("Tipo").SetAsString(QStringLiteral("Otra"));
    messages_.clear();
    EXPECT_FALSE(ComprobarListasValores(*form_, sesion_->mensajes()));
    EXPECT_EQ(messages_.texts(),
              QStringList{QStringLiteral("¡El valor \"Otra\" del campo \"Tipo\" no es correcto!")});
}

TEST_P(ListChecks, ValueFiltersAddConditionsAndCancelClearsThem) {
    for (int i = 1; i <= 6; ++i)
        incidencia(i, QStringLiteral("I%1").arg(i),
                   i % 2 ? QStringLiteral("SI") : QStringLiteral("NO"));
    table_->Refresh();
    messages_.answer(QStringLiteral("2"));
    EXPECT_TRUE(FiltrarPorValor(*table_, campo("Codigo"), FiltroValor::Desde, sesion_->mensajes()));
    messages_.answer(QStringLiteral("SI"));
    EXPECT_TRUE(
        FiltrarPorValor(*table_, campo("Imputable"), FiltroValor::IgualA, sesion_->mensajes()));
    messages_.answer(QStringLiteral("5"));
    EXPECT_TRUE(FiltrarPorValor(*table_, campo("Codigo"), FiltroValor::Hasta, sesion_->mensajes()));
    EXPECT_EQ(messages_.texts(),
              (QStringList{QStringLiteral("Introduzca el valor Desde Codigo"),
                           QStringLiteral("Introduzca el valor del campo Imputable"),
                           QStringLiteral("Introduzca el valor Hasta Codigo")}));
    EXPECT_EQ(table_->Filter(),
              QStringLiteral("(Codigo >= '2') AND (Imputable = 'SI') AND (Codigo <= '5')"));
    EXPECT_EQ(table_->RecordCount(), 2);

    const QString filtro = table_->Filter();
    messages_.clear();
    messages_.cancel();
    EXPECT_FALSE(
        FiltrarPorValor(*table_, campo("Codigo"), FiltroValor::IgualA, sesion_->mensajes()))
        << "a cancelled prompt filters nothing";
    EXPECT_EQ(messages_.texts(),
              QStringList{QStringLiteral("Introduzca el valor del campo Codigo")});
    EXPECT_EQ(table_->Filter(), filtro);
    EXPECT_EQ(table_->RecordCount(), 2);
    table_->Edit();
    EXPECT_FALSE(
        FiltrarPorValor(*table_, campo("Codigo"), FiltroValor::IgualA, sesion_->mensajes()))
        << "not while pending";
    table_->Cancel();
    CancelarFiltros(*table_);
    EXPECT_EQ(table_->RecordCount(), 6);
}

TEST_P(ListChecks, ValueFiltersProposeTheCurrentValue) {
    for (int i = 1; i <= 6; ++i)
        incidencia(i, QStringLiteral("I%1").arg(i),
                   i % 2 ? QStringLiteral("SI") : QStringLiteral("NO"));
    table_->Refresh();
    ASSERT_TRUE(table_->Locate(QStringLiteral("Codigo"), {4}));
    // Nothing typed: the proposed value is accepted as it stands.
    EXPECT_TRUE(
        FiltrarPorValor(*table_, campo("Imputable"), FiltroValor::IgualA, sesion_->mensajes()));
    EXPECT_EQ(table_->Filter(), QStringLiteral("(Imputable = 'NO')"));
    EXPECT_EQ(table_->RecordCount(), 3);
    table_->First();
    table_->Next();
    EXPECT_EQ(campo("Codigo").AsInteger(), 4);
    EXPECT_TRUE(FiltrarPorValor(*table_, campo("Codigo"), FiltroValor::Desde, sesion_->mensajes()));
    EXPECT_EQ(table_->Filter(), QStringLiteral("(Imputable = 'NO') AND (Codigo >= '4')"));
    EXPECT_EQ(table_->RecordCount(), 2);

    // A value that does not fit the field is told and the filter stays.
    messages_.clear();
    messages_.answer(QStringLiteral("cuatro"));
    EXPECT_FALSE(
        FiltrarPorValor(*table_, campo("Codigo"), FiltroValor::Hasta, sesion_->mensajes()));
    EXPECT_EQ(messages_.texts(),
              (QStringList{QStringLiteral("Introduzca el valor Hasta Codigo"),
                           QStringLiteral("¡No ha sido posible filtrar registros!")}));
    EXPECT_EQ(table_->Filter(), QStringLiteral("(Imputable = 'NO') AND (Codigo >= '4')"));
    EXPECT_EQ(table_->RecordCount(), 2);
}

CO_ON_BOTH_BACKENDS(ListChecks);

} // namespace
} // namespace co::forms::test
