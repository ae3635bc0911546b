#include "ZyrQuaternion.h"

#include <gtest/gtest.h>

#include <limits>
#include <type_traits>

#include "support/TransformValues.h"

using test::quaternion;

namespace {

/// 0.1, 0.2, 0.3, 0.4 has this length in single precision; in double it is 0.54772255750516607.
constexpr double kLength = 0.5477225184440613;

ZyrQuaternion tenths() {
    return quaternion(0.1, 0.2, 0.3, 0.4);
}

}  // namespace

TEST(ZyrQuaternion, DefaultIsInvalid) {
    ZyrQuaternion q;
    EXPECT_EQ(test::values(q),
              (std::vector<double>{0, test::kInvalid, test::kInvalid, test::kInvalid}));
    EXPECT_FALSE(q.IsValid());
}

TEST(ZyrQuaternion, IsAPlainValueOfFourDoubles) {
    EXPECT_TRUE(std::is_trivially_copyable_v<ZyrQuaternion>);
    const ZyrQuaternion q = quaternion(1, 2, 3, 4);
    double flat[4];
    static_assert(sizeof q == sizeof flat);
    std::memcpy(flat, &q, sizeof flat);
    EXPECT_EQ(std::vector<double>(flat, flat + 4), (std::vector<double>{1, 2, 3, 4}));
}

TEST(ZyrQuaternion, ConstructorTakesAnythingUnchecked) {
    const ZyrQuaternion q = quaternion(1e300, test::kInvalid, -5, 0);
    EXPECT_EQ(test::values(q), (std::vector<double>{1e300, test::kInvalid, -5, 0}));
}

TEST(ZyrQuaternion, HasConstOnlyWhereListed) {
    using Q = ZyrQuaternion;
    using V = ZyrVector3d;
    static_assert(test::listed<void (Q::*)(V&, double)>(&Q::GenQuaternion));
    static_assert(test::listed<void (Q::*)(V&, V&)>(&Q::GenQuaternion));
    static_assert(test::listed<void (Q::*)(const ZyrMatrix3&)>(&Q::GenQuaternion));
    static_assert(test::listed<Q (Q::*)(Q&)>(&Q::operator+));
    static_assert(test::listed<Q (Q::*)(Q&)>(&Q::operator-));
    static_assert(test::listed<Q (Q::*)(Q&)>(&Q::operator*));
    static_assert(test::listed<Q (Q::*)(Q&)>(&Q::operator/));
    static_assert(test::listed<Q (Q::*)(double)>(&Q::operator*));
    static_assert(test::listed<Q (Q::*)(double)>(&Q::operator/));
    static_assert(test::listed<Q (Q::*)()>(&Q::Conjugate));
    static_assert(test::listed<Q (Q::*)()>(&Q::Inverse));
    static_assert(test::listed<Q (Q::*)()>(&Q::Normalized));
    static_assert(test::listed<void (Q::*)()>(&Q::FormatQuaterion));
    static_assert(test::listed<bool (Q::*)()>(&Q::IsValid));
    static_assert(test::listed<void (Q::*)(V*, double*)>(&Q::GetAxisAngle));
    static_assert(test::listed<void (Q::*)(V&, V*)>(&Q::TransformDirection));
    static_assert(test::listed<void (Q::*)(ZyrMatrix3*)>(&Q::GetTransMatrix));
    static_assert(test::listed<bool (Q::*)(const Q&, double)>(&Q::Equals));
    static_assert(test::listed<void (Q::*)(Q&, double, Q*)>(&Q::SLERP));
    static_assert(test::listed<void (Q::*)(Q&, double, Q*)>(&Q::LERP));
    static_assert(test::listed<double (Q::*)(Q&)>(&Q::Dot));
    EXPECT_TRUE(test::listed<double (Q::*)() const>(&Q::Norm));
}

TEST(ZyrQuaternion, SumAndDifferenceGoComponentByComponent) {
    ZyrQuaternion q = quaternion(1, 2, 3, 4), p = quaternion(10, 30, 50, 70);
    EXPECT_EQ(test::values(q + p), (std::vector<double>{11, 32, 53, 74}));
    EXPECT_EQ(test::values(q - p), (std::vector<double>{-9, -28, -47, -66}));
}

TEST(ZyrQuaternion, ProductIsHamiltons) {
    ZyrQuaternion q = quaternion(1, 2, 3, 4), p = quaternion(5, 6, 7, 8);
    EXPECT_EQ(test::values(q * p), (std::vector<double>{-60, 12, 30, 24}));
    EXPECT_EQ(test::values(p * q), (std::vector<double>{-60, 20, 14, 32}));
}

// 1e16 swallows a 1 that is added to it; what is left at the end tells the order of the sums.
TEST(ZyrQuaternion, ProductSubtractsTheWholeDotProduct) {
    ZyrQuaternion q = quaternion(1e8, 1e8, 1, 0), p = quaternion(1e8, 1e8, 1, 0);
    EXPECT_EQ((q * p).w, 0.0);
}

TEST(ZyrQuaternion, ProductAddsTheCrossProductLast) {
    ZyrQuaternion q = quaternion(1, 1e8, 1e8, 0), p = quaternion(1e8, 1, 0, -1e8);
    EXPECT_EQ((q * p).v.x, 0.0);
}

TEST(ZyrQuaternion, ProductAddsTheScaledVectorsFirst) {
    ZyrQuaternion q = quaternion(1e8, 1, 1e8, 0), p = quaternion(1, 1e8, 0, -1e8);
    EXPECT_EQ((q * p).v.x, 0.0);
}

TEST(ZyrQuaternion, AFactorScalesAllFour) {
    ZyrQuaternion q = quaternion(1, 2, 3, 4);
    EXPECT_EQ(test::values(q * -2.0), (std::vector<double>{-2, -4, -6, -8}));
}

TEST(ZyrQuaternion, ADivisorDividesAllFour) {
    ZyrQuaternion q = quaternion(49, 1, -98, 0);
    EXPECT_EQ(test::values(q / 49.0), (std::vector<double>{1, 1.0 / 49.0, -2, 0}));
}

TEST(ZyrQuaternion, DivisorsFromOneHundredThousandthOnDivide) {
    ZyrQuaternion q = quaternion(1, 0, 0, 0);
    EXPECT_EQ((q / 0.00001).w, 1.0 / 0.00001);
    EXPECT_EQ((q / -0.00001).w, -1.0 / 0.00001);
}

TEST(ZyrQuaternion, SmallerDivisorsGiveADefaultQuaternion) {
    ZyrQuaternion q = quaternion(1, 0, 0, 0);
    for (const double divisor : {0.0000099, -0.0000099, 0.0, std::nan("")})
        EXPECT_EQ(test::values(q / divisor), test::values(ZyrQuaternion())) << divisor;
}

TEST(ZyrQuaternion, QuotientIsTheProductWithTheInverse) {
    ZyrQuaternion q = quaternion(1, 2, 3, 4), p = quaternion(0, 0, 2, 0);
    EXPECT_EQ(test::values(q / p), (std::vector<double>{1.5, 2, -0.5, -1}));
}

TEST(ZyrQuaternion, ConjugateNegatesTheVector) {
    ZyrQuaternion q = quaternion(1, 2, -3, 4);
    EXPECT_EQ(test::values(q.Conjugate()), (std::vector<double>{1, -2, 3, -4}));
}

TEST(ZyrQuaternion, InverseDividesByTheSquareOfTheSinglePrecisionLength) {
    ZyrQuaternion q = tenths();
    const double square = kLength * kLength;
    EXPECT_EQ(test::values(q.Inverse()),
              (std::vector<double>{0.1 / square, -0.2 / square, -0.3 / square, -0.4 / square}));
}

TEST(ZyrQuaternion, AValidQuaternionMayBeTooShortForItsInverse) {
    ZyrQuaternion q = quaternion(0.0031, 0, 0, 0);
    EXPECT_TRUE(q.IsValid());
    EXPECT_EQ(test::values(q.Inverse()), test::values(ZyrQuaternion()));
    EXPECT_TRUE(quaternion(0.0032, 0, 0, 0).Inverse().IsValid());
}

TEST(ZyrQuaternion, NormIsRoundedToSinglePrecision) {
    EXPECT_EQ(test::bits(tenths().Norm()), 0x3FE186F160000000u);
    EXPECT_EQ(test::bits(quaternion(0.7, -0.2, 0.5, 0.1).Norm()), 0x3FEC713580000000u);
    EXPECT_EQ(quaternion(1.000000001, 0, 0, 0).Norm(), 1.0);
}

TEST(ZyrQuaternion, NormRoundsTheVectorsLengthBeforehand) {
    EXPECT_EQ(quaternion(0, 1 + 0x1p-24, 0, 0).Norm(), 1.0);
    EXPECT_EQ(quaternion(1 + 0x1p-24, 1 + 0x1p-24, 0, 0).Norm(), quaternion(1, 1, 0, 0).Norm());
}

TEST(ZyrQuaternion, NormOfAnInvalidVectorIsTheInvalidValue) {
    EXPECT_EQ(ZyrQuaternion().Norm(), test::kInvalid);
}

TEST(ZyrQuaternion, NormBeyondSinglePrecisionIsInfinite) {
    EXPECT_EQ(quaternion(1e300, 0, 0, 0).Norm(), std::numeric_limits<double>::infinity());
}

TEST(ZyrQuaternion, NormalizedDividesByTheSinglePrecisionLength) {
    ZyrQuaternion q = tenths();
    EXPECT_EQ(test::values(q.Normalized()),
              (std::vector<double>{0.1 / kLength, 0.2 / kLength, 0.3 / kLength, 0.4 / kLength}));
    EXPECT_EQ(test::values(q), test::values(tenths()));
}

TEST(ZyrQuaternion, NormalizedOfAShortOneIsInvalid) {
    EXPECT_EQ(test::values(quaternion(0, 0, 9.9e-6, 0).Normalized()),
              test::values(ZyrQuaternion()));
}

TEST(ZyrQuaternion, FormatQuaterionNormalisesInPlace) {
    ZyrQuaternion q = tenths();
    q.FormatQuaterion();
    EXPECT_EQ(test::values(q),
              (std::vector<double>{0.1 / kLength, 0.2 / kLength, 0.3 / kLength, 0.4 / kLength}));
}

TEST(ZyrQuaternion, FormatQuaterionKeepsTheSign) {
    ZyrQuaternion q = quaternion(-2, 0, 0, 0);
    q.FormatQuaterion();
    EXPECT_EQ(q.w, -1.0);
}

TEST(ZyrQuaternion, FormatQuaterionLeavesUnusableOnesAlone) {
    for (ZyrQuaternion q : {quaternion(3, test::kInvalid, 0, 4), quaternion(1e-6, 0, 0, 1e-6)}) {
        const std::vector<double> before = test::values(q);
        q.FormatQuaterion();
        EXPECT_EQ(test::values(q), before);
    }
}

TEST(ZyrQuaternion, IsValidWhenTheVectorIsAndTheLengthExceedsItsBound) {
    EXPECT_TRUE(quaternion(0, 0, 0, 1).IsValid());
    EXPECT_TRUE(quaternion(-2e-5, 0, 0, 0).IsValid());
    EXPECT_FALSE(quaternion(0, 0, 0, 0).IsValid());
    EXPECT_FALSE(quaternion(1, 0, test::kInvalid, 0).IsValid());
    EXPECT_FALSE(quaternion(1, 0, 0, std::nan("")).IsValid());
    EXPECT_FALSE(quaternion(std::nan(""), 0, 0, 1).IsValid());
}

// 1.00000001e-5 rounds to the single-precision number below 1e-5.
TEST(ZyrQuaternion, IsValidMeasuresInSinglePrecision) {
    EXPECT_FALSE(quaternion(1.00000001e-5, 0, 0, 0).IsValid());
    EXPECT_TRUE(quaternion(1.0001e-5, 0, 0, 0).IsValid());
}

TEST(ZyrQuaternion, DotMultipliesAllFour) {
    ZyrQuaternion q = quaternion(1, 2, 3, 4), p = quaternion(5, 6, 7, 8);
    EXPECT_EQ(q.Dot(p), 70.0);
}

TEST(ZyrQuaternion, DotAddsTheScalarsLast) {
    ZyrQuaternion q = quaternion(1e8, 1e8, 1, 0), p = quaternion(-1e8, 1e8, 1, 0);
    EXPECT_EQ(q.Dot(p), 0.0);
}
