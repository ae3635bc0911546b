#include <gtest/gtest.h>

#include "support/DualQuaternions.h"

using test::identity;
using test::kUnusable;
using test::motion;
using test::quaternion;

namespace {

ZyrMatrix4 filled(double v) {
    return ZyrMatrix4(v, v, v, v, v, v, v, v, v, v, v, v, v, v, v, v);
}

/// Valid, but without an inverse: it counts as (0; i, i, i), where i is the invalid value.
ZyrDualQuaternion tooShortToInvert() {
    return ZyrDualQuaternion(quaternion(1e-3, 0, 0, 0), quaternion(0, 1, 2, 3));
}

}  // namespace

TEST(GetTransformMatrix, GivesBackAPureTranslation) {
    const ZyrMatrix4 m(1, 0, 0, 4, 0, 1, 0, 6, 0, 0, 1, 8, 0, 0, 0, 1);
    ZyrDualQuaternion q;
    q.GenDualQuaternion(m);
    ZyrMatrix4 back = filled(7);
    q.GetTransformMatrix(&back);
    EXPECT_EQ(test::values(back), test::values(m));
}

// The rotation (1, 2, 4, 10) / 11 by the quaternion's own table, with the translation beside it.
TEST(GetTransformMatrix, UsesTheQuaternionsOwnTable) {
    ZyrDualQuaternion q = motion(quaternion(1, 2, 4, 10) / 11.0, 3, 5, 7);
    ZyrMatrix4 m = filled(7);
    q.GetTransformMatrix(&m);
    const double n = 121;
    test::expectNear(test::values(m),
                     {-111 / n, -4 / n, 48 / n, 3, 36 / n, -87 / n, 60 / n, 5, 32 / n, 100 / n,
                      -111 / n, 7, 0, 0, 0, 1},
                     1e-14);
}

// The dual part stays as long as it was: the translation, truly (0, 1, 0), comes out four times
// that.
TEST(GetTransformMatrix, NormalisesTheRealPartAlone) {
    ZyrDualQuaternion q(quaternion(0, 0, 0, 4), quaternion(0, 2, 0, 0));
    ZyrMatrix4 m;
    q.GetTransformMatrix(&m);
    EXPECT_EQ(test::values(q), (std::vector<double>{0, 0, 0, 1, 0, 2, 0, 0}));
    EXPECT_EQ(m.Value(0, 3), 0.0);
    EXPECT_EQ(m.Value(1, 3), 4.0);
}

TEST(GetTransformMatrix, AnUnusableOneWritesNothing) {
    for (ZyrDualQuaternion q : kUnusable) {
        const auto before = test::values(q);
        ZyrMatrix4 m = filled(7);
        q.GetTransformMatrix(&m);
        EXPECT_EQ(test::values(m), test::values(filled(7)));
        EXPECT_EQ(test::values(q), before);
    }
}

TEST(GetRotateTrans, GivesTheUnitRotationAndTheTranslation) {
    ZyrDualQuaternion q = motion(quaternion(0, 0, 0, 4), 1, 2, 3);
    ZyrQuaternion rotation;
    ZyrVector3d translation;
    q.GetRotateTrans(&rotation, &translation);
    EXPECT_EQ(test::values(rotation), (std::vector<double>{0, 0, 0, 1}));
    EXPECT_EQ(test::values(translation), (std::vector<double>{1, 2, 3}));
}

TEST(GetRotateTrans, GivesAPureTranslation) {
    ZyrDualQuaternion q = motion(quaternion(1, 0, 0, 0), 2, 0, 0);
    ZyrQuaternion rotation;
    ZyrVector3d translation;
    q.GetRotateTrans(&rotation, &translation);
    EXPECT_EQ(test::values(translation), (std::vector<double>{2, 0, 0}));
}

TEST(GetRotateTrans, AnUnusableOneWritesNothing) {
    for (ZyrDualQuaternion q : kUnusable) {
        ZyrQuaternion rotation = quaternion(9, 9, 9, 9);
        ZyrVector3d translation(9, 9, 9);
        q.GetRotateTrans(&rotation, &translation);
        EXPECT_EQ(test::values(rotation), (std::vector<double>{9, 9, 9, 9}));
        EXPECT_EQ(test::values(translation), (std::vector<double>{9, 9, 9}));
    }
}

// The translation is twice the cross product of (1, 2, 3) and (i, i, i).
TEST(GetRotateTrans, ARealPartTooShortToInvertGivesATranslationOfInvalidValues) {
    ZyrDualQuaternion q = tooShortToInvert();
    ZyrQuaternion rotation;
    ZyrVector3d translation;
    q.GetRotateTrans(&rotation, &translation);
    const double i = test::kInvalid;
    EXPECT_EQ(test::values(rotation), (std::vector<double>{1e-3 / 1e-3f, 0, 0, 0}));
    EXPECT_EQ(test::values(translation), (std::vector<double>{-2 * i, 4 * i, -2 * i}));
}

TEST(GetRotateTrans, TheOutputsMayBeItsOwnParts) {
    ZyrDualQuaternion q = motion(quaternion(0, 0, 0, 4), 1, 2, 3);
    q.GetRotateTrans(&q.real, &q.dual.v);
    EXPECT_EQ(test::values(q.real), (std::vector<double>{0, 0, 0, 1}));
    EXPECT_EQ(test::values(q.dual.v), (std::vector<double>{1, 2, 3}));
}

// A quarter turn about the vertical line through (1, 2, 0), rising by 5: the translation is
// (3, 1, 5), and the line's moment (1, 2, 0) x (0, 0, 1) = (2, -1, 0).
TEST(GetScrew, GivesAxisAngleMomentAndDistance) {
    ZyrDualQuaternion q = motion(test::aboutZ(90), 3, 1, 5);
    ZyrVector3d axis, point;
    double angle = 0, distance = 0;
    q.GetScrew(&axis, &angle, &point, &distance);
    test::expectNear(test::values(axis), {0, 0, 1}, 1e-15);
    test::expectNear(test::values(point), {2, -1, 0}, 1e-6);
    EXPECT_NEAR(angle, 90, 1e-13);
    EXPECT_NEAR(distance, 5, 1e-6);
}

TEST(GetScrew, APureTranslationHasNoAngleAndNoAxis) {
    ZyrDualQuaternion q = motion(quaternion(1, 0, 0, 0), 2, 3, 4);
    ZyrVector3d axis(9, 9, 9), point;
    double angle = 9, distance = 9;
    q.GetScrew(&axis, &angle, &point, &distance);
    EXPECT_EQ(test::values(axis), (std::vector<double>{0, 0, 0}));
    EXPECT_EQ(test::values(point), std::vector<double>(3, test::kInvalid / 2));
    EXPECT_EQ(angle, 0.0);
    EXPECT_EQ(distance, 0.0);
}

// The moment is half the translation divided by the tangent, 5e-6.
TEST(GetScrew, ATinyRotationHasNoAxisEither) {
    ZyrDualQuaternion q = motion(quaternion(1, 5e-6, 0, 0), 2, 3, 4);
    ZyrVector3d axis(9, 9, 9), point;
    double angle = 9, distance = 9;
    q.GetScrew(&axis, &angle, &point, &distance);
    EXPECT_EQ(test::values(axis), (std::vector<double>{0, 0, 0}));
    EXPECT_NEAR(angle, 360 * std::atan(5e-6) / test::kPi, 1e-15);
    test::expectNear(test::values(point), {2e5, 3e5, 4e5}, 1e-3);
    EXPECT_EQ(distance, 0.0);
}

TEST(GetScrew, ANegativeScalarGoesTheLongWayRound) {
    ZyrDualQuaternion q = motion(test::aboutZ(270), 0, 0, 5);
    ZyrVector3d axis, point;
    double angle = 0, distance = 0;
    q.GetScrew(&axis, &angle, &point, &distance);
    test::expectNear(test::values(axis), {0, 0, 1}, 1e-15);
    EXPECT_NEAR(angle, 270, 1e-12);
    EXPECT_NEAR(distance, 5, 1e-5);
}

TEST(GetScrew, AnUnusableOneWritesNothing) {
    for (ZyrDualQuaternion q : kUnusable) {
        ZyrVector3d axis(9, 9, 9), point(9, 9, 9);
        double angle = 9, distance = 9;
        q.GetScrew(&axis, &angle, &point, &distance);
        EXPECT_EQ(test::values(axis), (std::vector<double>{9, 9, 9}));
        EXPECT_EQ(test::values(point), (std::vector<double>{9, 9, 9}));
        EXPECT_EQ(angle, 9);
        EXPECT_EQ(distance, 9);
    }
}

TEST(GetScrew, AxisAngleAndPointAreWrittenBeforeDistance) {
    ZyrDualQuaternion q = motion(test::aboutZ(90), 3, 1, 5);
    ZyrVector3d vector;
    double number = 0;
    q.GetScrew(&vector, &number, &vector, &number);
    test::expectNear(test::values(vector), {2, -1, 0}, 1e-6);
    EXPECT_NEAR(number, 5, 1e-6);
}

TEST(TransformPoint, RotatesThenTranslates) {
    ZyrDualQuaternion q = motion(test::aboutZ(90), 0, 0, 5);
    ZyrVector3d p(1, 0, 0), out;
    q.TransformPoint(p, &out);
    test::expectNear(test::values(out), {0, 1, 5}, 1e-6);
}

TEST(TransformPoint, NormalisesWithoutChangingTheMotion) {
    ZyrDualQuaternion q = motion(quaternion(0, 0, 0, 4), 1, 2, 3);
    const auto before = test::values(q);
    ZyrVector3d p(10, 20, 30), out;
    q.TransformPoint(p, &out);
    EXPECT_EQ(test::values(out), (std::vector<double>{-9, -18, 33}));
    EXPECT_EQ(test::values(q), before);
}

TEST(TransformPoint, APointIsNotTestedForValidity) {
    ZyrDualQuaternion q = identity();
    ZyrVector3d p(test::kInvalid, 2, 3), out;
    q.TransformPoint(p, &out);
    EXPECT_EQ(test::values(out), (std::vector<double>{test::kInvalid, 2, 3}));
}

// The same translation times the square of the rounded unit part swallows the point.
TEST(TransformPoint, ARealPartTooShortToInvertMovesByInvalidValues) {
    ZyrDualQuaternion q = tooShortToInvert();
    ZyrVector3d p(10, 20, 30), out;
    q.TransformPoint(p, &out);
    EXPECT_EQ(test::values(out),
              (std::vector<double>{-6.8056462862688565e+38, 1.3611292572537713e+39,
                                   -6.8056462862688565e+38}));
}

TEST(TransformPoint, TheOutputMayBeTheInput) {
    ZyrDualQuaternion q = motion(quaternion(0, 0, 0, 1), 1, 2, 3);
    ZyrVector3d p(10, 20, 30);
    q.TransformPoint(p, &p);
    EXPECT_EQ(test::values(p), (std::vector<double>{-9, -18, 33}));
}

TEST(TransformPoint, AnUnusableMotionWritesNothing) {
    for (ZyrDualQuaternion q : kUnusable) {
        ZyrVector3d p(1, 2, 3), out(9, 9, 9);
        q.TransformPoint(p, &out);
        EXPECT_EQ(test::values(out), (std::vector<double>{9, 9, 9}));
    }
}
