#include "Zyr3DLineSet.h"

#include <gtest/gtest.h>

#include <vector>

#include "primitive/LineSets.h"

using test::ends;
using test::kNoLines;
using test::kNowhere;
using test::kVertex1;
using test::kVertex2;
using test::values;
using test::vertices;
using test::withIndices;

namespace {

/// A line set with the list that it shares its indices with. That shows all of them, an odd one at
/// the end too.
struct SharedLines {
    explicit SharedLines(int count) : list(test::indices(count)), set(vertices(4), list) {}

    Zyr3DIntArray list;
    Zyr3DLineSet set;
};

using Operation = void (*)(Zyr3DLineSet&, int);

/// All that changes a line, with the line out of range in each of its places.
const std::vector<Operation> kOperations = {
    [](Zyr3DLineSet& set, int k) { set.ReplaceLine(k, 8, 9); },
    [](Zyr3DLineSet& set, int k) { set.RemoveLine(k); },
    [](Zyr3DLineSet& set, int k) { set.Insert(k, 8, 9); },
    [](Zyr3DLineSet& set, int k) { set.SwapLine(k, 0); },
    [](Zyr3DLineSet& set, int k) { set.SwapLine(0, k); },
    [](Zyr3DLineSet& set, int k) { set.SwapLine(k, k); },
};

}  // namespace

TEST(Zyr3DLineSet, AppendLineAddsAPairOfUncheckedIndices) {
    SharedLines shared(0);
    shared.set.AppendLine(7, -8);
    shared.set.AppendLine(1, 2);
    EXPECT_EQ(values(shared.list), (std::vector{7, -8, 1, 2}));
}

TEST(Zyr3DLineSet, NumLineIgnoresAnOddIndexAtTheEnd) {
    EXPECT_EQ(withIndices(5).NumLine(), 2);
    EXPECT_EQ(withIndices(1).NumLine(), 0);
}

TEST(Zyr3DLineSet, ReplaceLineReplacesBothIndices) {
    SharedLines shared(4);
    shared.set.ReplaceLine(1, 8, 9);
    EXPECT_EQ(values(shared.list), (std::vector{0, 1, 8, 9}));
}

TEST(Zyr3DLineSet, RemoveLineRemovesThePairAndNoVertex) {
    SharedLines shared(4);
    shared.set.RemoveLine(0);
    EXPECT_EQ(values(shared.list), (std::vector{2, 3}));
    EXPECT_EQ(shared.set.NumVertex(), 4);
}

TEST(Zyr3DLineSet, InsertPutsItsIndicesBetweenThoseOfTheLine) {
    SharedLines shared(4);
    shared.set.Insert(0, 8, 9);
    EXPECT_EQ(values(shared.list), (std::vector{0, 8, 9, 1, 2, 3}));
}

TEST(Zyr3DLineSet, InsertIntoTheLastLinePairsAlike) {
    SharedLines shared(4);
    shared.set.Insert(1, 8, 9);
    EXPECT_EQ(values(shared.list), (std::vector{0, 1, 2, 8, 9, 3}));
}

TEST(Zyr3DLineSet, InsertBeyondTheLastLineChangesNothing) {
    SharedLines shared(2);
    shared.set.Insert(1, 8, 9);
    EXPECT_EQ(values(shared.list), (std::vector{0, 1}));
}

TEST(Zyr3DLineSet, SwapLineExchangesBothIndices) {
    SharedLines shared(6);
    shared.set.SwapLine(0, 2);
    EXPECT_EQ(values(shared.list), (std::vector{4, 5, 2, 3, 0, 1}));
}

TEST(Zyr3DLineSet, LineOutOfRangeDoesNothingAnywhere) {
    for (const int k : kNoLines)
        for (std::size_t i = 0; i < kOperations.size(); ++i) {
            SharedLines shared(4);
            kOperations[i](shared.set, k);
            EXPECT_EQ(values(shared.list), (std::vector{0, 1, 2, 3})) << k << " in " << i;
        }
}

TEST(Zyr3DLineSet, LineOutOfRangeHasInvalidEnds) {
    Zyr3DLineSet set = withIndices(4);
    for (const int k : kNoLines) EXPECT_EQ(ends(set[k]), (std::vector{kNowhere, kNowhere})) << k;
}

TEST(Zyr3DLineSet, OddIndexAtTheEndIsReplacedAlone) {
    SharedLines shared(5);
    shared.set.ReplaceLine(2, 8, 9);
    EXPECT_EQ(values(shared.list), (std::vector{0, 1, 2, 3, 8}));
}

TEST(Zyr3DLineSet, OddIndexAtTheEndIsRemovedAlone) {
    SharedLines shared(5);
    shared.set.RemoveLine(2);
    EXPECT_EQ(values(shared.list), (std::vector{0, 1, 2, 3}));
}

TEST(Zyr3DLineSet, OddIndexAtTheEndIsSwappedAlone) {
    SharedLines shared(5);
    shared.set.SwapLine(0, 2);
    EXPECT_EQ(values(shared.list), (std::vector{4, 1, 2, 3, 0}));
    shared.set.SwapLine(2, 1);
    EXPECT_EQ(values(shared.list), (std::vector{4, 1, 0, 3, 2}));
}

TEST(Zyr3DLineSet, OddIndexAtTheEndTakesNoInsert) {
    SharedLines shared(5);
    shared.set.Insert(2, 8, 9);
    EXPECT_EQ(values(shared.list), (std::vector{0, 1, 2, 3, 4}));
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
