#include "Zyr3DLineSet.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "primitive/LineSets.h"

using test::indices;
using test::indicesOf;
using test::kVertex1;
using test::lines;
using test::points;
using test::values;
using test::vertices;
using test::withIndices;

TEST(Zyr3DLineSet, DefaultIsEmpty) {
    Zyr3DLineSet set;
    EXPECT_EQ(set.NumLine(), 0);
    EXPECT_EQ(set.NumVertex(), 0);
    EXPECT_EQ(set.LineData(), nullptr);
    EXPECT_EQ(set.VertexData(), nullptr);
}

TEST(Zyr3DLineSet, IsOnePointer) {
    EXPECT_EQ(sizeof(Zyr3DLineSet), sizeof(void*));
}

TEST(Zyr3DLineSet, SharesTheArraysThatItIsMadeOf) {
    ZyrVector3dArray vertexArray = vertices(2);
    Zyr3DIntArray lineArray = indices(2);
    Zyr3DLineSet set(vertexArray, lineArray);
    vertexArray.Append(ZyrVector3d(7, 8, 9));
    lineArray.Replace(0, 5);
    EXPECT_EQ(set.NumVertex(), 3);
    EXPECT_EQ(lines(set), (std::vector{5, 1}));
}

TEST(Zyr3DLineSet, CopiesTheBuffersThatItIsMadeOf) {
    double vertexData[] = {1, 2, 3, 4, 5, 6};
    int lineData[] = {0, 1};
    Zyr3DLineSet set(vertexData, 6, lineData, 2);
    vertexData[0] = 9;
    lineData[0] = 9;
    EXPECT_EQ(points(set), (std::vector<double>{1, 2, 3, 4, 5, 6}));
    EXPECT_EQ(lines(set), (std::vector{0, 1}));
}

TEST(Zyr3DLineSet, OfABufferThatIsNoMultipleOfThreeIsEmpty) {
    double vertexData[7] = {};
    int lineData[2] = {};
    for (const int count : {7, 5, 1, -1}) {
        Zyr3DLineSet set(vertexData, count, lineData, 2);
        EXPECT_EQ(set.VertexData(), nullptr) << count;
        EXPECT_EQ(set.LineData(), nullptr) << count;
    }
}

TEST(Zyr3DLineSet, OfABufferKeepsAnOddIndexAtTheEnd) {
    double vertexData[] = {1, 2, 3};
    int lineData[] = {0, 1, 2, 3, 4};
    Zyr3DLineSet set(vertexData, 3, lineData, 5);
    EXPECT_EQ(set.NumLine(), 2);
    EXPECT_EQ(indicesOf(set, 5), (std::vector{0, 1, 2, 3, 4}));
}

TEST(Zyr3DLineSet, OfANullVertexBufferHasItsLinesAlone) {
    int lineData[] = {0, 1};
    Zyr3DLineSet set(nullptr, 0, lineData, 2);
    EXPECT_EQ(set.NumLine(), 1);
    EXPECT_EQ(lines(set), (std::vector{0, 1}));
    EXPECT_EQ(set.NumVertex(), 0);
}

TEST(Zyr3DLineSet, OfABufferMarksNoVertexAnew) {
    double vertexData[] = {1, test::kInvalid, 3, 0, 0, 0};
    Zyr3DLineSet set(vertexData, 6, nullptr, 0);
    EXPECT_EQ(points(set), (std::vector<double>{1, test::kInvalid, 3, 0, 0, 0}));
}

TEST(Zyr3DLineSet, OfNullBuffersIsEmpty) {
    Zyr3DLineSet set(nullptr, 6, nullptr, 2);
    EXPECT_EQ(set.NumVertex(), 0);
    EXPECT_EQ(set.NumLine(), 0);
}

TEST(Zyr3DLineSet, OfANegativeCountThrowsTheArraysError) {
    double vertexData[3] = {};
    int lineData[2] = {};
    EXPECT_THROW(Zyr3DLineSet(vertexData, -3, lineData, 2), std::length_error);
    EXPECT_THROW(Zyr3DLineSet(vertexData, 3, lineData, -2), std::length_error);
}

TEST(Zyr3DLineSet, CopySharesBothArrays) {
    Zyr3DLineSet a = withIndices(2);
    const Zyr3DLineSet b(a);
    a.AppendLine(0, 1);
    a.AppendVertex(ZyrVector3d(7, 8, 9));
    EXPECT_EQ(b.NumLine(), 2);
    EXPECT_EQ(b.NumVertex(), 5);
}

TEST(Zyr3DLineSet, AssignmentSharesBothArrays) {
    Zyr3DLineSet a = withIndices(2), b;
    EXPECT_EQ(&(b = a), &b);
    a.AppendLine(0, 1);
    a.AppendVertex(ZyrVector3d(7, 8, 9));
    EXPECT_EQ(b.NumLine(), 2);
    EXPECT_EQ(b.NumVertex(), 5);
}

TEST(Zyr3DLineSet, AssignmentLeavesTheArraysHeldBefore) {
    Zyr3DLineSet a = withIndices(2), b, c(b);
    b = a;
    EXPECT_EQ(c.NumVertex(), 0);
    EXPECT_EQ(c.NumLine(), 0);
}

TEST(Zyr3DLineSet, SelfAssignmentChangesNothing) {
    Zyr3DLineSet set = withIndices(4);
    const Zyr3DLineSet& same = set;
    set = same;
    EXPECT_EQ(lines(set), (std::vector{0, 1, 2, 3}));
    EXPECT_EQ(set.NumVertex(), 4);
}

TEST(Zyr3DLineSet, DeepCopyHasArraysOfItsOwn) {
    Zyr3DLineSet a = withIndices(2);
    Zyr3DLineSet c = a.DeepCopy();
    ZyrVector3d v(7, 8, 9);
    a.ReplaceVetex(0, v);
    a.ReplaceLine(0, 8, 9);
    a.AppendLine(0, 1);
    a.AppendVertex(v);
    EXPECT_EQ(lines(c), (std::vector{0, 1}));
    EXPECT_EQ(points(c), values(vertices(4)));
}

TEST(Zyr3DLineSet, SettersShareTheGivenArrays) {
    ZyrVector3dArray vertexArray;
    Zyr3DIntArray lineArray;
    Zyr3DLineSet set = withIndices(4);
    set.SetVertex(vertexArray);
    set.SetLine(lineArray);
    vertexArray.Append(ZyrVector3d(7, 8, 9));
    set.AppendLine(5, 6);
    EXPECT_EQ(points(set), (std::vector<double>{7, 8, 9}));
    EXPECT_EQ(values(lineArray), (std::vector{5, 6}));
}

TEST(Zyr3DLineSet, SettersLeaveTheCopiesAlone) {
    Zyr3DLineSet a = withIndices(4), b(a);
    a.SetVertex(ZyrVector3dArray());
    a.SetLine(Zyr3DIntArray());
    EXPECT_EQ(b.NumVertex(), 4);
    EXPECT_EQ(b.NumLine(), 2);
}

TEST(Zyr3DLineSet, AppendVertexTakesEachFormAndAddsNoLine) {
    Zyr3DLineSet set;
    set.AppendVertex(Zyr3DLineSegment(ZyrVector3d(1, 2, 3), ZyrVector3d(4, 5, 6)));
    set.AppendVertex(ZyrVector3d(7, 8, 9), ZyrVector3d(10, 11, 12));
    set.AppendVertex(ZyrVector3d(13, 14, 15));
    set.AppendVertex(16, 17, 18);
    EXPECT_EQ(points(set),
              (std::vector<double>{1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18}));
    EXPECT_EQ(set.NumLine(), 0);
}

TEST(Zyr3DLineSet, AppendVertexTakesVerticesOfTheSetItself) {
    ZyrVector3dArray own = vertices(2);
    Zyr3DLineSet set(own, Zyr3DIntArray());
    for (int i = 0; i < 8; ++i) set.AppendVertex(own[0], own[1]);
    for (int i = 0; i < 8; ++i) {
        EXPECT_EQ(values(own[2 * i]), (std::vector<double>{0, 0, 0}));
        EXPECT_EQ(values(own[2 * i + 1]), kVertex1);
    }
}

TEST(Zyr3DLineSet, ReplaceVertexReplacesThatOne) {
    Zyr3DLineSet set(vertices(2), indices(2));
    ZyrVector3d v(7, 8, 9);
    set.ReplaceVetex(1, v);
    EXPECT_EQ(points(set), (std::vector<double>{0, 0, 0, 7, 8, 9}));
}

TEST(Zyr3DLineSet, ReplaceVertexOutOfRangeDoesNothing) {
    Zyr3DLineSet set(vertices(2), indices(2));
    ZyrVector3d v(7, 8, 9);
    set.ReplaceVetex(2, v);
    set.ReplaceVetex(-1, v);
    EXPECT_EQ(points(set), (std::vector<double>{0, 0, 0, 1, 10, 100}));
}

TEST(Zyr3DLineSet, ClearEmptiesBothArraysForThoseWhoShareThem) {
    Zyr3DLineSet a = withIndices(4), b(a);
    a.Clear();
    EXPECT_EQ(b.NumLine(), 0);
    EXPECT_EQ(b.NumVertex(), 0);
}

TEST(Zyr3DLineSet, DataIsTheArraysOwn) {
    ZyrVector3dArray vertexArray = vertices(2);
    Zyr3DIntArray lineArray = indices(2);
    Zyr3DLineSet set(vertexArray, lineArray);
    EXPECT_EQ(set.VertexData(), vertexArray.Data());
    EXPECT_EQ(set.LineData(), lineArray.Data());
}
