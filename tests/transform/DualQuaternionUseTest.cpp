#include <gtest/gtest.h>

#include "support/TransformValues.h"

using test::quaternion;

namespace {

ZyrDualQuaternion motion(ZyrQuaternion rotation, double x, double y, double z) {
    ZyrVector3d t(x, y, z);
    ZyrDualQuaternion q;
    q.GenDualQuaternion(rotation, t);
    return q;
}

ZyrDualQuaternion identity() {
    return ZyrDualQuaternion(quaternion(1, 0, 0, 0), quaternion(0, 0, 0, 0));
}

ZyrMatrix4 filled(double v) {
    return ZyrMatrix4(v, v, v, v, v, v, v, v, v, v, v, v, v, v, v, v);
}

const std::vector<double> kDefault = test::values(ZyrDualQuaternion());

const ZyrDualQuaternion kUnusable[] = {
    ZyrDualQuaternion(), ZyrDualQuaternion(quaternion(0, 0, 0, 0), quaternion(0, 1, 2, 3)),
    ZyrDualQuaternion(quaternion(1, 0, 0, 0), ZyrQuaternion())};

using Mixture = void (ZyrDualQuaternion::*)(ZyrDualQuaternion&, double, ZyrDualQuaternion*);

ZyrDualQuaternion mixed(Mixture mixture, ZyrDualQuaternion q, ZyrDualQuaternion p, double t) {
    ZyrDualQuaternion out(quaternion(9, 9, 9, 9), quaternion(9, 9, 9, 9));
    (q.*mixture)(p, t, &out);
    return out;
}

const std::vector<double> kUntouched(8, 9.0);

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

// Half way from none to a quarter turn is an eighth; the weights are sin 22.5 / sin 45 each.
TEST(DualQuaternionSlerp, WeighsBothPartsAlike) {
    const double eighth = test::kPi / 8, k = std::sin(eighth) / std::sin(2 * eighth);
    const double half = std::sqrt(0.5);
    const ZyrDualQuaternion q = motion(quaternion(1, 0, 0, 0), 2, 0, 0);
    const ZyrDualQuaternion p = motion(test::aboutZ(90), 0, 0, 4);
    test::expectNear(test::values(mixed(&ZyrDualQuaternion::SLERP, q, p, 0.5)),
                     {std::cos(eighth), 0, 0, std::sin(eighth), -2 * half * k, k, 0, 2 * half * k},
                     1e-6);
}

TEST(DualQuaternionSlerp, EndsAtTheNormalisedOnesForZeroAndOne) {
    const ZyrDualQuaternion q = motion(quaternion(2, 0, 0, 0), 2, 0, 0);
    const ZyrDualQuaternion p = motion(quaternion(0, 0, 0, 4), 0, 6, 0);
    test::expectNear(test::values(mixed(&ZyrDualQuaternion::SLERP, q, p, 0)),
                     {1, 0, 0, 0, 0, 1, 0, 0}, 1e-15);
    test::expectNear(test::values(mixed(&ZyrDualQuaternion::SLERP, q, p, 1)),
                     {0, 0, 0, 1, 0, 3, 0, 0}, 1e-15);
}

TEST(DualQuaternionSlerp, TakesTheShorterArc) {
    const ZyrDualQuaternion p = motion(test::aboutZ(90) * -1.0, 0, 0, 4);
    const ZyrDualQuaternion end = mixed(&ZyrDualQuaternion::SLERP, identity(), p, 1);
    test::expectNear(test::values(end), test::values(motion(test::aboutZ(90), 0, 0, 4)), 1e-6);
    const ZyrDualQuaternion third = mixed(&ZyrDualQuaternion::SLERP, identity(), p, 1.0 / 3);
    test::expectNear(test::values(third.real), test::values(test::aboutZ(30)), 1e-6);
}

TEST(DualQuaternionSlerp, ExtrapolatesAlongTheSameArc) {
    const ZyrDualQuaternion out =
        mixed(&ZyrDualQuaternion::SLERP, identity(), motion(test::aboutZ(30), 0, 0, 0), 2);
    test::expectNear(test::values(out.real), test::values(test::aboutZ(60)), 1e-6);
}

TEST(DualQuaternionSlerp, NearlyEqualRotationsGiveInvalidParts) {
    const auto slerp = &ZyrDualQuaternion::SLERP;
    EXPECT_EQ(test::values(mixed(slerp, identity(), identity(), 0.5)), kDefault);
    const ZyrDualQuaternion near = motion(test::aboutZ(0.001), 1, 2, 3);
    EXPECT_EQ(test::values(mixed(slerp, identity(), near, 0.5)), kDefault);
    EXPECT_TRUE(mixed(slerp, identity(), motion(test::aboutZ(0.002), 1, 2, 3), 0.5).IsValid());
}

// The rounded length makes the cosine 1.00000014, whose sine is no number.
TEST(DualQuaternionSlerp, ACosineAboveOneGivesInvalidParts) {
    const ZyrDualQuaternion q(quaternion(0.1, 0.2, 0.3, 0.4), quaternion(0, 0, 0, 0));
    EXPECT_EQ(test::values(mixed(&ZyrDualQuaternion::SLERP, q, q, 0.5)), kDefault);
}

TEST(DualQuaternionLerp, NormalisesBothEndsAndTheMixture) {
    const ZyrDualQuaternion q = motion(quaternion(2, 0, 0, 0), 2, 0, 0);
    const ZyrDualQuaternion p = motion(quaternion(0, 0, 0, 4), 0, 6, 0);
    const double l = std::sqrt(0.625);
    const ZyrDualQuaternion out = mixed(&ZyrDualQuaternion::LERP, q, p, 0.25);
    test::expectNear(test::values(out.real), {0.75 / l, 0, 0, 0.25 / l}, 1e-6);
    test::expectNear(test::values(out.dual), {0, 1.5 / l, 0, 0}, 1e-6);
}

TEST(DualQuaternionLerp, KeepsTheSignsOfBothEnds) {
    const ZyrDualQuaternion p(quaternion(-0.6, 0, 0, 0.8), quaternion(0, 0, 0, 0));
    const ZyrDualQuaternion out = mixed(&ZyrDualQuaternion::LERP, identity(), p, 0.75);
    const double l = std::sqrt(0.4);
    test::expectNear(test::values(out.real), {-0.2 / l, 0, 0, 0.6 / l}, 1e-6);
}

TEST(DualQuaternionMixture, AnUnusableEndLeavesTheOutputUntouched) {
    for (const Mixture mixture : {&ZyrDualQuaternion::SLERP, &ZyrDualQuaternion::LERP})
        for (const ZyrDualQuaternion& unusable : kUnusable) {
            const ZyrDualQuaternion good = motion(test::aboutZ(90), 1, 2, 3);
            EXPECT_EQ(test::values(mixed(mixture, unusable, good, 0.5)), kUntouched);
            EXPECT_EQ(test::values(mixed(mixture, good, unusable, 0.5)), kUntouched);
        }
}

TEST(DualQuaternionMixture, TheOutputMayBeEitherEnd) {
    const ZyrDualQuaternion start = motion(test::aboutZ(10), 1, 2, 3);
    const ZyrDualQuaternion end = motion(test::aboutX(70), 3, 5, 7);
    for (const Mixture mixture : {&ZyrDualQuaternion::SLERP, &ZyrDualQuaternion::LERP}) {
        const auto expected = test::values(mixed(mixture, start, end, 0.3));
        ZyrDualQuaternion q = start, p = end;
        (q.*mixture)(p, 0.3, &q);
        EXPECT_EQ(test::values(q), expected);
        q = start;
        (q.*mixture)(p, 0.3, &p);
        EXPECT_EQ(test::values(p), expected);
    }
}
