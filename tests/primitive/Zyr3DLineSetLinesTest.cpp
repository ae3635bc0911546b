#include "Zyr3DLineSet.h"

#include <gtest/gtest.h>

#include "primitive/LineSets.h"

using test::ends;
using test::indicesOf;
using test::kNoLines;
using test::kNowhere;
using test::kVertex1;
using test::kVertex2;
using test::lines;
using test::vertices;
using test::withIndices;

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
