#include "Zyr3DLine.h"

#include <gtest/gtest.h>

#include "primitive/Samples.h"

using test::allFail;
using test::allPass;
using test::values;

namespace {

const ZyrVector3d kPoint(1, 2, 3);

Zyr3DLine withPoint(const ZyrVector3d& point) {
    return Zyr3DLine(point, ZyrVector3d(1, 0, 0));
}

Zyr3DLine withDirection(const ZyrVector3d& direction) {
    return Zyr3DLine(kPoint, direction);
}

}  // namespace

TEST(Zyr3DLine, DefaultHasInvalidVectors) {
    EXPECT_EQ(test::fields(Zyr3DLine()), std::vector<double>(6, test::kInvalid));
}

TEST(Zyr3DLine, LiesInMemoryAsPointDirection) {
    EXPECT_EQ(test::fields(Zyr3DLine(kPoint, ZyrVector3d(4, 5, 6))),
              (std::vector<double>{1, 2, 3, 4, 5, 6}));
}

TEST(Zyr3DLine, PointAndDirectionAreReadAndWrittenDirectly) {
    Zyr3DLine line(kPoint, ZyrVector3d(4, 5, 6));
    line.direction.y = 7;
    EXPECT_EQ(values(line.point), (std::vector<double>{1, 2, 3}));
    EXPECT_EQ(values(line.direction), (std::vector<double>{4, 7, 6}));
}

TEST(Zyr3DLine, DirectionIsGivenAsStored) {
    EXPECT_EQ(values(Zyr3DLine(kPoint, ZyrVector3d(0, 0, -2.5)).Direction()),
              (std::vector<double>{0, 0, -2.5}));
}

TEST(Zyr3DLine, FromTakesTheFirstPointAndTheUnitDirection) {
    Zyr3DLine line;
    line.From(ZyrVector3d(1, 2, 3), ZyrVector3d(4, 2, 7));
    EXPECT_EQ(values(line.point), (std::vector<double>{1, 2, 3}));
    EXPECT_EQ(values(line.direction), (std::vector<double>{0.6, 0, 0.8}));
}

TEST(Zyr3DLine, FromTakesTheLinesOwnVectors) {
    Zyr3DLine line(ZyrVector3d(1, 2, 3), ZyrVector3d(4, 2, 7));
    line.From(line.direction, line.point);
    EXPECT_EQ(values(line.point), (std::vector<double>{4, 2, 7}));
    EXPECT_EQ(values(line.direction), (std::vector<double>{-0.6, 0, -0.8}));
}

TEST(Zyr3DLine, FromEqualPointsGivesNaNsThatTheTestRefuses) {
    Zyr3DLine line;
    line.From(kPoint, kPoint);
    EXPECT_TRUE(std::isnan(line.direction.x));
    EXPECT_TRUE(std::isnan(line.direction.y));
    EXPECT_TRUE(std::isnan(line.direction.z));
    EXPECT_EQ(values(line.point), values(kPoint));
    EXPECT_FALSE(line.IsValid());
    EXPECT_TRUE(test::areIdentical(line, Zyr3DLine()));
}

TEST(Zyr3DLine, FromPointsWhoseDistanceVanishesGivesAnInfiniteDirection) {
    Zyr3DLine line;
    line.From(ZyrVector3d(0, 0, 0), ZyrVector3d(1e-200, 0, 0));
    EXPECT_EQ(line.direction.x, test::kInfinity);
    EXPECT_FALSE(line.IsValid());
}

TEST(Zyr3DLine, FromInvalidPointDividesByThePlainLength) {
    Zyr3DLine line;
    line.From(ZyrVector3d(0, 0, 0), ZyrVector3d(0, 0, test::kInvalid));
    EXPECT_EQ(values(line.direction), (std::vector<double>{0, 0, 1}));
    line.From(ZyrVector3d(0, 0, 0), ZyrVector3d(0, 0, 1e39));
    EXPECT_EQ(values(line.direction), (std::vector<double>{0, 0, 1}));
}

TEST(Zyr3DLine, PointMustBeValid) {
    EXPECT_TRUE(allPass(withPoint, test::barelyValidVectors()));
    EXPECT_TRUE(allFail(withPoint, test::barelyInvalidVectors()));
}

TEST(Zyr3DLine, DirectionMustBeValid) {
    EXPECT_TRUE(allPass(withDirection, test::barelyValidVectors()));
    EXPECT_TRUE(allFail(withDirection, test::barelyInvalidVectors()));
}

TEST(Zyr3DLine, DirectionNeedsAComponentOfMagnitudeOne) {
    const double most = test::below(1.0);
    EXPECT_TRUE(allFail(withDirection, std::vector<ZyrVector3d>{
                                           {most, most, most}, {-most, -most, -most}, {0, 0, 0}}));
    EXPECT_TRUE(allPass(withDirection,
                        std::vector<ZyrVector3d>{{1, 0, 0}, {0, -1, 0}, {0, 0, 1}, {1, -1, 0}}));
}

TEST(Zyr3DLine, MagnitudesBeyondAnIntegerAddUpWithoutOverflow) {
    const double lowest = -2147483648.0;
    EXPECT_TRUE(allPass(
        withDirection,
        std::vector<ZyrVector3d>{
            {lowest, 0, 0}, {lowest, lowest, 0}, {lowest, lowest, lowest}, {3e9, 1e30, -1e300}}));
}

TEST(Zyr3DLine, UnitDirectionOffTheAxesIsInvalidAndResetsTheLine) {
    Zyr3DLine line(kPoint, ZyrVector3d(0.6, 0.8, 0));
    EXPECT_FALSE(line.IsValid());
    EXPECT_TRUE(test::areIdentical(line, Zyr3DLine()));
}

TEST(Zyr3DLine, UnitDirectionAlongAnAxisIsValid) {
    EXPECT_TRUE(withDirection(ZyrVector3d(1, 0, 0)).IsValid());
}

TEST(Zyr3DLine, DirectionOfThreeLargeFractionsIsInvalid) {
    EXPECT_FALSE(withDirection(ZyrVector3d(0.9, 0.9, 0.9)).IsValid());
}

TEST(Zyr3DLine, LongDirectionIsValid) {
    EXPECT_TRUE(withDirection(ZyrVector3d(0, 0, -2.5)).IsValid());
}

TEST(Zyr3DLine, LineFromTwoPointsIsValidAlongAnAxisOnly) {
    Zyr3DLine along, across;
    along.From(ZyrVector3d(1, 2, 3), ZyrVector3d(1, -2, 3));
    across.From(ZyrVector3d(1, 2, 3), ZyrVector3d(4, 2, 7));
    EXPECT_TRUE(along.IsValid());
    EXPECT_FALSE(across.IsValid());
}
