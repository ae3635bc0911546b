#include "Zyr3DEllipsoid.h"

#include <gtest/gtest.h>

#include <functional>
#include <type_traits>

#include "support/TransformValues.h"

namespace {

void expectDefault(Zyr3DEllipsoid e) {
    EXPECT_EQ(test::values(e.Center()), std::vector<double>(3, test::kInvalid));
    EXPECT_EQ(test::values(e.Size()), std::vector<double>(3, test::kInvalid));
    EXPECT_EQ(test::values(e.Angle()), std::vector<double>(3, test::kInvalid));
}

ZyrMatrix4 withNaN() {
    return ZyrMatrix4(1, 0, 0, 9, 0, std::nan(""), 0, 9, 0, 0, 1, 9, 0, 0, 0, 1);
}

}  // namespace

TEST(Zyr3DEllipsoid, NeedsAValidCentre) {
    Zyr3DEllipsoid e(ZyrVector3d(1, 2, test::kInvalid), ZyrVector3d(0, 0, 0), ZyrVector3d(1, 1, 1));
    EXPECT_FALSE(e.IsValid());
    expectDefault(e);
}

TEST(Zyr3DEllipsoid, NeedsValidAngles) {
    Zyr3DEllipsoid e(ZyrVector3d(1, 2, 3), ZyrVector3d(0, std::nan(""), 0), ZyrVector3d(1, 1, 1));
    EXPECT_FALSE(e.IsValid());
    expectDefault(e);
}

TEST(Zyr3DEllipsoid, ARefusedPoseInvalidatesAllThreeFields) {
    Zyr3DEllipsoid e(ZyrVector3d(1, 2, 3), ZyrVector3d(0, 0, 0), ZyrVector3d(1, 1, 1));
    e.SetAttributeMatrix(withNaN());
    expectDefault(e);
}

TEST(Zyr3DEllipsoid, ConstructionFromARefusedPoseGivesADefaultOne) {
    expectDefault(Zyr3DEllipsoid(ZyrVector3d(1, 1, 1), withNaN()));
}

TEST(Zyr3DEllipsoid, HasNoEquality) {
    EXPECT_FALSE((std::is_invocable_v<std::equal_to<>, Zyr3DEllipsoid&, Zyr3DEllipsoid&>));
}
