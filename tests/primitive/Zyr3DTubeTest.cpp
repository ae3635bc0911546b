#include "Zyr3DTube.h"

#include <gtest/gtest.h>

#include "primitive/Samples.h"

using test::allFail;
using test::allPass;

namespace {

const ZyrVector3d kCenter(1, 2, 3);
const ZyrVector3d kDirection(0, 3, 4);

Zyr3DTube withCenter(const ZyrVector3d& center) {
    return Zyr3DTube(center, kDirection, 5, 6, 7);
}

Zyr3DTube withDirection(const ZyrVector3d& direction) {
    return Zyr3DTube(kCenter, direction, 5, 6, 7);
}

Zyr3DTube withInnerRadius(double radius) {
    return Zyr3DTube(kCenter, kDirection, radius, 6, 7);
}

Zyr3DTube withOuterRadius(double radius) {
    return Zyr3DTube(kCenter, kDirection, 0, radius, 7);
}

Zyr3DTube withBothRadii(double radius) {
    return Zyr3DTube(kCenter, kDirection, radius, radius, 7);
}

Zyr3DTube withHeight(double height) {
    return Zyr3DTube(kCenter, kDirection, 5, 6, height);
}

}  // namespace

TEST(Zyr3DTube, DefaultHasInvalidVectorsAndZeros) {
    const double inv = test::kInvalid;
    EXPECT_EQ(test::fields(Zyr3DTube()),
              (std::vector{inv, inv, inv, inv, inv, inv, 0.0, 0.0, 0.0}));
}

TEST(Zyr3DTube, LiesInMemoryAsCenterDirectionRadiiHeight) {
    EXPECT_EQ(test::fields(Zyr3DTube(kCenter, kDirection, 5, 6, 7)),
              (std::vector<double>{1, 2, 3, 0, 3, 4, 5, 6, 7}));
}

TEST(Zyr3DTube, GivesWhatItWasMadeOf) {
    Zyr3DTube tube(kCenter, kDirection, 5, 6, 7);
    EXPECT_EQ(test::values(tube.Center()), test::values(kCenter));
    EXPECT_EQ(test::values(tube.Direction()), test::values(kDirection));
    EXPECT_EQ(tube.InnerRadius(), 5);
    EXPECT_EQ(tube.OuterRadius(), 6);
    EXPECT_EQ(tube.Height(), 7);
}

TEST(Zyr3DTube, CenterMustBeValid) {
    EXPECT_TRUE(allPass(withCenter, test::barelyValidVectors()));
    EXPECT_TRUE(allFail(withCenter, test::barelyInvalidVectors()));
}

TEST(Zyr3DTube, DirectionMustBeValid) {
    EXPECT_TRUE(allPass(withDirection, test::barelyValidVectors()));
    EXPECT_TRUE(allFail(withDirection, test::barelyInvalidVectors()));
}

TEST(Zyr3DTube, DirectionMustHaveALength) {
    EXPECT_TRUE(allPass(withDirection, std::vector<ZyrVector3d>{{0, 0, 1e-150}, {-1e-6, 0, 0}}));
    EXPECT_TRUE(allFail(withDirection, std::vector<ZyrVector3d>{{0, 0, 0}, {-0.0, 0, 0}}));
}

// The length of (0, 0, 1e-200) is 0: its square is too small for a double.
TEST(Zyr3DTube, DirectionWhoseLengthVanishesIsInvalid) {
    EXPECT_FALSE(withDirection(ZyrVector3d(0, 0, 1e-200)).IsValid());
}

TEST(Zyr3DTube, InnerRadiusMustLieFromZeroToTheOuterRadius) {
    EXPECT_TRUE(allPass(withInnerRadius, std::vector{0.0, -0.0, test::kSmallest, 6.0}));
    EXPECT_TRUE(allFail(withInnerRadius, test::kNegative));
    EXPECT_TRUE(allFail(withInnerRadius, std::vector{test::above(6), test::kInfinity}));
}

TEST(Zyr3DTube, OuterRadiusMustBePositive) {
    EXPECT_TRUE(allPass(withOuterRadius, test::kPositive));
    EXPECT_TRUE(allFail(withOuterRadius, test::kNotPositive));
}

TEST(Zyr3DTube, RadiiHaveNoUpperBound) {
    EXPECT_TRUE(allPass(withBothRadii, std::vector{6.0, test::kInvalid, test::kInfinity}));
}

TEST(Zyr3DTube, HeightMustBePositive) {
    EXPECT_TRUE(allPass(withHeight, test::kPositive));
    EXPECT_TRUE(allFail(withHeight, test::kNotPositive));
}

TEST(Zyr3DTube, DirectionOfAMillionthIsValid) {
    EXPECT_TRUE(withDirection(ZyrVector3d(0, 0, 1e-6)).IsValid());
}

TEST(Zyr3DTube, InnerRadiusAboveTheOuterIsInvalid) {
    EXPECT_FALSE(Zyr3DTube(kCenter, kDirection, 2, 1, 7).IsValid());
}

TEST(Zyr3DTube, InnerRadiusOfZeroIsValid) {
    EXPECT_TRUE(Zyr3DTube(kCenter, kDirection, 0, 6, 7).IsValid());
}

TEST(Zyr3DTube, EqualRadiiAreValid) {
    EXPECT_TRUE(Zyr3DTube(kCenter, kDirection, 6, 6, 7).IsValid());
}
