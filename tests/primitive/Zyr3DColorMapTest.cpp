#include "Zyr3DColorMap.h"

#include <gtest/gtest.h>

#include <opencv2/core.hpp>

#include "primitive/Conditions.h"
#include "support/Held.h"

using test::kInvalid;
using test::kNaN;

namespace {

Zyr3DDoubleArray array(const std::vector<double>& values) {
    Zyr3DDoubleArray result;
    for (const double value : values) result.Append(value);
    return result;
}

Zyr3DColorMap map(const std::vector<double>& values) {
    return Zyr3DColorMap(array(values), ZyrColorArray());
}

}  // namespace

TEST(Zyr3DColorMap, EmptyOneHasTheInvalidValueAndItsNegative) {
    EXPECT_EQ(Zyr3DColorMap().MinValue(), 3.4028234663852886e+38);
    EXPECT_EQ(Zyr3DColorMap().MaxValue(), -3.4028234663852886e+38);
}

TEST(Zyr3DColorMap, GivesTheLeastAndTheGreatestValue) {
    EXPECT_EQ(map({2, -3, 5, 1}).MinValue(), -3);
    EXPECT_EQ(map({2, -3, 5, 1}).MaxValue(), 5);
}

TEST(Zyr3DColorMap, ValuesBeyondTheStartAreNotSeen) {
    EXPECT_EQ(map({1e39, test::kInfinity}).MinValue(), kInvalid);
    EXPECT_EQ(map({-1e39, -test::kInfinity}).MaxValue(), -kInvalid);
}

TEST(Zyr3DColorMap, InfinitiesAreValuesLikeOthers) {
    EXPECT_EQ(map({1, -test::kInfinity, 2}).MinValue(), -test::kInfinity);
    EXPECT_EQ(map({1, test::kInfinity, 2}).MaxValue(), test::kInfinity);
}

TEST(Zyr3DColorMap, NaNIsReplacedByTheNextValue) {
    EXPECT_EQ(map({3, kNaN, 1}).MinValue(), 1);
    EXPECT_EQ(map({1, kNaN, 3}).MaxValue(), 3);
}

TEST(Zyr3DColorMap, NaNForgetsWhatCameBeforeIt) {
    EXPECT_EQ(map({1, kNaN, 3}).MinValue(), 3);
    EXPECT_EQ(map({3, kNaN, 1}).MaxValue(), 1);
    EXPECT_EQ(map({kNaN, 1e39}).MinValue(), 1e39);
    EXPECT_EQ(map({kNaN, -1e39}).MaxValue(), -1e39);
}

TEST(Zyr3DColorMap, TrailingNaNIsTheResult) {
    EXPECT_TRUE(std::isnan(map({3, 1, kNaN}).MinValue()));
    EXPECT_TRUE(std::isnan(map({3, 1, kNaN}).MaxValue()));
}

// Of equal values the later one counts, which zeros show by their sign.
TEST(Zyr3DColorMap, LaterOfEqualValuesIsTheResult) {
    EXPECT_TRUE(std::signbit(map({0.0, -0.0}).MinValue()));
    EXPECT_FALSE(std::signbit(map({-0.0, 0.0}).MinValue()));
    EXPECT_TRUE(std::signbit(map({0.0, -0.0}).MaxValue()));
    EXPECT_FALSE(std::signbit(map({-0.0, 0.0}).MaxValue()));
}

TEST(Zyr3DColorMap, SharesTheValuesThatItIsMadeOf) {
    Zyr3DDoubleArray values = array({1, 2});
    const Zyr3DColorMap made(values, ZyrColorArray());
    values.Append(9);
    EXPECT_EQ(made.MaxValue(), 9);
}

TEST(Zyr3DColorMap, CopyAndAssignmentShareTheValues) {
    Zyr3DDoubleArray values = array({1, 2});
    const Zyr3DColorMap source(values, ZyrColorArray());
    const Zyr3DColorMap copy(source);
    Zyr3DColorMap assigned = map({50});
    EXPECT_EQ(&(assigned = source), &assigned);
    values.Append(9);
    EXPECT_EQ(copy.MaxValue(), 9);
    EXPECT_EQ(assigned.MaxValue(), 9);
}

TEST(Zyr3DColorMap, LengthsNeedNotMatch) {
    ZyrColorArray colors;
    colors.Create(5, 3);
    EXPECT_EQ(Zyr3DColorMap(array({1, 2}), colors).MaxValue(), 2);
}

// A map gives no colours out; OpenCV counts who shares the pixels.
TEST(Zyr3DColorMap, SharesTheColoursThatItIsMadeOf) {
    ZyrColorArray colors;
    colors.Create(4, 3);
    const int& sharers = test::held<cv::Mat>(colors).u->refcount;
    EXPECT_EQ(sharers, 1);
    {
        const Zyr3DColorMap made(array({1}), colors);
        EXPECT_EQ(sharers, 2);
    }
    EXPECT_EQ(sharers, 1);
}

TEST(Zyr3DColorMap, CopyAndAssignmentShareTheColours) {
    ZyrColorArray colors;
    colors.Create(4, 3);
    const int& sharers = test::held<cv::Mat>(colors).u->refcount;
    Zyr3DColorMap assigned;
    {
        const Zyr3DColorMap made(array({1}), colors), copy(made);
        EXPECT_EQ(sharers, 3);
        assigned = copy;
        EXPECT_EQ(sharers, 4);
    }
    EXPECT_EQ(sharers, 2);
}
