#include "core/rounding.h"

#include "support/gtest_qt_printing.h"

#include <gtest/gtest.h>

#include <cfloat>
#include <climits>
#include <cmath>

namespace co {
namespace {

double round2(int decimals, double value) {
    return static_cast<double>(Redondear(decimals, value));
}

TEST(Redondear, MarginRoundsUpFiguresStoredJustBelowHalf) {
    EXPECT_EQ(round2(2, 1.005), 1.01);
    EXPECT_EQ(round2(2, 0.285), 0.29);
    EXPECT_EQ(round2(2, 2.675), 2.68);
    EXPECT_EQ(round2(2, -1.005), -1.01);
}

TEST(Redondear, MarginIsTenMillionthsNotMore) {
    EXPECT_EQ(round2(0, 2.4999998), 2.0);
    EXPECT_EQ(round2(0, 2.49999995), 3.0);
    EXPECT_EQ(round2(0, -2.4999998), -2.0);
    EXPECT_EQ(round2(0, -2.49999995), -3.0);
    EXPECT_EQ(round2(0, 0.4999998), 0.0);
}

TEST(Redondear, HalvesGoAwayFromZero) {
    EXPECT_EQ(round2(0, 0.5), 1.0);
    EXPECT_EQ(round2(0, 2.5), 3.0);
    EXPECT_EQ(round2(0, -2.5), -3.0);
    EXPECT_EQ(round2(1, 0.25), 0.3);
    EXPECT_EQ(round2(4, 1.23456), 1.2346);
}

TEST(Redondear, ZeroComesBackWithoutSign) {
    const long double r = Redondear(0, -0.4);
    EXPECT_EQ(r, 0);
    EXPECT_FALSE(std::signbit(r));
    EXPECT_FALSE(std::signbit(Redondear(2, -0.001)));
}

TEST(Redondear, DecimalsNotPositiveRoundToWholeNumbers) {
    EXPECT_EQ(round2(0, 7.6), 8.0);
    EXPECT_EQ(round2(-3, 7.6), 8.0);
}

TEST(Redondear, HugeValuesTakeTheFractionPath) {
    EXPECT_EQ(RedondearEntero(1e20L), 1e20L);
    EXPECT_EQ(RedondearEntero(-1e25L), -1e25L);
    EXPECT_EQ(RedondearEntero(9223372036854775807.0L), 9223372036854775807.0L);
    EXPECT_EQ(round2(2, 1e300), 1e300);
    EXPECT_EQ(round2(0, -4503599627370495.5), -4503599627370496.0);
}

TEST(Redondear, NeverFailsOnValuesItCannotScale) {
    EXPECT_EQ(Redondear(2, LDBL_MAX), LDBL_MAX);
    EXPECT_EQ(Redondear(INT_MAX, 1.5L), 1.5L);
    EXPECT_EQ(Redondear(6000, 1.5L), 1.5L);
    EXPECT_TRUE(std::isnan(Redondear(2, NAN)));
    EXPECT_EQ(Redondear(2, INFINITY), INFINITY);
    EXPECT_EQ(RedondearEntero(-INFINITY), -INFINITY);
}

TEST(EsCero, LimitsAreExcluded) {
    EXPECT_TRUE(EsCero(0));
    EXPECT_TRUE(EsCero(0.0000099));
    EXPECT_TRUE(EsCero(-0.0000099));
    EXPECT_FALSE(EsCero(0.00001));
    EXPECT_FALSE(EsCero(-0.00001));
    EXPECT_FALSE(EsCero(NAN));
}

} // namespace
} // namespace co
