#include "ZyrPointCloud.h"

#include <gtest/gtest.h>

#include <limits>
#include <type_traits>

#include "support/Clouds.h"
#include "support/ZyrValues.h"

using test::colorArray;
using test::kInvalid;
using test::kInvalidVector;
using test::values;
using Values = std::vector<double>;

TEST(ZyrPointCloud, DefaultIsEmpty) {
    ZyrPointCloud cloud;
    EXPECT_EQ(cloud.Length(), 0);
    EXPECT_EQ(cloud.NumValidPoints(), 0);
    EXPECT_EQ(cloud.PointData().Length(), 0);
    EXPECT_EQ(cloud.NormalData().Length(), 0);
    EXPECT_EQ(cloud.ColorData().Length(), 0);
}

TEST(ZyrPointCloud, ConstructorSharesTheThreeArrays) {
    ZyrVector3dArray points = test::vectors({1, 2, 3}), normals = test::vectors({4, 5, 6});
    ZyrColorArray colors = colorArray(1, 3, 7);
    ZyrPointCloud cloud(points, colors, normals);
    points[0].x = 10;
    normals[0].y = 20;
    colors.SetColor(30);
    EXPECT_EQ(values(cloud.Point(0)), (Values{10, 2, 3}));
    EXPECT_EQ(values(cloud.Normal(0)), (Values{4, 20, 6}));
    EXPECT_EQ(values(cloud.Color(0)), (std::vector<int>{30, 30, 30, 255}));
}

TEST(ZyrPointCloud, ConstructorTakesPointsColoursNormalsInThisOrder) {
    const ZyrPointCloud cloud(test::vectors({1, 2, 3}), ZyrColorArray(), test::vectors({4, 5, 6}));
    EXPECT_EQ(values(cloud.Point(0)), (Values{1, 2, 3}));
    EXPECT_EQ(values(cloud.Normal(0)), (Values{4, 5, 6}));
}

TEST(ZyrPointCloud, CopySharesAllThreeArrays) {
    ZyrPointCloud cloud = test::fullCloud(2);
    ZyrPointCloud copy(cloud);
    test::changeFirst(cloud);
    test::expectSameElements(copy, cloud);
}

TEST(ZyrPointCloud, AssignmentSharesAllThreeArrays) {
    ZyrPointCloud cloud = test::fullCloud(2), other = test::fullCloud(3);
    ZyrPointCloud& result = other = cloud;
    EXPECT_EQ(&result, &other);
    test::changeFirst(cloud);
    test::expectSameElements(other, cloud);
}

TEST(ZyrPointCloud, AssignmentLeavesThoseWhoSharedBefore) {
    ZyrPointCloud cloud = test::fullCloud(2), other = test::fullCloud(3);
    ZyrPointCloud sharer = other;
    other = cloud;
    EXPECT_EQ(sharer.Length(), 3);
    EXPECT_EQ(sharer.ColorData().Length(), 3);
}

TEST(ZyrPointCloud, SelfAssignmentIsHarmless) {
    ZyrPointCloud cloud = test::fullCloud(2);
    ZyrPointCloud& same = cloud;
    cloud = same;
    test::expectSameElements(cloud, test::fullCloud(2));
}

TEST(ZyrPointCloud, InvalidatedPointIsInvalidInAllThatShareIt) {
    ZyrPointCloud c1 = test::fullCloud(2), c2, c3 = c1.DeepCopy();
    c2 = c1;
    c1.InvalidatePoint(0);
    EXPECT_EQ(values(c2.Point(0)), kInvalidVector);
    EXPECT_TRUE(c3.Point(0).IsValid());
}

TEST(ZyrPointCloud, DeepCopySharesNothing) {
    ZyrPointCloud cloud = test::fullCloud(2);
    ZyrPointCloud copy = cloud.DeepCopy();
    test::expectSameElements(copy, cloud);
    test::changeFirst(cloud);
    test::expectSameElements(copy, test::fullCloud(2));
}

TEST(ZyrPointCloud, DeepCopiesOfTheArraysShareNothing) {
    ZyrPointCloud cloud = test::fullCloud(2);
    ZyrPointCloud copies(cloud.DeepCopyPoints(), cloud.DeepCopyColors(), cloud.DeepCopyNormals());
    test::changeFirst(cloud);
    test::expectSameElements(copies, test::fullCloud(2));
}

TEST(ZyrPointCloud, SettersShareTheirArgument) {
    ZyrVector3dArray points = test::vectors({1, 2, 3}), normals = test::vectors({4, 5, 6});
    ZyrColorArray colors = colorArray(1, 3, 7);
    ZyrPointCloud cloud;
    cloud.SetPoints(points);
    cloud.SetColors(colors);
    cloud.SetNormals(normals);
    points[0].x = 10;
    normals[0].y = 20;
    colors.SetColor(30);
    EXPECT_EQ(values(cloud.Point(0)), (Values{10, 2, 3}));
    EXPECT_EQ(values(cloud.Normal(0)), (Values{4, 20, 6}));
    EXPECT_EQ(cloud.Color(0).g, 30);
}

TEST(ZyrPointCloud, SettersReplaceOneArrayEach) {
    ZyrPointCloud cloud = test::fullCloud(2);
    ZyrPointCloud sharer = cloud;
    cloud.SetPoints(ZyrVector3dArray());
    EXPECT_EQ(cloud.NormalData().Length(), 2);
    EXPECT_EQ(cloud.ColorData().Length(), 2);
    EXPECT_EQ(sharer.Length(), 2);
}

TEST(ZyrPointCloud, DataAreTheArraysThemselves) {
    ZyrPointCloud cloud = test::fullCloud(2);
    cloud.PointData().Append(ZyrVector3d(1, 1, 1));
    cloud.NormalData().Clear();
    cloud.ColorData().Create(5, 1);
    EXPECT_EQ(cloud.Length(), 3);
    EXPECT_EQ(values(cloud.Normal(0)), kInvalidVector);
    EXPECT_EQ(cloud.ColorData().Length(), 5);
    EXPECT_EQ(&cloud.PointData(), &cloud.PointData());
}

TEST(ZyrPointCloud, ValidPointsAreCounted) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const ZyrPointCloud cloud(test::vectors({1, 2, 3, kInvalid, 0, 0, 0, nan, 0, 0, 0, -1e300}),
                              ZyrColorArray(), ZyrVector3dArray());
    EXPECT_EQ(cloud.Length(), 4);
    EXPECT_EQ(cloud.NumValidPoints(), 2);
}

TEST(ZyrPointCloud, ColoursArePresentWhenThereAreAsManyAsPoints) {
    ZyrPointCloud cloud;
    cloud.PointData().SetSize(5);
    for (int length : {0, 4, 5, 6}) {
        cloud.SetColors(colorArray(length, 3, 0));
        EXPECT_EQ(cloud.IsValidColor(), length == 5) << length;
    }
}

TEST(ZyrPointCloud, NormalsArePresentWhenThereAreAsManyAsPoints) {
    ZyrPointCloud cloud;
    cloud.PointData().SetSize(5);
    for (int length : {0, 4, 5, 6}) {
        ZyrVector3dArray normals;
        normals.SetSize(length);
        cloud.SetNormals(normals);
        EXPECT_EQ(cloud.IsValidNormal(), length == 5) << length;
    }
}

TEST(ZyrPointCloud, EmptyCloudHasNeitherColoursNorNormals) {
    const ZyrPointCloud cloud;
    EXPECT_FALSE(cloud.IsValidColor());
    EXPECT_FALSE(cloud.IsValidNormal());
}

TEST(ZyrPointCloud, InvalidatePointLeavesColourAndNormal) {
    ZyrPointCloud cloud = test::fullCloud(2);
    cloud.InvalidatePoint(1);
    EXPECT_EQ(values(cloud.Point(1)), kInvalidVector);
    EXPECT_EQ(values(cloud.Point(0)), values(test::fullCloud(2).Point(0)));
    EXPECT_EQ(values(cloud.Normal(1)), values(test::fullCloud(2).Normal(1)));
    EXPECT_EQ(values(cloud.Color(1)), values(test::fullCloud(2).Color(1)));
    EXPECT_EQ(cloud.Length(), 2);
}

TEST(ZyrPointCloud, InvalidatePointOutOfRangeDoesNothing) {
    ZyrPointCloud cloud = test::fullCloud(2);
    for (int i : {-1, 2, 3, 2147483647, -2147483647 - 1}) cloud.InvalidatePoint(i);
    test::expectSameElements(cloud, test::fullCloud(2));
}

TEST(ZyrPointCloud, ElementsAreCopies) {
    using Cloud = const ZyrPointCloud&;
    static_assert(std::is_same_v<decltype(std::declval<Cloud>().Point(0)), ZyrVector3d>);
    static_assert(std::is_same_v<decltype(std::declval<Cloud>().Normal(0)), ZyrVector3d>);
    static_assert(std::is_same_v<decltype(std::declval<Cloud>().Color(0)), ZyrColor>);
    static_assert(std::is_same_v<decltype(std::declval<Cloud>()[0]), ZyrVector3d>);
    const ZyrPointCloud cloud = test::fullCloud(2);
    EXPECT_EQ(values(cloud.Point(1)), (Values{1.1, 1.2, 1.3}));
    EXPECT_EQ(values(cloud[1]), (Values{1.1, 1.2, 1.3}));
    EXPECT_EQ(values(cloud.Normal(1)), (Values{-1, 1, 0}));
    EXPECT_EQ(values(cloud.Color(1)), (std::vector<int>{1, 11, 21, 31}));
}

TEST(ZyrPointCloud, ElementsOutOfRangeAreDefaults) {
    const ZyrPointCloud cloud = test::fullCloud(2);
    for (int i : {-1, 2, 2147483647}) {
        EXPECT_EQ(values(cloud.Point(i)), kInvalidVector);
        EXPECT_EQ(values(cloud.Normal(i)), kInvalidVector);
        EXPECT_EQ(values(cloud[i]), kInvalidVector);
        EXPECT_EQ(values(cloud.Color(i)), (std::vector<int>{0, 0, 0, 255}));
    }
}

TEST(ZyrPointCloud, ColourAndNormalGoByTheirOwnLengths) {
    const ZyrPointCloud cloud(test::vectors({1, 2, 3}), colorArray(2, 1, 9),
                              test::vectors({4, 5, 6, 7, 8, 9}));
    EXPECT_EQ(values(cloud.Normal(1)), (Values{7, 8, 9}));
    EXPECT_EQ(values(cloud.Color(1)), (std::vector<int>{9, 0, 0, 255}));
}

TEST(ZyrPointCloud, IndexGivesThePointItself) {
    ZyrPointCloud cloud = test::fullCloud(2);
    cloud[1].y = 99;
    EXPECT_EQ(cloud.PointData()[1].y, 99);
}

TEST(ZyrPointCloud, IndexOutOfRangeGivesAScratchPoint) {
    ZyrPointCloud cloud = test::fullCloud(2);
    for (int i : {-1, 2}) {
        cloud[i] = ZyrVector3d(1, 2, 3);
        EXPECT_EQ(values(cloud[i]), kInvalidVector);
    }
    test::expectSameElements(cloud, test::fullCloud(2));
}

TEST(ZyrPointCloud, AppendAddsEachArray) {
    ZyrPointCloud cloud = test::fullCloud(2);
    cloud.Append(test::fullCloud(3));
    EXPECT_EQ(cloud.Length(), 5);
    EXPECT_EQ(values(cloud.Point(4)), values(test::fullCloud(3).Point(2)));
    EXPECT_EQ(values(cloud.Normal(4)), values(test::fullCloud(3).Normal(2)));
    EXPECT_EQ(values(cloud.Color(4)), values(test::fullCloud(3).Color(2)));
    EXPECT_TRUE(cloud.IsValidColor() && cloud.IsValidNormal());
}

TEST(ZyrPointCloud, AppendIsSeenThroughSharedPoints) {
    ZyrPointCloud cloud = test::fullCloud(2);
    const ZyrPointCloud sharer = cloud;
    cloud.Append(test::fullCloud(1));
    EXPECT_EQ(sharer.Length(), 3);
}

TEST(ZyrPointCloud, AppendGoesByEachArray) {
    ZyrPointCloud cloud = test::fullCloud(2);
    ZyrPointCloud bare(test::vectors({7, 8, 9}), ZyrColorArray(), ZyrVector3dArray());
    cloud.Append(bare);
    EXPECT_EQ(cloud.Length(), 3);
    EXPECT_EQ(cloud.ColorData().Length(), 2);
    EXPECT_FALSE(cloud.IsValidNormal());
    bare.Append(test::fullCloud(2));
    EXPECT_EQ(bare.Length(), 3);
    EXPECT_EQ(bare.NormalData().Length(), 2);
}

TEST(ZyrPointCloud, AppendedToItselfIsDoubled) {
    ZyrPointCloud cloud = test::fullCloud(2);
    cloud.Append(cloud);
    ASSERT_EQ(cloud.Length(), 4);
    EXPECT_TRUE(cloud.IsValidColor() && cloud.IsValidNormal());
    for (int i : {0, 1}) {
        EXPECT_EQ(values(cloud.Point(i + 2)), values(cloud.Point(i)));
        EXPECT_EQ(values(cloud.Normal(i + 2)), values(cloud.Normal(i)));
        EXPECT_EQ(values(cloud.Color(i + 2)), values(cloud.Color(i)));
    }
}

TEST(ZyrPointCloud, ClearEmptiesAllThreeArrays) {
    ZyrPointCloud cloud = test::fullCloud(2);
    cloud.Clear();
    EXPECT_EQ(cloud.Length() + cloud.NormalData().Length() + cloud.ColorData().Length(), 0);
}

TEST(ZyrPointCloud, ClearEmptiesPointsAndNormalsOfSharersButNotTheirColours) {
    ZyrPointCloud cloud = test::fullCloud(2);
    ZyrPointCloud sharer = cloud;
    cloud.Clear();
    EXPECT_EQ(sharer.Length(), 0);
    EXPECT_EQ(sharer.NormalData().Length(), 0);
    EXPECT_EQ(sharer.ColorData().Length(), 2);
}
