#include "Zyr3DContour.h"

#include <gtest/gtest.h>

#include "support/ZyrValues.h"

namespace {

ZyrVector3dArray points(int count) {
    ZyrVector3dArray array;
    for (int i = 0; i < count; ++i) array.Append(ZyrVector3d(i, i, i));
    return array;
}

}  // namespace

TEST(Zyr3DContour, DefaultIsEmptyWithPointsOfItsOwn) {
    Zyr3DContour a, b;
    a.ToPointArray().Append(ZyrVector3d(1, 2, 3));
    EXPECT_EQ(a.Length(), 1);
    EXPECT_EQ(b.Length(), 0);
}

TEST(Zyr3DContour, IsOnePointer) {
    EXPECT_EQ(sizeof(Zyr3DContour), sizeof(void*));
}

TEST(Zyr3DContour, SharesTheArrayThatItIsMadeFrom) {
    ZyrVector3dArray array = points(2);
    Zyr3DContour c;
    c.FromPointArray(array);
    array.Append(ZyrVector3d(1, 2, 3));
    EXPECT_EQ(c.Length(), 3);
}

TEST(Zyr3DContour, LeavesThePointsHeldBefore) {
    Zyr3DContour c;
    c.FromPointArray(points(2));
    ZyrVector3dArray before = c.ToPointArray();
    c.FromPointArray(points(5));
    EXPECT_EQ(before.Length(), 2);
    EXPECT_EQ(c.Length(), 5);
}

TEST(Zyr3DContour, PointArraySharesThePoints) {
    Zyr3DContour c;
    c.FromPointArray(points(2));
    ZyrVector3dArray array = c.ToPointArray();
    array[1].x = 7;
    array.Append(ZyrVector3d(1, 2, 3));
    EXPECT_EQ(test::values(c.ToPointArray()), (std::vector<double>{0, 0, 0, 7, 1, 1, 1, 2, 3}));
}

TEST(Zyr3DContour, TakesItsOwnPointArray) {
    Zyr3DContour c;
    c.FromPointArray(points(2));
    c.FromPointArray(c.ToPointArray());
    EXPECT_EQ(c.Length(), 2);
}

TEST(Zyr3DContour, AssignedOneSharesThePoints) {
    ZyrVector3dArray array = points(2);
    Zyr3DContour a, b;
    a.FromPointArray(array);
    EXPECT_EQ(&(b = a), &b);
    array.Append(ZyrVector3d(1, 2, 3));
    EXPECT_EQ(b.Length(), 3);
}

TEST(Zyr3DContour, AssignedOneKeepsThePointsWhenTheSourceTakesOthers) {
    Zyr3DContour a, b;
    a.FromPointArray(points(2));
    b = a;
    a.FromPointArray(points(5));
    EXPECT_EQ(b.Length(), 2);
}

TEST(Zyr3DContour, SelfAssignmentKeepsThePoints) {
    ZyrVector3dArray array = points(2);
    Zyr3DContour c;
    c.FromPointArray(array);
    const Zyr3DContour& same = c;
    c = same;
    array.Append(ZyrVector3d(1, 2, 3));
    EXPECT_EQ(c.Length(), 3);
}

TEST(Zyr3DContour, CopyConstructedOneIsIndependent) {
    ZyrVector3dArray array = points(2);
    Zyr3DContour a;
    a.FromPointArray(array);
    Zyr3DContour b(a);
    array[0].x = 7;
    array.Append(ZyrVector3d(1, 2, 3));
    a.FromPointArray(points(5));
    EXPECT_EQ(test::values(b.ToPointArray()), (std::vector<double>{0, 0, 0, 1, 1, 1}));
}

TEST(Zyr3DContour, SourceDoesNotSeeChangesOfItsCopy) {
    Zyr3DContour a;
    a.FromPointArray(points(2));
    Zyr3DContour b(a);
    b.ToPointArray().Clear();
    EXPECT_EQ(a.Length(), 2);
}

TEST(Zyr3DContour, DeepCopyIsIndependent) {
    ZyrVector3dArray array = points(2);
    Zyr3DContour a;
    a.FromPointArray(array);
    Zyr3DContour b = a.DeepCopy();
    array[0].x = 7;
    array.Append(ZyrVector3d(1, 2, 3));
    EXPECT_EQ(test::values(b.ToPointArray()), (std::vector<double>{0, 0, 0, 1, 1, 1}));
}
