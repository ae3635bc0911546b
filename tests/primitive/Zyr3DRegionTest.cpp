#include "Zyr3DRegion.h"

#include <gtest/gtest.h>

#include "support/ZyrValues.h"

namespace {

/// With as many vertices and lines as told.
Zyr3DLineSet lineSet(int count) {
    Zyr3DLineSet set;
    for (int i = 0; i < count; ++i) {
        set.AppendVertex(i, i, i);
        set.AppendLine(0, i);
    }
    return set;
}

/// With line sets of 1, 2, 3, ... vertices and lines.
Zyr3DRegion region(int lineSets) {
    Zyr3DRegion result;
    for (int i = 1; i <= lineSets; ++i) result.Append(lineSet(i));
    return result;
}

std::vector<int> vertexCounts(const Zyr3DRegion& region) {
    std::vector<int> counts;
    for (int i = 0; i < region.Length(); ++i) counts.push_back(region[i].NumVertex());
    return counts;
}

std::vector<int> lineCounts(const Zyr3DRegion& region) {
    std::vector<int> counts;
    for (int i = 0; i < region.Length(); ++i) counts.push_back(region[i].NumLine());
    return counts;
}

}  // namespace

TEST(Zyr3DRegion, DefaultIsEmpty) {
    EXPECT_EQ(Zyr3DRegion().Length(), 0);
}

TEST(Zyr3DRegion, IsOnePointer) {
    EXPECT_EQ(sizeof(Zyr3DRegion), sizeof(void*));
}

TEST(Zyr3DRegion, AppendedLineSetSharesTheArrays) {
    Zyr3DLineSet set = lineSet(2);
    Zyr3DRegion list;
    list.Append(set);
    set.AppendVertex(7, 8, 9);
    set.AppendLine(7, 8);
    EXPECT_EQ(vertexCounts(list), (std::vector{3}));
    EXPECT_EQ(lineCounts(list), (std::vector{3}));
}

TEST(Zyr3DRegion, GrowingKeepsWhatLineSetsShare) {
    Zyr3DLineSet set = lineSet(1);
    Zyr3DRegion list;
    list.Append(set);
    for (int i = 0; i < 20; ++i) list.Append(lineSet(2));
    set.AppendVertex(7, 8, 9);
    EXPECT_EQ(list[0].NumVertex(), 2);
    EXPECT_EQ(list[1].NumVertex(), 2);
    EXPECT_EQ(list.Length(), 21);
}

TEST(Zyr3DRegion, AppendTakesAnElementOfItsOwn) {
    Zyr3DRegion list = region(2);
    for (int i = 0; i < 6; ++i) list.Append(list[0]);
    EXPECT_EQ(vertexCounts(list), (std::vector{1, 2, 1, 1, 1, 1, 1, 1}));
}

TEST(Zyr3DRegion, IndexingGivesTheElementItself) {
    Zyr3DRegion list = region(3);
    list[1] = lineSet(7);
    list[2].AppendVertex(7, 8, 9);
    EXPECT_EQ(vertexCounts(list), (std::vector{1, 7, 4}));
}

TEST(Zyr3DRegion, ConstIndexingGivesACopyThatShares) {
    const Zyr3DRegion list = region(2);
    Zyr3DLineSet copy = list[1];
    copy.AppendVertex(7, 8, 9);
    copy = lineSet(5);
    EXPECT_EQ(vertexCounts(list), (std::vector{1, 3}));
}

TEST(Zyr3DRegion, OutOfRangeGivesAnEmptyLineSet) {
    const Zyr3DRegion list = region(2);
    EXPECT_EQ(list[2].NumVertex(), 0);
    EXPECT_EQ(list[-1].NumVertex(), 0);
}

TEST(Zyr3DRegion, WritingOutOfRangeChangesNothing) {
    Zyr3DRegion list = region(2);
    list[2].AppendVertex(7, 8, 9);
    list[-1] = lineSet(5);
    EXPECT_EQ(list[2].NumVertex(), 0);
    EXPECT_EQ(list[-1].NumVertex(), 0);
    EXPECT_EQ(vertexCounts(list), (std::vector{1, 2}));
}

TEST(Zyr3DRegion, CopyHasAListOfItsOwnWithSharedArrays) {
    Zyr3DRegion a = region(3);
    Zyr3DRegion b(a);
    a.Append(lineSet(9));
    a[0].AppendVertex(7, 8, 9);
    a[1] = lineSet(8);
    a[2].AppendLine(7, 8);
    EXPECT_EQ(vertexCounts(b), (std::vector{2, 2, 3}));
    EXPECT_EQ(lineCounts(b), (std::vector{1, 2, 4}));
}

TEST(Zyr3DRegion, AssignmentGivesAListOfItsOwnWithSharedArrays) {
    Zyr3DRegion a = region(3), b = region(5);
    EXPECT_EQ(&(b = a), &b);
    a.Append(lineSet(9));
    a[0].AppendVertex(7, 8, 9);
    a[1] = lineSet(8);
    a[2].AppendLine(7, 8);
    EXPECT_EQ(vertexCounts(b), (std::vector{2, 2, 3}));
    EXPECT_EQ(lineCounts(b), (std::vector{1, 2, 4}));
}

TEST(Zyr3DRegion, SelfAssignmentChangesNothing) {
    Zyr3DRegion list = region(3);
    const Zyr3DRegion& same = list;
    list = same;
    EXPECT_EQ(vertexCounts(list), (std::vector{1, 2, 3}));
}
