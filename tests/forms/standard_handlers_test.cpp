// The handlers a master gets when it publishes none: navigation messages at
// the ends, delete with its question, posting with its failure texts and the
// next new record, and the button switch, on both back-ends.
#include "forms/standard_handlers.h"
#include "screen_fixture.h"

namespace co::forms::test {
namespace {

class StandardHandlers : public ScreenTest {
protected:
    void SetUp() override {
        ScreenTest::SetUp();
        if (HasFatalFailure())
            return;
        conforme_ = &form_->AddControl(ComponentKind::Button, QStringLiteral("pbConforme"));
        eliminar_ = &form_->AddControl(ComponentKind::MenuItem, QStringLiteral("Eliminar1"));
        for (const char *b : {"pbPrimero", "pbAnterior", "pbSiguiente"})
            form_->AddControl(ComponentKind::Button, QString::fromLatin1(b));
        ManejadoresEstandar(*form_, *rutinas_, FamiliaFormulario::MaestroRejilla);
        form_->ConectarEventos();
    }
    bool click(const char *nombre) {
        return rutinas_->Ejecutar([&] { form_->Click(QString::fromLatin1(nombre)); });
    }
    Component *conforme_ = nullptr;
    Component *eliminar_ = nullptr;
};

TEST_P(StandardHandlers, NavigationTellsTheEnds) {
    incidencia(1, QStringLiteral("A"));
    incidencia(2, QStringLiteral("B"));
    table_->Refresh();
    table_->First();
    click("pbSiguiente");
    EXPECT_TRUE(messages_.texts().isEmpty());
    click("pbSiguiente");
    click("pbPrimero");
    click("pbAnterior");
    EXPECT_EQ(messages_.texts(), (QStringList{QStringLiteral("Está Vd. en el último registro"),
                                              QStringLiteral("Está Vd. en el primer registro")}));
}

TEST_P(StandardHandlers, PostingGoesOnToTheNextRecordAndADuplicateIsTold) {
    incidencia(1, QStringLiteral("A"));
    table_->Refresh();
    EXPECT_TRUE(conforme_->Enabled);
    click("Agregar");
    EXPECT_EQ(table_->State(), DatasetState::Insert);
    EXPECT_TRUE(conforme_->Enabled);
    EXPECT_FALSE(eliminar_->Enabled) << "no delete while pending";
    table_->FieldByName(QStringLiteral("Codigo")).SetAsInteger(2);
    click("pbConforme");
    EXPECT_EQ(filas(QStringLiteral("INCIDENC")), 2);
    EXPECT_EQ(table_->State(), DatasetState::Insert) << "entry goes on";
    table_->FieldByName(QStringLiteral("Codigo")).SetAsInteger(1);
    click("pbConforme");
    EXPECT_EQ(messages_.texts(), QStringList{QStringLiteral("¡ Este registro ya existe !")});
    EXPECT_EQ(table_->State(), DatasetState::Browse);
    EXPECT_FALSE(conforme_->Enabled);
    EXPECT_TRUE(eliminar_->Enabled);
}

TEST_P(StandardHandlers, DeleteAsksAndOnlyInBrowse) {
    incidencia(1, QStringLiteral("A"));
    table_->Refresh();
    table_->First();
    messages_.answer(QStringLiteral("NO"));
    click("Eliminar1");
    EXPECT_EQ(filas(QStringLiteral("INCIDENC")), 1);
    messages_.answer(QStringLiteral("SI"));
    click("Eliminar1");
    EXPECT_EQ(filas(QStringLiteral("INCIDENC")), 0);
    EXPECT_EQ(messages_.texts(),
              (QStringList(2, QStringLiteral("¿ Está seguro de querer eliminar el registro ?"))));
    messages_.clear();
    click("Eliminar1");
    EXPECT_TRUE(messages_.texts().isEmpty()) << "nothing to delete";
}

TEST_P(StandardHandlers, GridKeyColumnsCannotBeEdited) {
    incidencia(1, QStringLiteral("A"));
    table_->Refresh();
    table_->First();
    grid_->SelectedIndex = 0;
    EXPECT_FALSE(rutinas_->Ejecutar([&] { table_->Edit(); }));
    EXPECT_EQ(messages_.texts(),
              QStringList{QStringLiteral("¡ No se puede modificar la clave del registro !")});
    EXPECT_EQ(table_->State(), DatasetState::Browse);
    grid_->SelectedIndex = 1;
    EXPECT_TRUE(rutinas_->Ejecutar([&] { table_->Edit(); }));
    EXPECT_EQ(table_->State(), DatasetState::Edit);
}

CO_ON_BOTH_BACKENDS(StandardHandlers);

} // namespace
} // namespace co::forms::test
