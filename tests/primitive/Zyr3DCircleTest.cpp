#include "Zyr3DCircle.h"

#include <gtest/gtest.h>

#include "primitive/Samples.h"

using test::allFail;
using test::allPass;

namespace {

const ZyrVector3d kCenter(1, 2, 3);
const ZyrVector3d kNormal(0, 0, 1);

Zyr3DCircle withCenter(const ZyrVector3d& center) {
    return Zyr3DCircle(center, kNormal, 5);
}

Zyr3DCircle withNormal(const ZyrVector3d& normal) {
    return Zyr3DCircle(kCenter, normal, 5);
}

Zyr3DCircle withNormalOfLength(double length) {
    return Zyr3DCircle(kCenter, ZyrVector3d(0, -length, 0), 5);
}

Zyr3DCircle withRadius(double radius) {
    return Zyr3DCircle(kCenter, kNormal, radius);
}

}  // namespace

TEST(Zyr3DCircle, DefaultHasInvalidVectorsAndTheInvalidValueAsRadius) {
    EXPECT_EQ(test::fields(Zyr3DCircle()), std::vector<double>(7, test::kInvalid));
}

TEST(Zyr3DCircle, LiesInMemoryAsCenterNormalRadius) {
    EXPECT_EQ(test::fields(Zyr3DCircle(kCenter, ZyrVector3d(4, 5, 6), 7)),
              (std::vector<double>{1, 2, 3, 4, 5, 6, 7}));
}

TEST(Zyr3DCircle, GivesWhatItWasMadeOf) {
    Zyr3DCircle circle(kCenter, kNormal, 5);
    EXPECT_EQ(test::values(circle.Center()), test::values(kCenter));
    EXPECT_EQ(test::values(circle.NormalVector()), test::values(kNormal));
    EXPECT_EQ(circle.Radius(), 5);
}

TEST(Zyr3DCircle, NormalIsNotNormalised) {
    Zyr3DCircle circle(kCenter, ZyrVector3d(0, 3, 4), 5);
    EXPECT_TRUE(circle.IsValid());
    EXPECT_EQ(test::values(circle.NormalVector()), (std::vector<double>{0, 3, 4}));
}

TEST(Zyr3DCircle, RadiusMustLieBetweenZeroAndTheInvalidValue) {
    EXPECT_TRUE(
        allPass(withRadius, std::vector{test::kSmallest, 1.0, test::below(test::kInvalid)}));
    EXPECT_TRUE(allFail(withRadius, test::kNotPositive));
    EXPECT_TRUE(allFail(withRadius, std::vector{test::kInvalid, test::kInfinity}));
}

TEST(Zyr3DCircle, NormalMustBeValid) {
    EXPECT_TRUE(allPass(withNormal, test::barelyValidVectors()));
    EXPECT_TRUE(allFail(withNormal, test::barelyInvalidVectors()));
}

TEST(Zyr3DCircle, NormalMustBeLongerThanItsBound) {
    EXPECT_TRUE(allPass(withNormalOfLength, std::vector{test::above(1.1e-5), 1.0, 1e30}));
    EXPECT_TRUE(allFail(withNormalOfLength, std::vector{0.0, 1e-6, 1.1e-5}));
}

TEST(Zyr3DCircle, CenterHasNoSay) {
    EXPECT_TRUE(allPass(withCenter, test::barelyValidVectors()));
    EXPECT_TRUE(allPass(withCenter, test::barelyInvalidVectors()));
}

TEST(Zyr3DCircle, RadiusOfTheInvalidValueIsInvalidAndResetsTheCircle) {
    Zyr3DCircle circle(kCenter, kNormal, test::kInvalid);
    EXPECT_FALSE(circle.IsValid());
    EXPECT_EQ(circle.Radius(), test::kInvalid);
    EXPECT_FALSE(circle.Center().IsValid());
    EXPECT_FALSE(circle.NormalVector().IsValid());
}

TEST(Zyr3DCircle, InvalidCenterWithGoodRadiusAndNormalIsValid) {
    EXPECT_TRUE(Zyr3DCircle(ZyrVector3d(), ZyrVector3d(0, 0, 1), 1).IsValid());
}

TEST(Zyr3DCircle, NormalOfAMillionthIsInvalid) {
    EXPECT_FALSE(withNormal(ZyrVector3d(0, 0, 1e-6)).IsValid());
}
