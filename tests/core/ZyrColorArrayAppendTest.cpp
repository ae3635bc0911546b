#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include "ZyrColorArray.h"
#include "support/Colors.h"

using test::Bytes;
using test::bytes;
using test::colorsOf;

TEST(ZyrColorArrayAppend, PutsTheOthersElementsBehindItsOwn) {
    ZyrColorArray colors = colorsOf(3, {1, 2, 3});
    ZyrColorArray other = colorsOf(3, {4, 5, 6, 7, 8, 9});
    colors.Append(other);
    other.SetColor(0);
    EXPECT_EQ(bytes(colors), (Bytes{1, 2, 3, 4, 5, 6, 7, 8, 9}));
    EXPECT_EQ(colors.Width(), 3);
    EXPECT_EQ(colors.Height(), 1);
    EXPECT_EQ(colors.Channel(), 3);
}

TEST(ZyrColorArrayAppend, LeavesThoseWhoShareTheOldPixels) {
    ZyrColorArray colors = colorsOf(1, {1, 2});
    const ZyrColorArray sharer(colors);
    colors.Append(colorsOf(1, {3}));
    colors.SetColor(9);
    EXPECT_EQ(bytes(sharer), (Bytes{1, 2}));
}

TEST(ZyrColorArrayAppend, OfAnEmptyArrayNeitherChangesNorDetaches) {
    ZyrColorArray colors = colorsOf(1, {1, 2});
    const ZyrColorArray sharer(colors);
    colors.Append(ZyrColorArray());
    colors.Append(colorsOf(1, {}));
    colors.Append(colorsOf(4, {}));
    colors.SetColor(9);
    EXPECT_EQ(bytes(sharer), (Bytes{9, 9}));
}

TEST(ZyrColorArrayAppend, ToAnEmptyArrayCopiesTheOther) {
    for (int channel : {1, 3, 4}) {
        const Bytes pixels(static_cast<std::size_t>(2 * channel), 5);
        ZyrColorArray other = colorsOf(channel, pixels);
        ZyrColorArray empty;
        ZyrColorArray withoutColumns = colorsOf(4, {});
        empty.Append(other);
        withoutColumns.Append(other);
        other.SetColor(9);
        EXPECT_EQ(bytes(empty), pixels);
        EXPECT_EQ(empty.Channel(), channel);
        EXPECT_EQ(bytes(withoutColumns), pixels);
        EXPECT_EQ(withoutColumns.Channel(), channel);
    }
}

TEST(ZyrColorArrayAppend, OfEmptyToEmptyStaysEmpty) {
    ZyrColorArray colors;
    colors.Append(ZyrColorArray());
    colors.Append(colors);
    EXPECT_EQ(colors.Length(), 0);
}

TEST(ZyrColorArrayAppend, OfAnotherChannelCountDoesNothing) {
    ZyrColorArray colors = colorsOf(3, {1, 2, 3});
    colors.Append(colorsOf(1, {4}));
    colors.Append(colorsOf(4, {4, 5, 6, 7}));
    EXPECT_EQ(bytes(colors), (Bytes{1, 2, 3}));
}

TEST(ZyrColorArrayAppend, OfItselfDoubles) {
    ZyrColorArray colors = colorsOf(3, {1, 2, 3, 4, 5, 6});
    colors.Append(colors);
    EXPECT_EQ(bytes(colors), (Bytes{1, 2, 3, 4, 5, 6, 1, 2, 3, 4, 5, 6}));
}

TEST(ZyrColorArrayAppend, OfASharerLeavesTheSharerAsItWas) {
    ZyrColorArray colors = colorsOf(1, {1, 2});
    const ZyrColorArray sharer(colors);
    colors.Append(sharer);
    EXPECT_EQ(bytes(colors), (Bytes{1, 2, 1, 2}));
    EXPECT_EQ(bytes(sharer), (Bytes{1, 2}));
}

RC_GTEST_PROP(ZyrColorArrayAppend, IsConcatenation, (Bytes a, Bytes b)) {
    const int channel = *rc::gen::element(1, 3, 4);
    a.resize(a.size() / static_cast<std::size_t>(channel) * static_cast<std::size_t>(channel));
    b.resize(b.size() / static_cast<std::size_t>(channel) * static_cast<std::size_t>(channel));
    ZyrColorArray colors = colorsOf(channel, a);
    colors.Append(colorsOf(channel, b));
    a.insert(a.end(), b.begin(), b.end());
    RC_ASSERT(bytes(colors) == a);
}
