#include "Zyr3DContourArray.h"

#include <gtest/gtest.h>

#include <rapidcheck/gtest.h>

#include "support/ZyrValues.h"

namespace {

ZyrVector3dArray points(int count) {
    ZyrVector3dArray array;
    for (int i = 0; i < count; ++i) array.Append(ZyrVector3d(i, i, i));
    return array;
}

/// A list of contours of the given lengths. Each shares its points with the array of its index in
/// shares, which is how a test sees whether the list lets go of them.
struct SharedList {
    Zyr3DContourArray list;
    std::vector<ZyrVector3dArray> shares;

    explicit SharedList(const std::vector<int>& lengths) {
        Zyr3DContour contour;
        for (const int length : lengths) {
            shares.push_back(points(length));
            contour.FromPointArray(shares.back());
            list.Append(contour);
            list.Replace(list.Length() - 1, contour);
        }
    }
};

std::vector<int> lengths(const Zyr3DContourArray& list) {
    std::vector<int> result;
    for (int i = 0; i < list.Length(); ++i) result.push_back(list[i].Length());
    return result;
}

using Contents = std::vector<std::vector<double>>;

/// The points of each contour.
Contents contents(const Zyr3DContourArray& list) {
    Contents result;
    for (int i = 0; i < list.Length(); ++i) result.push_back(test::values(list[i].ToPointArray()));
    return result;
}

/// Of contours of the given lengths that nobody has changed.
Contents untouched(const std::vector<int>& lengths) {
    Contents result;
    for (const int length : lengths) result.push_back(test::values(points(length)));
    return result;
}

Zyr3DContour contourOf(const ZyrVector3dArray& array) {
    Zyr3DContour contour;
    contour.FromPointArray(array);
    return contour;
}

/// Changes the first point of each share and adds one: contours that still share grow by one.
void extend(std::vector<ZyrVector3dArray>& shares) {
    for (ZyrVector3dArray& share : shares) {
        share[0] = ZyrVector3d(7, 8, 9);
        share.Append(ZyrVector3d(7, 8, 9));
    }
}

}  // namespace

TEST(Zyr3DContourArray, DefaultIsEmpty) {
    EXPECT_EQ(Zyr3DContourArray().Length(), 0);
}

TEST(Zyr3DContourArray, IsOnePointer) {
    EXPECT_EQ(sizeof(Zyr3DContourArray), sizeof(void*));
}

TEST(Zyr3DContourArray, AppendedContourIsIndependent) {
    ZyrVector3dArray array = points(2);
    Zyr3DContour contour;
    contour.FromPointArray(array);
    Zyr3DContourArray list;
    list.Append(contour);
    array[0] = ZyrVector3d(7, 8, 9);
    array.Append(ZyrVector3d(7, 8, 9));
    EXPECT_EQ(contents(list), untouched({2}));
}

TEST(Zyr3DContourArray, AppendedListIsIndependentAndInOrder) {
    SharedList a({1, 2}), b({3, 4});
    a.list.Append(b.list);
    extend(b.shares);
    EXPECT_EQ(contents(a.list), untouched({1, 2, 3, 4}));
    EXPECT_EQ(lengths(b.list), (std::vector{4, 5}));
}

TEST(Zyr3DContourArray, AppendingAListToItselfDoublesItIndependently) {
    SharedList a({1, 2});
    a.list.Append(a.list);
    extend(a.shares);
    EXPECT_EQ(lengths(a.list), (std::vector{2, 3, 1, 2}));
    EXPECT_EQ(test::values(a.list[2].ToPointArray()), test::values(points(1)));
    EXPECT_EQ(test::values(a.list[3].ToPointArray()), test::values(points(2)));
}

TEST(Zyr3DContourArray, InsertPutsAnIndependentContourBeforeTheElement) {
    SharedList a({1, 2});
    ZyrVector3dArray array = points(5);
    Zyr3DContour contour;
    contour.FromPointArray(array);
    a.list.Insert(1, contour);
    array[0] = ZyrVector3d(7, 8, 9);
    array.Append(ZyrVector3d(7, 8, 9));
    EXPECT_EQ(contents(a.list), untouched({1, 5, 2}));
}

TEST(Zyr3DContourArray, InsertOutOfRangeDoesNothing) {
    SharedList a({1, 2});
    Zyr3DContourArray empty;
    Zyr3DContour contour = contourOf(points(5));
    a.list.Insert(2, contour);
    a.list.Insert(-1, contour);
    empty.Insert(0, contour);
    EXPECT_EQ(lengths(a.list), (std::vector{1, 2}));
    EXPECT_EQ(empty.Length(), 0);
}

TEST(Zyr3DContourArray, RemoveShiftsTheFollowingDown) {
    SharedList a({1, 2, 3});
    a.list.Remove(0);
    EXPECT_EQ(lengths(a.list), (std::vector{2, 3}));
    a.list.Remove(1);
    EXPECT_EQ(lengths(a.list), (std::vector{2}));
}

TEST(Zyr3DContourArray, RemoveOutOfRangeDoesNothing) {
    SharedList a({1, 2});
    a.list.Remove(2);
    a.list.Remove(-1);
    EXPECT_EQ(lengths(a.list), (std::vector{1, 2}));
}

TEST(Zyr3DContourArray, SelectedContourSharesTheElementsPoints) {
    SharedList a({1, 2});
    Zyr3DContour out;
    a.list.Select(1, &out);
    out.ToPointArray().Append(ZyrVector3d(7, 8, 9));
    EXPECT_EQ(lengths(a.list), (std::vector{1, 3}));
}

TEST(Zyr3DContourArray, SelectOutOfRangeLeavesTheOutputUntouched) {
    SharedList a({1, 2});
    ZyrVector3dArray array = points(7);
    Zyr3DContour out;
    out.FromPointArray(array);
    a.list.Select(5, &out);
    a.list.Select(2, &out);
    a.list.Select(-1, &out);
    EXPECT_EQ(out.ToPointArray().Data(), array.Data());
}

TEST(Zyr3DContourArray, ReplacedElementSharesTheContoursPoints) {
    SharedList a({1, 2});
    ZyrVector3dArray array = points(5);
    Zyr3DContour contour;
    contour.FromPointArray(array);
    a.list.Replace(0, contour);
    array.Append(ZyrVector3d(7, 8, 9));
    EXPECT_EQ(lengths(a.list), (std::vector{6, 2}));
}

TEST(Zyr3DContourArray, ReplaceOutOfRangeDoesNothing) {
    SharedList a({1, 2});
    Zyr3DContour contour = contourOf(points(5));
    a.list.Replace(2, contour);
    a.list.Replace(-1, contour);
    EXPECT_EQ(lengths(a.list), (std::vector{1, 2}));
}

TEST(Zyr3DContourArray, SwapExchangesTheElementsWhole) {
    SharedList a({1, 2, 3});
    a.list.Swap(0, 2);
    EXPECT_EQ(lengths(a.list), (std::vector{3, 2, 1}));
    extend(a.shares);
    EXPECT_EQ(lengths(a.list), (std::vector{4, 3, 2}));
}

TEST(Zyr3DContourArray, SwapOutOfRangeDoesNothing) {
    SharedList a({1, 2});
    a.list.Swap(0, 2);
    a.list.Swap(-1, 1);
    EXPECT_EQ(lengths(a.list), (std::vector{1, 2}));
}

TEST(Zyr3DContourArray, GrowingKeepsWhatContoursShare) {
    SharedList a({1, 2});
    Zyr3DContour contour;
    for (int i = 0; i < 20; ++i) a.list.Append(contour);
    extend(a.shares);
    EXPECT_EQ(a.list[0].Length(), 2);
    EXPECT_EQ(a.list[1].Length(), 3);
    EXPECT_EQ(a.list[2].Length(), 0);
}

TEST(Zyr3DContourArray, InsertKeepsWhatTheFollowingShare) {
    SharedList a({1, 2, 3});
    Zyr3DContour contour;
    a.list.Insert(0, contour);
    extend(a.shares);
    EXPECT_EQ(lengths(a.list), (std::vector{0, 2, 3, 4}));
}

TEST(Zyr3DContourArray, RemoveKeepsWhatTheFollowingShare) {
    SharedList a({1, 2, 3});
    a.list.Remove(0);
    extend(a.shares);
    EXPECT_EQ(lengths(a.list), (std::vector{3, 4}));
}

TEST(Zyr3DContourArray, RemoveLeavesThePointsToThoseWhoShareThem) {
    SharedList a({1, 2, 3});
    a.list.Remove(0);
    EXPECT_EQ(a.shares[0].Length(), 1);
    EXPECT_EQ(a.shares[1].Length(), 2);
}

TEST(Zyr3DContourArray, ClearEmptiesTheListAndLeavesThePoints) {
    SharedList a({1, 2});
    a.list.Clear();
    EXPECT_EQ(a.list.Length(), 0);
    EXPECT_EQ(a.shares[1].Length(), 2);
}

TEST(Zyr3DContourArray, IndexingGivesAnIndependentContour) {
    SharedList a({1, 2});
    const Zyr3DContourArray& list = a.list;
    Zyr3DContour copy = list[1];
    EXPECT_EQ(test::values(copy.ToPointArray()), test::values(points(2)));
    copy.ToPointArray().Append(ZyrVector3d(7, 8, 9));
    copy.ToPointArray()[0] = ZyrVector3d(7, 8, 9);
    EXPECT_EQ(contents(a.list), untouched({1, 2}));
    extend(a.shares);
    EXPECT_EQ(copy.Length(), 3);
}

TEST(Zyr3DContourArray, OutOfRangeGivesAnEmptyContour) {
    SharedList a({1, 2});
    EXPECT_EQ(a.list[2].Length(), 0);
    EXPECT_EQ(a.list[-1].Length(), 0);
}

TEST(Zyr3DContourArray, CopyConstructedListIsIndependent) {
    SharedList a({1, 2});
    const Zyr3DContourArray copy(a.list);
    extend(a.shares);
    a.list.Remove(0);
    EXPECT_EQ(contents(copy), untouched({1, 2}));
}

TEST(Zyr3DContourArray, AssignedListIsIndependent) {
    SharedList a({1, 2});
    SharedList b({5, 6, 7});
    EXPECT_EQ(&(b.list = a.list), &b.list);
    extend(a.shares);
    extend(b.shares);
    EXPECT_EQ(contents(b.list), untouched({1, 2}));
}

TEST(Zyr3DContourArray, SelfAssignmentKeepsWhatContoursShare) {
    SharedList a({1, 2});
    const Zyr3DContourArray& same = a.list;
    a.list = same;
    extend(a.shares);
    EXPECT_EQ(lengths(a.list), (std::vector{2, 3}));
}

// Against a plain list that says whose points each contour has: -1 for those added empty.
RC_GTEST_PROP(Zyr3DContourArray, ChangesOfTheListKeepEveryContourWithItsSharers, ()) {
    SharedList a({10, 20, 30, 40});
    std::vector<int> sharers = {0, 1, 2, 3};
    const auto steps = *rc::gen::container<std::vector<std::pair<int, int>>>(
        rc::gen::pair(rc::gen::inRange(-1, 6), rc::gen::inRange(-1, 6)));
    Zyr3DContour added;
    for (const auto& [i, j] : steps) {
        const int length = static_cast<int>(sharers.size());
        if (i >= 0 && i < length && j >= 0 && j < length) std::swap(sharers[i], sharers[j]);
        a.list.Swap(i, j);
        if (i >= 0 && i < length) sharers.insert(sharers.begin() + i, -1);
        a.list.Insert(i, added);
        if (j >= 0 && j < static_cast<int>(sharers.size())) sharers.erase(sharers.begin() + j);
        a.list.Remove(j);
    }
    extend(a.shares);
    std::vector<int> expectedLengths;
    for (const int share : sharers) expectedLengths.push_back(share < 0 ? 0 : 10 * share + 11);
    RC_ASSERT(lengths(a.list) == expectedLengths);
}
