#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <cstdint>

#include "primitive/LineSets.h"
#include "roi/Blocks.h"
#include "roi/Kinds.h"
#include "support/GenClouds.h"

using Doubles = std::vector<double>;
using test::values;

/// The irregular region and any shape.
template <class Block>
class LineSetKinds : public testing::Test {
protected:
    Block block_;

    void gen(Zyr3DLineSet lines) { test::genLines(block_, lines); }
    Doubles& stored() { return test::parameters(block_); }

    void forge(const Doubles& doubles) {
        test::forge(block_, 17, doubles);
        stored().shrink_to_fit();
    }

    /// Whether the block is not read and stays as it is, and empties the line set.
    testing::AssertionResult isRefused() {
        const test::Snapshot before(block_);
        Zyr3DLineSet out = test::withIndices(4);
        if (test::getLines(block_, &out)) return testing::AssertionFailure() << "is read";
        if (!before.holds()) return testing::AssertionFailure() << "changes the block";
        if (out.NumVertex() != 0 || out.LineData() != nullptr)
            return testing::AssertionFailure() << "is not read, but leaves something";
        return testing::AssertionSuccess();
    }
};

TYPED_TEST_SUITE(LineSetKinds, test::AllBlocks);

TYPED_TEST(LineSetKinds, FourVerticesAndTwoLinesMakeEighteenDoublesThatBeginWithTheCounts) {
    this->gen(test::withIndices(4));
    EXPECT_EQ(test::typeOf(this->block_), 17);
    EXPECT_EQ(this->stored(),
              (Doubles{4, 4, 0, 0, 0, 1, 10, 100, 2, 20, 200, 3, 30, 300, 0, 1, 2, 3}));
}

TYPED_TEST(LineSetKinds, WithoutALineIsNotStored) {
    this->gen(test::withIndices(4));
    this->gen(test::withIndices(0));
    EXPECT_TRUE(test::isEmpty(this->block_));
}

TYPED_TEST(LineSetKinds, OneIndexIsNoLine) {
    this->gen(test::withIndices(4));
    this->gen(test::withIndices(1));
    EXPECT_TRUE(test::isEmpty(this->block_));
}

TYPED_TEST(LineSetKinds, OddIndexAtTheEndIsLeftOut) {
    this->gen(Zyr3DLineSet(test::vertices(1), test::indices(5)));
    EXPECT_EQ(this->stored(), (Doubles{1, 4, 0, 0, 0, 0, 1, 2, 3}));
}

TYPED_TEST(LineSetKinds, LinesWithoutVerticesAreStoredAndRead) {
    this->gen(Zyr3DLineSet(ZyrVector3dArray(), test::indices(2)));
    EXPECT_EQ(this->stored(), (Doubles{0, 2, 0, 1}));
    Zyr3DLineSet out;
    EXPECT_TRUE(test::getLines(this->block_, &out));
    EXPECT_EQ(out.NumVertex(), 0);
    EXPECT_EQ(test::lines(out), (std::vector{0, 1}));
}

TYPED_TEST(LineSetKinds, InvalidVerticesAreStoredAndRead) {
    ZyrVector3dArray vertices;
    vertices.Append(ZyrVector3d());
    vertices.Append(ZyrVector3d(test::kInfinity, -test::kInfinity, -0.0));
    this->gen(Zyr3DLineSet(vertices, test::indices(2)));
    EXPECT_EQ(test::typeOf(this->block_), 17);
    Zyr3DLineSet out;
    EXPECT_TRUE(test::getLines(this->block_, &out));
    EXPECT_EQ(test::points(out), values(vertices));
}

TYPED_TEST(LineSetKinds, IndicesBeyondTheVerticesAreStoredAndRead) {
    Zyr3DLineSet lines(test::vertices(1), Zyr3DIntArray());
    lines.AppendLine(INT_MIN, INT_MAX);
    lines.AppendLine(-1, 7);
    this->gen(lines);
    Zyr3DLineSet out;
    EXPECT_TRUE(test::getLines(this->block_, &out));
    EXPECT_EQ(test::lines(out), (std::vector{INT_MIN, INT_MAX, -1, 7}));
}

TYPED_TEST(LineSetKinds, StoringLeavesTheArgumentAsItIs) {
    Zyr3DLineSet lines = test::withIndices(5);
    test::genLines(this->block_, lines);
    EXPECT_EQ(test::points(lines), values(test::vertices(4)));
    EXPECT_EQ(test::indicesOf(lines, 5), values(test::indices(5)));
}

TYPED_TEST(LineSetKinds, RefusingLeavesTheArgumentAsItIs) {
    Zyr3DLineSet lines = test::withIndices(1);
    test::genLines(this->block_, lines);
    EXPECT_EQ(test::points(lines), values(test::vertices(4)));
    EXPECT_EQ(test::indicesOf(lines, 1), (std::vector{0}));
}

TYPED_TEST(LineSetKinds, VerticesAndLinesAreReadInPlaceOfWhatTheLineSetHeld) {
    this->gen(test::withIndices(4));
    const test::Snapshot before(this->block_);
    Zyr3DLineSet out(test::vertices(9), test::indices(9));
    EXPECT_TRUE(test::getLines(this->block_, &out));
    EXPECT_EQ(test::points(out), values(test::vertices(4)));
    EXPECT_EQ(test::lines(out), (std::vector{0, 1, 2, 3}));
    EXPECT_TRUE(before.holds());
}

TYPED_TEST(LineSetKinds, WhoSharesTheArraysSeesThemEmptiedAndNothingMore) {
    this->gen(test::withIndices(4));
    Zyr3DLineSet out(test::vertices(9), test::indices(9)), sharer = out;
    test::getLines(this->block_, &out);
    EXPECT_EQ(sharer.NumVertex(), 0);
    EXPECT_EQ(sharer.NumLine(), 0);
}

TYPED_TEST(LineSetKinds, AnotherKindIsNotReadAndEmptiesTheLineSet) {
    this->gen(test::withIndices(4));
    const Doubles doubles = this->stored();
    for (int kind : {-1, 0, 1, 10, 16, 18}) {
        test::forge(this->block_, kind, doubles);
        EXPECT_TRUE(this->isRefused()) << kind;
    }
}

TYPED_TEST(LineSetKinds, TruncatedByOneDoubleIsNotReadAndEmptiesTheLineSet) {
    this->gen(test::withIndices(4));
    Doubles doubles = this->stored();
    doubles.pop_back();
    this->forge(doubles);
    EXPECT_TRUE(this->isRefused());
}

TYPED_TEST(LineSetKinds, AnyOtherLengthIsNotReadAndEmptiesTheLineSet) {
    this->gen(test::withIndices(4));
    Doubles doubles = this->stored();
    doubles.resize(30, 1.0);
    for (std::size_t size = 0; size <= doubles.size(); ++size) {
        if (size == 18) continue;
        this->forge(Doubles(doubles.begin(), doubles.begin() + static_cast<int>(size)));
        EXPECT_TRUE(this->isRefused()) << size;
    }
}

TYPED_TEST(LineSetKinds, CountsAreTruncatedTowardZero) {
    this->forge({1.9, 2.9, 5, 6, 7, 0, 1});
    Zyr3DLineSet out;
    EXPECT_TRUE(test::getLines(this->block_, &out));
    EXPECT_EQ(test::points(out), (Doubles{5, 6, 7}));
    EXPECT_EQ(test::lines(out), (std::vector{0, 1}));
}

TYPED_TEST(LineSetKinds, CountsBetweenMinusOneAndZeroAreNone) {
    this->forge({-0.9, -0.9});
    Zyr3DLineSet out = test::withIndices(4);
    EXPECT_TRUE(test::getLines(this->block_, &out));
    EXPECT_EQ(out.NumVertex(), 0);
    EXPECT_EQ(out.NumLine(), 0);
}

TYPED_TEST(LineSetKinds, IndicesAreTruncatedTowardZero) {
    this->forge({0, 6, 1.9, -1.9, 2147483647.9, 2147483648.0, -2147483648.9, test::kNaN});
    Zyr3DLineSet out;
    EXPECT_TRUE(test::getLines(this->block_, &out));
    EXPECT_EQ(test::lines(out), (std::vector{1, -1, INT_MAX, INT_MIN, INT_MIN, INT_MIN}));
}

TYPED_TEST(LineSetKinds, AnOddNumberOfIndicesIsReadWhole) {
    this->forge({1, 3, 5, 6, 7, 0, 1, 2});
    Zyr3DLineSet out;
    EXPECT_TRUE(test::getLines(this->block_, &out));
    EXPECT_EQ(test::indicesOf(out, 3), (std::vector{0, 1, 2}));
    EXPECT_EQ(out.NumLine(), 1);
}

TYPED_TEST(LineSetKinds, FewerThanTwoDoublesAreNotRead) {
    for (const Doubles& doubles : {Doubles{}, Doubles{0}, Doubles{-1}}) {
        this->forge(doubles);
        EXPECT_TRUE(this->isRefused()) << testing::PrintToString(doubles);
    }
}

TYPED_TEST(LineSetKinds, NegativeCountsThatAddUpAreNotRead) {
    for (const Doubles& counts : {Doubles{-1, 3}, Doubles{1, -3}, Doubles{-2, 6}, Doubles{2, -6}}) {
        this->forge(counts);
        EXPECT_TRUE(this->isRefused()) << testing::PrintToString(counts);
    }
}

TYPED_TEST(LineSetKinds, CountsThatAddUpInThirtyTwoBitsOnlyAreNotRead) {
    for (const Doubles& counts : {Doubles{1431655765, 1}, Doubles{1431655766, -2},
                                  Doubles{715827882, 2147483647}, Doubles{2147483647, 3}}) {
        this->forge(counts);
        EXPECT_TRUE(this->isRefused()) << testing::PrintToString(counts);
    }
}

TYPED_TEST(LineSetKinds, CountsThatNoIntegerHoldsAreNotRead) {
    for (double bad : {test::kNaN, test::kInfinity, -test::kInfinity, 1e300, -1e300, 4294967296.0})
        for (const Doubles& counts : {Doubles{bad, 0}, Doubles{0, bad}, Doubles{bad, bad}}) {
            this->forge(counts);
            EXPECT_TRUE(this->isRefused()) << testing::PrintToString(counts);
        }
}

namespace {

/// Doubles of a length that the counts may ask for or not.
Doubles anyCountsWithABody() {
    const auto anyCount = rc::gen::oneOf(
        rc::gen::map(rc::gen::inRange(-20, 60), [](int tenths) { return tenths / 10.0; }),
        rc::gen::map(rc::gen::inRange(0, 6), [](int i) { return double(i); }), test::anyDouble());
    Doubles stored{*anyCount, *anyCount};
    const int body = 3 * (test::truncated(stored[0]) % 100) + test::truncated(stored[1]) % 100;
    const auto length =
        static_cast<std::size_t>(std::max(0, body + *rc::gen::element(0, 0, -1, 1)));
    const auto rest = *rc::gen::container<Doubles>(length, test::anyDouble());
    stored.insert(stored.end(), rest.begin(), rest.end());
    return stored;
}

}  // namespace

RC_GTEST_PROP(LineSetKindsProperty, AnyDoublesThatAddUpAreReadWhole, ()) {
    const int vertices = *rc::gen::inRange(0, 8), indices = *rc::gen::inRange(0, 8);
    const auto body = *rc::gen::container<Doubles>(static_cast<std::size_t>(3 * vertices + indices),
                                                   test::anyDouble());
    Doubles stored{double(vertices), double(indices)};
    stored.insert(stored.end(), body.begin(), body.end());
    Zyr3DShape shape;
    test::forge(shape, 17, stored);
    Zyr3DLineSet out;
    RC_ASSERT(shape.Get3DAnyShape(&out));
    RC_ASSERT(out.NumLine() == indices / 2);
    const auto firstIndex = body.begin() + 3 * vertices;
    std::vector<int> expectedIndices(static_cast<std::size_t>(indices));
    std::transform(firstIndex, body.end(), expectedIndices.begin(), test::truncated);
    RC_ASSERT(test::areSame(test::points(out), Doubles(body.begin(), firstIndex)));
    RC_ASSERT(test::indicesOf(out, indices) == expectedIndices);
}

RC_GTEST_PROP(LineSetKindsProperty, AnyDoublesAreReadWhenTheyAddUpAndElseRefused, ()) {
    const Doubles stored = anyCountsWithABody();
    const std::int64_t vertices = test::truncated(stored[0]), indices = test::truncated(stored[1]);
    const bool addUp = vertices >= 0 && indices >= 0 &&
                       2 + 3 * vertices + indices == static_cast<std::int64_t>(stored.size());
    Zyr3DROI roi;
    test::forge(roi, 17, stored);
    test::parameters(roi).shrink_to_fit();
    const test::Snapshot before(roi);
    Zyr3DLineSet out = test::withIndices(4);
    RC_ASSERT(roi.Get3DIrregular(&out) == addUp);
    RC_ASSERT(out.NumVertex() == (addUp ? vertices : 0));
    RC_ASSERT(out.NumLine() == (addUp ? indices / 2 : 0));
    RC_ASSERT(before.holds());
}
