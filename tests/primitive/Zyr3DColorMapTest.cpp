#include "Zyr3DColorMap.h"

#include <gtest/gtest.h>

#include "primitive/Conditions.h"

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

// A map gives no colours out; that it shares them shows in that they outlive their array.
TEST(Zyr3DColorMap, KeepsTheColoursOfTheMapThatItIsCopiedFrom) {
    const unsigned char* pixels = nullptr;
    Zyr3DColorMap assigned;
    {
        ZyrColorArray colors;
        colors.Create(4, 3);
        colors.SetColor(7);
        pixels = colors.Data();
        const Zyr3DColorMap made(array({1}), colors);
        const Zyr3DColorMap copy(made);
        assigned = copy;
    }
    EXPECT_EQ(std::vector<int>(pixels, pixels + 12), std::vector<int>(12, 7));
}
