#include "core/Truncation.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <cmath>
#include <limits>

using zyr::truncatedMagnitude;
using zyr::truncateToInt32;

namespace {

constexpr std::int32_t kMin = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t kMax = std::numeric_limits<std::int32_t>::max();
constexpr double kInf = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

}  // namespace

TEST(Truncation, GoesTowardZero) {
    EXPECT_EQ(truncateToInt32(0.999), 0);
    EXPECT_EQ(truncateToInt32(-0.999), 0);
    EXPECT_EQ(truncateToInt32(7.5), 7);
    EXPECT_EQ(truncateToInt32(-7.5), -7);
}

TEST(Truncation, KeepsAllThatFits) {
    EXPECT_EQ(truncateToInt32(2147483647.0), kMax);
    EXPECT_EQ(truncateToInt32(2147483647.999), kMax);
    EXPECT_EQ(truncateToInt32(-2147483648.0), kMin);
    EXPECT_EQ(truncateToInt32(-2147483647.999), -kMax);
}

TEST(Truncation, WhatDoesNotFitGivesTheLeastInteger) {
    for (double value : {2147483648.0, 4294967296.0, 1e300, kInf, -2147483649.0, -1e300, -kInf})
        EXPECT_EQ(truncateToInt32(value), kMin) << value;
}

TEST(Truncation, NaNGivesTheLeastInteger) {
    EXPECT_EQ(truncateToInt32(kNaN), kMin);
    EXPECT_EQ(truncateToInt32(-kNaN), kMin);
}

TEST(Truncation, MagnitudeOfTheLeastIntegerDoesNotOverflow) {
    for (double value : {-2147483648.0, 2147483648.0, kInf, -kInf, kNaN})
        EXPECT_EQ(truncatedMagnitude(value), 2147483648.0) << value;
}

TEST(Truncation, MagnitudeDropsTheSign) {
    EXPECT_EQ(truncatedMagnitude(-7.9), 7);
    EXPECT_EQ(truncatedMagnitude(7.9), 7);
    EXPECT_EQ(truncatedMagnitude(-2147483647.5), 2147483647.0);
    EXPECT_FALSE(std::signbit(truncatedMagnitude(-0.5)));
}

RC_GTEST_PROP(Truncation, AgreesWithTheMathematicalOneInsideTheRange, (std::int32_t whole)) {
    const double fraction = *rc::gen::inRange(0, 1000) / 1000.0;
    const double value = whole < 0 ? whole - fraction : whole + fraction;
    RC_ASSERT(truncateToInt32(value) == whole);
    RC_ASSERT(truncatedMagnitude(value) == std::fabs(std::trunc(value)));
}
