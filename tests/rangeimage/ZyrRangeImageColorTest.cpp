#include <gtest/gtest.h>

#include <memory>
#include <opencv2/core.hpp>

#include "ZyrRangeImage.h"
#include "support/RangeImages.h"
#include "support/StopText.h"
#include "support/ZyrValues.h"

using test::Bytes;
using test::setColors;
using test::values;

namespace {

const std::vector<int> kDefault = {0, 0, 0, 255};

/// Three columns and two rows; colours are set by each test.
class ZyrRangeImageColor : public testing::Test {
protected:
    bool setRows(Bytes rows, int channels, int first, int last) {
        return image_.SetColorValue(rows.data(), 12345, channels, first, last);
    }
    std::vector<int> color(int row, int column) const {
        return values(image_.GetColor(row, column));
    }

    std::unique_ptr<ZyrRangeImage> sample_{test::newSample()};
    ZyrRangeImage& image_ = *sample_;
};

using ZyrRangeImageColorDeathTest = ZyrRangeImageColor;

}  // namespace

TEST_F(ZyrRangeImageColor, ColorsCountWhenThereAreAsManyAsValues) {
    EXPECT_FALSE(image_.IsValidColor());
    setColors(image_, 2, 3, 3);
    EXPECT_TRUE(image_.IsValidColor());
    setColors(image_, 2, 2, 3);
    EXPECT_FALSE(image_.IsValidColor());
}

TEST_F(ZyrRangeImageColor, ColorsOfAnotherShapeCountWhenTheirNumberFits) {
    setColors(image_, 1, 6, 3);
    EXPECT_TRUE(image_.IsValidColor());
}

TEST_F(ZyrRangeImageColor, NoColorsNeverCountNotEvenForNoValues) {
    EXPECT_FALSE(ZyrRangeImage().IsValidColor());
}

TEST_F(ZyrRangeImageColor, ColorDataIsTheFirstByte) {
    setColors(image_, 2, 3, 4);
    ASSERT_NE(image_.ColorData(), nullptr);
    EXPECT_EQ(image_.ColorData(), test::colorMat(image_).data);
}

TEST_F(ZyrRangeImageColor, GetColorAddressesRowFirst) {
    setColors(image_, 2, 3, 3);
    EXPECT_EQ(color(0, 2), (std::vector{9, 8, 7, 255}));
    EXPECT_EQ(color(1, 0), (std::vector{12, 11, 10, 255}));
}

TEST_F(ZyrRangeImageColor, GetColorTakesAlphaOfFourChannels) {
    setColors(image_, 2, 3, 4);
    EXPECT_EQ(color(1, 2), (std::vector{23, 22, 21, 24}));
}

TEST_F(ZyrRangeImageColor, GetColorOfOneChannelSetsRedAlone) {
    setColors(image_, 2, 3, 1);
    EXPECT_EQ(color(1, 2), (std::vector{6, 0, 0, 255}));
}

TEST_F(ZyrRangeImageColor, GetColorGoesByTheColorsOwnShape) {
    setColors(image_, 3, 2, 1);
    EXPECT_EQ(color(2, 1), (std::vector{6, 0, 0, 255}));
    EXPECT_EQ(color(0, 2), kDefault);
}

TEST_F(ZyrRangeImageColor, GetColorIsTheDefaultOutOfRange) {
    setColors(image_, 2, 3, 3);
    EXPECT_EQ(color(2, 0), kDefault);
    EXPECT_EQ(color(0, 3), kDefault);
    EXPECT_EQ(color(-1, 0), kDefault);
    EXPECT_EQ(color(1, -1), kDefault);
}

TEST_F(ZyrRangeImageColor, GetColorIsTheDefaultWhileColorsDoNotCount) {
    EXPECT_EQ(color(0, 0), kDefault);
    setColors(image_, 2, 2, 3);
    EXPECT_EQ(color(0, 0), kDefault);
}

TEST_F(ZyrRangeImageColor, SetColorValueWritesRowsAndIgnoresTheSecondArgument) {
    setColors(image_, 3, 2, 1);
    EXPECT_TRUE(setRows({51, 52, 53, 54}, 1, 0, 1));
    EXPECT_EQ(test::bytesOf(test::colorMat(image_)), (Bytes{51, 52, 53, 54, 5, 6}));
}

TEST_F(ZyrRangeImageColor, SetColorValueRefusesAnotherChannelCount) {
    setColors(image_, 3, 2, 3);
    EXPECT_FALSE(setRows(Bytes(64), 1, 0, 1));
    EXPECT_FALSE(setRows(Bytes(64), 4, 0, 1));
}

TEST_F(ZyrRangeImageColor, SetColorValueRefusesRowsPastTheEnd) {
    setColors(image_, 3, 2, 3);
    EXPECT_FALSE(setRows(Bytes(64), 3, 0, 3));
    EXPECT_FALSE(setRows(Bytes(64), 3, -1, 1));
}

TEST_F(ZyrRangeImageColor, SetColorValueRefusesASingleRowAndTheLastOne) {
    setColors(image_, 3, 2, 3);
    EXPECT_FALSE(setRows(Bytes(64), 3, 1, 1));
    EXPECT_TRUE(setRows(Bytes(64), 3, 1, 2));
}

TEST_F(ZyrRangeImageColor, SetColorValueRefusesAnImageWithoutColors) {
    EXPECT_FALSE(setRows(Bytes(64), 1, 0, 1));
}

TEST_F(ZyrRangeImageColor, SetColorSizeOfAnUnknownChannelCountDoesNothing) {
    setColors(image_, 2, 3, 3);
    for (const int channels : {-1, 0, 2, 5}) image_.SetColorSize(4, 4, channels);
    EXPECT_EQ(color(1, 0), (std::vector{12, 11, 10, 255}));
}

TEST_F(ZyrRangeImageColor, SetColorSizeOfANegativeSizePassesOpenCVsErrorAndKeepsTheColors) {
    setColors(image_, 2, 3, 3);
    EXPECT_THROW(image_.SetColorSize(-4, 4, 3), cv::Exception);
    EXPECT_THROW(image_.SetColorSize(4, -4, 1), cv::Exception);
    EXPECT_EQ(color(1, 0), (std::vector{12, 11, 10, 255}));
}

TEST_F(ZyrRangeImageColorDeathTest, SetColorSizeOfAUsableSizeStopsInTheColorArray) {
    const std::string stop = test::stopText(
        "ZyrColorArray.cpp", 98, "bool ZyrColorArray::CreateColorArray(void*, int, int, int)",
        "width*height <0 || (channel != 1 && channel != 3 && channel != 4)");
    EXPECT_EXIT(image_.SetColorSize(3, 2, 3), testing::KilledBySignal(SIGABRT), stop);
    EXPECT_EXIT(image_.SetColorSize(3, 2, 1), testing::KilledBySignal(SIGABRT), stop);
    EXPECT_EXIT(image_.SetColorSize(0, 0, 4), testing::KilledBySignal(SIGABRT), stop);
    EXPECT_EXIT(image_.SetColorSize(-3, -2, 3), testing::KilledBySignal(SIGABRT), stop);
    EXPECT_EXIT(image_.SetColorSize(2000000000, 2000000000, 3), testing::KilledBySignal(SIGABRT),
                stop);
}
