// The session's currency values read from the company's tables, both back-ends.
#include "core/currency_table.h"
#include "core/general_parameters_table.h"

#include "support/layer_fixture.h"

#include <gtest/gtest.h>

namespace co {
namespace {

class CurrencyTable : public test::TablesOnDemandTest {};

TEST_P(CurrencyTable, NewCompanyShowsFiguresUnconverted) {
    const CurrencyValues v = LeerValoresMoneda(*datos_);
    EXPECT_EQ(v.DecimalesMoneda, 0);
    EXPECT_DOUBLE_EQ(v.CambioMoneda, 1.0);
    EXPECT_DOUBLE_EQ(ConvertirMoneda(QStringLiteral("Otra Moneda"), 12.5, v), 12.5);
    EXPECT_TRUE(messages_.shown().isEmpty());
}

TEST_P(CurrencyTable, EuroBaseWithPesetasConverts) {
    ok(QStringLiteral(
        "INSERT INTO MONEDA (Codigo, Descripcion, Abreviatura, Cambio, Decimales) VALUES "
        "('1', 'Euro', 'EUR', '1', '2')"));
    ok(QStringLiteral(
        "INSERT INTO MONEDA (Codigo, Descripcion, Abreviatura, Cambio, Decimales) VALUES "
        "('2', 'Peseta', 'Pts', '166.386', '0')"));
    ASSERT_TRUE(CrearParametrosGenerales(*datos_));
    ok(QStringLiteral("UPDATE PARAGENE SET CodigoMonedaBase = '1', CodigoMonedaEuro = '1', "
                      "CodigoMonedaNacional = '2'"));
    const CurrencyValues v = LeerValoresMoneda(*datos_);
    EXPECT_TRUE(v.MonedaBaseEsEuro);
    EXPECT_EQ(v.DecimalesMoneda, 2);
    EXPECT_EQ(v.AbreviaturaMoneda, QStringLiteral("EUR"));
    // Ten euros in pesetas, at the peseta rate, to the base currency's cents.
    EXPECT_NEAR(ConvertirMoneda(QStringLiteral("AutoInverso"), 10.0, v), 1663.86, 1e-9);
    ASSERT_NE(v.find(2), nullptr);
    EXPECT_DOUBLE_EQ(v.find(2)->Cambio, 166.386);
}

CO_ON_BOTH_BACKENDS(CurrencyTable);

} // namespace
} // namespace co
