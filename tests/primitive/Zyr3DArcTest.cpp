#include "Zyr3DArc.h"

#include <gtest/gtest.h>

#include "primitive/Samples.h"

using test::allFail;
using test::allPass;

namespace {

const ZyrVector3d kCenter(1, 2, 3);
const ZyrVector3d kAngle(10, 20, 30);

Zyr3DArc withRadius(double radius) {
    return Zyr3DArc(kCenter, kAngle, radius, 45, 90);
}

Zyr3DArc withStart(double start) {
    return Zyr3DArc(kCenter, kAngle, 5, start, 90);
}

Zyr3DArc withSpan(double span) {
    return Zyr3DArc(kCenter, kAngle, 5, 45, span);
}

Zyr3DArc withCenter(const ZyrVector3d& center) {
    return Zyr3DArc(center, kAngle, 5, 45, 90);
}

Zyr3DArc withAngle(const ZyrVector3d& angle) {
    return Zyr3DArc(kCenter, angle, 5, 45, 90);
}

}  // namespace

TEST(Zyr3DArc, DefaultHasZerosAndInvalidVectors) {
    const double inv = test::kInvalid;
    EXPECT_EQ(test::fields(Zyr3DArc()), (std::vector{0.0, 0.0, 0.0, inv, inv, inv, inv, inv, inv}));
}

TEST(Zyr3DArc, LiesInMemoryAsRadiusStartSpanCenterAngle) {
    EXPECT_EQ(test::fields(Zyr3DArc(kCenter, kAngle, 5, 45, 90)),
              (std::vector<double>{5, 45, 90, 1, 2, 3, 10, 20, 30}));
}

TEST(Zyr3DArc, GivesWhatItWasMadeOf) {
    Zyr3DArc arc(kCenter, kAngle, 5, 45, 90);
    EXPECT_EQ(test::values(arc.Center()), test::values(kCenter));
    EXPECT_EQ(test::values(arc.Angle()), test::values(kAngle));
    EXPECT_EQ(arc.Radius(), 5);
    EXPECT_EQ(arc.StartAngle(), 45);
    EXPECT_EQ(arc.SpanAngle(), 90);
}

TEST(Zyr3DArc, CenterMustBeValid) {
    EXPECT_TRUE(allPass(withCenter, test::barelyValidVectors()));
    EXPECT_TRUE(allFail(withCenter, test::barelyInvalidVectors()));
}

TEST(Zyr3DArc, AngleMustBeValid) {
    EXPECT_TRUE(allPass(withAngle, test::barelyValidVectors()));
    EXPECT_TRUE(allFail(withAngle, test::barelyInvalidVectors()));
}

TEST(Zyr3DArc, RadiusMustBePositive) {
    EXPECT_TRUE(allPass(withRadius, test::kPositive));
    EXPECT_TRUE(allFail(withRadius, test::kNotPositive));
}

TEST(Zyr3DArc, StartMustLieFromZeroTo360) {
    EXPECT_TRUE(allPass(withStart, std::vector{0.0, -0.0, test::kSmallest, 360.0}));
    EXPECT_TRUE(allFail(withStart, test::kNegative));
    EXPECT_TRUE(allFail(withStart, std::vector{test::above(360), 360.0001, test::kInfinity}));
}

TEST(Zyr3DArc, SpanMustNotBeNegative) {
    EXPECT_TRUE(allPass(withSpan, test::kNotNegative));
    EXPECT_TRUE(allFail(withSpan, test::kNegative));
}

TEST(Zyr3DArc, StartOf360IsValid) {
    EXPECT_TRUE(withStart(360).IsValid());
}

TEST(Zyr3DArc, StartJustAbove360IsInvalid) {
    EXPECT_FALSE(withStart(360.0001).IsValid());
}

TEST(Zyr3DArc, StartOfNegativeZeroIsValid) {
    EXPECT_TRUE(withStart(-0.0).IsValid());
}

TEST(Zyr3DArc, SpanOfZeroIsValid) {
    EXPECT_TRUE(withSpan(0).IsValid());
}

TEST(Zyr3DArc, SpanOfTwoTurnsIsValid) {
    EXPECT_TRUE(withSpan(720).IsValid());
}

TEST(Zyr3DArc, RadiusOfZeroIsInvalid) {
    EXPECT_FALSE(withRadius(0).IsValid());
}
