// The two-currency display of a form's float fields on both back-ends: only
// fields with tag 1000 or more follow it, the form's own euro button wins over
// the main window's entry, and the record's exchange counts.
#include "forms/currency_display.h"
#include "forms/form.h"
#include "forms/table.h"

#include "support/layer_fixture.h"

#include <gtest/gtest.h>

namespace co::forms {
namespace {

class CurrencyDisplayTest : public co::test::LayerTest {
protected:
    void SetUp() override {
        LayerTest::SetUp();
        ok(QStringLiteral(
            "CREATE TABLE PRUFACT (Numero INTEGER NOT NULL, Importe DOUBLE PRECISION, "
            "Precio DOUBLE PRECISION, Cambio DOUBLE PRECISION, "
            "CONSTRAINT PRUFACT_Clave1 PRIMARY KEY (Numero))"));
        ok(QStringLiteral(
            "INSERT INTO PRUFACT (Numero, Importe, Precio, Cambio) VALUES (1, 1000, 1000, 2)"));
        ok(QStringLiteral(
            "INSERT INTO PRUFACT (Numero, Importe, Precio, Cambio) VALUES (2, 1000, 1000, NULL)"));
        // Base currency the peseta, euro at 166.386 pesetas.
        monedas_ = ValoresMoneda(2, 2, 1,
                                 {{1, QStringLiteral("Euro"), QStringLiteral("€"), 166.386, 2},
                                  {2, QStringLiteral("Peseta"), QStringLiteral("Pts"), 1, 0}});
        table_ = &form_.Add<Table>(*datos_, QStringLiteral("Table1"), QStringLiteral("PRUFACT"));
        table_->Open();
        table_->FieldByName(QStringLiteral("Importe")).Tag = 1000;
        table_->FieldByName(QStringLiteral("Importe")).DisplayFormat = QStringLiteral("#,##0.00");
        table_->FieldByName(QStringLiteral("Precio")).DisplayFormat = QStringLiteral("#,##0.00");
        PresentarMonedas(form_, monedas_, [this] { return entrada_; });
    }
    QString importe() { return table_->FieldByName(QStringLiteral("Importe")).DisplayText(); }
    QString precio() { return table_->FieldByName(QStringLiteral("Precio")).DisplayText(); }

    Form form_{QStringLiteral("fPRUEBA")};
    Table *table_ = nullptr;
    CurrencyValues monedas_;
    bool entrada_ = false;
};

TEST_P(CurrencyDisplayTest, OnlyTaggedFieldsFollowTheEntryAndTheRecordsExchangeCounts) {
    EXPECT_EQ(importe(), QStringLiteral("1.000,00")) << "the entry unchecked shows the value";
    entrada_ = true;
    // 1000 x the record's exchange 2, in euros.
    EXPECT_EQ(importe(), QStringLiteral("12,02"));
    EXPECT_EQ(precio(), QStringLiteral("1.000,00")) << "an untagged float never converts";
    table_->Next();
    EXPECT_EQ(importe(), QStringLiteral("6,01"))
        << "without an exchange the value converts as it is";
}

TEST_P(CurrencyDisplayTest, TheFormsEuroButtonWinsOverTheEntry) {
    Component &euro = form_.AddControl(ComponentKind::Button, QStringLiteral("pbEuro"));
    entrada_ = true;
    EXPECT_EQ(importe(), QStringLiteral("1.000,00"))
        << "a form with its own button ignores the entry";
    euro.Checked = true;
    EXPECT_EQ(importe(), QStringLiteral("6,01"));
}

CO_ON_BOTH_BACKENDS(CurrencyDisplayTest);

} // namespace
} // namespace co::forms
