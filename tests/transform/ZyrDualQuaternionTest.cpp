#include "ZyrDualQuaternion.h"

#include <gtest/gtest.h>

#include <type_traits>

#include "support/TransformValues.h"

using test::quaternion;

namespace {

const std::vector<double> kDefault = test::values(ZyrDualQuaternion());

ZyrDualQuaternion parts(const ZyrQuaternion& real, const ZyrQuaternion& dual) {
    return ZyrDualQuaternion(real, dual);
}

ZyrDualQuaternion counting() {
    return parts(quaternion(1, 2, 3, 4), quaternion(5, 6, 7, 8));
}

}  // namespace

TEST(ZyrDualQuaternion, DefaultIsInvalidInBothParts) {
    constexpr double i = test::kInvalid;
    ZyrDualQuaternion q;
    EXPECT_EQ(test::values(q), (std::vector<double>{0, i, i, i, 0, i, i, i}));
    EXPECT_FALSE(q.IsValid());
    EXPECT_FALSE(q.real.IsValid());
    EXPECT_FALSE(q.dual.IsValid());
}

TEST(ZyrDualQuaternion, IsAPlainValueOfItsTwoParts) {
    EXPECT_TRUE(std::is_trivially_copyable_v<ZyrDualQuaternion>);
    const ZyrDualQuaternion q = counting();
    double flat[8];
    static_assert(sizeof q == sizeof flat);
    std::memcpy(flat, &q, sizeof flat);
    EXPECT_EQ(std::vector<double>(flat, flat + 8), (std::vector<double>{1, 2, 3, 4, 5, 6, 7, 8}));
}

TEST(ZyrDualQuaternion, HasConstOnlyWhereListed) {
    using D = ZyrDualQuaternion;
    using Q = ZyrQuaternion;
    using V = ZyrVector3d;
    static_assert(test::listed<void (D::*)(V&, double, V&, double)>(&D::GenDualQuaternion));
    static_assert(test::listed<void (D::*)(Q&, V&)>(&D::GenDualQuaternion));
    static_assert(test::listed<void (D::*)(const ZyrMatrix4&)>(&D::GenDualQuaternion));
    static_assert(test::listed<D (D::*)(D&)>(&D::operator+));
    static_assert(test::listed<D (D::*)(D&)>(&D::operator-));
    static_assert(test::listed<D (D::*)(D&)>(&D::operator*));
    static_assert(test::listed<D (D::*)(double)>(&D::operator*));
    static_assert(test::listed<D (D::*)(double)>(&D::operator/));
    static_assert(test::listed<D (D::*)()>(&D::Conjugate));
    static_assert(test::listed<D (D::*)()>(&D::Normalized));
    static_assert(test::listed<double (D::*)(D&)>(&D::Dot));
    static_assert(test::listed<bool (D::*)()>(&D::IsValid));
    static_assert(test::listed<void (D::*)(ZyrMatrix4*)>(&D::GetTransformMatrix));
    static_assert(test::listed<void (D::*)(Q*, V*)>(&D::GetRotateTrans));
    static_assert(test::listed<void (D::*)(V*, double*, V*, double*)>(&D::GetScrew));
    static_assert(test::listed<void (D::*)(V&, V*)>(&D::TransformPoint));
    static_assert(test::listed<void (D::*)(D&, double, D*)>(&D::SLERP));
    static_assert(test::listed<void (D::*)(D&, double, D*)>(&D::LERP));
    EXPECT_TRUE(test::listed<double (D::*)() const>(&D::Norm));
}

TEST(ZyrDualQuaternion, SumAndDifferenceGoPartByPart) {
    ZyrDualQuaternion q = counting();
    ZyrDualQuaternion p = parts(quaternion(10, 20, 30, 40), quaternion(50, 60, 70, 80));
    EXPECT_EQ(test::values(q + p), (std::vector<double>{11, 22, 33, 44, 55, 66, 77, 88}));
    EXPECT_EQ(test::values(q - p), (std::vector<double>{-9, -18, -27, -36, -45, -54, -63, -72}));
}

// Factors with one component each: i times j is k, j times i is -k.
TEST(ZyrDualQuaternion, ProductMixesThePartsCrosswise) {
    ZyrDualQuaternion q = parts(quaternion(0, 2, 0, 0), quaternion(3, 0, 0, 0));
    ZyrDualQuaternion p = parts(quaternion(0, 0, 5, 0), quaternion(0, 7, 0, 0));
    EXPECT_EQ(test::values(q * p), (std::vector<double>{0, 0, 0, 10, -14, 0, 15, 0}));
    EXPECT_EQ(test::values(p * q), (std::vector<double>{0, 0, 0, -10, -14, 0, 15, 0}));
}

TEST(ZyrDualQuaternion, AFactorScalesBothParts) {
    ZyrDualQuaternion q = counting();
    EXPECT_EQ(test::values(q * -2.0), (std::vector<double>{-2, -4, -6, -8, -10, -12, -14, -16}));
}

TEST(ZyrDualQuaternion, ADivisorDividesBothParts) {
    ZyrDualQuaternion q = counting();
    EXPECT_EQ(test::values(q / 2.0), (std::vector<double>{0.5, 1, 1.5, 2, 2.5, 3, 3.5, 4}));
    EXPECT_EQ((q / 0.00001).dual.w, 5 / 0.00001);
}

TEST(ZyrDualQuaternion, ASmallDivisorInvalidatesBothParts) {
    ZyrDualQuaternion q = counting();
    EXPECT_EQ(test::values(q / 0.0000099), kDefault);
    EXPECT_EQ(test::values(q / std::nan("")), kDefault);
}

TEST(ZyrDualQuaternion, ConjugateNegatesTheDualPartBesides) {
    ZyrDualQuaternion q = counting();
    EXPECT_EQ(test::values(q.Conjugate()), (std::vector<double>{1, -2, -3, -4, -5, 6, 7, 8}));
}

TEST(ZyrDualQuaternion, NormalizedKeepsTheTranslation) {
    ZyrDualQuaternion q = parts(quaternion(0, 0, 0, 4), quaternion(0, 2, 0, 0));
    EXPECT_EQ(test::values(q.Normalized()), (std::vector<double>{0, 0, 0, 1, 0, 0.5, 0, 0}));
}

// The dual part is divided by the rounded length's square, then multiplied by the rounded unit
// part: divided by the length alone, it would begin with 3FED363D3B.
TEST(ZyrDualQuaternion, NormalizedGoesThroughSinglePrecision) {
    const double length = 0.5477225184440613;
    ZyrDualQuaternion q = parts(quaternion(0.1, 0.2, 0.3, 0.4), quaternion(0.5, -0.6, 0.7, 0.8));
    const ZyrQuaternion dual = q.Normalized().dual;
    EXPECT_EQ(q.Norm(), length);
    EXPECT_EQ(q.Normalized().real.v.y, 0.3 / length);
    EXPECT_EQ(test::bits(dual.w), 0x3FED363D812373F6u);
    EXPECT_EQ(test::bits(dual.v.x), 0xBFF186F1B3E21260u);
    EXPECT_EQ(test::bits(dual.v.y), 0x3FF472C4A7326AC6u);
    EXPECT_EQ(test::bits(dual.v.z), 0x3FF75E979A82C32Bu);
}

TEST(ZyrDualQuaternion, NormalizedOfAShortRealPartIsInvalidThere) {
    ZyrDualQuaternion q = parts(quaternion(9e-6, 0, 0, 0), quaternion(1, 0, 0, 0));
    EXPECT_EQ(test::values(q.Normalized().real), test::values(ZyrQuaternion()));
}

TEST(ZyrDualQuaternion, NormAndDotSeeTheRealPartsOnly) {
    ZyrDualQuaternion q = parts(quaternion(0, 3, 4, 0), quaternion(1, 1, 1, 1));
    ZyrDualQuaternion p = parts(quaternion(2, 1, 1, 1), quaternion(9, 9, 9, 9));
    EXPECT_EQ(q.Norm(), 5.0);
    EXPECT_EQ(q.Dot(p), 7.0);
}

TEST(ZyrDualQuaternion, IsValidWhateverTheDualScalar) {
    const ZyrQuaternion good = quaternion(1, 0, 0, 0);
    EXPECT_TRUE(parts(good, quaternion(std::nan(""), 0, 0, 0)).IsValid());
    EXPECT_TRUE(parts(good, quaternion(0, 0, 0, 0)).IsValid());
    EXPECT_FALSE(parts(good, quaternion(0, test::kInvalid, 0, 0)).IsValid());
    EXPECT_FALSE(parts(quaternion(0, 0, 0, 0), good).IsValid());
    EXPECT_FALSE(parts(ZyrQuaternion(), good).IsValid());
}

TEST(GenDualQuaternionScrew, RealPartIsTheRotation) {
    ZyrVector3d axis(0, 0, 2), moment(0, 0, 0);
    ZyrDualQuaternion q;
    q.GenDualQuaternion(axis, 90, moment, 0);
    test::expectNear(test::values(q), {std::sqrt(0.5), 0, 0, std::sqrt(0.5), 0, 0, 0, 0}, 1e-15);
}

// Half of 60 degrees: the sine is 1/2, the cosine the root of 3/4.
TEST(GenDualQuaternionScrew, DualPartHoldsMomentAndDistance) {
    const double c = std::sqrt(0.75);
    ZyrVector3d axis(0, 0, 2), moment(3, -1, 0);
    ZyrDualQuaternion q;
    q.GenDualQuaternion(axis, 60, moment, 4);
    test::expectNear(test::values(q), {c, 0, 0, 0.5, -1, 1.5, -0.5, 2 * c}, 1e-15);
}

TEST(GenDualQuaternionScrew, OnlyTheMomentAcrossTheAxisCounts) {
    ZyrVector3d axis(0, 0, 1), across(3, -1, 0), slanted(3, -1, 8);
    ZyrDualQuaternion q, p;
    q.GenDualQuaternion(axis, 60, across, 4);
    p.GenDualQuaternion(axis, 60, slanted, 4);
    EXPECT_EQ(test::values(q), test::values(p));
}

TEST(GenDualQuaternionScrew, TheDualPartDoesNotReduceTheAngle) {
    const double h = std::sqrt(0.5);
    ZyrVector3d axis(0, 0, 1), moment(1, 0, 0);
    ZyrDualQuaternion q;
    q.GenDualQuaternion(axis, -90, moment, 2);
    test::expectNear(test::values(q), {-h, 0, 0, h, h, -h, 0, h}, 1e-15);
    q.GenDualQuaternion(axis, 450, moment, 2);
    test::expectNear(test::values(q), {h, 0, 0, h, h, -h, 0, -h}, 1e-15);
}

TEST(GenDualQuaternionScrew, UnusableInputInvalidatesBothParts) {
    ZyrVector3d axis(0, 0, 1), moment(1, 0, 0), zero(0, 0, 0), invalid;
    ZyrDualQuaternion q = counting(), p = counting();
    q.GenDualQuaternion(zero, 90, moment, 2);
    EXPECT_EQ(test::values(q), kDefault);
    p.GenDualQuaternion(axis, 90, invalid, 2);
    EXPECT_EQ(test::values(p), kDefault);
}

// The direction of an invalid axis is three times the invalid value, whose product with the sine of
// 45 degrees is valid again.
TEST(GenDualQuaternionScrew, AnInvalidAxisLosesItsXAndNeedNotInvalidateTheParts) {
    const double s = std::sin(test::kPi / 4), c = std::cos(test::kPi / 4), i = test::kInvalid;
    ZyrVector3d axis(5, i, 7), moment(0, 0, 0);
    ZyrDualQuaternion q;
    q.GenDualQuaternion(axis, 90, moment, 2);
    EXPECT_EQ(test::values(q),
              (std::vector<double>{c, i * s, i * s, i * s, -s, i * c, i * c, i * c}));
    EXPECT_EQ(test::values(axis), (std::vector<double>{i, i, 7}));
    EXPECT_TRUE(q.IsValid());
}

TEST(GenDualQuaternionScrew, TheInputsMayBeItsOwnVectors) {
    ZyrDualQuaternion q = parts(quaternion(7, 0, 0, 1), quaternion(7, 3, -1, 0)), p;
    ZyrVector3d axis(0, 0, 1), moment(3, -1, 0);
    p.GenDualQuaternion(axis, 60, moment, 4);
    q.GenDualQuaternion(q.real.v, 60, q.dual.v, 4);
    EXPECT_EQ(test::values(q), test::values(p));
}

TEST(GenDualQuaternionRotationTranslation, DualPartIsHalfTheTranslationTimesTheRotation) {
    ZyrQuaternion identity = quaternion(1, 0, 0, 0), aboutZ = quaternion(0, 0, 0, 1);
    ZyrVector3d t(2, 0, 0);
    ZyrDualQuaternion q;
    q.GenDualQuaternion(identity, t);
    EXPECT_EQ(test::values(q), (std::vector<double>{1, 0, 0, 0, 0, 1, 0, 0}));
    q.GenDualQuaternion(aboutZ, t);
    EXPECT_EQ(test::values(q), (std::vector<double>{0, 0, 0, 1, 0, 0, -1, 0}));
}

TEST(GenDualQuaternionRotationTranslation, TheRotationIsNotNormalised) {
    ZyrQuaternion rotation = quaternion(3, 0, 0, 0);
    ZyrVector3d t(2, 4, 6);
    ZyrDualQuaternion q;
    q.GenDualQuaternion(rotation, t);
    EXPECT_EQ(test::values(q), (std::vector<double>{3, 0, 0, 0, 0, 3, 6, 9}));
}

TEST(GenDualQuaternionRotationTranslation, UnusableInputInvalidatesBothParts) {
    ZyrQuaternion good = quaternion(1, 0, 0, 0), zero = quaternion(0, 0, 0, 0);
    ZyrVector3d t(2, 0, 0), invalid(1, 2, test::kInvalid);
    ZyrDualQuaternion q = counting(), p = counting();
    q.GenDualQuaternion(zero, t);
    EXPECT_EQ(test::values(q), kDefault);
    p.GenDualQuaternion(good, invalid);
    EXPECT_EQ(test::values(p), kDefault);
}

TEST(GenDualQuaternionRotationTranslation, TheInputsMayBeItsOwnParts) {
    ZyrDualQuaternion q = parts(quaternion(0, 2, 0, 0), quaternion(0, 0, 0, 1));
    q.GenDualQuaternion(q.dual, q.real.v);
    EXPECT_EQ(test::values(q), (std::vector<double>{0, 0, 0, 1, 0, 0, -1, 0}));
}

TEST(GenDualQuaternionMatrix, TakesRotationAndTranslation) {
    ZyrDualQuaternion q;
    q.GenDualQuaternion(ZyrMatrix4(1, 0, 0, 4, 0, 1, 0, 6, 0, 0, 1, 8, 0, 0, 0, 1));
    EXPECT_EQ(test::values(q), (std::vector<double>{1, 0, 0, 0, 0, 2, 3, 4}));
}

// A half turn about x: (0, t/2) * i for t = (4, 6, 8).
TEST(GenDualQuaternionMatrix, TheTranslationIsMultipliedByTheRotation) {
    ZyrDualQuaternion q;
    q.GenDualQuaternion(ZyrMatrix4(1, 0, 0, 4, 0, -1, 0, 6, 0, 0, -1, 8, 0, 0, 0, 1));
    EXPECT_EQ(test::values(q), (std::vector<double>{0, 1, 0, 0, -2, 0, 4, -3}));
}

TEST(GenDualQuaternionMatrix, ReadsTheBlockRowByRow) {
    ZyrDualQuaternion q;
    q.GenDualQuaternion(ZyrMatrix4(0, 0, 1, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 0, 1));
    EXPECT_EQ(test::values(q.real), (std::vector<double>{0.5, 0.5, 0.5, 0.5}));
}

TEST(GenDualQuaternionMatrix, TheLastRowIsNotExamined) {
    ZyrDualQuaternion q;
    q.GenDualQuaternion(ZyrMatrix4(1, 0, 0, 4, 0, 1, 0, 6, 0, 0, 1, 8, 9, 9, 9, 9));
    EXPECT_EQ(test::values(q), (std::vector<double>{1, 0, 0, 0, 0, 2, 3, 4}));
}

TEST(GenDualQuaternionMatrix, ARefusedMatrixChangesNothing) {
    ZyrDualQuaternion q = counting();
    q.GenDualQuaternion(ZyrMatrix4());
    EXPECT_EQ(test::values(q), test::values(counting()));
}
