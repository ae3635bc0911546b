#include "Zyr3DEllipsoid.h"

#include <gtest/gtest.h>

#include <functional>
#include <type_traits>

#include "primitive/OrientedSolids.h"

TEST(Zyr3DEllipsoid, NeedsAValidCentre) {
    Zyr3DEllipsoid e(ZyrVector3d(1, 2, test::kInvalid), ZyrVector3d(0, 0, 0), ZyrVector3d(1, 1, 1));
    EXPECT_FALSE(e.IsValid());
    test::expectDefault(e);
}

TEST(Zyr3DEllipsoid, NeedsValidAngles) {
    Zyr3DEllipsoid e(ZyrVector3d(1, 2, 3), ZyrVector3d(0, std::nan(""), 0), ZyrVector3d(1, 1, 1));
    EXPECT_FALSE(e.IsValid());
    test::expectDefault(e);
}

TEST(Zyr3DEllipsoid, ARefusedPoseInvalidatesAllThreeFields) {
    Zyr3DEllipsoid e(ZyrVector3d(1, 2, 3), ZyrVector3d(0, 0, 0), ZyrVector3d(1, 1, 1));
    e.SetAttributeMatrix(test::withNaN());
    test::expectDefault(e);
}

TEST(Zyr3DEllipsoid, ConstructionFromARefusedPoseGivesADefaultOne) {
    test::expectDefault(Zyr3DEllipsoid(ZyrVector3d(1, 1, 1), test::withNaN()));
}

TEST(Zyr3DEllipsoid, HasNoEquality) {
    EXPECT_FALSE((std::is_invocable_v<std::equal_to<>, Zyr3DEllipsoid&, Zyr3DEllipsoid&>));
}
