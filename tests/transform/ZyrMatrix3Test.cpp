#include "ZyrMatrix3.h"

#include <gtest/gtest.h>

#include "support/TransformValues.h"

TEST(ZyrMatrix3, DefaultIsUnsetThroughout) {
    EXPECT_EQ(ZyrMatrix3().Value(1, 1), test::kInvalid);
    EXPECT_EQ(test::values(ZyrMatrix3()), std::vector<double>(9, test::kInvalid));
}

TEST(ZyrMatrix3, NormOfADefaultOneIsThreeTimesTheInvalidValue) {
    EXPECT_EQ(ZyrMatrix3().Norm(), 1.0208470399155866e+39);
}

TEST(ZyrMatrix3, NineValuesLieRowByRow) {
    const ZyrMatrix3 m(1, 2, 3, 4, 5, 6, 7, 8, 9);
    EXPECT_EQ(m.Value(0, 2), 3);
    EXPECT_EQ(m.Value(2, 0), 7);
    EXPECT_EQ(test::values(m), (std::vector<double>{1, 2, 3, 4, 5, 6, 7, 8, 9}));
}

TEST(ZyrMatrix3, RowThreeIsOutside) {
    EXPECT_EQ(ZyrMatrix3(1, 2, 3, 4, 5, 6, 7, 8, 9).Value(3, 0), test::kInvalid);
}

TEST(ZyrMatrix3, ProportionalRowsInvertToZeros) {
    const ZyrMatrix3 singular(1, 2, 3, 2, 4, 6, 0, 0, 1);
    EXPECT_EQ(test::values(singular.Inverse()), std::vector<double>(9, 0.0));
}

TEST(ZyrMatrix3, NoPivotIsTooSmallForItsInverse) {
    const ZyrMatrix3 tiny(0x1p-50, 0, 0, 0, 0x1p-50, 0, 0, 0, 0x1p-50);
    EXPECT_EQ(test::values(tiny.Inverse()),
              (std::vector<double>{0x1p50, 0, 0, 0, 0x1p50, 0, 0, 0, 0x1p50}));
}

TEST(ZyrMatrix3, ProductOfTwoByHand) {
    ZyrMatrix3 a(1, 2, 3, 4, 5, 6, 7, 8, 9);
    const ZyrMatrix3 b(9, 8, 7, 6, 5, 4, 3, 2, 1);
    EXPECT_EQ(test::values(a * b), (std::vector<double>{30, 24, 18, 84, 69, 54, 138, 114, 90}));
}

TEST(ZyrMatrix3, DeterminantByHand) {
    EXPECT_EQ(ZyrMatrix3(2, 0, 1, 1, 3, 2, 1, 1, 4).Determinant(), 18.0);
}

TEST(ZyrMatrix3, AVectorIsMultipliedAsAColumn) {
    ZyrMatrix3 m(1, 2, 3, 4, 5, 6, 7, 8, 9);
    EXPECT_EQ(test::values(m * ZyrVector3d(1, 10, 100)), (std::vector<double>{321, 654, 987}));
}

TEST(ZyrMatrix3, AVectorsThirdTermIsAddedLast) {
    ZyrMatrix3 m(1e16, 1, -1e16, 1e16, 1, -1e16, 1e16, 1, -1e16);
    EXPECT_EQ(test::values(m * ZyrVector3d(1, 1, 1)), (std::vector<double>{0, 0, 0}));
}

// 1e16 swallows the 1 only when these two are added first.
TEST(ZyrMatrix3, AVectorsFirstTwoTermsAreAddedFirst) {
    ZyrMatrix3 m(1, 1e16, -1e16, 1, 1e16, -1e16, 1, 1e16, -1e16);
    EXPECT_EQ(test::values(m * ZyrVector3d(1, 1, 1)), (std::vector<double>{0, 0, 0}));
}

TEST(ZyrMatrix3, ProductWithAVectorIsNotConst) {
    using M = ZyrMatrix3;
    EXPECT_TRUE(test::listed<ZyrVector3d (M::*)(const ZyrVector3d&)>(&M::operator*));
}

TEST(ZyrMatrix3, AnInvalidComponentOfAVectorPropagates) {
    ZyrMatrix3 swapXY(0, 1, 0, 1, 0, 0, 0, 0, 1);
    const ZyrVector3d v(test::kInvalid, 2, 3);
    EXPECT_EQ(test::values(swapXY * v), (std::vector<double>{2, test::kInvalid, 3}));
}
