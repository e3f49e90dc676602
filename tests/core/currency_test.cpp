#include "core/currency.h"

#include "support/gtest_qt_printing.h"

#include <gtest/gtest.h>

namespace co {
namespace {

constexpr int kEuro = 1;
constexpr int kPeseta = 2;

QList<Moneda> rows(double euroCambio = 166.386, double pesetaCambio = 0.00601012) {
    return {{kEuro, QStringLiteral("Euro"), QStringLiteral("€"), euroCambio, 2},
            {kPeseta, QStringLiteral("Peseta"), QStringLiteral("Pts"), pesetaCambio, 0}};
}

TEST(ValoresMoneda, TakesTheBaseCurrencyRow) {
    const CurrencyValues v = ValoresMoneda(kEuro, kPeseta, kEuro, rows());
    EXPECT_EQ(v.DecimalesMoneda, 2);
    EXPECT_EQ(v.CambioMoneda, 166.386);
    EXPECT_EQ(v.AbreviaturaMoneda, QStringLiteral("€"));
    EXPECT_EQ(v.DescripcionMoneda, QStringLiteral("Euro"));
    EXPECT_TRUE(v.MonedaBaseEsEuro);
    EXPECT_FALSE(ValoresMoneda(kPeseta, kPeseta, kEuro, rows()).MonedaBaseEsEuro);
}

TEST(ValoresMoneda, MissingBaseGivesNoDecimalsAndExchangeOne) {
    const CurrencyValues v = ValoresMoneda(7, kPeseta, kEuro, rows());
    EXPECT_EQ(v.DecimalesMoneda, 0);
    EXPECT_EQ(v.CambioMoneda, 1);
    EXPECT_TRUE(v.DescripcionMoneda.isEmpty());
}

TEST(ConvertirMoneda, NationalBaseConvertsToEuro) {
    const CurrencyValues v = ValoresMoneda(kPeseta, kPeseta, kEuro, rows());
    EXPECT_EQ(ConvertirMoneda(QString(), 1000, v), 6.01);
    EXPECT_EQ(ConvertirMoneda(QStringLiteral("Otra Moneda"), 1000, v), 6.01);
    // Back by the base currency's decimals (none for pesetas).
    EXPECT_EQ(ConvertirMoneda(QStringLiteral("AutoInverso"), 6.01, v), 1000.0);
    EXPECT_EQ(ConvertirMoneda(QStringLiteral("AutoInverso"), -6.01, v), -1000.0);
}

TEST(ConvertirMoneda, EuroBaseConvertsToTheNationalCurrency) {
    const CurrencyValues v = ValoresMoneda(kEuro, kPeseta, kEuro, rows());
    EXPECT_EQ(ConvertirMoneda(QString(), 6.01, v), 1000.0);
    // Rounded by the euro's decimals, not the peseta's.
    EXPECT_EQ(ConvertirMoneda(QStringLiteral("Otra Moneda"), 6.01, v), 999.98);
    EXPECT_EQ(ConvertirMoneda(QStringLiteral("AutoInverso"), 1000, v), 6.01);
}

TEST(ConvertirMoneda, ValueUnchangedWhenTheCurrencyIsMissingOrUnusable) {
    EXPECT_EQ(ConvertirMoneda(QString(), 12.345, ValoresMoneda(kPeseta, kPeseta, 9, rows())),
              12.345);
    EXPECT_EQ(ConvertirMoneda(QString(), 12.345, ValoresMoneda(kPeseta, kPeseta, kEuro, rows(0))),
              12.345);
    EXPECT_EQ(ConvertirMoneda(QString(), 12.345, ValoresMoneda(kPeseta, kPeseta, kEuro, {})),
              12.345);
}

TEST(SimboloMonedaMostrada, TheCheckedEntryShowsTheCurrencyNotInUse) {
    EXPECT_EQ(SimboloMonedaMostrada(true, true), QStringLiteral("Pts"));
    EXPECT_EQ(SimboloMonedaMostrada(false, true), QStringLiteral("€"));
    EXPECT_EQ(SimboloMonedaMostrada(true, false), QStringLiteral("€"));
    EXPECT_EQ(SimboloMonedaMostrada(false, false), QStringLiteral("Pts"));
}

TEST(TextoCampoMoneda, FormButtonWinsOverTheGlobalEntry) {
    const CurrencyValues v = ValoresMoneda(kPeseta, kPeseta, kEuro, rows());
    CurrencyDisplay where;
    where.botonEuroPulsado = true;
    where.verOtraMoneda = false;
    EXPECT_EQ(TextoCampoMoneda(1000, QStringLiteral("#,##0.00"), where, v), QStringLiteral("6,01"));
}

TEST(TextoCampoMoneda, UncheckedEntryShowsTheValue) {
    const CurrencyValues v = ValoresMoneda(kPeseta, kPeseta, kEuro, rows());
    EXPECT_EQ(TextoCampoMoneda(1234.5, QStringLiteral("#,###.##"), {}, v),
              QStringLiteral("1.234,5"));
}

TEST(TextoCampoMoneda, CheckedEntryGoesThroughTheRecordsExchange) {
    const CurrencyValues v = ValoresMoneda(kPeseta, kPeseta, kEuro, rows());
    CurrencyDisplay where;
    where.verOtraMoneda = true;
    EXPECT_EQ(TextoCampoMoneda(1000, QStringLiteral("#,##0.00"), where, v), QStringLiteral("6,01"));
    where.cambioMaestro = 3;
    EXPECT_EQ(TextoCampoMoneda(1000, QStringLiteral("#,##0.00"), where, v),
              QStringLiteral("18,03"));
    where.cambioRegistro = 2;
    EXPECT_EQ(TextoCampoMoneda(1000, QStringLiteral("#,##0.00"), where, v),
              QStringLiteral("12,02"));
}

} // namespace
} // namespace co
