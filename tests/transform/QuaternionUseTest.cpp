#include <gtest/gtest.h>

#include "support/TransformValues.h"

using test::quaternion;

namespace {

ZyrVector3d transformed(ZyrQuaternion q, ZyrVector3d d) {
    ZyrVector3d out(9, 9, 9);
    q.TransformDirection(d, &out);
    return out;
}

/// Axis and angle, as x, y, z, degrees.
std::vector<double> axisAngle(ZyrQuaternion q) {
    ZyrVector3d axis(9, 9, 9);
    double angle = 9;
    q.GetAxisAngle(&axis, &angle);
    return {axis.x, axis.y, axis.z, angle};
}

const ZyrQuaternion kUnusable[] = {ZyrQuaternion(), quaternion(1, 0, 0, test::kInvalid),
                                   quaternion(0, 0, 0, 0), quaternion(1, std::nan(""), 0, 0)};

}  // namespace

TEST(GetAxisAngle, GivesAUnitAxisAndDegrees) {
    test::expectNear(axisAngle(quaternion(2, 0, 2, 0)), {0, 1, 0, 90}, 1e-13);
    test::expectNear(axisAngle(quaternion(0, 0, 0, 7)), {0, 0, 1, 180}, 1e-13);
}

TEST(GetAxisAngle, ANegativeScalarGoesTheLongWayRound) {
    test::expectNear(axisAngle(quaternion(-1, 0, 0, 1)), {0, 0, 1, 270}, 1e-13);
}

TEST(GetAxisAngle, NoRotationHasTheZeroAxis) {
    EXPECT_EQ(axisAngle(quaternion(1, 0, 0, 0)), (std::vector<double>{0, 0, 0, 0}));
    EXPECT_EQ(axisAngle(quaternion(-1, 0, 0, 0)), (std::vector<double>{0, 0, 0, 360}));
}

TEST(GetAxisAngle, AVectorOfOneHundredThousandthIsStillTheZeroAxis) {
    const double degrees = 2 * (std::atan(1e-5) * 180 / test::kPi);
    test::expectNear(axisAngle(quaternion(1, 1e-5, 0, 0)), {0, 0, 0, degrees}, 1e-17);
    EXPECT_EQ(axisAngle(quaternion(1, 1.001e-5, 0, 0))[0], 1.0);
}

TEST(GetAxisAngle, AnUnusableQuaternionWritesNothing) {
    for (const ZyrQuaternion& q : kUnusable)
        EXPECT_EQ(axisAngle(q), (std::vector<double>{9, 9, 9, 9}));
}

TEST(GetAxisAngle, TheOutputsMayBeItsOwnParts) {
    ZyrQuaternion q = quaternion(2, 0, 2, 0);
    q.GetAxisAngle(&q.v, &q.w);
    test::expectNear(test::values(q), {90, 0, 1, 0}, 1e-13);
}

TEST(TransformDirection, RotatesAndRenormalises) {
    test::expectNear(test::values(transformed(test::aboutZ(90), ZyrVector3d(5, 0, 0))), {0, 1, 0},
                     1e-15);
    test::expectNear(test::values(transformed(test::aboutX(90), ZyrVector3d(0, 0, 2))), {0, -1, 0},
                     1e-15);
}

// The terms of x are 1, 2^55 and -2^55, the first of which is swallowed.
TEST(TransformDirection, AddsTheDirectionToTheScalarTermFirst) {
    const ZyrQuaternion q = quaternion(0x1p27, 0, 0x1p27, 0);
    EXPECT_EQ(test::values(transformed(q, ZyrVector3d(1, 0, 1))), (std::vector<double>{0, 0, -1}));
}

// The terms of x are 2^54, 1 and -2^54.
TEST(TransformDirection, AddsTheCrossProductLast) {
    const ZyrQuaternion q = quaternion(1, 0.5, 0.5, 0);
    EXPECT_EQ(test::values(transformed(q, ZyrVector3d(0x1p54, -0x1p54, 1))),
              (std::vector<double>{0, 0, -1}));
}

// A unit quaternion in this direction would give (0, 1, 0).
TEST(TransformDirection, TheQuaternionIsNotNormalised) {
    test::expectNear(test::values(transformed(quaternion(1, 0, 0, 1), ZyrVector3d(1, 0, 0))),
                     {-1 / std::sqrt(5), 2 / std::sqrt(5), 0}, 1e-15);
}

TEST(TransformDirection, AnInvalidDirectionIsTransformedToo) {
    const ZyrVector3d out = transformed(quaternion(1, 0, 0, 0), ZyrVector3d());
    EXPECT_EQ(test::values(out), test::values(ZyrVector3d()));
    const ZyrVector3d unmarked = transformed(test::aboutZ(90), ZyrVector3d(1e39, 0, 0));
    test::expectNear(test::values(unmarked), test::values(ZyrVector3d()), 0);
}

TEST(TransformDirection, AZeroDirectionGivesNaN) {
    for (const double c : test::values(transformed(test::aboutZ(90), ZyrVector3d(0, 0, 0))))
        EXPECT_TRUE(std::isnan(c));
}

TEST(TransformDirection, TheOutputMayBeTheInputOrItsOwnVector) {
    ZyrQuaternion q = test::aboutZ(90);
    ZyrVector3d d(1, 0, 0);
    q.TransformDirection(d, &d);
    test::expectNear(test::values(d), {0, 1, 0}, 1e-15);
    q.TransformDirection(d, &q.v);
    test::expectNear(test::values(q.v), {-1, 0, 0}, 1e-15);
}

// By hand from (1, 2, 4, 10) / 11. The usual matrix has 76, 84 and 81 as m12, m21 and m22.
TEST(GetTransMatrix, WritesItsOwnThreeEntriesBesideTheUsualOnes) {
    ZyrQuaternion q = quaternion(1, 2, 4, 10);
    ZyrMatrix3 m;
    q.GetTransMatrix(&m);
    std::vector<double> expected{-111, -4, 48, 36, -87, 60, 32, 100, -111};
    for (double& e : expected) e /= 121;
    test::expectNear(test::values(m), expected, 1e-15);
}

TEST(GetTransMatrix, IsTheUsualOneForHalfTurnsWithOppositeXAndZ) {
    ZyrQuaternion q = quaternion(0, 1, 0, -1);
    ZyrMatrix3 m;
    q.GetTransMatrix(&m);
    test::expectNear(test::values(m), {0, 0, -1, 0, -1, 0, -1, 0, 0}, 1e-6);
}

TEST(GetTransMatrix, NormalisesTheQuaternionItself) {
    ZyrQuaternion q = quaternion(-1, 2, 4, 10);
    ZyrMatrix3 m;
    q.GetTransMatrix(&m);
    EXPECT_EQ(test::values(q), (std::vector<double>{-1.0 / 11, 2.0 / 11, 4.0 / 11, 10.0 / 11}));
}

TEST(GetTransMatrix, AgreesWithTheUsualMatrixAboutY) {
    const double c = std::cos(test::kPi / 6), s = std::sin(test::kPi / 6);
    ZyrQuaternion q = quaternion(std::cos(test::kPi / 12), 0, std::sin(test::kPi / 12), 0);
    ZyrMatrix3 m;
    q.GetTransMatrix(&m);
    test::expectNear(test::values(m), {c, 0, s, 0, 1, 0, -s, 0, c}, 1e-6);
}

TEST(GetTransMatrix, DiffersFromTheUsualMatrixAboutX) {
    ZyrQuaternion q = test::aboutX(90);
    ZyrMatrix3 m;
    q.GetTransMatrix(&m);
    test::expectNear(test::values(m), {1, 0, 0, 0, 0, 0, 0, 0, 1}, 1e-6);
    EXPECT_FALSE(IsValidTransformMatrix(m));
}

TEST(GetTransMatrix, DiffersFromTheUsualMatrixAboutZ) {
    ZyrQuaternion q = test::aboutZ(90);
    ZyrMatrix3 m;
    q.GetTransMatrix(&m);
    test::expectNear(test::values(m), {0, -1, 0, 1, 0, -1, 0, 1, 0}, 1e-6);
    EXPECT_FALSE(IsValidTransformMatrix(m));
}

TEST(GetTransMatrix, AnUnusableQuaternionWritesNothingAndStays) {
    for (ZyrQuaternion q : kUnusable) {
        const ZyrQuaternion before = q;
        ZyrMatrix3 m(1, 2, 3, 4, 5, 6, 7, 8, 9);
        q.GetTransMatrix(&m);
        EXPECT_EQ(test::values(m), (std::vector<double>{1, 2, 3, 4, 5, 6, 7, 8, 9}));
        EXPECT_TRUE(test::sameBits(q.w, before.w) && test::sameBits(q.v.x, before.v.x));
    }
}

TEST(QuaternionEquals, IgnoresScaleButNotSign) {
    ZyrQuaternion q = quaternion(0.5, 0.5, -0.5, 0.5);
    EXPECT_TRUE(q.Equals(q * 2.0, 1e-6));
    EXPECT_FALSE(q.Equals(q * -1.0, 0.5));
    EXPECT_FALSE(q.Equals(q * -1.0, 1.999));
    EXPECT_TRUE(q.Equals(q * -1.0, 2.0));
}

TEST(QuaternionEquals, ComparesTheCosineWithOne) {
    ZyrQuaternion q = quaternion(1, 0, 0, 0);
    EXPECT_FALSE(q.Equals(test::aboutZ(90), 0.2928));
    EXPECT_TRUE(q.Equals(test::aboutZ(90), 0.2930));
}

TEST(QuaternionEquals, ReachesTheToleranceItself) {
    EXPECT_TRUE(quaternion(1, 0, 0, 0).Equals(quaternion(0, 1, 0, 0), 1.0));
    EXPECT_FALSE(quaternion(1, 0, 0, 0).Equals(quaternion(0, 1, 0, 0), 0.9999999999999999));
}

TEST(QuaternionEquals, ANegativeToleranceCountsAsZero) {
    EXPECT_TRUE(quaternion(1, 0, 0, 0).Equals(quaternion(1, 0, 0, 0), -5.0));
    EXPECT_TRUE(quaternion(1, 0, 0, 0).Equals(quaternion(1, 0, 0, 0), 0.0));
    EXPECT_FALSE(quaternion(1, 0, 0, 0).Equals(quaternion(1, 1, 0, 0), -5.0));
    EXPECT_FALSE(quaternion(1, 0, 0, 0).Equals(quaternion(1, 0, 0, 0), std::nan("")));
}

// 0.3 divided by the square of its rounded length is about 1.00000014.
TEST(QuaternionEquals, MeasuresLengthsInSinglePrecision) {
    ZyrQuaternion q = quaternion(0.1, 0.2, 0.3, 0.4);
    EXPECT_FALSE(q.Equals(q, 1e-8));
    EXPECT_TRUE(q.Equals(q, 1e-6));
}

TEST(QuaternionEquals, IsFalseForAnUnusableOne) {
    ZyrQuaternion good = quaternion(1, 0, 0, 0);
    for (ZyrQuaternion q : kUnusable) {
        EXPECT_FALSE(q.Equals(good, 1e300));
        EXPECT_FALSE(good.Equals(q, 1e300));
        EXPECT_FALSE(q.Equals(q, 1e300));
    }
}

// Any sum that adds y before the first two gives a difference of ...899.
TEST(QuaternionEquals, TheCosineSumsXAndWThenYThenZ) {
    ZyrQuaternion q = quaternion(0.8138790090116965, 0.8354131676764445, -0.44954927306840187,
                                 0.2928303512851771);
    const ZyrQuaternion p =
        quaternion(0.5427974150285388, 0.5783440006131828, -0.4425342475482779, 0.5192847986530693);
    EXPECT_TRUE(q.Equals(p, 0.05005348771356888));
    EXPECT_FALSE(q.Equals(p, std::nextafter(0.05005348771356888, 0)));
}
