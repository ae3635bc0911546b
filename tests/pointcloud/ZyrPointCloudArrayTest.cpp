#include "ZyrPointCloudArray.h"

#include <gtest/gtest.h>

#include <type_traits>

#include "support/Clouds.h"
#include "support/Held.h"
#include "support/ZyrValues.h"

namespace {

/// A cloud of one point (id, 0, 0).
ZyrPointCloud cloudOf(double id) {
    return ZyrPointCloud(test::vectors({id, 0, 0}), ZyrColorArray(), ZyrVector3dArray());
}

ZyrPointCloudArray listOf(const std::vector<double>& ids) {
    ZyrPointCloudArray list;
    for (const double id : ids) list.Append(cloudOf(id));
    return list;
}

std::vector<double> ids(const ZyrPointCloudArray& list) {
    std::vector<double> ids;
    for (int i = 0; i < list.Length(); ++i) ids.push_back(list[i].Point(0).x);
    return ids;
}

using Ids = std::vector<double>;

}  // namespace

TEST(ZyrPointCloudArray, DefaultIsEmpty) {
    EXPECT_EQ(ZyrPointCloudArray().Length(), 0);
}

TEST(ZyrPointCloudArray, AppendAddsAtTheEnd) {
    ZyrPointCloudArray list = listOf({1, 2});
    list.Append(cloudOf(3));
    EXPECT_EQ(ids(list), (Ids{1, 2, 3}));
}

TEST(ZyrPointCloudArray, AppendedCloudSharesItsStorage) {
    ZyrPointCloud cloud = test::fullCloud(2);
    ZyrPointCloudArray list;
    list.Append(cloud);
    test::changeFirst(cloud);
    test::expectSameElements(list[0], cloud);
}

TEST(ZyrPointCloudArray, AppendTakesAWholeList) {
    ZyrPointCloudArray list = listOf({1, 2});
    list.Append(listOf({3, 4, 5}));
    list.Append(ZyrPointCloudArray());
    EXPECT_EQ(ids(list), (Ids{1, 2, 3, 4, 5}));
}

TEST(ZyrPointCloudArray, AppendedToItselfIsDoubled) {
    ZyrPointCloudArray list = listOf({1, 2});
    list.Append(list);
    EXPECT_EQ(ids(list), (Ids{1, 2, 1, 2}));
}

TEST(ZyrPointCloudArray, AppendTakesAnElementOfItsOwn) {
    ZyrPointCloudArray list = listOf({1, 2});
    for (int i = 0; i < 10; ++i) list.Append(list[0]);
    EXPECT_EQ(list.Length(), 12);
    EXPECT_EQ(list[11].Point(0).x, 1);
}

TEST(ZyrPointCloudArray, CopyIsAListOfItsOwn) {
    ZyrPointCloudArray list = listOf({1, 2});
    ZyrPointCloudArray copy(list);
    list.Append(cloudOf(3));
    list.Swap(0, 1);
    EXPECT_EQ(ids(copy), (Ids{1, 2}));
}

TEST(ZyrPointCloudArray, CopysCloudsShareTheirStorage) {
    ZyrPointCloudArray list = listOf({1, 2});
    ZyrPointCloudArray copy(list);
    list[0][0].x = 9;
    EXPECT_EQ(ids(copy), (Ids{9, 2}));
}

TEST(ZyrPointCloudArray, AssignmentCopiesTheList) {
    ZyrPointCloudArray list = listOf({1, 2}), other = listOf({7, 8, 9});
    other = list;
    list.Append(cloudOf(3));
    list[1][0].x = 5;
    EXPECT_EQ(ids(other), (Ids{1, 5}));
}

TEST(ZyrPointCloudArray, AssignmentGivesACopyNotTheListItself) {
    static_assert(std::is_same_v<decltype(std::declval<ZyrPointCloudArray&>() =
                                              std::declval<const ZyrPointCloudArray&>()),
                                 ZyrPointCloudArray>);
    ZyrPointCloudArray list = listOf({1, 2}), other;
    (other = list).Append(cloudOf(3));
    EXPECT_EQ(ids(other), (Ids{1, 2}));
    EXPECT_EQ(ids(other = list), (Ids{1, 2}));
}

TEST(ZyrPointCloudArray, AssignmentLeavesTheOldCloudsToThoseWhoShareThem) {
    ZyrPointCloud cloud = cloudOf(1);
    ZyrPointCloudArray list;
    list.Append(cloud);
    list = listOf({7});
    EXPECT_EQ(cloud.Point(0).x, 1);
}

TEST(ZyrPointCloudArray, SelfAssignmentIsHarmless) {
    ZyrPointCloudArray list = listOf({1, 2});
    const ZyrPointCloudArray& same = list;
    list = same;
    EXPECT_EQ(ids(list), (Ids{1, 2}));
}

TEST(ZyrPointCloudArray, InsertGoesBeforeTheElement) {
    ZyrPointCloudArray list = listOf({1, 2});
    ZyrPointCloud cloud = cloudOf(9);
    list.Insert(1, cloud);
    list.Insert(0, cloud);
    EXPECT_EQ(ids(list), (Ids{9, 1, 9, 2}));
}

TEST(ZyrPointCloudArray, InsertNeverAppends) {
    ZyrPointCloudArray list = listOf({1, 2}), empty;
    ZyrPointCloud cloud = cloudOf(9);
    for (int i : {-1, 2, 3}) list.Insert(i, cloud);
    for (int i : {-1, 0, 1}) empty.Insert(i, cloud);
    EXPECT_EQ(ids(list), (Ids{1, 2}));
    EXPECT_EQ(empty.Length(), 0);
}

TEST(ZyrPointCloudArray, InsertTakesAnElementOfItsOwn) {
    ZyrPointCloudArray list = listOf({1, 2, 3});
    list.Insert(0, list[1]);
    EXPECT_EQ(ids(list), (Ids{2, 1, 2, 3}));
}

TEST(ZyrPointCloudArray, ShiftedCloudsKeepTheirStorage) {
    ZyrPointCloud first = cloudOf(1), second = cloudOf(2), other = cloudOf(9);
    ZyrPointCloudArray list;
    list.Append(first);
    list.Append(second);
    list.Insert(0, other);
    list.Remove(1);
    second[0].x = 5;
    first[0].x = 6;
    EXPECT_EQ(ids(list), (Ids{9, 5}));
}

TEST(ZyrPointCloudArray, RemoveShiftsTheRestDown) {
    ZyrPointCloudArray list = listOf({1, 2, 3});
    list.Remove(1);
    EXPECT_EQ(ids(list), (Ids{1, 3}));
}

TEST(ZyrPointCloudArray, RemoveOutOfRangeDoesNothing) {
    ZyrPointCloudArray list = listOf({1, 2}), empty;
    for (int i : {-1, 2, 100}) list.Remove(i);
    empty.Remove(0);
    EXPECT_EQ(ids(list), (Ids{1, 2}));
}

TEST(ZyrPointCloudArray, ReplacePutsTheCloudInPlace) {
    ZyrPointCloudArray list = listOf({1, 2});
    ZyrPointCloud cloud = cloudOf(9);
    list.Replace(1, cloud);
    cloud[0].x = 10;
    EXPECT_EQ(ids(list), (Ids{1, 10}));
}

TEST(ZyrPointCloudArray, ReplaceLeavesTheOldCloudsStorageAlone) {
    ZyrPointCloud old = cloudOf(1), cloud = cloudOf(9);
    ZyrPointCloudArray list;
    list.Append(old);
    list.Replace(0, cloud);
    EXPECT_EQ(old.Point(0).x, 1);
}

TEST(ZyrPointCloudArray, ReplaceOutOfRangeDoesNothing) {
    ZyrPointCloudArray list = listOf({1, 2});
    ZyrPointCloud cloud = cloudOf(9);
    for (int i : {-1, 2}) list.Replace(i, cloud);
    EXPECT_EQ(ids(list), (Ids{1, 2}));
}

TEST(ZyrPointCloudArray, SelectGivesTheElement) {
    ZyrPointCloudArray list = listOf({1, 2});
    ZyrPointCloud out = cloudOf(9);
    list.Select(1, &out);
    EXPECT_EQ(out.Point(0).x, 2);
    out[0].x = 5;
    EXPECT_EQ(ids(list), (Ids{1, 5}));
}

TEST(ZyrPointCloudArray, SelectOutOfRangeLeavesTheOutputUntouched) {
    ZyrPointCloudArray list = listOf({1, 2});
    ZyrPointCloud out = cloudOf(9);
    for (int i : {-1, 2}) list.Select(i, &out);
    EXPECT_EQ(out.Point(0).x, 9);
}

TEST(ZyrPointCloudArray, SwapExchangesTwoElements) {
    ZyrPointCloudArray list = listOf({1, 2, 3});
    list.Swap(0, 2);
    list.Swap(1, 1);
    EXPECT_EQ(ids(list), (Ids{3, 2, 1}));
}

TEST(ZyrPointCloudArray, SwapExchangesCloudsWhole) {
    ZyrPointCloudArray list;
    list.Append(test::fullCloud(2));
    list.Append(test::fullCloud(3));
    list.Swap(0, 1);
    test::expectSameElements(list[0], test::fullCloud(3));
    test::expectSameElements(list[1], test::fullCloud(2));
}

TEST(ZyrPointCloudArray, SwapOutOfRangeDoesNothing) {
    ZyrPointCloudArray list = listOf({1, 2});
    list.Swap(0, 2);
    list.Swap(-1, 1);
    list.Swap(2, 0);
    EXPECT_EQ(ids(list), (Ids{1, 2}));
}

TEST(ZyrPointCloudArray, ClearEmptiesTheListAndLeavesTheClouds) {
    ZyrPointCloud cloud = cloudOf(1);
    ZyrPointCloudArray list;
    list.Append(cloud);
    list.Clear();
    EXPECT_EQ(list.Length(), 0);
    EXPECT_EQ(cloud.Length(), 1);
    list.Append(cloud);
    EXPECT_EQ(ids(list), (Ids{1}));
}

TEST(ZyrPointCloudArray, ClearGivesTheMemoryBack) {
    ZyrPointCloudArray list = listOf({1, 2, 3});
    EXPECT_GE(test::held<std::vector<ZyrPointCloud>>(list).capacity(), 3U);
    list.Clear();
    EXPECT_EQ(test::held<std::vector<ZyrPointCloud>>(list).capacity(), 0U);
}

TEST(ZyrPointCloudArray, IndexGivesTheElementItself) {
    ZyrPointCloudArray list = listOf({1, 2});
    list[0] = cloudOf(9);
    EXPECT_EQ(ids(list), (Ids{9, 2}));
}

TEST(ZyrPointCloudArray, ConstIndexGivesACopyThatShares) {
    const ZyrPointCloudArray list = listOf({1, 2});
    ZyrPointCloud copy = list[1];
    copy[0].x = 5;
    copy = cloudOf(7);
    EXPECT_EQ(ids(list), (Ids{1, 5}));
}

TEST(ZyrPointCloudArray, IndexOutOfRangeGivesAScratchCloud) {
    ZyrPointCloudArray list = listOf({1, 2});
    for (int i : {-1, 2, 2147483647}) {
        list[i].PointData().Append(ZyrVector3d(1, 2, 3));
        EXPECT_EQ(list[i].Length(), 0) << i;
    }
    EXPECT_EQ(ids(list), (Ids{1, 2}));
}

TEST(ZyrPointCloudArray, ScratchCloudsThatWereCopiedKeepTheirElements) {
    ZyrPointCloudArray list;
    ZyrPointCloud& scratch = list[0];
    scratch.PointData().Append(ZyrVector3d(1, 2, 3));
    const ZyrPointCloud copy = scratch;
    EXPECT_EQ(list[0].Length(), 0);
    EXPECT_EQ(copy.Length(), 1);
}

TEST(ZyrPointCloudArray, ConstIndexOutOfRangeGivesAnEmptyCloud) {
    const ZyrPointCloudArray list = listOf({1, 2});
    for (int i : {-1, 2}) EXPECT_EQ(list[i].Length(), 0) << i;
}
