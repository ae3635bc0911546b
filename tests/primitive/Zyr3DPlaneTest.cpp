#include "Zyr3DPlane.h"

#include <gtest/gtest.h>

#include "primitive/Samples.h"

using test::allFail;
using test::allPass;
using test::areIdentical;
using test::values;

namespace {

const ZyrVector3d kPoint(1, 2, 3);
const ZyrVector3d kNormal(0, 0, 1);

Zyr3DPlane withPoint(const ZyrVector3d& point) {
    Zyr3DPlane plane;
    plane.point = point;
    plane.normal = kNormal;
    return plane;
}

/// Set directly, where it is not normalised.
Zyr3DPlane withNormal(const ZyrVector3d& normal) {
    Zyr3DPlane plane;
    plane.point = kPoint;
    plane.normal = normal;
    return plane;
}

Zyr3DPlane withNormalOfLength(double length) {
    return withNormal(ZyrVector3d(0, -length, 0));
}

Zyr3DPlane madeOfNormal(const ZyrVector3d& normal) {
    return Zyr3DPlane(kPoint, normal);
}

}  // namespace

TEST(Zyr3DPlane, DefaultHasInvalidVectors) {
    EXPECT_EQ(test::fields(Zyr3DPlane()), std::vector<double>(6, test::kInvalid));
}

TEST(Zyr3DPlane, LiesInMemoryAsPointNormal) {
    EXPECT_EQ(test::fields(Zyr3DPlane(kPoint, kNormal)), (std::vector<double>{1, 2, 3, 0, 0, 1}));
}

TEST(Zyr3DPlane, NormalisesTheNormalThatItIsMadeOf) {
    Zyr3DPlane plane(kPoint, ZyrVector3d(0, 0, 2));
    EXPECT_EQ(values(plane.normal), (std::vector<double>{0, 0, 1}));
    EXPECT_EQ(values(plane.NormalVector()), (std::vector<double>{0, 0, 1}));
    EXPECT_EQ(values(plane.point), values(kPoint));
}

TEST(Zyr3DPlane, OfAnInvalidPointOrNormalIsADefaultOne) {
    for (const ZyrVector3d& v : test::barelyInvalidVectors()) {
        EXPECT_TRUE(areIdentical(Zyr3DPlane(v, kNormal), Zyr3DPlane()));
        EXPECT_TRUE(areIdentical(Zyr3DPlane(kPoint, v), Zyr3DPlane()));
    }
}

TEST(Zyr3DPlane, OfAZeroNormalHoldsNaNsThatTheTestRefuses) {
    Zyr3DPlane plane(kPoint, ZyrVector3d(0, 0, 0));
    EXPECT_TRUE(std::isnan(plane.normal.x));
    EXPECT_TRUE(std::isnan(plane.normal.y));
    EXPECT_TRUE(std::isnan(plane.normal.z));
    EXPECT_EQ(values(plane.point), values(kPoint));
    EXPECT_FALSE(plane.IsValid());
    EXPECT_TRUE(areIdentical(plane, Zyr3DPlane()));
}

TEST(Zyr3DPlane, OfATinyNormalIsValid) {
    EXPECT_TRUE(allPass(madeOfNormal, std::vector{ZyrVector3d(0, 0, 1e-6)}));
}

TEST(Zyr3DPlane, OfANormalTooLongToNormaliseKeepsThePoint) {
    const Zyr3DPlane plane(kPoint, ZyrVector3d(-1e39, 0, 0));
    EXPECT_EQ(values(plane.normal), values(ZyrVector3d()));
    EXPECT_EQ(values(plane.point), values(kPoint));
}

TEST(Zyr3DPlane, ThroughThreePointsLiesAtTheMiddleOne) {
    const Zyr3DPlane plane({0, 0, 0}, {1, 0, 0}, {0, 1, 0});
    EXPECT_EQ(values(plane.normal), (std::vector<double>{0, 0, -1}));
    EXPECT_EQ(values(plane.point), (std::vector<double>{1, 0, 0}));
}

TEST(Zyr3DPlane, ThroughThreePointsHasAUnitNormal) {
    // u = (-2, -4, 0), w = (-2, -4, 5): their product is (-20, 10, 0).
    const Zyr3DPlane plane({0, 0, 0}, {2, 4, 0}, {0, 0, 5});
    EXPECT_DOUBLE_EQ(plane.normal.x, -2 / std::sqrt(5.0));
    EXPECT_DOUBLE_EQ(plane.normal.y, 1 / std::sqrt(5.0));
    EXPECT_EQ(plane.normal.z, 0);
}

TEST(Zyr3DPlane, ThroughPointsOnOneLineHoldsNaNsThatTheTestRefuses) {
    Zyr3DPlane plane({0, 0, 0}, {1, 0, 0}, {2, 0, 0});
    EXPECT_TRUE(std::isnan(plane.normal.x));
    EXPECT_EQ(values(plane.point), (std::vector<double>{1, 0, 0}));
    EXPECT_FALSE(plane.IsValid());
}

TEST(Zyr3DPlane, ThroughThreeInvalidPointsIsInvalid) {
    Zyr3DPlane plane{ZyrVector3d(), ZyrVector3d(), ZyrVector3d()};
    EXPECT_TRUE(std::isnan(plane.normal.x));
    EXPECT_FALSE(plane.IsValid());
}

TEST(Zyr3DPlane, ThroughAnInvalidPointIsADefaultOne) {
    const ZyrVector3d p(1, 2, 3), q(4, 5, 7);
    for (const ZyrVector3d& v : test::withComponents({test::kInvalid, 1e39, test::kNaN})) {
        EXPECT_TRUE(areIdentical(Zyr3DPlane(v, p, q), Zyr3DPlane()));
        EXPECT_TRUE(areIdentical(Zyr3DPlane(p, v, q), Zyr3DPlane()));
        EXPECT_TRUE(areIdentical(Zyr3DPlane(p, q, v), Zyr3DPlane()));
    }
}

// The near point lies so near that the product alone would pass.
TEST(Zyr3DPlane, ThroughPointsThatAreTooFarFromTheMiddleOneIsADefaultOne) {
    const ZyrVector3d far(3e38, 3e38, 0), middle(0, 0, 0), near(0, 0, 1e-10);
    EXPECT_TRUE(areIdentical(Zyr3DPlane(far, middle, near), Zyr3DPlane()));
    EXPECT_TRUE(areIdentical(Zyr3DPlane(near, middle, far), Zyr3DPlane()));
}

// The far point lies along x alone, so that its distance is exact.
TEST(Zyr3DPlane, OuterPointAsFarAsTheInvalidValueMakesADefaultOne) {
    const ZyrVector3d far(-test::kInvalid, 0, 0), middle(0, 0, 0), near(0, 1e-30, 0);
    const ZyrVector3d barelyNear(-test::below(test::kInvalid), 0, 0);
    EXPECT_TRUE(areIdentical(Zyr3DPlane(far, middle, near), Zyr3DPlane()));
    EXPECT_TRUE(areIdentical(Zyr3DPlane(near, middle, far), Zyr3DPlane()));
    EXPECT_TRUE(Zyr3DPlane(barelyNear, middle, near).IsValid());
    EXPECT_TRUE(Zyr3DPlane(near, middle, barelyNear).IsValid());
}

TEST(Zyr3DPlane, OuterPointsMayLieFartherApartThanTheInvalidValue) {
    const Zyr3DPlane plane({-2e38, 0, 0}, {0, 0, 0}, {2e38, 1e-30, 0});
    EXPECT_EQ(values(plane.normal), (std::vector<double>{0, 0, -1}));
}

TEST(Zyr3DPlane, ThroughThreePointsNeedsAProductShorterThanTheInvalidValue) {
    const ZyrVector3d origin(0, 0, 0);
    EXPECT_TRUE(Zyr3DPlane({1e19, 0, 0}, origin, {0, 3e19, 0}).IsValid());
    EXPECT_TRUE(areIdentical(Zyr3DPlane({1e19, 0, 0}, origin, {0, 4e19, 0}), Zyr3DPlane()));
    EXPECT_TRUE(areIdentical(Zyr3DPlane({0, 4e19, 0}, origin, {1e19, 0, 0}), Zyr3DPlane()));
}

// The product is (0, 0, z) with z twice as long as the point at x lies away: negative, so that it
// is a valid vector of that length.
TEST(Zyr3DPlane, ProductAsLongAsTheInvalidValueMakesADefaultOne) {
    const ZyrVector3d origin(0, 0, 0), two(0, 2, 0);
    const ZyrVector3d half(-test::kInvalid / 2, 0, 0), less(-test::below(test::kInvalid) / 2, 0, 0);
    EXPECT_TRUE(areIdentical(Zyr3DPlane(half, origin, two), Zyr3DPlane()));
    EXPECT_TRUE(areIdentical(Zyr3DPlane(two, origin, half), Zyr3DPlane()));
    EXPECT_TRUE(Zyr3DPlane(less, origin, two).IsValid());
    EXPECT_TRUE(Zyr3DPlane(two, origin, less).IsValid());
}

TEST(Zyr3DPlane, NormalVectorIsTheStoredOneWhenThatIsNormalisedRoughly) {
    const std::vector<double> stored = {0, 0, 0.9975};
    Zyr3DPlane plane = withNormal(ZyrVector3d(0, 0, 0.9975));
    EXPECT_EQ(values(plane.NormalVector()), stored);
}

TEST(Zyr3DPlane, NormalVectorIsNormalisedOtherwiseAndTheStoredOneStays) {
    Zyr3DPlane plane = withNormal(ZyrVector3d(0, 3, 4));
    EXPECT_EQ(values(plane.NormalVector()), (std::vector<double>{0, 0.6, 0.8}));
    EXPECT_EQ(values(plane.normal), (std::vector<double>{0, 3, 4}));
}

TEST(Zyr3DPlane, NormalVectorWithANaNIsTheStoredOne) {
    const ZyrVector3d normal = withNormal(ZyrVector3d(test::kNaN, 0, 5)).NormalVector();
    EXPECT_TRUE(std::isnan(normal.x));
    EXPECT_EQ(normal.z, 5);
}

TEST(Zyr3DPlane, NormalVectorOfAZeroNormalIsNaNsAndTheStoredOneStays) {
    Zyr3DPlane plane = withNormal(ZyrVector3d(0, 0, 0));
    const ZyrVector3d normal = plane.NormalVector();
    EXPECT_TRUE(std::isnan(normal.x) && std::isnan(normal.y) && std::isnan(normal.z));
    EXPECT_EQ(values(plane.normal), (std::vector<double>{0, 0, 0}));
}

TEST(Zyr3DPlane, NormalVectorOfOneTooLongIsInvalidAndTheStoredOneStays) {
    Zyr3DPlane plane = withNormal(ZyrVector3d(-1e39, 0, 0));
    EXPECT_EQ(values(plane.NormalVector()), values(ZyrVector3d()));
    EXPECT_EQ(values(plane.normal), (std::vector<double>{-1e39, 0, 0}));
}

TEST(Zyr3DPlane, PointMustBeValid) {
    EXPECT_TRUE(allPass(withPoint, test::barelyValidVectors()));
    EXPECT_TRUE(allFail(withPoint, test::barelyInvalidVectors()));
}

TEST(Zyr3DPlane, NormalMustBeValid) {
    EXPECT_TRUE(allPass(withNormal, test::barelyValidVectors()));
    EXPECT_TRUE(allFail(withNormal, test::barelyInvalidVectors()));
}

TEST(Zyr3DPlane, NormalMustBeLongerThanItsBound) {
    EXPECT_TRUE(allPass(withNormalOfLength, std::vector{test::above(1.1e-5), 1.0, 1e30}));
    EXPECT_TRUE(allFail(withNormalOfLength, std::vector{0.0, 1e-6, 1.1e-5}));
}

TEST(Zyr3DPlane, NormalOfAMillionthSetDirectlyIsInvalidAndResetsThePlane) {
    Zyr3DPlane plane = withNormal(ZyrVector3d(0, 0, 1e-6));
    EXPECT_FALSE(plane.IsValid());
    EXPECT_TRUE(areIdentical(plane, Zyr3DPlane()));
}
