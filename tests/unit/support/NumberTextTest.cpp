#include "support/NumberText.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace corvane {
namespace {

using Limits = std::numeric_limits<double>;

TEST(NumberTextTest, DecimalsAlwaysHaveAFractionOrAnExponent) {
    EXPECT_EQ(decimalText(1), "1.0");
    EXPECT_EQ(decimalText(0), "0.0");
    EXPECT_EQ(decimalText(-0.0), "-0.0");
    EXPECT_EQ(decimalText(0.1), "0.1");
    EXPECT_EQ(decimalText(0.25), "0.25");
    EXPECT_EQ(decimalText(3600), "3600.0");
    EXPECT_EQ(decimalText(-120.5), "-120.5");
    EXPECT_EQ(decimalText(1.0 / 3), "0.3333333333333333");
    EXPECT_EQ(decimalText(1e15), "1000000000000000.0");
}

TEST(NumberTextTest, SmallValuesAreWrittenWithAnExponent) {
    EXPECT_EQ(decimalText(1e-4), "0.0001");
    EXPECT_EQ(decimalText(0.00012), "0.00012");
    EXPECT_EQ(decimalText(1e-5), "1e-05");
    EXPECT_EQ(decimalText(9.99e-5), "9.99e-05");
    EXPECT_EQ(decimalText(-1.5e-7), "-1.5e-07");
    EXPECT_EQ(decimalText(Limits::denorm_min()), "5e-324");
}

TEST(NumberTextTest, LargeValuesAreWrittenWithAnExponent) {
    EXPECT_EQ(decimalText(std::nextafter(0x1p54, 0)), "18014398509481982.0");
    EXPECT_EQ(decimalText(0x1p54), "1.8014398509481984e+16");
    EXPECT_EQ(decimalText(1e20), "1e+20");
    EXPECT_EQ(decimalText(Limits::max()), "1.7976931348623157e+308");
}

TEST(NumberTextTest, WhatIsNotFiniteIsStillAText) {
    EXPECT_EQ(decimalText(Limits::infinity()), "inf");
    EXPECT_EQ(decimalText(-Limits::infinity()), "-inf");
    EXPECT_EQ(decimalText(Limits::quiet_NaN()), "nan");
}

TEST(NumberTextTest, TheShortestFormHasNoFractionWhereNoneIsNeeded) {
    EXPECT_EQ(shortestNumberText(100), "100");
    EXPECT_EQ(shortestNumberText(-3), "-3");
    EXPECT_EQ(shortestNumberText(0.5), "0.5");
    EXPECT_EQ(shortestNumberText(1e-5), "1e-05");
}

TEST(NumberTextTest, ReadsBackToTheSameValue) {
    for (const double value : {0.1, 1.0 / 3, 2.0 / 3, 1e22, 123456.789, 5e-324, 0x1p53 + 2.0,
                               1.7976931348623157e308, 299.99999999999994}) {
        EXPECT_EQ(std::strtod(decimalText(value).c_str(), nullptr), value);
        EXPECT_EQ(std::strtod(shortestNumberText(value).c_str(), nullptr), value);
    }
}

TEST(NumberTextTest, WritesAFixedNumberOfDecimals) {
    EXPECT_EQ(fixedNumberText(0.1, 2), "0.10");
    EXPECT_EQ(fixedNumberText(1234.5678, 1), "1234.6");
    EXPECT_EQ(fixedNumberText(2.4, 0), "2");
    EXPECT_EQ(fixedNumberText(-0.004, 2), "-0.00");
    EXPECT_EQ(fixedNumberText(Limits::max(), 2).size(), 312U);
}

TEST(NumberTextTest, TruncatesTowardZero) {
    EXPECT_EQ(truncatedNumberText(7.9), "7");
    EXPECT_EQ(truncatedNumberText(-7.9), "-7");
    EXPECT_EQ(truncatedNumberText(-0.5), "0");
    EXPECT_EQ(truncatedNumberText(-0x1p63), "-9223372036854775808");
    EXPECT_EQ(truncatedNumberText(0x1p63), "9.223372036854776e+18");
    EXPECT_EQ(truncatedNumberText(Limits::quiet_NaN()), "nan");
}

TEST(NumberTextTest, WritesARectangleInParentheses) {
    EXPECT_EQ(rectangleText({120, 80, 300, 200}), "(120.0, 80.0, 300.0, 200.0)");
    EXPECT_EQ(rectangleText({-0.5, 1e-7, 0.1, 3}), "(-0.5, 1e-07, 0.1, 3.0)");
}

} // namespace
} // namespace corvane
