#include "core/amount_words.h"
#include "core/currency.h"

#include "support/gtest_qt_printing.h"

#include <gtest/gtest.h>

#include <cmath>

namespace co {
namespace {

constexpr int kEuro = 1;
constexpr int kPeseta = 2;
constexpr int kDolar = 3;

CurrencyValues monedas(int base) {
    return ValoresMoneda(base, kPeseta, kEuro,
                         {{kEuro, QStringLiteral("Euro"), QStringLiteral("EUR"), 1, 2},
                          {kPeseta, QStringLiteral("Peseta"), QStringLiteral("Pts"), 166.386, 0},
                          {kDolar, QStringLiteral("Dólar USA"), QStringLiteral("USD"), 0.9, 2}});
}

QString euros(double v) {
    return ImporteEnLetra(kEuro, v, monedas(kEuro));
}
QString pesetas(double v) {
    return ImporteEnLetra(kPeseta, v, monedas(kEuro));
}

TEST(NumeroEnLetra, WordsAreFeminineBelowTheMillions) {
    EXPECT_EQ(NumeroEnLetra(0), QStringLiteral("CER0 "));
    EXPECT_EQ(NumeroEnLetra(1), QStringLiteral("UNA "));
    EXPECT_EQ(NumeroEnLetra(100), QStringLiteral("CIEN "));
    EXPECT_EQ(NumeroEnLetra(101), QStringLiteral("CIENTO UNA "));
    EXPECT_EQ(NumeroEnLetra(1234), QStringLiteral("MIL DOSCIENTAS TREINTA Y CUATRO "));
    EXPECT_EQ(NumeroEnLetra(1000000), QStringLiteral("UN MILLON "));
    EXPECT_EQ(NumeroEnLetra(21000000), QStringLiteral("VEINTIUN MILLONES "));
    EXPECT_EQ(NumeroEnLetra(201000000), QStringLiteral("DOSCIENTOS UN MILLONES "));
}

TEST(NumeroEnLetra, TeensTwentiesAndTens) {
    EXPECT_EQ(NumeroEnLetra(10), QStringLiteral("DIEZ "));
    EXPECT_EQ(NumeroEnLetra(15), QStringLiteral("QUINCE "));
    EXPECT_EQ(NumeroEnLetra(19), QStringLiteral("DIECINUEVE "));
    EXPECT_EQ(NumeroEnLetra(20), QStringLiteral("VEINTE "));
    EXPECT_EQ(NumeroEnLetra(21), QStringLiteral("VEINTIUNA "));
    EXPECT_EQ(NumeroEnLetra(22), QStringLiteral("VEINTIDOS "));
    EXPECT_EQ(NumeroEnLetra(30), QStringLiteral("TREINTA "));
    EXPECT_EQ(NumeroEnLetra(31), QStringLiteral("TREINTA Y UNA "));
    EXPECT_EQ(NumeroEnLetra(99), QStringLiteral("NOVENTA Y NUEVE "));
    EXPECT_EQ(NumeroEnLetra(515), QStringLiteral("QUINIENTAS QUINCE "));
}

TEST(NumeroEnLetra, ThousandsGroup) {
    EXPECT_EQ(NumeroEnLetra(1000), QStringLiteral("MIL "));
    EXPECT_EQ(NumeroEnLetra(1001), QStringLiteral("MIL UNA "));
    EXPECT_EQ(NumeroEnLetra(2000), QStringLiteral("DOS MIL "));
    EXPECT_EQ(NumeroEnLetra(21000), QStringLiteral("VEINTIUNA MIL "));
    EXPECT_EQ(NumeroEnLetra(100000), QStringLiteral("CIEN MIL "));
    EXPECT_EQ(NumeroEnLetra(101000), QStringLiteral("CIENTO UNA MIL "));
    EXPECT_EQ(NumeroEnLetra(1001001), QStringLiteral("UN MILLON MIL UNA "));
    EXPECT_EQ(NumeroEnLetra(999999999),
              QStringLiteral("NOVECIENTOS NOVENTA Y NUEVE MILLONES NOVECIENTAS NOVENTA Y NUEVE "
                             "MIL NOVECIENTAS NOVENTA Y NUEVE "));
}

TEST(NumeroEnLetra, SignAndFraction) {
    EXPECT_EQ(NumeroEnLetra(-5), QStringLiteral("MENOS CINCO "));
    EXPECT_EQ(NumeroEnLetra(12.5), QStringLiteral("DOCE CON CINCUENTA "));
    EXPECT_EQ(NumeroEnLetra(-12.05), QStringLiteral("MENOS DOCE CON CINCO "));
    EXPECT_EQ(NumeroEnLetra(0.25), QStringLiteral("CER0 CON VEINTICINCO "));
    EXPECT_EQ(NumeroEnLetra(12.99), QStringLiteral("DOCE CON NOVENTA Y NUEVE "));
}

TEST(NumeroEnLetra, ValuesOutsideTheRangeDoNotBreakIt) {
    EXPECT_EQ(NumeroEnLetra(NAN), QStringLiteral("CER0 "));
    EXPECT_EQ(NumeroEnLetra(INFINITY), QStringLiteral("CER0 "));
    // Only the first nine digits are read.
    EXPECT_EQ(NumeroEnLetra(1234567890), NumeroEnLetra(123456789));
    EXPECT_FALSE(NumeroEnLetra(1e300).isEmpty());
}

TEST(ImporteEnLetra, ZeroAndRoundAmounts) {
    EXPECT_EQ(pesetas(0), QStringLiteral("CER0 PESETAS"));
    EXPECT_EQ(euros(0), QStringLiteral("CER0 EUROS"));
    EXPECT_EQ(euros(1000), QStringLiteral("MIL EUROS"));
    EXPECT_EQ(euros(1000000), QStringLiteral("UN MILLON EUROS"));
    EXPECT_EQ(euros(2000000), QStringLiteral("DOS MILLONES EUROS"));
    EXPECT_EQ(pesetas(200), QStringLiteral("DOSCIENTAS PESETAS"));
    EXPECT_EQ(euros(200), QStringLiteral("DOSCIENTOS EUROS"));
}

TEST(ImporteEnLetra, GenderOfTheCurrency) {
    EXPECT_EQ(euros(21), QStringLiteral("VEINTIUN EUROS"));
    EXPECT_EQ(pesetas(21), QStringLiteral("VEINTIUNA PESETAS"));
    EXPECT_EQ(euros(101), QStringLiteral("CIENTO UN EUROS"));
    EXPECT_EQ(pesetas(101), QStringLiteral("CIENTO UNA PESETAS"));
    EXPECT_EQ(euros(21000), QStringLiteral("VEINTIUN MIL EUROS"));
    // Only "CIENTAS" turns masculine: the irregular hundred keeps its ending.
    EXPECT_EQ(euros(500), QStringLiteral("QUINIENTAS EUROS"));
}

TEST(ImporteEnLetra, SingularWholeAndCents) {
    EXPECT_EQ(euros(1.01), QStringLiteral("UN EURO CON UN CENT"));
    EXPECT_EQ(euros(1), QStringLiteral("UN EURO"));
    EXPECT_EQ(pesetas(1), QStringLiteral("UNA PESETA"));
    EXPECT_EQ(euros(-1), QStringLiteral("MENOS UN EURO"));
    EXPECT_EQ(euros(2.01), QStringLiteral("DOS EUROS CON UN CENT"));
    EXPECT_EQ(euros(2.02), QStringLiteral("DOS EUROS CON DOS CENTS"));
    EXPECT_EQ(pesetas(2.01), QStringLiteral("DOS PESETAS CON UN CENTIMO"));
    EXPECT_EQ(pesetas(2.5), QStringLiteral("DOS PESETAS CON CINCUENTA CENTIMOS"));
}

TEST(ImporteEnLetra, AmountWithCents) {
    EXPECT_EQ(euros(1234.50),
              QStringLiteral("MIL DOSCIENTOS TREINTA Y CUATRO EUROS CON CINCUENTA CENTS"));
    EXPECT_EQ(euros(0.21), QStringLiteral("CER0 EUROS CON VEINTIUN CENTS"));
    EXPECT_EQ(euros(-5.5), QStringLiteral("MENOS CINCO EUROS CON CINCUENTA CENTS"));
}

TEST(ImporteEnLetra, OtherCurrencyTakesItsDescription) {
    EXPECT_EQ(ImporteEnLetra(kDolar, 21, monedas(kEuro)), QStringLiteral("VEINTIUN DÓLAR USA"));
    EXPECT_EQ(ImporteEnLetra(kDolar, 3.5, monedas(kEuro)),
              QStringLiteral("TRES CON CINCUENTA DÓLAR USA"));
    EXPECT_EQ(ImporteEnLetra(99, 3, monedas(kEuro)), QStringLiteral("TRES "));
}

TEST(ImporteEnLetra, CodeZeroMeansTheBaseCurrency) {
    EXPECT_EQ(ImporteEnLetra(0, 21, monedas(kEuro)), QStringLiteral("VEINTIUN EUROS"));
    EXPECT_EQ(ImporteEnLetra(0, 21, monedas(kPeseta)), QStringLiteral("VEINTIUNA PESETAS"));
    EXPECT_EQ(ImporteEnLetra(0, 2, monedas(kDolar)), QStringLiteral("DOS DÓLAR USA"));
}

} // namespace
} // namespace co
