#include "ZyrVector3d.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>
#include <type_traits>

#include "support/ZyrValues.h"

using test::kInvalid;
using test::values;
using Values = std::vector<double>;

namespace {

constexpr double kInf = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

Values invalid() {
    return {kInvalid, kInvalid, kInvalid};
}

bool isValid(ZyrVector3d v) {
    return v.IsValid();
}

}  // namespace

static_assert(std::is_trivially_copyable_v<ZyrVector3d>);
static_assert(sizeof(ZyrVector3d) == 24);
static_assert(offsetof(ZyrVector3d, x) == 0);
static_assert(offsetof(ZyrVector3d, y) == 8);
static_assert(offsetof(ZyrVector3d, z) == 16);

TEST(ZyrVector3d, DefaultHoldsTheInvalidValueInAllComponents) {
    ZyrVector3d v;
    EXPECT_EQ(values(v), invalid());
    EXPECT_FALSE(v.IsValid());
}

TEST(ZyrVector3d, InvalidValueIsTheLargestSinglePrecisionFloat) {
    const ZyrVector3d v;
    std::uint64_t bits;
    std::memcpy(&bits, &v.x, sizeof bits);
    EXPECT_EQ(bits, 0x47EFFFFFE0000000u);
    EXPECT_EQ(v.x, static_cast<double>(std::numeric_limits<float>::max()));
}

TEST(ZyrVector3d, KeepsTheGivenComponentsUnchecked) {
    EXPECT_EQ(values(ZyrVector3d(1, kInf, -2.5)), (Values{1, kInf, -2.5}));
    EXPECT_TRUE(std::isnan(ZyrVector3d(kNaN, 0, 0).x));
}

TEST(ZyrVector3d, CopiesAreIndependent) {
    ZyrVector3d v(1, 2, 3);
    const ZyrVector3d copy(v);
    ZyrVector3d assigned;
    assigned = v;
    v.x = 9;
    EXPECT_EQ(values(copy), (Values{1, 2, 3}));
    EXPECT_EQ(values(assigned), (Values{1, 2, 3}));
}

TEST(ZyrVector3d, IsInvalidWhenAnyComponentReachesTheInvalidValue) {
    for (double bad : {kInvalid, std::nextafter(kInvalid, kInf), 1e300, kInf, kNaN}) {
        EXPECT_FALSE(isValid({bad, 2, 3})) << bad;
        EXPECT_FALSE(isValid({1, bad, 3})) << bad;
        EXPECT_FALSE(isValid({1, 2, bad})) << bad;
    }
}

TEST(ZyrVector3d, IsValidStrictlyBelowTheInvalidValue) {
    const double below = std::nextafter(kInvalid, 0);
    EXPECT_TRUE(isValid({below, below, below}));
    EXPECT_TRUE(isValid({0, 0, 0}));
}

TEST(ZyrVector3d, VeryNegativeComponentsAreValid) {
    EXPECT_TRUE(isValid({1, 2, -kInf}));
    EXPECT_TRUE(isValid({-kInvalid, -1e300, -kInf}));
}

TEST(ZyrVector3d, InValidateSetsAllComponents) {
    ZyrVector3d v(1, 2, 3);
    v.InValidate();
    EXPECT_EQ(values(v), invalid());
}

TEST(ZyrVector3d, AddsAndSubtractsByComponent) {
    const ZyrVector3d a(1, 2, 3);
    const ZyrVector3d b(10, -20, 0.5);
    EXPECT_EQ(values(a + b), (Values{11, -18, 3.5}));
    EXPECT_EQ(values(a - b), (Values{-9, 22, 2.5}));
}

TEST(ZyrVector3d, ScalesByComponent) {
    const ZyrVector3d v(1, -2, 0.5);
    EXPECT_EQ(values(v * -3), (Values{-3, 6, -1.5}));
    EXPECT_EQ(values(v / 4), (Values{0.25, -0.5, 0.125}));
}

TEST(ZyrVector3d, DividesEachComponentInsteadOfMultiplyingByTheReciprocal) {
    EXPECT_EQ(values(ZyrVector3d(5, 10, 15) / 49), (Values{5.0 / 49, 10.0 / 49, 15.0 / 49}));
    ASSERT_NE(15.0 / 49, 15.0 * (1.0 / 49));
}

TEST(ZyrVector3d, ArithmeticDoesNotLookAtValidity) {
    EXPECT_EQ(values(ZyrVector3d() + ZyrVector3d(1, -kInvalid, kInvalid)),
              (Values{kInvalid, 0, 2 * kInvalid}));
    EXPECT_EQ(values(ZyrVector3d() - ZyrVector3d()), (Values{0, 0, 0}));
    EXPECT_EQ(values(ZyrVector3d() * 0.5), (Values{kInvalid / 2, kInvalid / 2, kInvalid / 2}));
}

TEST(ZyrVector3d, DivisionByZeroGivesTheInvalidVector) {
    EXPECT_EQ(values(ZyrVector3d(1, 2, 3) / 0.0), invalid());
    EXPECT_EQ(values(ZyrVector3d(1, 2, 3) / -0.0), invalid());
}

TEST(ZyrVector3d, DividesByTinyDivisorsNormally) {
    EXPECT_EQ(values(ZyrVector3d(1, -2, 0) / 1e-300), (Values{1 / 1e-300, -2 / 1e-300, 0}));
}

TEST(ZyrVector3d, EqualityIsExactInEachComponent) {
    ZyrVector3d v(1, 2, 3);
    EXPECT_TRUE(v == ZyrVector3d(1, 2, 3));
    EXPECT_FALSE(v == ZyrVector3d(std::nextafter(1.0, 2), 2, 3));
    EXPECT_FALSE(v == ZyrVector3d(1, std::nextafter(2.0, 3), 3));
    EXPECT_FALSE(v == ZyrVector3d(1, 2, std::nextafter(3.0, 4)));
}

TEST(ZyrVector3d, EqualityFollowsTheComparisonOfDoubles) {
    ZyrVector3d zero(0.0, 0.0, 0.0);
    ZyrVector3d nan(kNaN, 0, 0);
    ZyrVector3d unset;
    EXPECT_TRUE(zero == ZyrVector3d(-0.0, -0.0, -0.0));
    EXPECT_FALSE(nan == nan);
    EXPECT_TRUE(unset == ZyrVector3d());
}

TEST(ZyrVector3d, MinimumAndMaximumChooseByComponent) {
    ZyrVector3d a(1, 5, -3);
    ZyrVector3d b(2, 4, -4);
    EXPECT_EQ(values(a.Minimum(b)), (Values{1, 4, -4}));
    EXPECT_EQ(values(b.Minimum(a)), (Values{1, 4, -4}));
    EXPECT_EQ(values(a.Maximum(b)), (Values{2, 5, -3}));
    EXPECT_EQ(values(b.Maximum(a)), (Values{2, 5, -3}));
}

TEST(ZyrVector3d, MinimumAndMaximumTakeTheArgumentOfEqualComponents) {
    ZyrVector3d v(0.0, -0.0, 0.0);
    const ZyrVector3d lesser = v.Minimum(ZyrVector3d(-0.0, 0.0, -0.0));
    const ZyrVector3d greater = v.Maximum(ZyrVector3d(-0.0, 0.0, -0.0));
    for (const ZyrVector3d& taken : {lesser, greater}) {
        EXPECT_TRUE(std::signbit(taken.x));
        EXPECT_FALSE(std::signbit(taken.y));
        EXPECT_TRUE(std::signbit(taken.z));
    }
}

TEST(ZyrVector3d, MinimumAndMaximumTakeTheArgumentWhereOneIsNaN) {
    ZyrVector3d v(kNaN, 1, kNaN);
    const ZyrVector3d other(1, kNaN, 3);
    for (const ZyrVector3d& taken : {v.Minimum(other), v.Maximum(other)}) {
        EXPECT_EQ(taken.x, 1);
        EXPECT_TRUE(std::isnan(taken.y));
        EXPECT_EQ(taken.z, 3);
    }
}

TEST(ZyrVector3d, AbsGivesTruncatedMagnitudes) {
    EXPECT_EQ(values(ZyrVector3d(-2.7, 0.4, 3.9).Abs()), (Values{2, 0, 3}));
    EXPECT_EQ(values(ZyrVector3d(-0.9, -1, 1.99).Abs()), (Values{0, 1, 1}));
}

TEST(ZyrVector3d, AbsOfSmallNegativesIsPositiveZero) {
    EXPECT_FALSE(std::signbit(ZyrVector3d(-0.7, -0.0, 0).Abs().x));
    EXPECT_FALSE(std::signbit(ZyrVector3d(-0.7, -0.0, 0).Abs().y));
}

TEST(ZyrVector3d, AbsOfWhatDoesNotFit32BitsIsTwoToThe31) {
    EXPECT_EQ(values(ZyrVector3d(1e10, -1e10, kNaN).Abs()),
              (Values{2147483648.0, 2147483648.0, 2147483648.0}));
    EXPECT_EQ(values(ZyrVector3d(kInf, -kInf, kInvalid).Abs()),
              (Values{2147483648.0, 2147483648.0, 2147483648.0}));
}

TEST(ZyrVector3d, AbsLeavesItsReceiverAlone) {
    ZyrVector3d v(-2.7, 0.4, 3.9);
    v.Abs();
    EXPECT_EQ(values(v), (Values{-2.7, 0.4, 3.9}));
}

TEST(ZyrVector3d, EqualsTruncatesDifferencesBelowOneToNothing) {
    ZyrVector3d zero(0, 0, 0);
    EXPECT_TRUE(zero.Equals(ZyrVector3d(0.99, 0.99, 0.99), 0.0));
    EXPECT_TRUE(zero.Equals(ZyrVector3d(-0.99, 0.99, -0.99), 0.0));
    EXPECT_TRUE(zero.Equals(ZyrVector3d(0.99, 0, 0), 0.5));
    EXPECT_FALSE(zero.Equals(ZyrVector3d(1.0, 0, 0), 0.5));
}

TEST(ZyrVector3d, EqualsRefusesADifferenceInAnyComponent) {
    ZyrVector3d v(10, 20, 30);
    EXPECT_FALSE(v.Equals(ZyrVector3d(12, 20, 30), 1.5));
    EXPECT_FALSE(v.Equals(ZyrVector3d(10, 18, 30), 1.5));
    EXPECT_FALSE(v.Equals(ZyrVector3d(10, 20, 32), 1.5));
    EXPECT_TRUE(v.Equals(ZyrVector3d(11.9, 18.1, 31.9), 1.5));
}

TEST(ZyrVector3d, EqualsAcceptsATruncatedDifferenceOfJustTheTolerance) {
    ZyrVector3d zero(0, 0, 0);
    EXPECT_TRUE(zero.Equals(ZyrVector3d(3.9, -3.9, 3), 3.0));
    EXPECT_FALSE(zero.Equals(ZyrVector3d(4, 0, 0), 3.0));
}

TEST(ZyrVector3d, EqualsIsFalseForNegativeTolerances) {
    ZyrVector3d v(1, 2, 3);
    EXPECT_FALSE(v.Equals(v, -0.001));
}

TEST(ZyrVector3d, EqualsAcceptsEverythingForANaNTolerance) {
    ZyrVector3d v(1, 2, 3);
    EXPECT_TRUE(v.Equals(ZyrVector3d(1000, kNaN, kInf), kNaN));
}

TEST(ZyrVector3d, EqualsCountsHugeAndNaNDifferencesAsTwoToThe31) {
    ZyrVector3d zero(0, 0, 0);
    for (const ZyrVector3d& far : {ZyrVector3d(1e10, 0, 0), ZyrVector3d(0, -1e300, 0),
                                   ZyrVector3d(0, 0, kNaN), ZyrVector3d(kInf, 0, 0)}) {
        EXPECT_FALSE(zero.Equals(far, 2147483647.0));
        EXPECT_TRUE(zero.Equals(far, 2147483648.0));
    }
}

TEST(ZyrVector3d, EqualsFindsInvalidVectorsEqual) {
    ZyrVector3d unset;
    EXPECT_TRUE(unset.Equals(ZyrVector3d(), 0.0));
}

TEST(ZyrVector3d, NormIsTheEuclideanLength) {
    EXPECT_EQ(ZyrVector3d(2, -3, 6).Norm(), 7);
    EXPECT_EQ(ZyrVector3d(0, 0, 0).Norm(), 0);
}

TEST(ZyrVector3d, NormOfAnInvalidVectorIsTheInvalidValue) {
    EXPECT_EQ(ZyrVector3d().Norm(), kInvalid);
    for (double bad : {kInvalid, kInf, kNaN}) {
        EXPECT_EQ(ZyrVector3d(bad, 0, 0).Norm(), kInvalid);
        EXPECT_EQ(ZyrVector3d(0, bad, 0).Norm(), kInvalid);
        EXPECT_EQ(ZyrVector3d(0, 0, bad).Norm(), kInvalid);
    }
}

TEST(ZyrVector3d, NormOfValidVectorsMayOverflow) {
    EXPECT_EQ(ZyrVector3d(-1e200, 0, 0).Norm(), kInf);
    EXPECT_EQ(ZyrVector3d(0, 0, -kInf).Norm(), kInf);
}

TEST(ZyrVector3d, NormSumsTheSquaresFromXToZ) {
    EXPECT_EQ(ZyrVector3d(1e8, 1, 1).Norm(), 1e8);
    EXPECT_EQ(ZyrVector3d(1, 1, 1e8).Norm(), std::nextafter(1e8, kInf));
}

TEST(ZyrVector3d, DotSumsTheProductsFromXToZ) {
    ZyrVector3d ones(1, 1, 1);
    EXPECT_EQ(ZyrVector3d(1, 2, 3).Dot(ZyrVector3d(4, -5, 6)), 12);
    EXPECT_EQ(ones.Dot(ZyrVector3d(-1e16, 1e16, 1)), 1);
    EXPECT_EQ(ones.Dot(ZyrVector3d(1e16, 1, -1e16)), 0);
}

TEST(ZyrVector3d, ProductsAreRoundedBeforeTheyAreSummed) {
    const volatile double a = 1 + std::ldexp(1.0, -30);  // a * a is 1 + 2^-29 + 2^-60
    EXPECT_EQ(ZyrVector3d(1, a, 0).Dot(ZyrVector3d(-1 - std::ldexp(1.0, -29), a, 0)), 0);
}

TEST(ZyrVector3d, CrossFollowsTheRightHand) {
    EXPECT_EQ(values(ZyrVector3d(1, 0, 0).Cross(ZyrVector3d(0, 1, 0))), (Values{0, 0, 1}));
    EXPECT_EQ(values(ZyrVector3d(2, 3, 5).Cross(ZyrVector3d(7, 11, 13))), (Values{-16, 9, 1}));
}

TEST(ZyrVector3d, CrossRoundsBothProductsBeforeItSubtracts) {
    const volatile double tenth = 0.1;
    ZyrVector3d v(tenth, tenth, tenth);
    const ZyrVector3d same(tenth, tenth, tenth);
    ASSERT_NE(std::fma(0.1, 0.1, -(0.1 * 0.1)), 0) << "or a fused multiply-add would do";
    EXPECT_EQ(values(v.Cross(same)), (Values{0, 0, 0}));
}
