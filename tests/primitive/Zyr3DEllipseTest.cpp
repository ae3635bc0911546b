#include "Zyr3DEllipse.h"

#include <gtest/gtest.h>

#include "primitive/Samples.h"

using test::allFail;
using test::allPass;

namespace {

const ZyrVector3d kCenter(1, 2, 3);
const ZyrVector3d kAngle(10, 20, 30);

Zyr3DEllipse withCenter(const ZyrVector3d& center) {
    return Zyr3DEllipse(center, kAngle, 5, 4);
}

Zyr3DEllipse withAngle(const ZyrVector3d& angle) {
    return Zyr3DEllipse(kCenter, angle, 5, 4);
}

Zyr3DEllipse withRadiusA(double radius) {
    return Zyr3DEllipse(kCenter, kAngle, radius, 4);
}

Zyr3DEllipse withRadiusB(double radius) {
    return Zyr3DEllipse(kCenter, kAngle, 5, radius);
}

}  // namespace

TEST(Zyr3DEllipse, DefaultHasZerosAndInvalidVectors) {
    const double inv = test::kInvalid;
    EXPECT_EQ(test::fields(Zyr3DEllipse()), (std::vector{0.0, 0.0, inv, inv, inv, inv, inv, inv}));
}

TEST(Zyr3DEllipse, LiesInMemoryAsRadiiCenterAngle) {
    EXPECT_EQ(test::fields(Zyr3DEllipse(kCenter, kAngle, 5, 4)),
              (std::vector<double>{5, 4, 1, 2, 3, 10, 20, 30}));
}

TEST(Zyr3DEllipse, GivesWhatItWasMadeOf) {
    Zyr3DEllipse ellipse(kCenter, kAngle, 5, 4);
    EXPECT_EQ(test::values(ellipse.Center()), test::values(kCenter));
    EXPECT_EQ(test::values(ellipse.Angle()), test::values(kAngle));
    EXPECT_EQ(ellipse.RadiusA(), 5);
    EXPECT_EQ(ellipse.RadiusB(), 4);
}

TEST(Zyr3DEllipse, CenterMustBeValid) {
    EXPECT_TRUE(allPass(withCenter, test::barelyValidVectors()));
    EXPECT_TRUE(allFail(withCenter, test::barelyInvalidVectors()));
}

TEST(Zyr3DEllipse, AngleMustBeValid) {
    EXPECT_TRUE(allPass(withAngle, test::barelyValidVectors()));
    EXPECT_TRUE(allFail(withAngle, test::barelyInvalidVectors()));
}

TEST(Zyr3DEllipse, RadiusAMustBePositive) {
    EXPECT_TRUE(allPass(withRadiusA, test::kPositive));
    EXPECT_TRUE(allFail(withRadiusA, test::kNotPositive));
}

TEST(Zyr3DEllipse, RadiusBMustBePositive) {
    EXPECT_TRUE(allPass(withRadiusB, test::kPositive));
    EXPECT_TRUE(allFail(withRadiusB, test::kNotPositive));
}

TEST(Zyr3DEllipse, RadiusAOfZeroIsInvalidAndBothRadiiReadZeroAfterwards) {
    Zyr3DEllipse ellipse(kCenter, kAngle, 0, 1);
    EXPECT_FALSE(ellipse.IsValid());
    EXPECT_EQ(ellipse.RadiusA(), 0);
    EXPECT_EQ(ellipse.RadiusB(), 0);
}
