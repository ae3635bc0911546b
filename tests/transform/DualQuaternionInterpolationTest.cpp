#include <gtest/gtest.h>

#include "support/DualQuaternions.h"

using test::identity;
using test::kUnusable;
using test::motion;
using test::quaternion;

namespace {

const std::vector<double> kDefault = test::values(ZyrDualQuaternion());

using Mixture = void (ZyrDualQuaternion::*)(ZyrDualQuaternion&, double, ZyrDualQuaternion*);

ZyrDualQuaternion mixed(Mixture mixture, ZyrDualQuaternion q, ZyrDualQuaternion p, double t) {
    ZyrDualQuaternion out(quaternion(9, 9, 9, 9), quaternion(9, 9, 9, 9));
    (q.*mixture)(p, t, &out);
    return out;
}

const std::vector<double> kUntouched(8, 9.0);

}  // namespace

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

TEST(DualQuaternionSlerp, OppositeRealPartsGiveInvalidParts) {
    const ZyrDualQuaternion p(quaternion(-1, 0, 0, 0), quaternion(0, 0, 0, 0));
    for (const double t : {0.0, 0.5, 1.0})
        EXPECT_EQ(test::values(mixed(&ZyrDualQuaternion::SLERP, identity(), p, t)), kDefault);
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
