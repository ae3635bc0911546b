#include <gtest/gtest.h>

#include <limits>

#include "support/TransformValues.h"

using test::quaternion;

namespace {

constexpr double kHalfRoot = 0.7071067811865476;

ZyrQuaternion generated(ZyrVector3d axis, double angle) {
    ZyrQuaternion q;
    q.GenQuaternion(axis, angle);
    return q;
}

ZyrQuaternion between(ZyrVector3d from, ZyrVector3d to) {
    ZyrQuaternion q = quaternion(9, 9, 9, 9);
    q.GenQuaternion(from, to);
    return q;
}

ZyrQuaternion fromMatrix(const ZyrMatrix3& m) {
    ZyrQuaternion q = quaternion(9, 9, 9, 9);
    q.GenQuaternion(m);
    return q;
}

const std::vector<double> kUntouched{9, 9, 9, 9};

/// The usual rotation matrix of a quaternion of length 11 with integer components.
ZyrMatrix3 rotationOf(int w, int x, int y, int z) {
    const auto e = [](int numerator) { return numerator / 121.0; };
    return ZyrMatrix3(e(121 - 2 * (y * y + z * z)), e(2 * (x * y - w * z)), e(2 * (x * z + w * y)),
                      e(2 * (x * y + w * z)), e(121 - 2 * (x * x + z * z)), e(2 * (y * z - w * x)),
                      e(2 * (x * z - w * y)), e(2 * (y * z + w * x)), e(121 - 2 * (x * x + y * y)));
}

void expectElevenths(const ZyrQuaternion& q, int w, int x, int y, int z) {
    test::expectNear(test::values(q), {w / 11.0, x / 11.0, y / 11.0, z / 11.0}, 1e-15);
}

}  // namespace

TEST(GenQuaternionAxisAngle, TakesHalfTheAngle) {
    const ZyrQuaternion q = generated(ZyrVector3d(0, 0, 1), 90);
    EXPECT_EQ(q.w, kHalfRoot);
    EXPECT_EQ(q.v.z, std::sin(test::kPi / 4));
    EXPECT_DOUBLE_EQ(q.v.z, kHalfRoot);
    EXPECT_EQ(q.v.x, 0.0);
    EXPECT_EQ(q.v.y, 0.0);
}

TEST(GenQuaternionAxisAngle, WholeTurnsAreDropped) {
    const auto expected = test::values(generated(ZyrVector3d(0, 0, 1), 90));
    EXPECT_EQ(test::values(generated(ZyrVector3d(0, 0, 1), 450)), expected);
    EXPECT_EQ(test::values(generated(ZyrVector3d(0, 0, 1), -630)), expected);
}

TEST(GenQuaternionAxisAngle, MinusNinetyIsTakenAsTwoHundredAndSeventy) {
    const ZyrQuaternion q = generated(ZyrVector3d(0, 0, 1), -90);
    EXPECT_EQ(q.w, -0.7071067811865475);
    EXPECT_EQ(q.v.z, kHalfRoot);
    EXPECT_EQ(test::values(generated(ZyrVector3d(0, 0, 1), -450)), test::values(q));
}

TEST(GenQuaternionAxisAngle, AWholeTurnIsNone) {
    EXPECT_EQ(test::values(generated(ZyrVector3d(0, 0, 1), 360)),
              (std::vector<double>{1, 0, 0, 0}));
}

TEST(GenQuaternionAxisAngle, TheAxisMayHaveAnyLength) {
    const ZyrQuaternion q = generated(ZyrVector3d(0, 5, 0), 60);
    EXPECT_EQ(q.w, std::cos(60 * test::kPi / 360));
    EXPECT_EQ(test::values(q.v), (std::vector<double>{0, std::sin(60 * test::kPi / 360), 0}));
}

TEST(GenQuaternionAxisAngle, AZeroAxisGivesNaN) {
    const ZyrQuaternion q = generated(ZyrVector3d(0, 0, 0), 90);
    EXPECT_EQ(q.w, kHalfRoot);
    for (const double component : test::values(q.v)) EXPECT_TRUE(std::isnan(component));
}

// The direction of an invalid axis is three times the invalid value, whose product with the sine of
// 45 degrees is valid again.
TEST(GenQuaternionAxisAngle, AnInvalidAxisLosesItsX) {
    ZyrVector3d axis(5, test::kInvalid, 7);
    ZyrQuaternion q;
    q.GenQuaternion(axis, 90);
    EXPECT_EQ(test::values(axis), (std::vector<double>{test::kInvalid, test::kInvalid, 7}));
    const double component = test::kInvalid * std::sin(test::kPi / 4);
    EXPECT_EQ(test::values(q),
              (std::vector<double>{std::cos(test::kPi / 4), component, component, component}));
    EXPECT_TRUE(q.IsValid());
}

// 6,000,000 turns are 2,160,000,000 degrees, which is 2^32 less in 32 signed bits.
TEST(GenQuaternionAxisAngle, DegreesOfTheTurnsWrapInThirtyTwoBits) {
    const double rest = 90.0 + 4294967296.0;
    const ZyrQuaternion q = generated(ZyrVector3d(1, 0, 0), 2160000090.0);
    EXPECT_EQ(q.w, std::cos(rest * test::kPi / 360.0));
    EXPECT_EQ(q.v.x, std::sin(rest * test::kPi / 360.0));
}

// Turns beyond 32 bits count as -2^31, whose degrees wrap to 0.
TEST(GenQuaternionAxisAngle, TurnsBeyondThirtyTwoBitsTakeNothingOff) {
    EXPECT_EQ(generated(ZyrVector3d(1, 0, 0), 1e13).w, std::cos(1e13 * test::kPi / 360.0));
}

TEST(GenQuaternionAxisAngle, AnAngleThatIsNoNumberGivesNaN) {
    EXPECT_TRUE(std::isnan(generated(ZyrVector3d(1, 0, 0), std::nan("")).w));
    EXPECT_TRUE(
        std::isnan(generated(ZyrVector3d(1, 0, 0), std::numeric_limits<double>::infinity()).w));
}

TEST(GenQuaternionAxisAngle, TheAxisMayBeItsOwnVector) {
    ZyrQuaternion q = quaternion(3, 0, 0, 4);
    q.GenQuaternion(q.v, 90);
    EXPECT_EQ(test::values(q), test::values(generated(ZyrVector3d(0, 0, 1), 90)));
}

TEST(GenQuaternionDirections, RightAnglesGiveAUnitQuaternion) {
    const ZyrQuaternion q = between(ZyrVector3d(1, 0, 0), ZyrVector3d(0, 1, 0));
    EXPECT_EQ(test::values(q), (std::vector<double>{kHalfRoot, 0, 0, kHalfRoot}));
}

TEST(GenQuaternionDirections, TheVectorIsScaledByTheSineOfTheAngle) {
    for (const double degrees : {10.0, 60.0, 120.0, 170.0}) {
        const double a = degrees * test::kPi / 180;
        const ZyrQuaternion q =
            between(ZyrVector3d(2, 0, 0), ZyrVector3d(3 * std::cos(a), 3 * std::sin(a), 0));
        test::expectNear(test::values(q), {std::cos(a / 2), 0, 0, std::sin(a) * std::sin(a / 2)},
                         1e-14);
    }
}

TEST(GenQuaternionDirections, NearlyEqualOnesAreFarFromUnitLength) {
    const ZyrQuaternion q = between(ZyrVector3d(1, 0, 0), ZyrVector3d(1, 0.001, 0));
    EXPECT_NEAR(q.w, 1.0, 1e-6);
    EXPECT_NEAR(q.v.Norm(), 5e-7, 1e-12);
}

TEST(GenQuaternionDirections, OppositeOnesTurnAboutAnAxisAcross) {
    const auto opposite = [](double x, double y, double z) {
        return test::values(between(ZyrVector3d(x, y, z), ZyrVector3d(-x, -y, -z)));
    };
    EXPECT_EQ(opposite(1, 0, 0), (std::vector<double>{0, 0, 0, 1}));
    EXPECT_EQ(opposite(0, 1, 0), (std::vector<double>{0, 1, 0, 0}));
    EXPECT_EQ(opposite(0, 0, 1), (std::vector<double>{0, 0, 1, 0}));
    EXPECT_EQ(opposite(0, -1, 0), (std::vector<double>{0, 0, 0, 1}));
    EXPECT_EQ(opposite(0, 0, -1), (std::vector<double>{0, 0, -1, 0}));
}

TEST(GenQuaternionDirections, TheAxisAcrossIsMadeFromXBeforeY) {
    const ZyrQuaternion q = between(ZyrVector3d(3, 4, 0), ZyrVector3d(-3, -4, 0));
    EXPECT_EQ(test::values(q), (std::vector<double>{0, 0, 0, 1}));
}

TEST(GenQuaternionDirections, TheAxisAcrossHasUnitLength) {
    const ZyrQuaternion fromX = between(ZyrVector3d(12, 3, 4), ZyrVector3d(-12, -3, -4));
    test::expectNear(test::values(fromX), {0, -4 / std::sqrt(160), 0, 12 / std::sqrt(160)}, 1e-15);
    const ZyrQuaternion fromY = between(ZyrVector3d(3, 12, 4), ZyrVector3d(-3, -12, -4));
    test::expectNear(test::values(fromY), {0, 12 / std::sqrt(153), -3 / std::sqrt(153), 0}, 1e-15);
    const ZyrQuaternion fromZ = between(ZyrVector3d(3, 4, 12), ZyrVector3d(-3, -4, -12));
    test::expectNear(test::values(fromZ), {0, 0, 12 / std::sqrt(160), -4 / std::sqrt(160)}, 1e-15);
}

// This length is exactly 2: x and y of the direction are one half and don't exceed it.
TEST(GenQuaternionDirections, OneHalfIsNotEnoughForXOrY) {
    const double root = std::sqrt(2.0);
    const ZyrQuaternion q = between(ZyrVector3d(1, 1, root), ZyrVector3d(-1, -1, -root));
    EXPECT_EQ(q.v.x, 0.0);
    EXPECT_NEAR(q.v.y, root / std::sqrt(3.0), 1e-15);
    EXPECT_NEAR(q.v.z, -1 / std::sqrt(3.0), 1e-15);
}

TEST(GenQuaternionDirections, FromMinusXToItsOppositeGivesNaN) {
    const ZyrQuaternion q = between(ZyrVector3d(-1, 0, 0), ZyrVector3d(1, 0, 0));
    EXPECT_EQ(q.w, 0.0);
    for (const double component : test::values(q.v)) EXPECT_TRUE(std::isnan(component));
}

TEST(GenQuaternionDirections, OppositeEndsAtOneHundredThousandth) {
    const auto atCosine = [](double cosine) {
        const ZyrVector3d to(cosine, std::sqrt(1 - cosine * cosine), 0);
        return between(ZyrVector3d(1, 0, 0), to);
    };
    EXPECT_EQ(atCosine(-1 + 0.99e-5).w, 0.0);
    EXPECT_NEAR(atCosine(-1 + 1.01e-5).w, std::sqrt(1.01e-5 / 2), 1e-9);
}

// The direction (1, 5, 0), normalised, has a dot product above 1 with itself.
TEST(GenQuaternionDirections, ACosineAboveOneIsNotClamped) {
    const ZyrQuaternion q = between(ZyrVector3d(1, 5, 0), ZyrVector3d(1, 5, 0));
    EXPECT_NEAR(q.w, 1.0, 1e-15);
    for (const double component : test::values(q.v)) EXPECT_TRUE(std::isnan(component));
}

TEST(GenQuaternionDirections, UnusableDirectionsChangeNothing) {
    const ZyrVector3d good(1, 2, 3), tooShort(0, 9.9e-6, 0), invalid(1, test::kInvalid, 0);
    for (const ZyrVector3d& bad : {tooShort, invalid, ZyrVector3d(), ZyrVector3d(0, 0, 0)}) {
        EXPECT_EQ(test::values(between(good, bad)), kUntouched);
        EXPECT_EQ(test::values(between(bad, good)), kUntouched);
    }
}

// Each component is valid, but the length exceeds the invalid value.
TEST(GenQuaternionDirections, ADirectionTooLongLosesItsX) {
    ZyrVector3d from(3e38, 3e38, 3e38), to(0, 1, 0);
    ZyrQuaternion q;
    q.GenQuaternion(from, to);
    EXPECT_EQ(test::values(from), (std::vector<double>{test::kInvalid, 3e38, 3e38}));
    EXPECT_EQ(q.w, std::sqrt((1.0 + test::kInvalid) * 0.5));
    EXPECT_TRUE(std::isnan(q.v.x));
}

TEST(GenQuaternionDirections, ALengthOfOneHundredThousandthIsEnough) {
    const ZyrQuaternion q = between(ZyrVector3d(1e-5, 0, 0), ZyrVector3d(0, 1e-5, 0));
    EXPECT_EQ(test::values(q), (std::vector<double>{kHalfRoot, 0, 0, kHalfRoot}));
}

TEST(GenQuaternionDirections, ADirectionMayBeItsOwnVector) {
    ZyrQuaternion q = quaternion(0, 2, 0, 0);
    ZyrVector3d to(0, 1, 0);
    q.GenQuaternion(q.v, to);
    EXPECT_EQ(test::values(q), (std::vector<double>{kHalfRoot, 0, 0, kHalfRoot}));
}

TEST(GenQuaternionMatrix, TheLargestComponentIsPositive) {
    expectElevenths(fromMatrix(rotationOf(-10, 1, 2, 4)), 10, -1, -2, -4);
    expectElevenths(fromMatrix(rotationOf(1, -10, 2, 4)), -1, 10, -2, -4);
    expectElevenths(fromMatrix(rotationOf(1, 2, -10, 4)), -1, -2, 10, -4);
    expectElevenths(fromMatrix(rotationOf(1, 2, 4, -10)), -1, -2, -4, 10);
}

TEST(GenQuaternionMatrix, EachBranchKeepsTheSignsOfTheOthers) {
    expectElevenths(fromMatrix(rotationOf(10, 1, -2, 4)), 10, 1, -2, 4);
    expectElevenths(fromMatrix(rotationOf(-1, 10, 2, -4)), -1, 10, 2, -4);
    expectElevenths(fromMatrix(rotationOf(1, -2, 10, 4)), 1, -2, 10, 4);
    expectElevenths(fromMatrix(rotationOf(-1, 2, -4, 10)), -1, 2, -4, 10);
}

TEST(GenQuaternionMatrix, TiesGoToWBeforeTheOthers) {
    const double h = std::sqrt(0.5);
    test::expectNear(test::values(fromMatrix(ZyrMatrix3(1, 0, 0, 0, 0, 1, 0, -1, 0))),
                     {h, -h, 0, 0}, 1e-15);
    test::expectNear(test::values(fromMatrix(ZyrMatrix3(0, 0, -1, 0, 1, 0, 1, 0, 0))),
                     {h, 0, -h, 0}, 1e-15);
    test::expectNear(test::values(fromMatrix(ZyrMatrix3(0, 1, 0, -1, 0, 0, 0, 0, 1))),
                     {h, 0, 0, -h}, 1e-15);
}

TEST(GenQuaternionMatrix, TiesGoToXBeforeYAndZ) {
    const double h = std::sqrt(0.5);
    test::expectNear(test::values(fromMatrix(ZyrMatrix3(0, -1, 0, -1, 0, 0, 0, 0, -1))),
                     {0, h, -h, 0}, 1e-15);
    test::expectNear(test::values(fromMatrix(ZyrMatrix3(0, 0, -1, 0, -1, 0, -1, 0, 0))),
                     {0, h, 0, -h}, 1e-15);
}

TEST(GenQuaternionMatrix, TiesGoToYBeforeZ) {
    const double h = std::sqrt(0.5);
    test::expectNear(test::values(fromMatrix(ZyrMatrix3(-1, 0, 0, 0, 0, -1, 0, -1, 0))),
                     {0, 0, h, -h}, 1e-15);
}

TEST(GenQuaternionMatrix, OfFourEqualCandidatesWIsTaken) {
    const ZyrQuaternion q = fromMatrix(ZyrMatrix3(0, 1, 0, 0, 0, 1, 1, 0, 0));
    EXPECT_EQ(test::values(q), (std::vector<double>{0.5, -0.5, -0.5, -0.5}));
}

TEST(GenQuaternionMatrix, AReflectionIsTakenForARotation) {
    const ZyrQuaternion q = fromMatrix(ZyrMatrix3(1, 0, 0, 0, 1, 0, 0, 0, -1));
    EXPECT_EQ(test::values(q), (std::vector<double>{std::sqrt(0.5), 0, 0, 0}));
}

TEST(GenQuaternionMatrix, ARefusedMatrixChangesNothing) {
    EXPECT_EQ(test::values(fromMatrix(ZyrMatrix3())), kUntouched);
    EXPECT_EQ(test::values(fromMatrix(ZyrMatrix3(2, 0, 0, 0, 2, 0, 0, 0, 2))), kUntouched);
    EXPECT_EQ(test::values(fromMatrix(ZyrMatrix3(1, 0, 0, 0, 1, 0, 0, 0, 1.00001))), kUntouched);
}
