#include "Zyr3DTorus.h"

#include <gtest/gtest.h>

#include "primitive/Samples.h"

using test::allFail;
using test::allPass;

namespace {

const ZyrVector3d kCenter(1, 2, 3);
const ZyrVector3d kAngle(10, 20, 30);

Zyr3DTorus withCenter(const ZyrVector3d& center) {
    return Zyr3DTorus(center, kAngle, 5, 6, 45, 90, Zyr3DTorusType1);
}

Zyr3DTorus withAngle(const ZyrVector3d& angle) {
    return Zyr3DTorus(kCenter, angle, 5, 6, 45, 90, Zyr3DTorusType1);
}

Zyr3DTorus withInnerRadius(double radius) {
    return Zyr3DTorus(kCenter, kAngle, radius, 6, 45, 90, Zyr3DTorusType1);
}

Zyr3DTorus withOuterRadius(double radius) {
    return Zyr3DTorus(kCenter, kAngle, 0, radius, 45, 90, Zyr3DTorusType1);
}

Zyr3DTorus withBothRadii(double radius) {
    return Zyr3DTorus(kCenter, kAngle, radius, radius, 45, 90, Zyr3DTorusType1);
}

Zyr3DTorus withStart(double start) {
    return Zyr3DTorus(kCenter, kAngle, 5, 6, start, 90, Zyr3DTorusType1);
}

Zyr3DTorus withSpan(double span) {
    return Zyr3DTorus(kCenter, kAngle, 5, 6, 45, span, Zyr3DTorusType1);
}

Zyr3DTorus withType(int type) {
    return Zyr3DTorus(kCenter, kAngle, 5, 6, 45, 90, static_cast<Zyr3DTorusType>(type));
}

}  // namespace

TEST(Zyr3DTorusType, HasTwoValuesOf32Bits) {
    EXPECT_EQ(static_cast<int>(Zyr3DTorusType0), 0);
    EXPECT_EQ(static_cast<int>(Zyr3DTorusType1), 1);
    EXPECT_EQ(sizeof(Zyr3DTorusType), 4U);
}

TEST(Zyr3DTorus, DefaultHasZerosAndInvalidVectors) {
    const double inv = test::kInvalid;
    EXPECT_EQ(test::fields(Zyr3DTorus()),
              (std::vector{0.0, 0.0, 0.0, 0.0, 0.0, inv, inv, inv, inv, inv, inv}));
}

TEST(Zyr3DTorus, LiesInMemoryAsRadiiStartSpanTypeCenterAngle) {
    EXPECT_EQ(test::fields(Zyr3DTorus(kCenter, kAngle, 5, 6, 45, 90, Zyr3DTorusType1)),
              (std::vector<double>{5, 6, 45, 90, 1, 1, 2, 3, 10, 20, 30}));
}

TEST(Zyr3DTorus, GivesWhatItWasMadeOf) {
    Zyr3DTorus torus(kCenter, kAngle, 5, 6, 45, 90, Zyr3DTorusType1);
    EXPECT_EQ(test::values(torus.Center()), test::values(kCenter));
    EXPECT_EQ(test::values(torus.Angle()), test::values(kAngle));
    EXPECT_EQ(torus.RadiusInner(), 5);
    EXPECT_EQ(torus.RadiusOuter(), 6);
    EXPECT_EQ(torus.StartAngle(), 45);
    EXPECT_EQ(torus.SpanAngle(), 90);
    EXPECT_EQ(torus.Type(), Zyr3DTorusType1);
}

TEST(Zyr3DTorus, CenterMustBeValid) {
    EXPECT_TRUE(allPass(withCenter, test::barelyValidVectors()));
    EXPECT_TRUE(allFail(withCenter, test::barelyInvalidVectors()));
}

TEST(Zyr3DTorus, AngleMustBeValid) {
    EXPECT_TRUE(allPass(withAngle, test::barelyValidVectors()));
    EXPECT_TRUE(allFail(withAngle, test::barelyInvalidVectors()));
}

TEST(Zyr3DTorus, InnerRadiusMustLieFromZeroToTheOuterRadius) {
    EXPECT_TRUE(allPass(withInnerRadius, std::vector{0.0, -0.0, test::kSmallest, 6.0}));
    EXPECT_TRUE(allFail(withInnerRadius, test::kNegative));
    EXPECT_TRUE(allFail(withInnerRadius, std::vector{test::above(6), test::kInfinity}));
}

TEST(Zyr3DTorus, OuterRadiusMustBePositive) {
    EXPECT_TRUE(allPass(withOuterRadius, test::kPositive));
    EXPECT_TRUE(allFail(withOuterRadius, test::kNotPositive));
}

TEST(Zyr3DTorus, RadiiHaveNoUpperBound) {
    EXPECT_TRUE(allPass(withBothRadii, std::vector{6.0, test::kInvalid, test::kInfinity}));
}

TEST(Zyr3DTorus, StartMustLieFromZeroTo360) {
    EXPECT_TRUE(allPass(withStart, std::vector{0.0, -0.0, test::kSmallest, 360.0}));
    EXPECT_TRUE(allFail(withStart, test::kNegative));
    EXPECT_TRUE(allFail(withStart, std::vector{test::above(360), 361.0, test::kInfinity}));
}

TEST(Zyr3DTorus, SpanMustNotBeNegative) {
    EXPECT_TRUE(allPass(withSpan, test::kNotNegative));
    EXPECT_TRUE(allFail(withSpan, test::kNegative));
}

TEST(Zyr3DTorus, TypeHasNoSay) {
    for (const int type : {0, 1, 2, -1, 2147483647}) {
        Zyr3DTorus torus = withType(type);
        EXPECT_TRUE(torus.IsValid()) << type;
        EXPECT_EQ(static_cast<int>(torus.Type()), type);
    }
}

TEST(Zyr3DTorus, UnknownTypeOfFiveIsValid) {
    EXPECT_TRUE(withType(5).IsValid());
}

TEST(Zyr3DTorus, StartOf361IsInvalidAndLeavesZeros) {
    Zyr3DTorus torus = withStart(361);
    EXPECT_FALSE(torus.IsValid());
    EXPECT_EQ(torus.RadiusInner(), 0);
    EXPECT_EQ(torus.RadiusOuter(), 0);
    EXPECT_EQ(torus.StartAngle(), 0);
    EXPECT_EQ(torus.SpanAngle(), 0);
    EXPECT_EQ(torus.Type(), Zyr3DTorusType0);
}

TEST(Zyr3DTorus, EqualRadiiAreValid) {
    EXPECT_TRUE(withInnerRadius(6).IsValid());
}

TEST(Zyr3DTorus, SpanOfTwoTurnsIsValid) {
    EXPECT_TRUE(withSpan(720).IsValid());
}
