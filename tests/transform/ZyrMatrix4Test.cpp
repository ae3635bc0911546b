#include "ZyrMatrix4.h"

#include <gtest/gtest.h>

#include <type_traits>

#include "support/TransformValues.h"

TEST(ZyrMatrix4, DefaultIsTheZeroMatrix) {
    EXPECT_EQ(ZyrMatrix4().Value(1, 1), 0.0);
    EXPECT_EQ(test::values(ZyrMatrix4()), std::vector<double>(16, 0.0));
    EXPECT_EQ(ZyrMatrix4().Norm(), 0.0);
}

TEST(ZyrMatrix4, RowMinusOneAndColumnFourAreOutside) {
    EXPECT_EQ(ZyrMatrix4().Value(-1, 0), test::kInvalid);
    EXPECT_EQ(ZyrMatrix4().Value(0, 4), test::kInvalid);
}

TEST(ZyrMatrix4, IndexThreeIsInside) {
    const ZyrMatrix4 m(1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16);
    EXPECT_EQ(m.Value(0, 3), 4);
    EXPECT_EQ(m.Value(3, 0), 13);
    EXPECT_EQ(m.Value(3, 3), 16);
}

TEST(ZyrMatrix4, ProductOfTwoByHand) {
    ZyrMatrix4 a(1, 2, 0, 0, 3, 4, 0, 0, 0, 0, 5, 6, 0, 0, 7, 8);
    const ZyrMatrix4 b(0, 1, 2, 0, 1, 0, 0, 2, 1, 1, 0, 0, 0, 0, 1, 1);
    EXPECT_EQ(test::values(a * b),
              (std::vector<double>{2, 1, 2, 4, 4, 3, 6, 8, 5, 5, 6, 6, 7, 7, 8, 8}));
}

// A pivot below a hundred epsilons (2.22e-14) counts as none.
TEST(ZyrMatrix4, IsSingularBelowASmallPivot) {
    ZyrMatrix4 m(1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 2.2e-14);
    EXPECT_EQ(test::values(m.Inverse()), std::vector<double>(16, 0.0));
    m.Replace(3, 3, 2.3e-14);
    EXPECT_EQ(m.Inverse().Value(3, 3), 1.0 / 2.3e-14);
}

TEST(ZyrMatrix4, IsNeverAppliedToAVector) {
    EXPECT_TRUE((std::is_invocable_v<std::multiplies<>, ZyrMatrix3&, const ZyrVector3d&>));
    EXPECT_FALSE((std::is_invocable_v<std::multiplies<>, ZyrMatrix4&, const ZyrVector3d&>));
}
