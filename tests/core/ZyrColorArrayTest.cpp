#include "ZyrColorArray.h"

#include <gtest/gtest.h>

#include <limits>
#include <opencv2/core.hpp>

#include "support/Colors.h"
#include "support/Held.h"
#include "support/ZyrValues.h"

using test::Bytes;
using test::bytes;
using test::colorsOf;
using test::values;
using Values = std::vector<int>;

namespace {

constexpr int kMin = std::numeric_limits<int>::min();
constexpr int kMax = std::numeric_limits<int>::max();

void expectEmpty(const ZyrColorArray& colors) {
    EXPECT_EQ(colors.Width(), 0);
    EXPECT_EQ(colors.Height(), 0);
    EXPECT_EQ(colors.Length(), 0);
    EXPECT_EQ(colors.Channel(), 1);
    EXPECT_EQ(colors.Data(), nullptr);
}

/// An element of any array, read over a colour whose channels tell what was left alone.
Values selected(const ZyrColorArray& colors, int i) {
    ZyrColor out(-1, -2, -3, -4);
    colors.Select(i, &out);
    return values(out);
}

void replace(ZyrColorArray& colors, int i, ZyrColor color) {
    colors.Replace(i, color);
}

}  // namespace

TEST(ZyrColorArray, DefaultIsEmpty) {
    expectEmpty(ZyrColorArray());
}

TEST(ZyrColorArray, CreateMakesOneRow) {
    for (int channel : {1, 3, 4}) {
        ZyrColorArray colors;
        colors.Create(5, channel);
        EXPECT_EQ(colors.Width(), 5);
        EXPECT_EQ(colors.Height(), 1);
        EXPECT_EQ(colors.Length(), 5);
        EXPECT_EQ(colors.Channel(), channel);
        EXPECT_NE(colors.Data(), nullptr);
        EXPECT_EQ(test::held<cv::Mat>(colors).type(), CV_8UC(channel));
    }
}

TEST(ZyrColorArray, CreateWithAnotherChannelCountDoesNothing) {
    for (int channel : {0, 2, 5, -1, kMin, kMax}) {
        ZyrColorArray colors = colorsOf(3, {1, 2, 3});
        colors.Create(2, channel);
        colors.Create(-2, channel);
        EXPECT_EQ(bytes(colors), (Bytes{1, 2, 3})) << channel;
        EXPECT_EQ(colors.Channel(), 3) << channel;
    }
}

TEST(ZyrColorArray, CreateOfNoElementsHasNoColumns) {
    ZyrColorArray colors = colorsOf(4, {1, 2, 3, 4});
    colors.Create(0, 4);
    EXPECT_EQ(colors.Width(), 0);
    EXPECT_EQ(colors.Length(), 0);
    EXPECT_EQ(colors.Channel(), 1);
    EXPECT_EQ(colors.Data(), nullptr);
}

TEST(ZyrColorArray, CreateOfANegativeLengthIsOpenCVsErrorAndChangesNothing) {
    ZyrColorArray colors = colorsOf(3, {1, 2, 3});
    EXPECT_THROW(colors.Create(-1, 3), cv::Exception);
    EXPECT_THROW(colors.Create(kMin, 1), cv::Exception);
    EXPECT_EQ(bytes(colors), (Bytes{1, 2, 3}));
}

TEST(ZyrColorArray, CreateDetachesEvenForTheSameSize) {
    ZyrColorArray colors = colorsOf(1, {1, 2});
    const ZyrColorArray sharer(colors);
    colors.Create(2, 1);
    colors.SetColor(9);
    EXPECT_EQ(bytes(colors), (Bytes{9, 9}));
    EXPECT_EQ(bytes(sharer), (Bytes{1, 2}));
}

TEST(ZyrColorArray, CopiesShareThePixels) {
    ZyrColorArray colors = colorsOf(1, {1, 2});
    ZyrColorArray copy(colors);
    ZyrColorArray assigned = colorsOf(3, {7, 7, 7});
    EXPECT_EQ(&(assigned = colors), &assigned);
    replace(colors, 0, ZyrColor(8, 0, 0, 0));
    replace(copy, 1, ZyrColor(9, 0, 0, 0));
    EXPECT_EQ(bytes(assigned), (Bytes{8, 9}));
    EXPECT_EQ(copy.Data(), colors.Data());
    EXPECT_EQ(assigned.Data(), colors.Data());
}

TEST(ZyrColorArray, EachHasAMatrixOfItsOwn) {
    ZyrColorArray colors = colorsOf(1, {1, 2});
    const ZyrColorArray copy(colors);
    EXPECT_NE(&test::held<cv::Mat>(copy), &test::held<cv::Mat>(colors));
}

TEST(ZyrColorArray, SelfAssignmentIsHarmless) {
    ZyrColorArray colors = colorsOf(1, {1, 2});
    const ZyrColorArray& same = colors;
    colors = same;
    EXPECT_EQ(bytes(colors), (Bytes{1, 2}));
}

TEST(ZyrColorArray, DeepCopyHasPixelsOfItsOwn) {
    ZyrColorArray colors = colorsOf(3, {1, 2, 3, 4, 5, 6});
    const ZyrColorArray copy = colors.DeepCopy();
    colors.SetColor(0);
    EXPECT_EQ(bytes(copy), (Bytes{1, 2, 3, 4, 5, 6}));
    EXPECT_EQ(copy.Channel(), 3);
    expectEmpty(ZyrColorArray().DeepCopy());
}

TEST(ZyrColorArray, SharersKeepThePixelsOfAnArrayThatIsGone) {
    ZyrColorArray kept;
    {
        ZyrColorArray colors = colorsOf(1, {1, 2});
        kept = colors;
    }
    EXPECT_EQ(bytes(kept), (Bytes{1, 2}));
}

TEST(ZyrColorArray, ClearLeavesThePixelsToThoseWhoShareThem) {
    ZyrColorArray colors = colorsOf(4, {1, 2, 3, 4});
    const ZyrColorArray sharer(colors);
    colors.Clear();
    expectEmpty(colors);
    EXPECT_EQ(bytes(sharer), (Bytes{1, 2, 3, 4}));
}

TEST(ZyrColorArray, SetColorOfAValueSetsEveryByte) {
    for (int channel : {1, 3, 4}) {
        ZyrColorArray colors;
        colors.Create(2, channel);
        colors.SetColor(77);
        EXPECT_EQ(bytes(colors), Bytes(static_cast<std::size_t>(2 * channel), 77));
    }
}

TEST(ZyrColorArray, SetColorOfAValueSaturates) {
    ZyrColorArray colors = colorsOf(3, {1, 2, 3});
    for (int value : {256, 300, kMax}) {
        colors.SetColor(value);
        EXPECT_EQ(bytes(colors), (Bytes{255, 255, 255})) << value;
    }
    for (int value : {-1, -300, kMin}) {
        colors.SetColor(value);
        EXPECT_EQ(bytes(colors), (Bytes{0, 0, 0})) << value;
    }
}

TEST(ZyrColorArray, SetColorOfAColourSetsTheChannelsThatThereAre) {
    ZyrColorArray grey = colorsOf(1, {0, 0});
    ZyrColorArray opaque = colorsOf(3, {0, 0, 0, 0, 0, 0});
    ZyrColorArray translucent = colorsOf(4, {0, 0, 0, 0, 0, 0, 0, 0});
    for (ZyrColorArray* colors : {&grey, &opaque, &translucent})
        colors->SetColor(ZyrColor(10, 20, 30, 40));
    EXPECT_EQ(bytes(grey), (Bytes{10, 10}));
    EXPECT_EQ(bytes(opaque), (Bytes{30, 20, 10, 30, 20, 10}));
    EXPECT_EQ(bytes(translucent), (Bytes{30, 20, 10, 40, 30, 20, 10, 40}));
}

TEST(ZyrColorArray, SetColorOfAColourSaturatesEachChannel) {
    ZyrColorArray grey = colorsOf(1, {7});
    ZyrColorArray colors = colorsOf(4, {7, 7, 7, 7});
    grey.SetColor(ZyrColor(300, 0, 0, 0));
    colors.SetColor(ZyrColor(300, -1, 256, kMin));
    EXPECT_EQ(bytes(grey), (Bytes{255}));
    EXPECT_EQ(bytes(colors), (Bytes{255, 0, 255, 0}));
}

TEST(ZyrColorArray, SetColorOfAnEmptyArrayDoesNothing) {
    ZyrColorArray colors;
    colors.SetColor(7);
    colors.SetColor(ZyrColor(1, 2, 3, 4));
    expectEmpty(colors);
}

TEST(ZyrColorArray, SetColorIsSeenByThoseWhoShare) {
    ZyrColorArray colors = colorsOf(3, {1, 2, 3});
    const ZyrColorArray sharer(colors);
    colors.SetColor(ZyrColor(4, 5, 6, 7));
    EXPECT_EQ(bytes(sharer), (Bytes{6, 5, 4}));
    colors.SetColor(9);
    EXPECT_EQ(bytes(sharer), (Bytes{9, 9, 9}));
}

TEST(ZyrColorArray, ReplaceWritesBlueGreenRed) {
    ZyrColorArray colors = colorsOf(3, Bytes(9, 0));
    replace(colors, 1, ZyrColor(10, 20, 30, 255));
    EXPECT_EQ(bytes(colors), (Bytes{0, 0, 0, 30, 20, 10, 0, 0, 0}));
}

TEST(ZyrColorArray, ReplaceWritesAlphaOfFourChannels) {
    ZyrColorArray colors = colorsOf(4, Bytes(8, 0));
    replace(colors, 1, ZyrColor(10, 20, 30, 40));
    EXPECT_EQ(bytes(colors), (Bytes{0, 0, 0, 0, 30, 20, 10, 40}));
}

TEST(ZyrColorArray, ReplaceWritesRedAsTheGreyLevel) {
    ZyrColorArray colors = colorsOf(1, {1, 2, 3});
    replace(colors, 2, ZyrColor(10, 20, 30, 40));
    EXPECT_EQ(bytes(colors), (Bytes{1, 2, 10}));
}

TEST(ZyrColorArray, ReplaceKeepsTheLow8BitsOfEachChannel) {
    ZyrColorArray grey = colorsOf(1, {0});
    ZyrColorArray colors = colorsOf(4, {0, 0, 0, 0});
    replace(grey, 0, ZyrColor(300, 0, 0, 0));
    replace(colors, 0, ZyrColor(300, -1, 256, -2));
    EXPECT_EQ(bytes(grey), (Bytes{44}));
    EXPECT_EQ(bytes(colors), (Bytes{0, 255, 44, 254}));
}

TEST(ZyrColorArray, ReplaceOutOfRangeDoesNothing) {
    ZyrColorArray colors = colorsOf(3, {1, 2, 3, 4, 5, 6});
    ZyrColorArray empty;
    for (int i : {-1, 2, 3, kMin, kMax}) replace(colors, i, ZyrColor(9, 9, 9, 9));
    replace(empty, 0, ZyrColor(9, 9, 9, 9));
    EXPECT_EQ(bytes(colors), (Bytes{1, 2, 3, 4, 5, 6}));
    expectEmpty(empty);
}

TEST(ZyrColorArray, SelectReadsTheGreyLevelIntoRedGreenAndBlue) {
    EXPECT_EQ(selected(colorsOf(1, {5, 7}), 1), (Values{7, 7, 7, -4}));
}

TEST(ZyrColorArray, SelectLeavesAlphaOfThreeChannelColoursUntouched) {
    EXPECT_EQ(selected(colorsOf(3, {1, 2, 3, 30, 20, 10}), 1), (Values{10, 20, 30, -4}));
}

TEST(ZyrColorArray, SelectReadsAlphaOfFourChannelColours) {
    EXPECT_EQ(selected(colorsOf(4, {1, 2, 3, 4, 30, 20, 10, 40}), 1), (Values{10, 20, 30, 40}));
}

TEST(ZyrColorArray, SelectOutOfRangeLeavesTheOutputUntouched) {
    const ZyrColorArray colors = colorsOf(4, {1, 2, 3, 4, 5, 6, 7, 8});
    for (int i : {-1, 2, kMin, kMax}) EXPECT_EQ(selected(colors, i), (Values{-1, -2, -3, -4}));
    EXPECT_EQ(selected(ZyrColorArray(), 0), (Values{-1, -2, -3, -4}));
}

TEST(ZyrColorArray, SubscriptReadsTheGreyLevelIntoRedAlone) {
    EXPECT_EQ(values(colorsOf(1, {5, 7})[1]), (Values{7, 0, 0, 255}));
}

TEST(ZyrColorArray, SubscriptGivesThreeChannelColoursFullAlpha) {
    EXPECT_EQ(values(colorsOf(3, {1, 2, 3, 30, 20, 10})[1]), (Values{10, 20, 30, 255}));
}

TEST(ZyrColorArray, SubscriptReadsAllFourChannels) {
    EXPECT_EQ(values(colorsOf(4, {1, 2, 3, 4, 30, 20, 10, 40})[1]), (Values{10, 20, 30, 40}));
}

TEST(ZyrColorArray, SubscriptOutOfRangeGivesTheDefaultColour) {
    const ZyrColorArray colors = colorsOf(1, {5, 7});
    for (int i : {-1, 2, kMin, kMax}) EXPECT_EQ(values(colors[i]), (Values{0, 0, 0, 255}));
    EXPECT_EQ(values(ZyrColorArray()[0]), (Values{0, 0, 0, 255}));
}
