#include <gtest/gtest.h>

#include "support/TransformValues.h"

using test::quaternion;

namespace {

ZyrQuaternion slerp(ZyrQuaternion q, ZyrQuaternion p, double t) {
    ZyrQuaternion out = quaternion(9, 9, 9, 9);
    q.SLERP(p, t, &out);
    return out;
}

ZyrQuaternion lerp(ZyrQuaternion q, ZyrQuaternion p, double t) {
    ZyrQuaternion out = quaternion(9, 9, 9, 9);
    q.LERP(p, t, &out);
    return out;
}

const std::vector<double> kUntouched{9, 9, 9, 9};

void expectBits(const ZyrQuaternion& q, std::vector<std::uint64_t> expected) {
    std::vector<std::uint64_t> actual;
    for (const double component : test::values(q)) actual.push_back(test::bits(component));
    EXPECT_EQ(actual, expected);
}

}  // namespace

TEST(QuaternionSlerp, GoesFromThisToTheOtherAtAnEvenPace) {
    for (const double t : {0.0, 0.25, 0.5, 1.0})
        test::expectNear(test::values(slerp(test::aboutZ(10), test::aboutZ(90), t)),
                         test::values(test::aboutZ(10 + 80 * t)), 1e-6);
}

TEST(QuaternionSlerp, ExtrapolatesAlongTheSameArc) {
    test::expectNear(test::values(slerp(quaternion(1, 0, 0, 0), test::aboutZ(30), 2)),
                     test::values(test::aboutZ(60)), 1e-6);
    test::expectNear(test::values(slerp(quaternion(1, 0, 0, 0), test::aboutZ(30), -1)),
                     test::values(test::aboutZ(-30)), 1e-6);
}

TEST(QuaternionSlerp, TakesTheShorterArcAndEndsAtTheOthersNegative) {
    const ZyrQuaternion far = test::aboutZ(90) * -1.0;
    test::expectNear(test::values(slerp(quaternion(1, 0, 0, 0), far, 1)),
                     test::values(test::aboutZ(90)), 1e-6);
    test::expectNear(test::values(slerp(quaternion(1, 0, 0, 0), far, 0.5)),
                     test::values(test::aboutZ(45)), 1e-6);
}

TEST(QuaternionSlerp, AtARightAngleEndsAtTheOtherItself) {
    test::expectNear(test::values(slerp(quaternion(1, 0, 0, 0), quaternion(0, 0, 0, 1), 1)),
                     {0, 0, 0, 1}, 1e-6);
}

// Computed apart, step by step in single and double precision. In double precision throughout, the
// first would begin with 0.67287212, the last 0.84479363 with another last bit of its weights.
TEST(QuaternionSlerp, RoundsCosineSineAndWeightsToSinglePrecision) {
    const ZyrQuaternion q = quaternion(0.9, 0.1, 0.2, 0.3);
    expectBits(
        slerp(q, quaternion(0.5, -0.4, 0.6, 0.2), 0.7),
        {0x3FE5882B2CCCCCCDu, 0xBFD0E924ECCCCCCDu, 0x3FE06D28CCCCCCCDu, 0x3FCFE2595999999Au});
    expectBits(
        slerp(q, quaternion(-0.5, 0.4, -0.6, -0.2), 0.7),
        {0x3FE5882B2CCCCCCDu, 0xBFD0E924ECCCCCCDu, 0x3FE06D28CCCCCCCDu, 0x3FCFE2595999999Au});
    expectBits(
        slerp(quaternion(1, 0, 0, 0), quaternion(0.9999, 0.01, 0.002, 0.003), 0.25),
        {0x3FEFFFE1D1FD8ADBu, 0x3F647AF8F5C28F5Cu, 0x3F406260C49BA5E3u, 0x3F48939126E978D5u});
}

TEST(QuaternionSlerp, RoundsTheReciprocalOfTheSineToo) {
    const ZyrQuaternion q = quaternion(0.9, 0.1, 0.2, 0.3);
    expectBits(
        slerp(q, quaternion(0.5, -0.4, 0.6, 0.04), 0.3),
        {0x3FEB088CACCCCCCDu, 0xBFAF071B33333334u, 0x3FD69FC480000000u, 0x3FCE8C08C28F5C29u});
    expectBits(
        slerp(q, quaternion(0.5, -0.4, 0.6, 0.05), 0.3),
        {0x3FEB034C08000000u, 0xBFAEF91DCCCCCCCCu, 0x3FD69A4DC6666666u, 0x3FCEF5A1D6666666u});
}

// By the reciprocal of the unrounded sine it would begin with 3FEC2B66.
TEST(QuaternionSlerp, RoundsTheSineBeforeItsReciprocal) {
    const ZyrQuaternion q = quaternion(0.9, 0.1, 0.2, 0.3);
    expectBits(
        slerp(q, quaternion(0.21, 0.21, 0.16, -0.68), 0.3),
        {0x3FEC2B6738A3D70Au, 0x3FC70D3548F5C290u, 0x3FCF6F140F5C28F6u, 0xBFA3060151EB8520u});
}

// x and w cancel at 1e16, which swallows y; only z is left to decide the sign.
TEST(QuaternionSlerp, TheCosineSumsXThenYThenWThenZ) {
    const ZyrQuaternion q = quaternion(1e8, 1e8, 1, 1), p = quaternion(-1e8, 1e8, 1, -0.5);
    EXPECT_GT(slerp(q, p, 1).w, 0.0);
}

TEST(QuaternionSlerp, EqualOnesLeaveTheOutputUntouched) {
    const ZyrQuaternion identity = quaternion(1, 0, 0, 0);
    for (const double t : {-1.0, 0.0, 0.5, 1.0})
        EXPECT_EQ(test::values(slerp(identity, identity, t)), kUntouched);
}

TEST(QuaternionSlerp, OppositeAndNearlyEqualOnesDoSoToo) {
    EXPECT_EQ(test::values(slerp(test::aboutZ(40), test::aboutZ(40) * -1.0, 0.5)), kUntouched);
    EXPECT_EQ(test::values(slerp(test::aboutZ(0), test::aboutZ(0.01), 0.5)), kUntouched);
    EXPECT_NE(test::values(slerp(test::aboutZ(0), test::aboutZ(0.1), 0.5)), kUntouched);
}

// The rounded length makes this one's cosine with itself 1.00000014.
TEST(QuaternionSlerp, ACosineAboveOneLeavesTheOutputUntouched) {
    const ZyrQuaternion q = quaternion(0.1, 0.2, 0.3, 0.4);
    EXPECT_EQ(test::values(slerp(q, q, 0.5)), kUntouched);
}

TEST(QuaternionSlerp, NaNLeavesTheOutputUntouched) {
    const ZyrQuaternion identity = quaternion(1, 0, 0, 0);
    EXPECT_EQ(test::values(slerp(identity, quaternion(std::nan(""), 0, 0, 0), 0.5)), kUntouched);
    EXPECT_EQ(test::values(slerp(identity, quaternion(0, 0, 0, 0), 0.5)), kUntouched);
}

TEST(QuaternionSlerp, TheOutputMayBeEitherEnd) {
    const ZyrQuaternion start = test::aboutZ(10), end = test::aboutX(70);
    const auto expected = test::values(slerp(start, end, 0.3));
    ZyrQuaternion q = start, p = end;
    q.SLERP(p, 0.3, &q);
    EXPECT_EQ(test::values(q), expected);
    q = start;
    q.SLERP(p, 0.3, &p);
    EXPECT_EQ(test::values(p), expected);
}

TEST(QuaternionLerp, NormalisesBothEndsAndTheMixture) {
    const ZyrQuaternion q = lerp(quaternion(3, 0, 0, 0), quaternion(0, 0, 0, 5), 0.25);
    const double length = std::sqrt(0.625);
    test::expectNear(test::values(q), {0.75 / length, 0, 0, 0.25 / length}, 1e-6);
}

TEST(QuaternionLerp, DividesByTheSinglePrecisionLength) {
    const ZyrQuaternion q = lerp(quaternion(1, 0, 0, 0), quaternion(0, 0, 0, 1), 0.5);
    const double length = std::sqrt(0.5f);
    EXPECT_EQ(test::values(q), (std::vector<double>{0.5 / length, 0, 0, 0.5 / length}));
}

TEST(QuaternionLerp, KeepsTheSignsOfBothEnds) {
    const ZyrQuaternion q = lerp(quaternion(1, 0, 0, 0), quaternion(-0.6, 0, 0, 0.8), 0.75);
    test::expectNear(test::values(q), {-0.2 / std::sqrt(0.4), 0, 0, 0.6 / std::sqrt(0.4)}, 1e-6);
    EXPECT_EQ(test::values(lerp(quaternion(1, 0, 0, 0), quaternion(-1, 0, 0, 0), 0.5)),
              test::values(ZyrQuaternion()));
}

TEST(QuaternionLerp, EndsAtTheNormalisedOnesForZeroAndOne) {
    EXPECT_EQ(test::values(lerp(quaternion(2, 0, 0, 0), quaternion(0, 4, 0, 0), 0)),
              (std::vector<double>{1, 0, 0, 0}));
    EXPECT_EQ(test::values(lerp(quaternion(2, 0, 0, 0), quaternion(0, 4, 0, 0), 1)),
              (std::vector<double>{0, 1, 0, 0}));
}

// The zero quaternion normalises to invalid components, half of which swamp the other end.
TEST(QuaternionLerp, AZeroEndGivesWhatItsInvalidComponentsGive) {
    const ZyrQuaternion q = lerp(quaternion(0, 0, 0, 0), quaternion(1, 0, 0, 0), 0.5);
    const double third = 1 / std::sqrt(3);
    test::expectNear(test::values(q), {0, third, third, third}, 1e-6);
}

TEST(QuaternionLerp, TheOutputMayBeEitherEnd) {
    const ZyrQuaternion start = test::aboutZ(10), end = test::aboutX(70);
    const auto expected = test::values(lerp(start, end, 0.3));
    ZyrQuaternion q = start, p = end;
    q.LERP(p, 0.3, &q);
    EXPECT_EQ(test::values(q), expected);
    q = start;
    q.LERP(p, 0.3, &p);
    EXPECT_EQ(test::values(p), expected);
}
