#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <Eigen/Geometry>
#include <limits>
#include <type_traits>

#include "Zyr3DBox.h"
#include "Zyr3DEllipsoid.h"
#include "primitive/OrientedSolids.h"

/// Laws that the box and the ellipsoid share.
template <class Solid>
class OrientedSolid : public testing::Test {
public:
    const ZyrVector3d center{5, 6, 7}, size{1, 2, 3};

    Solid turned(double x, double y, double z) const {
        return Solid(center, ZyrVector3d(x, y, z), size);
    }

    /// Angles of a solid that is given a pose.
    static std::vector<double> anglesOf(const ZyrMatrix4& m) {
        Solid solid(ZyrVector3d(1, 2, 3), m);
        return test::values(solid.Angle());
    }
};

using Solids = testing::Types<Zyr3DBox, Zyr3DEllipsoid>;
TYPED_TEST_SUITE(OrientedSolid, Solids);

namespace {

/// The pose by Eigen: about x first, then y, then z, about the fixed axes.
Eigen::Matrix3d rotation(double x, double y, double z) {
    const double toRadians = test::kPi / 180;
    return (Eigen::AngleAxisd(z * toRadians, Eigen::Vector3d::UnitZ()) *
            Eigen::AngleAxisd(y * toRadians, Eigen::Vector3d::UnitY()) *
            Eigen::AngleAxisd(x * toRadians, Eigen::Vector3d::UnitX()))
        .matrix();
}

std::vector<double> column(const Eigen::Matrix3d& m, int c) {
    return {m(0, c), m(1, c), m(2, c)};
}

/// Degrees of a radian value by way of single precision.
double rounded(double radians) {
    volatile float single = static_cast<float>(radians);
    single = single * 180.0f;
    return static_cast<double>(single) / test::kPi;
}

}  // namespace

TYPED_TEST(OrientedSolid, DefaultIsInvalidInAllThreeFields) {
    TypeParam solid;
    test::expectDefault(solid);
    EXPECT_FALSE(solid.IsValid());
}

TYPED_TEST(OrientedSolid, IsAPlainValueStoredAsCentreSizeAngle) {
    EXPECT_TRUE(std::is_trivially_copyable_v<TypeParam>);
    const TypeParam solid(ZyrVector3d(1, 2, 3), ZyrVector3d(4, 5, 6), ZyrVector3d(7, 8, 9));
    double flat[9];
    static_assert(sizeof solid == sizeof flat);
    std::memcpy(flat, &solid, sizeof flat);
    EXPECT_EQ(std::vector<double>(flat, flat + 9),
              (std::vector<double>{1, 2, 3, 7, 8, 9, 4, 5, 6}));
}

TYPED_TEST(OrientedSolid, ArgumentsComeAsCentreAngleSize) {
    TypeParam solid(ZyrVector3d(1, 2, 3), ZyrVector3d(4, 5, 6), ZyrVector3d(7, 8, 9));
    EXPECT_EQ(test::values(solid.Center()), (std::vector<double>{1, 2, 3}));
    EXPECT_EQ(test::values(solid.Angle()), (std::vector<double>{4, 5, 6}));
    EXPECT_EQ(test::values(solid.Size()), (std::vector<double>{7, 8, 9}));
}

TYPED_TEST(OrientedSolid, HasConstOnlyWhereListed) {
    using S = TypeParam;
    using V = ZyrVector3d;
    static_assert(test::listed<V (S::*)()>(&S::Center));
    static_assert(test::listed<V (S::*)()>(&S::Size));
    static_assert(test::listed<V (S::*)()>(&S::Angle));
    static_assert(test::listed<ZyrMatrix4 (S::*)()>(&S::GetAttributeMatrix));
    static_assert(test::listed<void (S::*)(const ZyrMatrix4&)>(&S::SetAttributeMatrix));
    static_assert(test::listed<V (S::*)()>(&S::DirectionX));
    static_assert(test::listed<V (S::*)()>(&S::DirectionY));
    static_assert(test::listed<V (S::*)()>(&S::DirectionZ));
    EXPECT_TRUE(test::listed<bool (S::*)()>(&S::IsValid));
}

TYPED_TEST(OrientedSolid, CopiesAreIndependent) {
    TypeParam solid = this->turned(10, 20, 30);
    TypeParam copy(solid), assigned;
    assigned = solid;
    solid.SetAttributeMatrix(ZyrMatrix4(1, 0, 0, 9, 0, 1, 0, 9, 0, 0, 1, 9, 0, 0, 0, 1));
    EXPECT_EQ(test::values(copy.Center()), (std::vector<double>{5, 6, 7}));
    EXPECT_EQ(test::values(assigned.Angle()), (std::vector<double>{10, 20, 30}));
}

TYPED_TEST(OrientedSolid, IsValidWithSizesBetweenZeroAndTheInvalidValue) {
    const double below = std::nextafter(test::kInvalid, 0);
    for (const double s : {1.0, 1e-300, below}) {
        TypeParam solid(this->center, ZyrVector3d(0, 0, 0), ZyrVector3d(s, s, s));
        EXPECT_TRUE(solid.IsValid()) << s;
        EXPECT_EQ(test::values(solid.Size()), (std::vector<double>{s, s, s}));
    }
}

TYPED_TEST(OrientedSolid, AnySizeOutsideResetsAllThreeFields) {
    const double infinity = std::numeric_limits<double>::infinity();
    for (const double bad : {0.0, -1.0, test::kInvalid, infinity, -infinity, std::nan("")})
        for (const ZyrVector3d& sizes :
             {ZyrVector3d(bad, 1, 1), ZyrVector3d(1, bad, 1), ZyrVector3d(1, 1, bad)}) {
            TypeParam solid(this->center, ZyrVector3d(0, 0, 0), sizes);
            EXPECT_FALSE(solid.IsValid()) << bad;
            test::expectDefault(solid);
        }
}

TYPED_TEST(OrientedSolid, AttributeMatrixHoldsTheCentreAndAFixedLastRow) {
    const ZyrMatrix4 m = this->turned(0, 0, 90).GetAttributeMatrix();
    test::expectNear(test::values(m), {0, -1, 0, 5, 1, 0, 0, 6, 0, 0, 1, 7, 0, 0, 0, 1}, 1e-15);
}

TYPED_TEST(OrientedSolid, AttributeMatrixTurnsAboutXThenYThenZ) {
    const ZyrMatrix4 m = this->turned(90, 90, 0).GetAttributeMatrix();
    test::expectNear(test::values(m), {0, 1, 0, 5, 0, 0, -1, 6, -1, 0, 0, 7, 0, 0, 0, 1}, 1e-15);
}

TYPED_TEST(OrientedSolid, AttributeMatrixDoesNotDependOnSize) {
    TypeParam small(this->center, ZyrVector3d(1, 2, 3), ZyrVector3d(1, 1, 1));
    TypeParam none(this->center, ZyrVector3d(1, 2, 3), ZyrVector3d());
    EXPECT_TRUE(small.GetAttributeMatrix() == none.GetAttributeMatrix());
    EXPECT_EQ(test::values(none.Center()), (std::vector<double>{5, 6, 7}));
}

TYPED_TEST(OrientedSolid, AttributeMatrixIsNotTestedForValidity) {
    TypeParam solid(ZyrVector3d(), ZyrVector3d(std::nan(""), 0, 0), ZyrVector3d(1, 1, 1));
    const ZyrMatrix4 m = solid.GetAttributeMatrix();
    EXPECT_EQ(m.Value(1, 3), test::kInvalid);
    EXPECT_TRUE(std::isnan(m.Value(1, 1)));
}

// cos and sin of one angle each: the products (Rz Ry) Rx, summed by hand from 0.0.
TYPED_TEST(OrientedSolid, AttributeMatrixRoundsAsItsThreeProductsDo) {
    const double r[] = {11 * test::kPi / 180.0, 23 * test::kPi / 180.0, 37 * test::kPi / 180.0};
    const double cx = std::cos(r[0]), sx = std::sin(r[0]), cy = std::cos(r[1]);
    const double sy = std::sin(r[1]), cz = std::cos(r[2]), sz = std::sin(r[2]);
    const ZyrMatrix4 m = this->turned(11, 23, 37).GetAttributeMatrix();
    EXPECT_EQ(m.Value(0, 1), -sz * cx + (cz * sy) * sx);
    EXPECT_EQ(m.Value(1, 2), cz * -sx + (sz * sy) * cx);
    EXPECT_EQ(m.Value(2, 2), cy * cx);
}

// Rz (Ry Rx) would end in FB and ED.
TYPED_TEST(OrientedSolid, AttributeMatrixMultipliesTheTurnsAboutZAndYFirst) {
    const ZyrMatrix4 m = this->turned(7, 41, 67).GetAttributeMatrix();
    EXPECT_EQ(test::bits(m.Value(0, 2)), 0x3FD776977E6190FCu);
    EXPECT_EQ(test::bits(m.Value(1, 2)), 0x3FE1A83B04667AECu);
}

TYPED_TEST(OrientedSolid, DirectionsAreTheColumnsOfTheRotation) {
    TypeParam solid = this->turned(10, 20, 30);
    const Eigen::Matrix3d expected = rotation(10, 20, 30);
    test::expectNear(test::values(solid.DirectionX()), column(expected, 0), 1e-15);
    test::expectNear(test::values(solid.DirectionY()), column(expected, 1), 1e-15);
    test::expectNear(test::values(solid.DirectionZ()), column(expected, 2), 1e-15);
}

TYPED_TEST(OrientedSolid, AQuarterTurnAboutZPointsXAlongY) {
    test::expectNear(test::values(this->turned(0, 0, 90).DirectionX()), {0, 1, 0}, 1e-15);
}

TYPED_TEST(OrientedSolid, SettingAPoseTakesCentreAndAnglesButNoSize) {
    TypeParam solid = this->turned(10, 20, 30);
    solid.SetAttributeMatrix(ZyrMatrix4(1, 0, 0, -1, 0, 1, 0, -2, 0, 0, 1, -3, 0, 0, 0, 1));
    EXPECT_EQ(test::values(solid.Center()), (std::vector<double>{-1, -2, -3}));
    EXPECT_EQ(test::values(solid.Angle()), (std::vector<double>{0, 0, 0}));
    EXPECT_EQ(test::values(solid.Size()), (std::vector<double>{1, 2, 3}));
}

TYPED_TEST(OrientedSolid, AScaleInTheMatrixIsNotExtracted) {
    TypeParam solid(ZyrVector3d(1, 2, 3),
                    ZyrMatrix4(2, 0, 0, 0, 0, 2, 0, 0, 0, 0, 2, 0, 0, 0, 0, 1));
    EXPECT_EQ(test::values(solid.Size()), (std::vector<double>{1, 2, 3}));
    EXPECT_EQ(test::values(solid.Angle()), (std::vector<double>{0, 0, 0}));
}

TYPED_TEST(OrientedSolid, ConstructorFromSizeAndMatrixSetsThePose) {
    TypeParam solid(this->size, this->turned(30, 0, 0).GetAttributeMatrix());
    EXPECT_EQ(test::values(solid.Size()), (std::vector<double>{1, 2, 3}));
    EXPECT_EQ(test::values(solid.Center()), (std::vector<double>{5, 6, 7}));
    test::expectNear(test::values(solid.Angle()), {30, 0, 0}, 1e-5);
}

// m12 = -3, m11 = 4, m20 = -5, m00 = 3 and m10 = 4, whose root of squares is 5.
TYPED_TEST(OrientedSolid, AnglesAreReadFromFiveElements) {
    const ZyrMatrix4 m(3, 7, 7, 0, 4, 4, -3, 0, -5, 7, 7, 0, 0, 0, 0, 1);
    EXPECT_EQ(this->anglesOf(m), (std::vector<double>{rounded(std::atan2(3.0, 4.0)),
                                                      rounded(std::atan2(5.0, 5.0)), 0}));
}

// 30 degrees are 0.52359879 rad in single precision, times 180 is 94.2477798.
TYPED_TEST(OrientedSolid, DegreesComeByWayOfSinglePrecision) {
    const double c = std::sqrt(0.75);
    const ZyrMatrix4 m(1, 0, 0, 0, 0, c, -0.5, 0, 0, 0.5, c, 0, 0, 0, 0, 1);
    EXPECT_EQ(test::bits(this->anglesOf(m)[0]), 0x403E000001460EB0u);
    EXPECT_EQ(this->anglesOf(m)[0], 30.000000075916148);
}

// The product of the unrounded radians with 180 would round to 13.000000437648948 degrees.
TYPED_TEST(OrientedSolid, RadiansAreRoundedBeforeTheProductAndAfterIt) {
    const ZyrMatrix4 m = this->turned(13, 0, 0).GetAttributeMatrix();
    EXPECT_EQ(this->anglesOf(m)[0], 12.999999223393095);
}

TYPED_TEST(OrientedSolid, ARotationAboutXSurvives) {
    test::expectNear(this->anglesOf(this->turned(30, 0, 0).GetAttributeMatrix()), {30, 0, 0}, 1e-5);
    test::expectNear(this->anglesOf(this->turned(-150, 0, 0).GetAttributeMatrix()), {-150, 0, 0},
                     1e-4);
}

TYPED_TEST(OrientedSolid, ARotationAboutYSurvivesUpToARightAngle) {
    test::expectNear(this->anglesOf(this->turned(0, -40, 0).GetAttributeMatrix()), {0, -40, 0},
                     1e-5);
}

TYPED_TEST(OrientedSolid, AQuarterTurnAboutZIsLost) {
    EXPECT_EQ(this->anglesOf(this->turned(0, 0, 90).GetAttributeMatrix()),
              (std::vector<double>{0, 0, 0}));
}

// Beyond a right angle m11 is negative and -m12 is -0.0: half a turn about x is read.
TYPED_TEST(OrientedSolid, AHalfTurnAboutZIsReadAsOneAboutX) {
    test::expectNear(this->anglesOf(this->turned(0, 0, 180).GetAttributeMatrix()), {-180, 0, 0},
                     1e-4);
}

TYPED_TEST(OrientedSolid, TheAngleAboutZIsZeroEvenForHugeColumns) {
    const ZyrMatrix4 m(0, 0, 0, 0, 1e18, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1);
    EXPECT_EQ(this->anglesOf(m), (std::vector<double>{0, 0, 0}));
}

TYPED_TEST(OrientedSolid, PosesAgreeWithEigen) {
    EXPECT_TRUE(rc::check([this] {
        const auto degrees = [] { return *rc::gen::inRange(-3600, 3601) / 10.0; };
        const double x = degrees(), y = degrees(), z = degrees();
        const Eigen::Matrix3d expected = rotation(x, y, z);
        TypeParam solid = this->turned(x, y, z);
        test::expectNear(test::values(solid.DirectionX()), column(expected, 0), 1e-14);
        test::expectNear(test::values(solid.DirectionY()), column(expected, 1), 1e-14);
        test::expectNear(test::values(solid.DirectionZ()), column(expected, 2), 1e-14);
    }));
}

TYPED_TEST(OrientedSolid, PosesWithoutZComeBackUpToRightAngles) {
    EXPECT_TRUE(rc::check([this] {
        const double x = *rc::gen::inRange(-1790, 1790) / 10.0;
        const double y = *rc::gen::inRange(-890, 890) / 10.0;
        const ZyrMatrix4 pose = this->turned(0, y, 0).GetAttributeMatrix();
        test::expectNear(this->anglesOf(pose), {0, y, 0}, 1e-4);
        const ZyrMatrix4 aboutX = this->turned(x, 0, 0).GetAttributeMatrix();
        test::expectNear(this->anglesOf(aboutX), {x, 0, 0}, 1e-4);
    }));
}

TYPED_TEST(OrientedSolid, APoseWithZDoesNotComeBack) {
    const auto angles = this->anglesOf(this->turned(30, 20, 10).GetAttributeMatrix());
    EXPECT_EQ(angles[2], 0.0);
    EXPECT_GT(std::fabs(angles[0] - 30), 0.1);
}
