#include "Zyr3DCylinder.h"

#include <gtest/gtest.h>

#include "primitive/Samples.h"

using test::allFail;
using test::allPass;
using test::kInvalid;

namespace {

const ZyrVector3d kCenter(1, 2, 3);
const ZyrVector3d kDirection(0, 3, 4);

Zyr3DCylinder withCenter(const ZyrVector3d& center) {
    return Zyr3DCylinder(center, kDirection, 5, 6);
}

Zyr3DCylinder withDirection(const ZyrVector3d& direction) {
    return Zyr3DCylinder(kCenter, direction, 5, 6);
}

Zyr3DCylinder withDirectionOfLength(double length) {
    return withDirection(ZyrVector3d(0, -length, 0));
}

Zyr3DCylinder withRadius(double radius) {
    return Zyr3DCylinder(kCenter, kDirection, radius, 6);
}

Zyr3DCylinder withHeight(double height) {
    return Zyr3DCylinder(kCenter, kDirection, 5, height);
}

const std::vector<double> kInBounds = {test::kSmallest, 1.0, test::below(kInvalid)};
const std::vector<double> kTooBig = {kInvalid, test::kInfinity};

}  // namespace

TEST(Zyr3DCylinder, DefaultHasInvalidVectorsAndZeros) {
    const double inv = kInvalid;
    EXPECT_EQ(test::fields(Zyr3DCylinder()), (std::vector{inv, inv, inv, inv, inv, inv, 0.0, 0.0}));
}

TEST(Zyr3DCylinder, LiesInMemoryAsCenterDirectionRadiusHeight) {
    EXPECT_EQ(test::fields(Zyr3DCylinder(kCenter, kDirection, 5, 6)),
              (std::vector<double>{1, 2, 3, 0, 3, 4, 5, 6}));
}

TEST(Zyr3DCylinder, GivesWhatItWasMadeOf) {
    Zyr3DCylinder cylinder(kCenter, kDirection, 5, 6);
    EXPECT_EQ(test::values(cylinder.Center()), test::values(kCenter));
    EXPECT_EQ(test::values(cylinder.Direction()), test::values(kDirection));
    EXPECT_EQ(cylinder.Radius(), 5);
    EXPECT_EQ(cylinder.Height(), 6);
}

TEST(Zyr3DCylinder, CenterMustBeValid) {
    EXPECT_TRUE(allPass(withCenter, test::barelyValidVectors()));
    EXPECT_TRUE(allFail(withCenter, test::barelyInvalidVectors()));
}

TEST(Zyr3DCylinder, HeightMustLieBetweenZeroAndTheInvalidValue) {
    EXPECT_TRUE(allPass(withHeight, kInBounds));
    EXPECT_TRUE(allFail(withHeight, test::kNotPositive));
    EXPECT_TRUE(allFail(withHeight, kTooBig));
}

TEST(Zyr3DCylinder, RadiusMustLieBetweenZeroAndTheInvalidValue) {
    EXPECT_TRUE(allPass(withRadius, kInBounds));
    EXPECT_TRUE(allFail(withRadius, test::kNotPositive));
    EXPECT_TRUE(allFail(withRadius, kTooBig));
}

TEST(Zyr3DCylinder, DirectionMustBeValid) {
    EXPECT_TRUE(allPass(withDirection, test::barelyValidVectors()));
    EXPECT_TRUE(allFail(withDirection, test::barelyInvalidVectors()));
}

TEST(Zyr3DCylinder, DirectionMustBeLongerThanItsBound) {
    EXPECT_TRUE(allPass(withDirectionOfLength, std::vector{test::above(1.1e-5), 1.0, 1e30}));
    EXPECT_TRUE(allFail(withDirectionOfLength, std::vector{0.0, 1e-6, 1.1e-5}));
}

TEST(Zyr3DCylinder, RadiusOfTheInvalidValueIsInvalid) {
    EXPECT_FALSE(withRadius(kInvalid).IsValid());
}

TEST(Zyr3DCylinder, DirectionOfAMillionthIsInvalid) {
    EXPECT_FALSE(withDirection(ZyrVector3d(0, 0, 1e-6)).IsValid());
}
