#include "Zyr3DRect.h"

#include <gtest/gtest.h>

#include "primitive/Samples.h"

using test::allFail;
using test::allPass;

namespace {

const ZyrVector3d kCenter(1, 2, 3);
const ZyrVector3d kAngle(10, 20, 30);

Zyr3DRect withCenter(const ZyrVector3d& center) {
    return Zyr3DRect(center, kAngle, 5, 4);
}

Zyr3DRect withAngle(const ZyrVector3d& angle) {
    return Zyr3DRect(kCenter, angle, 5, 4);
}

Zyr3DRect withWidth(double value) {
    return Zyr3DRect(kCenter, kAngle, value, 4);
}

Zyr3DRect withHeight(double value) {
    return Zyr3DRect(kCenter, kAngle, 5, value);
}

}  // namespace

TEST(Zyr3DRect, DefaultHasZerosAndInvalidVectors) {
    const double inv = test::kInvalid;
    EXPECT_EQ(test::fields(Zyr3DRect()), (std::vector{0.0, 0.0, inv, inv, inv, inv, inv, inv}));
}

TEST(Zyr3DRect, LiesInMemoryAsWidthHeightCenterAngle) {
    EXPECT_EQ(test::fields(Zyr3DRect(kCenter, kAngle, 5, 4)),
              (std::vector<double>{5, 4, 1, 2, 3, 10, 20, 30}));
}

TEST(Zyr3DRect, GivesWhatItWasMadeOf) {
    Zyr3DRect rect(kCenter, kAngle, 5, 4);
    EXPECT_EQ(test::values(rect.Center()), test::values(kCenter));
    EXPECT_EQ(test::values(rect.Angle()), test::values(kAngle));
    EXPECT_EQ(rect.Width(), 5);
    EXPECT_EQ(rect.Height(), 4);
}

TEST(Zyr3DRect, CenterMustBeValid) {
    EXPECT_TRUE(allPass(withCenter, test::barelyValidVectors()));
    EXPECT_TRUE(allFail(withCenter, test::barelyInvalidVectors()));
}

TEST(Zyr3DRect, AngleMustBeValid) {
    EXPECT_TRUE(allPass(withAngle, test::barelyValidVectors()));
    EXPECT_TRUE(allFail(withAngle, test::barelyInvalidVectors()));
}

TEST(Zyr3DRect, WidthMustBePositive) {
    EXPECT_TRUE(allPass(withWidth, test::kPositive));
    EXPECT_TRUE(allFail(withWidth, test::kNotPositive));
}

TEST(Zyr3DRect, HeightMustBePositive) {
    EXPECT_TRUE(allPass(withHeight, test::kPositive));
    EXPECT_TRUE(allFail(withHeight, test::kNotPositive));
}

TEST(Zyr3DRect, WidthOfZeroIsInvalidAndHeightReadsZeroAfterwards) {
    Zyr3DRect rect(kCenter, kAngle, 0, 1);
    EXPECT_FALSE(rect.IsValid());
    EXPECT_EQ(rect.Width(), 0);
    EXPECT_EQ(rect.Height(), 0);
}
