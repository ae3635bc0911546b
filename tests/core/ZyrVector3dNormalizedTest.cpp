#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "ZyrVector3d.h"
#include "support/ZyrValues.h"

using test::kInvalid;
using test::values;
using Values = std::vector<double>;

namespace {

constexpr double kInf = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

}  // namespace

TEST(ZyrVector3dNormalized, DividesEachComponentByTheNorm) {
    ZyrVector3d v(-24, 36, 23);
    EXPECT_EQ(values(v.Normalized()), (Values{-24.0 / 49, 36.0 / 49, 23.0 / 49}));
    EXPECT_EQ(values(v), (Values{-24, 36, 23}));
    ASSERT_NE(36.0 / 49, 36.0 * (1.0 / 49)) << "or a product by the reciprocal would do";
}

TEST(ZyrVector3dNormalized, ZeroVectorGivesNaN) {
    ZyrVector3d zero(0, 0, 0);
    ZyrVector3d unit = zero.Normalized();
    EXPECT_TRUE(std::isnan(unit.x));
    EXPECT_TRUE(std::isnan(unit.y));
    EXPECT_TRUE(std::isnan(unit.z));
    EXPECT_FALSE(unit.IsValid());
    EXPECT_EQ(values(zero), (Values{0, 0, 0}));
}

TEST(ZyrVector3dNormalized, OfAnInvalidVectorIsInvalidAndOverwritesTheReceiversX) {
    for (double bad : {kInvalid, kInf}) {
        ZyrVector3d v(1, bad, 3);
        EXPECT_EQ(values(v.Normalized()), (Values{kInvalid, kInvalid, kInvalid}));
        EXPECT_EQ(values(v), (Values{kInvalid, bad, 3}));
    }
}

TEST(ZyrVector3dNormalized, OfAVectorWithNaNOverwritesTheReceiversX) {
    ZyrVector3d v(kNaN, 2, 3);
    EXPECT_EQ(values(v.Normalized()), (Values{kInvalid, kInvalid, kInvalid}));
    EXPECT_EQ(values(v), (Values{kInvalid, 2, 3}));
}

TEST(ZyrVector3dNormalized, OfAValidVectorWhoseNormReachesTheInvalidValueDoesSoToo) {
    for (ZyrVector3d v : {ZyrVector3d(3e38, 3e38, 0), ZyrVector3d(-kInf, 3e38, 0),
                          ZyrVector3d(-kInvalid, 3e38, 0)}) {
        ASSERT_TRUE(v.IsValid());
        EXPECT_EQ(values(v.Normalized()), (Values{kInvalid, kInvalid, kInvalid}));
        EXPECT_EQ(v.x, kInvalid);
        EXPECT_EQ(v.z, 0);
    }
}

TEST(ZyrVector3dNormalized, MayReplaceItsReceiver) {
    ZyrVector3d v(0, 3, -4);
    v = v.Normalized();
    EXPECT_EQ(values(v), (Values{0, 0.6, -0.8}));
}

TEST(ZyrVector3dIsNormalized, AcceptsTheAsymmetricBandOfSquaredLengths) {
    EXPECT_TRUE(ZyrVector3d(0, 0, 1).IsNormalized());
    EXPECT_TRUE(ZyrVector3d(0.9975, 0, 0).IsNormalized());
    EXPECT_TRUE(ZyrVector3d(0, 1.024, 0).IsNormalized());
    EXPECT_FALSE(ZyrVector3d(0.9974, 0, 0).IsNormalized());
    EXPECT_FALSE(ZyrVector3d(0, 0, 1.0247).IsNormalized());
    EXPECT_FALSE(ZyrVector3d(1.03, 0, 0).IsNormalized());
}

TEST(ZyrVector3dIsNormalized, IncludesBothEndsOfTheBand) {
    const double low = std::sqrt(0.995 - 0.25);
    const double high = std::sqrt(1.05 - 1);
    ASSERT_EQ(0.25 + low * low, 0.995);
    ASSERT_EQ(1 + high * high, 1.05);
    EXPECT_TRUE(ZyrVector3d(0.5, low, 0).IsNormalized());
    EXPECT_TRUE(ZyrVector3d(1, high, 0).IsNormalized());
}

TEST(ZyrVector3dIsNormalized, SumsTheSquaresFromXToZ) {
    const ZyrVector3d above(0.36693832200626636, 0.3682035181830986, 0.88305290727159391);
    const ZyrVector3d within(0.64738045749567297, 0.62389836258987375, 0.49157845397288086);
    for (const ZyrVector3d& v : {above, within}) {
        const double xx = v.x * v.x, yy = v.y * v.y, zz = v.z * v.z;
        const bool isWithin = (xx + yy) + zz <= 1.05;
        ASSERT_NE(isWithin, xx + (yy + zz) <= 1.05) << "or any other order would do";
        ASSERT_NE(isWithin, (xx + zz) + yy <= 1.05) << "or any other order would do";
    }
    EXPECT_FALSE(above.IsNormalized());
    EXPECT_TRUE(within.IsNormalized());
}

TEST(ZyrVector3dIsNormalized, SumsOverAllComponents) {
    EXPECT_TRUE(ZyrVector3d(0.6, -0.48, 0.64).IsNormalized());
    EXPECT_FALSE(ZyrVector3d(0.6, 0.6, 0.6).IsNormalized());
}

TEST(ZyrVector3dIsNormalized, AcceptsAVectorWithNaN) {
    EXPECT_TRUE(ZyrVector3d(kNaN, 0, 0).IsNormalized());
    EXPECT_TRUE(ZyrVector3d(100, kNaN, 0).IsNormalized());
    EXPECT_TRUE(ZyrVector3d(100, 100, kNaN).IsNormalized());
}

TEST(ZyrVector3dIsNormalized, RefusesZeroInvalidAndInfiniteVectors) {
    EXPECT_FALSE(ZyrVector3d(0, 0, 0).IsNormalized());
    EXPECT_FALSE(ZyrVector3d().IsNormalized());
    EXPECT_FALSE(ZyrVector3d(-kInf, 0, 0).IsNormalized());
}
