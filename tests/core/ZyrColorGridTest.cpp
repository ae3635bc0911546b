#include <gtest/gtest.h>

#include <limits>
#include <numeric>
#include <opencv2/core.hpp>

#include "ZyrColorArray.h"
#include "support/Colors.h"
#include "support/Held.h"
#include "support/ZyrValues.h"

// Arrays of several rows. Their own operations make one row only; grids come with images.

using test::Bytes;
using test::bytes;
using test::values;
using Values = std::vector<int>;

namespace {

/// A grid of the bytes 1, 2, 3 ...
ZyrColorArray grid(int width, int height, int channel) {
    ZyrColorArray colors;
    test::held<cv::Mat>(colors).create(height, width, CV_8UC(channel));
    std::iota(colors.Data(), colors.Data() + width * height * channel,
              static_cast<unsigned char>(1));
    return colors;
}

Bytes fill(std::size_t count, unsigned char value) {
    return Bytes(count, value);
}

}  // namespace

TEST(ZyrColorGrid, LengthCountsAllRows) {
    const ZyrColorArray colors = grid(2, 3, 4);
    EXPECT_EQ(colors.Width(), 2);
    EXPECT_EQ(colors.Height(), 3);
    EXPECT_EQ(colors.Length(), 6);
    EXPECT_EQ(colors.Channel(), 4);
}

TEST(ZyrColorGrid, ElementsAreNumberedRowByRow) {
    ZyrColorArray colors = grid(2, 3, 3);
    ZyrColor out(0, 0, 0, 77);
    ZyrColor replacement(100, 110, 120, 0);
    colors.Select(3, &out);
    EXPECT_EQ(values(out), (Values{12, 11, 10, 77}));
    EXPECT_EQ(values(colors[5]), (Values{18, 17, 16, 255}));
    colors.Replace(4, replacement);
    EXPECT_EQ(values(colors[4]), (Values{100, 110, 120, 255}));
    EXPECT_EQ(values(colors[6]), (Values{0, 0, 0, 255}));
}

TEST(ZyrColorGrid, DeepCopyKeepsTheRows) {
    ZyrColorArray colors = grid(2, 3, 1);
    const ZyrColorArray copy = colors.DeepCopy();
    colors.SetColor(0);
    EXPECT_EQ(copy.Height(), 3);
    EXPECT_EQ(bytes(copy), (Bytes{1, 2, 3, 4, 5, 6}));
}

TEST(ZyrColorGrid, AppendDoesNothingWhenEitherHasSeveralRows) {
    ZyrColorArray row = test::colorsOf(1, {9, 9});
    ZyrColorArray colors = grid(2, 2, 1);
    ZyrColorArray empty;
    colors.Append(row);
    row.Append(colors);
    empty.Append(colors);
    EXPECT_EQ(bytes(colors), (Bytes{1, 2, 3, 4}));
    EXPECT_EQ(bytes(row), (Bytes{9, 9}));
    EXPECT_EQ(empty.Length(), 0);
}

TEST(ZyrColorGridSetValue, WritesTheRowsFromStartToEndInclusive) {
    for (int channel : {1, 3, 4}) {
        ZyrColorArray colors = grid(2, 4, channel);
        Bytes expected = bytes(colors);
        const auto row = static_cast<std::size_t>(2 * channel);
        Bytes rows(2 * row);
        std::iota(rows.begin(), rows.end(), static_cast<unsigned char>(100));
        EXPECT_TRUE(colors.SetValue(rows.data(), channel, 1, 2));
        std::copy(rows.begin(), rows.end(), expected.begin() + 2 * channel);
        EXPECT_EQ(bytes(colors), expected);
    }
}

TEST(ZyrColorGridSetValue, WritesAllRows) {
    ZyrColorArray colors = grid(2, 2, 1);
    Bytes rows{9, 8, 7, 6};
    EXPECT_TRUE(colors.SetValue(rows.data(), 1, 0, 1));
    EXPECT_EQ(bytes(colors), rows);
}

TEST(ZyrColorGridSetValue, IsSeenByThoseWhoShareAndCopiesTheData) {
    ZyrColorArray colors = grid(1, 2, 1);
    const ZyrColorArray sharer(colors);
    Bytes rows{9, 8};
    EXPECT_TRUE(colors.SetValue(rows.data(), 1, 0, 1));
    rows = {0, 0};
    EXPECT_EQ(bytes(sharer), (Bytes{9, 8}));
}

TEST(ZyrColorGridSetValue, RefusesASingleRow) {
    ZyrColorArray colors = grid(2, 3, 3);
    Bytes rows = fill(18, 0);
    for (int i = 0; i < 3; ++i) EXPECT_FALSE(colors.SetValue(rows.data(), 3, i, i)) << i;
    EXPECT_EQ(bytes(colors), bytes(grid(2, 3, 3)));
}

TEST(ZyrColorGridSetValue, RefusesRowsThatAreNotThere) {
    ZyrColorArray colors = grid(2, 3, 3);
    Bytes rows = fill(100, 0);
    const int max = std::numeric_limits<int>::max();
    const std::pair<int, int> refused[] = {{0, 3}, {-1, 1}, {1, 0}, {2, -1}, {-max - 1, max}};
    for (const auto& [start, end] : refused)
        EXPECT_FALSE(colors.SetValue(rows.data(), 3, start, end)) << start << " to " << end;
    EXPECT_EQ(bytes(colors), bytes(grid(2, 3, 3)));
}

TEST(ZyrColorGridSetValue, RefusesAnotherChannelCount) {
    ZyrColorArray colors = grid(2, 3, 3);
    Bytes rows = fill(100, 0);
    for (int channel : {0, 1, 2, 4, -3})
        EXPECT_FALSE(colors.SetValue(rows.data(), channel, 0, 1)) << channel;
    EXPECT_EQ(bytes(colors), bytes(grid(2, 3, 3)));
}

TEST(ZyrColorGridSetValue, RefusesAnyRowsOfAListAndOfAnEmptyArray) {
    ZyrColorArray row = test::colorsOf(3, {1, 2, 3});
    ZyrColorArray empty;
    Bytes rows = fill(100, 0);
    EXPECT_FALSE(row.SetValue(rows.data(), 3, 0, 0));
    EXPECT_FALSE(row.SetValue(rows.data(), 3, 0, 1));
    EXPECT_FALSE(empty.SetValue(rows.data(), 1, 0, 0));
    EXPECT_FALSE(empty.SetValue(rows.data(), 1, 0, 1));
}

TEST(ZyrColorGridSetValue, ARefusalLooksAtNoData) {
    ZyrColorArray colors = grid(2, 3, 3);
    EXPECT_FALSE(colors.SetValue(nullptr, 3, 2, 2));
}

TEST(ZyrColorGridSetValue, NullDataIsOpenCVsError) {
    ZyrColorArray colors = grid(2, 2, 1);
    try {
        colors.SetValue(nullptr, 1, 0, 1);
        ADD_FAILURE();
    } catch (const cv::Exception& error) {
        EXPECT_EQ(error.err, "total() == 0 || data != NULL");
    }
    EXPECT_EQ(bytes(colors), (Bytes{1, 2, 3, 4}));
}

TEST(ZyrColorGridSetValue, TakesRowsOfTheArrayItself) {
    ZyrColorArray down = grid(2, 4, 1);
    ZyrColorArray up = grid(2, 4, 1);
    EXPECT_TRUE(down.SetValue(down.Data(), 1, 1, 3));
    EXPECT_EQ(bytes(down), (Bytes{1, 2, 1, 2, 3, 4, 5, 6}));
    EXPECT_TRUE(up.SetValue(up.Data() + 2, 1, 0, 2));
    EXPECT_EQ(bytes(up), (Bytes{3, 4, 5, 6, 7, 8, 7, 8}));
}
