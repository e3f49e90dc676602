// The single-record master family headless, on both back-ends: a record screen
// over incidences in data edits and combo boxes, and a single-row parameters
// screen declared as a dialog.
#include "forms/single_record_master.h"
#include "support/layer_fixture.h"
#include "support/screen_test.h"

#include <gtest/gtest.h>

namespace co::forms {
namespace {

using co::test::ScreenTest;
using forms::DatasetState;

class FichaIncidencia : public MaestroFicha {
public:
    explicit FichaIncidencia(TModuloDatos &datos)
        : MaestroFicha(datos, {QStringLiteral("fPRUEFICH"),
                               QStringLiteral("Ficha de Incidencias"),
                               QStringLiteral("INCIDENC"),
                               QStringLiteral("Codigo"),
                               {{QStringLiteral("Codigo"), QStringLiteral("Código"), {}},
                                {QStringLiteral("Descripcion"), QStringLiteral("Descripción"), {}},
                                {QStringLiteral("Tipo"),
                                 QStringLiteral("Tipo"),
                                 {QStringLiteral("Trabajo"), QStringLiteral("Maquina")}}}}) {}
    int validaciones = 0;

protected:
    bool ValidacionWinControl(forms::Component *sender) override {
        ++validaciones;
        if (sender || Table1().FieldByName(QStringLiteral("Descripcion")).AsString() != u"MAL")
            return true;
        Mensajes().MensajeA(QStringLiteral("¡No existe la Incidencia!"));
        return false;
    }
};

// Declared as the works parameters screen would be: one row, made on opening.
class FichaParametros : public MaestroFicha {
public:
    explicit FichaParametros(TModuloDatos &datos)
        : MaestroFicha(datos,
                       {QStringLiteral("fPRUEPARA"),
                        QStringLiteral("Parámetros de Prueba"),
                        QStringLiteral("PARAOBRA"),
                        {},
                        {{QStringLiteral("DiasVtoRetencion"), QStringLiteral("Dias Retención"), {}},
                         {QStringLiteral("MultiPartes"),
                          QStringLiteral("MultiPartes"),
                          {QStringLiteral("SI"), QStringLiteral("NO")}}},
                        true}) {}

protected:
    void DespuesAbrir() override {
        if (!Table1().IsEmpty())
            return;
        Table1().Append();
        Table1().FieldByName(QStringLiteral("IdRegistro")).SetAsInteger(1);
        Table1().FieldByName(QStringLiteral("MultiPartes")).SetAsString(QStringLiteral("SI"));
        Table1().Post();
    }
};

using SingleRecordMaster = test::TablesOnDemandTest;

TEST_P(SingleRecordMaster, ANewRecordStartsOnItsKeyAndEntryGoesOn) {
    ScreenTest<FichaIncidencia> s(*datos_);
    ASSERT_TRUE(s.open());
    forms::DataControl *clave = s.form().CampoClave();
    ASSERT_NE(clave, nullptr);
    EXPECT_EQ(clave->Name(), QStringLiteral("EditCodigo"));
    EXPECT_TRUE(clave->ReadOnly) << "the key is locked while browsing";
    ASSERT_NE(s.form().Control(QStringLiteral("Tipo")), nullptr);
    EXPECT_EQ(s.form().Control(QStringLiteral("Tipo"))->Kind(), forms::ComponentKind::DBComboBox);
    ASSERT_TRUE(s.click(QStringLiteral("Agregar")));
    EXPECT_EQ(s.form().Table1().State(), DatasetState::Insert);
    EXPECT_EQ(s.form().ActiveControl(), clave);
    EXPECT_FALSE(clave->ReadOnly);
    EXPECT_FALSE(s.form().FindComponent(QStringLiteral("pbAgregar"))->Enabled);
    ASSERT_TRUE(s.edit(QStringLiteral("EditCodigo"), QStringLiteral("12")));
    ASSERT_TRUE(s.edit(QStringLiteral("EditDescripcion"), QStringLiteral("Lluvia")));
    ASSERT_TRUE(s.edit(QStringLiteral("ComboBoxTipo"), QStringLiteral("Maquina")));
    ASSERT_TRUE(s.click(QStringLiteral("pbConforme")));
    EXPECT_EQ(s.form().Table1().State(), DatasetState::Insert) << "entry goes on";
    ASSERT_TRUE(s.click(QStringLiteral("pbCancelar")));
    EXPECT_TRUE(clave->ReadOnly);
    EXPECT_EQ(s.values(QStringLiteral("Tipo")), QStringList{QStringLiteral("Maquina")});
    EXPECT_TRUE(messages_.shown().isEmpty()) << messages_.texts().join(u'|').toStdString();
}

TEST_P(SingleRecordMaster, TheKeyIsCheckedOnLeavingIt) {
    ok(QStringLiteral("INSERT INTO INCIDENC (Codigo, Descripcion) VALUES (3, 'Helada')"));
    ScreenTest<FichaIncidencia> s(*datos_);
    ASSERT_TRUE(s.open());
    for (const char *malo : {"0", "10000"}) {
        ASSERT_TRUE(s.click(QStringLiteral("Agregar")));
        ASSERT_TRUE(s.edit(QStringLiteral("EditCodigo"), QString::fromLatin1(malo)));
        EXPECT_FALSE(s.focus(QStringLiteral("EditDescripcion")));
        EXPECT_EQ(messages_.texts().last(),
                  QStringLiteral("¡ El valor debe estar entre 1 y 9999 !"));
        EXPECT_EQ(s.form().ActiveControl(), s.form().CampoClave());
        ASSERT_TRUE(s.click(QStringLiteral("pbCancelar")));
    }
    messages_.clear();
    ASSERT_TRUE(s.click(QStringLiteral("Agregar")));
    ASSERT_TRUE(s.edit(QStringLiteral("EditCodigo"), QStringLiteral("3")));
    EXPECT_FALSE(s.focus(QStringLiteral("EditDescripcion")));
    EXPECT_EQ(messages_.texts(), QStringList{QStringLiteral("¡ Ya existe el registro !")});
    EXPECT_EQ(s.form().ActiveControl(), s.form().CampoClave()) << "the focus returns to the key";
    EXPECT_EQ(s.form().Table1().State(), DatasetState::Insert) << "nothing typed is lost";
    // An empty key drops the new record without a word.
    ASSERT_TRUE(s.edit(QStringLiteral("EditCodigo"), QString()));
    EXPECT_FALSE(s.focus(QStringLiteral("EditDescripcion")));
    EXPECT_EQ(s.form().Table1().State(), DatasetState::Browse);
    EXPECT_EQ(messages_.texts().size(), 1);
    EXPECT_EQ(s.values(QStringLiteral("Codigo")), QStringList{QStringLiteral("3")});
}

TEST_P(SingleRecordMaster, ComboBoxesAcceptOnlyTheirItemsAndThePostRunsTheValidator) {
    ScreenTest<FichaIncidencia> s(*datos_);
    ASSERT_TRUE(s.open());
    ASSERT_TRUE(s.click(QStringLiteral("Agregar")));
    ASSERT_TRUE(s.edit(QStringLiteral("EditCodigo"), QStringLiteral("4")));
    ASSERT_TRUE(s.edit(QStringLiteral("ComboBoxTipo"), QStringLiteral("Obra")));
    EXPECT_FALSE(s.focus(QStringLiteral("EditDescripcion")));
    EXPECT_EQ(messages_.texts().value(0),
              QStringLiteral("¡El valor \"Obra\" del campo \"Tipo\" no es correcto!"));
    EXPECT_FALSE(s.click(QStringLiteral("pbConforme"))) << "the post checks every list";
    EXPECT_EQ(messages_.texts().size(), 2);
    ASSERT_TRUE(s.edit(QStringLiteral("ComboBoxTipo"), QStringLiteral("Trabajo")));
    ASSERT_TRUE(s.edit(QStringLiteral("EditDescripcion"), QStringLiteral("MAL")));
    EXPECT_FALSE(s.click(QStringLiteral("pbConforme")));
    EXPECT_EQ(messages_.texts().last(), QStringLiteral("¡No existe la Incidencia!"));
    EXPECT_EQ(s.form().Table1().State(), DatasetState::Insert);
    ASSERT_TRUE(s.edit(QStringLiteral("EditDescripcion"), QStringLiteral("Viento")));
    ASSERT_TRUE(s.click(QStringLiteral("pbConforme")));
    EXPECT_GT(s.form().validaciones, 0);
    EXPECT_EQ(s.values(QStringLiteral("Descripcion")), QStringList{QStringLiteral("Viento")});
}

TEST_P(SingleRecordMaster, AnEditedKeyIsCheckedOnlyWhenItChanged) {
    ok(QStringLiteral("INSERT INTO INCIDENC (Codigo, Descripcion) VALUES (3, 'Helada')"));
    ok(QStringLiteral("INSERT INTO INCIDENC (Codigo, Descripcion) VALUES (5, 'Nieve')"));
    ScreenTest<FichaIncidencia> s(*datos_);
    ASSERT_TRUE(s.open());
    s.form().Table1().First();
    ASSERT_TRUE(s.edit(QStringLiteral("EditDescripcion"), QStringLiteral("Escarcha")));
    EXPECT_FALSE(s.form().ClaveCambiada());
    ASSERT_TRUE(s.focus(QStringLiteral("EditCodigo")));
    ASSERT_TRUE(s.focus(QStringLiteral("EditDescripcion"))) << "its own key is no repeat";
    ASSERT_TRUE(s.edit(QStringLiteral("EditCodigo"), QStringLiteral("5")));
    EXPECT_TRUE(s.form().ClaveCambiada());
    EXPECT_FALSE(s.focus(QStringLiteral("EditDescripcion")));
    EXPECT_EQ(messages_.texts(), QStringList{QStringLiteral("¡ Ya existe el registro !")});
}

TEST_P(SingleRecordMaster, ASingleRowDialogMakesItsRowSavesAndCloses) {
    ScreenTest<FichaParametros> s(*datos_);
    ASSERT_TRUE(s.open());
    EXPECT_EQ(s.form().CampoClave(), nullptr);
    EXPECT_EQ(s.form().FindComponent(QStringLiteral("pbAgregar")), nullptr);
    EXPECT_EQ(s.form().FindComponent(QStringLiteral("Agregar")), nullptr);
    EXPECT_EQ(s.values(QStringLiteral("MultiPartes")), QStringList{QStringLiteral("SI")});
    ASSERT_TRUE(s.edit(QStringLiteral("ComboBoxMultiPartes"), QStringLiteral("NO")));
    ASSERT_TRUE(s.edit(QStringLiteral("EditDiasVtoRetencion"), QStringLiteral("30")));
    ASSERT_TRUE(s.click(QStringLiteral("pbGrabar")));
    EXPECT_TRUE(s.form().Closed());
    ASSERT_TRUE(s.reopen());
    EXPECT_EQ(s.values(QStringLiteral("MultiPartes")), QStringList{QStringLiteral("NO")})
        << "one row, kept";
    ASSERT_TRUE(s.edit(QStringLiteral("EditDiasVtoRetencion"), QStringLiteral("60")));
    ASSERT_TRUE(s.click(QStringLiteral("pbCancelar")));
    EXPECT_TRUE(s.form().Closed());
    EXPECT_EQ(ok(QStringLiteral("SELECT DiasVtoRetencion FROM PARAOBRA")), QStringLiteral("30"));
    // A value off the list is refused and the dialog stays open.
    ASSERT_TRUE(s.reopen());
    ASSERT_TRUE(s.edit(QStringLiteral("ComboBoxMultiPartes"), QStringLiteral("TAL VEZ")));
    EXPECT_FALSE(s.click(QStringLiteral("pbGrabar")));
    EXPECT_FALSE(s.form().Closed());
    EXPECT_EQ(messages_.texts().last(),
              QStringLiteral("¡El valor \"TAL VEZ\" del campo \"Multi Partes\" no es correcto!"))
        << "the value is told as typed";
}

CO_ON_BOTH_BACKENDS(SingleRecordMaster);

} // namespace
} // namespace co::forms
