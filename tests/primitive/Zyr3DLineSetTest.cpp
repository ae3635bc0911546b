#include "Zyr3DLineSet.h"

#include <gtest/gtest.h>

#include <climits>
#include <stdexcept>

#include "support/ZyrValues.h"

using test::values;

namespace {

/// The line indices 0, 1, 2, ... of the given number.
Zyr3DIntArray indices(int count) {
    Zyr3DIntArray list;
    for (int i = 0; i < count; ++i) list.Append(i);
    return list;
}

/// The vertices (0, 0, 0), (1, 10, 100), (2, 20, 200), ... of the given number.
ZyrVector3dArray vertices(int count) {
    ZyrVector3dArray list;
    for (int i = 0; i < count; ++i) list.Append(ZyrVector3d(i, 10 * i, 100 * i));
    return list;
}

Zyr3DLineSet withIndices(int count) {
    return Zyr3DLineSet(vertices(4), indices(count));
}

std::vector<int> lines(Zyr3DLineSet& set) {
    const int* first = set.LineData();
    return std::vector<int>(first, first + 2 * set.NumLine());
}

/// The odd one at the end included.
std::vector<int> indicesOf(Zyr3DLineSet& set, int count) {
    const int* first = set.LineData();
    return std::vector<int>(first, first + count);
}

std::vector<double> points(Zyr3DLineSet& set) {
    const double* first = set.VertexData();
    return std::vector<double>(first, first + 3 * set.NumVertex());
}

std::vector<std::vector<double>> ends(const Zyr3DLineSegment& segment) {
    return {values(segment.p1), values(segment.p2)};
}

const std::vector<double> kNowhere = values(ZyrVector3d());
const std::vector<double> kVertex1 = {1, 10, 100};
const std::vector<double> kVertex2 = {2, 20, 200};

/// Line indices that no set has; doubled without care, the last three wrap to 0, 2 and -2.
const std::vector<int> kNoLines = {-1, -2, 2, INT_MAX / 2, 1 << 30, INT_MIN, INT_MIN + 1, INT_MAX};

}  // namespace

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
        EXPECT_EQ(set.NumVertex(), 0) << count;
        EXPECT_EQ(set.NumLine(), 0) << count;
    }
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
    a.AppendLine(0, 1);
    a.AppendVertex(ZyrVector3d(7, 8, 9));
    EXPECT_EQ(lines(c), (std::vector{0, 1}));
    EXPECT_EQ(c.NumVertex(), 4);
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

TEST(Zyr3DLineSet, AppendLineAddsAPairOfUncheckedIndices) {
    Zyr3DLineSet set;
    set.AppendLine(7, -8);
    set.AppendLine(1, 2);
    EXPECT_EQ(lines(set), (std::vector{7, -8, 1, 2}));
}

TEST(Zyr3DLineSet, NumLineIgnoresAnOddIndexAtTheEnd) {
    EXPECT_EQ(withIndices(5).NumLine(), 2);
    EXPECT_EQ(withIndices(1).NumLine(), 0);
}

TEST(Zyr3DLineSet, ReplaceLineReplacesBothIndices) {
    Zyr3DLineSet set = withIndices(4);
    set.ReplaceLine(1, 8, 9);
    EXPECT_EQ(lines(set), (std::vector{0, 1, 8, 9}));
}

TEST(Zyr3DLineSet, RemoveLineRemovesThePairAndNoVertex) {
    Zyr3DLineSet set = withIndices(4);
    set.RemoveLine(0);
    EXPECT_EQ(lines(set), (std::vector{2, 3}));
    EXPECT_EQ(set.NumVertex(), 4);
}

TEST(Zyr3DLineSet, InsertPutsItsIndicesBetweenThoseOfTheLine) {
    Zyr3DLineSet set = withIndices(4);
    set.Insert(0, 8, 9);
    EXPECT_EQ(lines(set), (std::vector{0, 8, 9, 1, 2, 3}));
}

TEST(Zyr3DLineSet, InsertIntoTheLastLinePairsAlike) {
    Zyr3DLineSet set = withIndices(4);
    set.Insert(1, 8, 9);
    EXPECT_EQ(lines(set), (std::vector{0, 1, 2, 8, 9, 3}));
}

TEST(Zyr3DLineSet, InsertBeyondTheLastLineChangesNothing) {
    Zyr3DLineSet set = withIndices(2);
    set.Insert(1, 8, 9);
    EXPECT_EQ(lines(set), (std::vector{0, 1}));
}

TEST(Zyr3DLineSet, SwapLineExchangesBothIndices) {
    Zyr3DLineSet set = withIndices(6);
    set.SwapLine(0, 2);
    EXPECT_EQ(lines(set), (std::vector{4, 5, 2, 3, 0, 1}));
}

TEST(Zyr3DLineSet, LineOutOfRangeDoesNothingAnywhere) {
    for (const int k : kNoLines) {
        Zyr3DLineSet set = withIndices(4);
        set.ReplaceLine(k, 8, 9);
        set.RemoveLine(k);
        set.Insert(k, 8, 9);
        set.SwapLine(k, 0);
        set.SwapLine(0, k);
        set.SwapLine(k, k);
        EXPECT_EQ(lines(set), (std::vector{0, 1, 2, 3})) << k;
        EXPECT_EQ(ends(set[k]), (std::vector{kNowhere, kNowhere})) << k;
    }
}

TEST(Zyr3DLineSet, OddIndexAtTheEndIsReplacedAlone) {
    Zyr3DLineSet set = withIndices(5);
    set.ReplaceLine(2, 8, 9);
    EXPECT_EQ(indicesOf(set, 5), (std::vector{0, 1, 2, 3, 8}));
}

TEST(Zyr3DLineSet, OddIndexAtTheEndIsRemovedAlone) {
    Zyr3DLineSet set = withIndices(5);
    set.RemoveLine(2);
    set.AppendLine(8, 9);
    EXPECT_EQ(lines(set), (std::vector{0, 1, 2, 3, 8, 9}));
}

TEST(Zyr3DLineSet, OddIndexAtTheEndIsSwappedAlone) {
    Zyr3DLineSet set = withIndices(5);
    set.SwapLine(0, 2);
    EXPECT_EQ(indicesOf(set, 5), (std::vector{4, 1, 2, 3, 0}));
}

TEST(Zyr3DLineSet, OddIndexAtTheEndTakesNoInsert) {
    Zyr3DLineSet set = withIndices(5);
    set.Insert(2, 8, 9);
    set.AppendLine(6, 7);
    EXPECT_EQ(indicesOf(set, 7), (std::vector{0, 1, 2, 3, 4, 6, 7}));
}

TEST(Zyr3DLineSet, OddIndexAtTheEndSelectsOneEnd) {
    Zyr3DLineSet set = withIndices(3);
    EXPECT_EQ(ends(set[1]), (std::vector{kVertex2, kNowhere}));
}

TEST(Zyr3DLineSet, SelectGivesBothEnds) {
    Zyr3DLineSet set = withIndices(3);
    set.AppendLine(1, 0);
    set.ReplaceLine(0, 2, 1);
    Zyr3DLineSegment out;
    set.Select(0, &out);
    EXPECT_EQ(ends(out), (std::vector{kVertex2, kVertex1}));
}

TEST(Zyr3DLineSet, SelectOfALineOutOfRangeMakesBothEndsInvalid) {
    Zyr3DLineSet set = withIndices(4);
    for (const int k : kNoLines) {
        Zyr3DLineSegment out(ZyrVector3d(7, 8, 9), ZyrVector3d(7, 8, 9));
        set.Select(k, &out);
        EXPECT_EQ(ends(out), (std::vector{kNowhere, kNowhere})) << k;
    }
}

TEST(Zyr3DLineSet, EndWithABadVertexIndexIsInvalidAlone) {
    Zyr3DLineSet set(vertices(3), Zyr3DIntArray());
    set.AppendLine(1, 3);
    set.AppendLine(-1, 2);
    EXPECT_EQ(ends(set[0]), (std::vector{kVertex1, kNowhere}));
    EXPECT_EQ(ends(set[1]), (std::vector{kNowhere, kVertex2}));
}

TEST(Zyr3DLineSet, IndexingGivesTheSegmentConstOrNot) {
    Zyr3DLineSet set(vertices(3), Zyr3DIntArray());
    set.AppendLine(0, 0);
    set.AppendLine(1, 2);
    const Zyr3DLineSet& constant = set;
    EXPECT_EQ(ends(set[1]), (std::vector{kVertex1, kVertex2}));
    EXPECT_EQ(ends(constant[1]), (std::vector{kVertex1, kVertex2}));
    EXPECT_EQ(ends(constant[2]), (std::vector{kNowhere, kNowhere}));
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
