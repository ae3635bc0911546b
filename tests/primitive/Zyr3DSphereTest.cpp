#include "Zyr3DSphere.h"

#include <gtest/gtest.h>

#include "primitive/Samples.h"

using test::allFail;
using test::allPass;
using test::kInvalid;

namespace {

const ZyrVector3d kCenter(1, 2, 3);

Zyr3DSphere withCenter(const ZyrVector3d& center) {
    return Zyr3DSphere(center, 5);
}

Zyr3DSphere withX(double x) {
    return Zyr3DSphere(ZyrVector3d(x, 2, 3), 5);
}

Zyr3DSphere withY(double y) {
    return Zyr3DSphere(ZyrVector3d(1, y, 3), 5);
}

Zyr3DSphere withZ(double z) {
    return Zyr3DSphere(ZyrVector3d(1, 2, z), 5);
}

Zyr3DSphere withRadius(double radius) {
    return Zyr3DSphere(kCenter, radius);
}

/// Of magnitudes that the centre's x and y may and may not have.
const std::vector<double> kInBounds = {test::below(kInvalid), -test::below(kInvalid), 0.0};
const std::vector<double> kOutOfBounds = {kInvalid, -kInvalid, test::kInfinity, -test::kInfinity,
                                          test::kNaN};

}  // namespace

TEST(Zyr3DSphere, DefaultHasAnInvalidCenterAndARadiusOfZero) {
    EXPECT_EQ(test::fields(Zyr3DSphere()), (std::vector{kInvalid, kInvalid, kInvalid, 0.0}));
}

TEST(Zyr3DSphere, LiesInMemoryAsCenterRadius) {
    EXPECT_EQ(test::fields(Zyr3DSphere(kCenter, 5)), (std::vector<double>{1, 2, 3, 5}));
}

TEST(Zyr3DSphere, GivesWhatItWasMadeOf) {
    Zyr3DSphere sphere(kCenter, 5);
    EXPECT_EQ(test::values(sphere.Center()), test::values(kCenter));
    EXPECT_EQ(sphere.Radius(), 5);
}

TEST(Zyr3DSphere, CenterXMustBeBelowTheInvalidValueInMagnitude) {
    EXPECT_TRUE(allPass(withX, kInBounds));
    EXPECT_TRUE(allFail(withX, kOutOfBounds));
}

TEST(Zyr3DSphere, CenterYMustBeBelowTheInvalidValueInMagnitude) {
    EXPECT_TRUE(allPass(withY, kInBounds));
    EXPECT_TRUE(allFail(withY, kOutOfBounds));
}

TEST(Zyr3DSphere, CenterZHasNoSay) {
    EXPECT_TRUE(allPass(withZ, kInBounds));
    EXPECT_TRUE(allPass(withZ, kOutOfBounds));
}

TEST(Zyr3DSphere, RadiusMustBePositive) {
    EXPECT_TRUE(allPass(withRadius, test::kPositive));
    EXPECT_TRUE(allFail(withRadius, test::kNotPositive));
}

TEST(Zyr3DSphere, CenterZOfTheInvalidValueIsValid) {
    EXPECT_TRUE(Zyr3DSphere(ZyrVector3d(0, 0, kInvalid), 1).IsValid());
}

TEST(Zyr3DSphere, CenterXOfTheInvalidValueIsInvalidAndLeavesARadiusOfZero) {
    Zyr3DSphere sphere(ZyrVector3d(kInvalid, 0, 0), 1);
    EXPECT_FALSE(sphere.IsValid());
    EXPECT_EQ(sphere.Radius(), 0);
}

TEST(Zyr3DSphere, VolumeUsesItsOwnConstant) {
    EXPECT_EQ(withRadius(1).Volumn(), 4.186666791439056);
    EXPECT_EQ(withRadius(2).Volumn(), 33.49333433151245);
}

// 1.3 * 1.3 * 1.3 rounds twice, to 2.1970000000000005; the power rounds once, to 2.197.
TEST(Zyr3DSphere, VolumeCubesTheRadiusByAPower) {
    EXPECT_EQ(withRadius(1.3).Volumn(), 2.197 * 4.186666791439056);
}

TEST(Zyr3DSphere, VolumeIsZeroForARadiusOfZeroOrLess) {
    EXPECT_EQ(withRadius(-1).Volumn(), 0);
    EXPECT_EQ(withRadius(0).Volumn(), 0);
    EXPECT_EQ(withRadius(-test::kInfinity).Volumn(), 0);
}

TEST(Zyr3DSphere, VolumeDoesNotLookAtTheCenter) {
    EXPECT_EQ(withCenter(ZyrVector3d()).Volumn(), withCenter(kCenter).Volumn());
}

TEST(Zyr3DSphere, VolumeOfANaNRadiusIsNaN) {
    EXPECT_TRUE(std::isnan(withRadius(test::kNaN).Volumn()));
}

TEST(Zyr3DSphere, EqualCentersAndRadiiCompareEqual) {
    EXPECT_TRUE(Zyr3DSphere(kCenter, 1.0) == Zyr3DSphere(kCenter, 1.0));
    EXPECT_TRUE(Zyr3DSphere() == Zyr3DSphere());
    EXPECT_TRUE(withX(0.0) == withX(-0.0));
}

TEST(Zyr3DSphere, AnyDifferenceComparesUnequal) {
    const Zyr3DSphere sphere(kCenter, 5);
    EXPECT_FALSE(sphere == withX(test::above(1)));
    EXPECT_FALSE(sphere == withY(test::above(2)));
    EXPECT_FALSE(sphere == withZ(test::above(3)));
    EXPECT_FALSE(sphere == withRadius(test::above(5)));
}

TEST(Zyr3DSphere, NaNComparesUnequalToItself) {
    for (const Zyr3DSphere& sphere :
         {withX(test::kNaN), withY(test::kNaN), withZ(test::kNaN), withRadius(test::kNaN)})
        EXPECT_FALSE(sphere == sphere);
}
