#include "core/number_format.h"

#include "support/gtest_qt_printing.h"

#include <gtest/gtest.h>

#include <cmath>

namespace co {
namespace {

QString fmt(const char *mask, double v) {
    return FormatFloat(QString::fromUtf8(mask), v);
}

TEST(FormatFloat, DefaultTemplateUsesSpanishSeparators) {
    EXPECT_EQ(fmt("#,###.##", 1234.5), QStringLiteral("1.234,5"));
    EXPECT_EQ(fmt("#,###.##", 1234567.891), QStringLiteral("1.234.567,89"));
    EXPECT_EQ(fmt("#,###.##", -1234.5), QStringLiteral("-1.234,5"));
    EXPECT_EQ(fmt("#,###.##", 123), QStringLiteral("123"));
}

TEST(FormatFloat, OptionalDigitsLeaveZeroEmpty) {
    EXPECT_EQ(fmt("#,###.##", 0), QString());
    EXPECT_EQ(fmt("#,###.##", 0.5), QStringLiteral(",5"));
    EXPECT_EQ(fmt("#,###.##", 0.001), QString());
}

TEST(FormatFloat, ZerosAreAlwaysShown) {
    EXPECT_EQ(fmt("#,##0.00", 0), QStringLiteral("0,00"));
    EXPECT_EQ(fmt("#,##0.00", -1234.5), QStringLiteral("-1.234,50"));
    EXPECT_EQ(fmt("0.##", 2), QStringLiteral("2"));
    EXPECT_EQ(fmt("000", 7), QStringLiteral("007"));
    EXPECT_EQ(fmt("0.00", 7), QStringLiteral("7,00"));
}

TEST(FormatFloat, RoundsHalfUpOnTheTypedFigure) {
    EXPECT_EQ(fmt("0.00", 1.005), QStringLiteral("1,01"));
    EXPECT_EQ(fmt("#,##0.00", 999.995), QStringLiteral("1.000,00"));
    EXPECT_EQ(fmt("0", 2.5), QStringLiteral("3"));
    EXPECT_EQ(fmt("0", -2.5), QStringLiteral("-3"));
    EXPECT_EQ(fmt("0.00", -0.001), QStringLiteral("0,00"));
}

TEST(FormatFloat, SectionsForNegativeAndZero) {
    EXPECT_EQ(fmt("#,##0.00;(#,##0.00);Cero", -5), QStringLiteral("(5,00)"));
    EXPECT_EQ(fmt("#,##0.00;(#,##0.00);Cero", 5), QStringLiteral("5,00"));
    EXPECT_EQ(fmt("#,##0.00;(#,##0.00);Cero", 0), QStringLiteral("Cero"));
    EXPECT_EQ(fmt("#,##0.00;(#,##0.00);Cero", 0.001), QStringLiteral("Cero"));
    EXPECT_EQ(fmt("0;;-", -3), QStringLiteral("-3"));
}

TEST(FormatFloat, LiteralTextKeepsItsSide) {
    EXPECT_EQ(fmt("#,##0.00 €", 12), QStringLiteral("12,00 €"));
    EXPECT_EQ(fmt("'Total: '0", 7), QStringLiteral("Total: 7"));
    EXPECT_EQ(fmt("0\"%\"", 15), QStringLiteral("15%"));
    EXPECT_EQ(fmt("'a;b'0", 1), QStringLiteral("a;b1"));
}

TEST(FormatFloat, LargeAndSpecialValues) {
    EXPECT_EQ(fmt("#,##0", 1e15), QStringLiteral("1.000.000.000.000.000"));
    EXPECT_EQ(fmt("0", 1e20), QStringLiteral("100000000000000000000"));
    EXPECT_EQ(fmt("#,##0.00", NAN), QStringLiteral("NAN"));
    EXPECT_EQ(fmt("#,##0.00", -INFINITY), QStringLiteral("-INF"));
}

TEST(FormatFloat, EmptyMaskGivesGeneralForm) {
    EXPECT_EQ(fmt("", 1234.5), QStringLiteral("1234,5"));
    EXPECT_EQ(fmt("", 0.1), QStringLiteral("0,1"));
    EXPECT_EQ(fmt("", -3), QStringLiteral("-3"));
}

} // namespace
} // namespace co
