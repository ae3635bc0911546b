#include <gtest/gtest.h>

#include <memory>
#include <opencv2/core.hpp>

#include "ZyrRangeImage.h"
#include "support/RangeImages.h"

// Sizing an image and writing rows into it.

using test::Bytes;
using test::shape;
using test::valueBytes;
using test::valueRange;

namespace {

using Numbers = std::vector<double>;

/// Two columns and three rows of bytes 1 to 6, with a value range.
class ZyrRangeImageFill : public testing::Test {
protected:
    bool set(Bytes rows, int type, double minValue, double maxValue, int first, int last) {
        return image_.SetValue(rows.data(), type, minValue, maxValue, first, last);
    }

    Bytes data_ = {1, 2, 3, 4, 5, 6};
    ZyrRangeImage image_{data_.data(), 2, 3, 0, 0, 10, 20, 1, 0, 1, 0, 1, 0};
};

}  // namespace

TEST_F(ZyrRangeImageFill, SetSizeGivesEachTypeItsRoom) {
    for (int type = 0; type <= 6; ++type) {
        ZyrRangeImage image;
        image.SetSize(5, 4, type);
        EXPECT_EQ(shape(image), (std::vector{5, 4, type}));
        EXPECT_NE(image.Data(), nullptr);
    }
}

TEST_F(ZyrRangeImageFill, SetSizeToTheSameSizeAndTypeKeepsTheValues) {
    const void* before = image_.Data();
    image_.SetSize(2, 3, 0);
    EXPECT_EQ(image_.Data(), before);
    EXPECT_EQ(valueBytes(image_), data_);
}

TEST_F(ZyrRangeImageFill, SetSizeToAnotherTypeOrSizeDetaches) {
    const ZyrRangeImage copy(image_);
    image_.SetSize(2, 3, 1);
    EXPECT_NE(image_.Data(), copy.Data());
    image_ = copy;
    image_.SetSize(3, 2, 0);
    EXPECT_NE(image_.Data(), copy.Data());
    image_ = copy;
    image_.SetSize(2, 2, 0);
    EXPECT_NE(image_.Data(), copy.Data());
    EXPECT_EQ(valueBytes(copy), data_);
}

TEST_F(ZyrRangeImageFill, SetSizeOfAnUnknownTypeDoesNothing) {
    for (const int type : {-1, 7, 8, 16}) {
        image_.SetSize(9, 9, type);
        EXPECT_EQ(shape(image_), (std::vector{2, 3, 0}));
        EXPECT_EQ(valueBytes(image_), data_);
    }
}

TEST_F(ZyrRangeImageFill, SetSizeKeepsNumbersAndColors) {
    test::setColors(image_, 3, 2, 1);
    image_.SetInfo(2, 3, 4, 5, 6, 7);
    image_.SetSize(9, 9, 6);
    EXPECT_EQ(test::calibration(image_), test::sampleCalibration());
    EXPECT_EQ(valueRange(image_), (Numbers{10, 20}));
    EXPECT_NE(image_.ColorData(), nullptr);
}

TEST_F(ZyrRangeImageFill, SetSizeWithoutColumnsHasNoData) {
    image_.SetSize(0, 5, 3);
    EXPECT_EQ(shape(image_), (std::vector{0, 5, 3}));
    EXPECT_EQ(image_.Data(), nullptr);
}

TEST_F(ZyrRangeImageFill, SetSizePassesOpenCVsErrorOnANegativeSizeAndStaysAsItWas) {
    EXPECT_THROW(image_.SetSize(-1, 3, 0), cv::Exception);
    EXPECT_THROW(image_.SetSize(2, -3, 0), cv::Exception);
    EXPECT_EQ(shape(image_), (std::vector{2, 3, 0}));
    EXPECT_EQ(valueBytes(image_), data_);
}

TEST_F(ZyrRangeImageFill, SetValueWritesTheRowsWithBothEnds) {
    EXPECT_TRUE(set({51, 52, 53, 54}, 0, 0, 0, 1, 2));
    EXPECT_EQ(valueBytes(image_), (Bytes{1, 2, 51, 52, 53, 54}));
}

TEST_F(ZyrRangeImageFill, SetValueWritesASingleRow) {
    EXPECT_TRUE(set({51, 52}, 0, 0, 0, 1, 1));
    EXPECT_EQ(valueBytes(image_), (Bytes{1, 2, 51, 52, 5, 6}));
}

TEST_F(ZyrRangeImageFill, SetValueWritesElementsOfTheImagesType) {
    ZyrRangeImage image;
    image.SetSize(1, 2, 6);
    std::vector<double> values = {0.25, -1e300};
    EXPECT_TRUE(image.SetValue(values.data(), 6, 0, 0, 0, 1));
    EXPECT_EQ(image.GetValue(0, 0), 0.25);
    EXPECT_EQ(image.GetValue(1, 0), -1e300);
}

TEST_F(ZyrRangeImageFill, SetValueIsSeenByAllWhoShareThePixels) {
    const ZyrRangeImage copy(image_);
    set({51, 52}, 0, 0, 0, 0, 0);
    EXPECT_EQ(copy.GetValue(0, 1), 52.0);
}

TEST_F(ZyrRangeImageFill, SetValueTakesPackedRowsIntoAViewWithARowStep) {
    Bytes buffer = {1, 2, 90, 3, 4, 91, 5, 6, 92};
    image_.CreateRangeImage(buffer.data(), 2, 3, 3, 0, 0, 0, 1, 0, 1, 0, 1, 0);
    EXPECT_TRUE(set({51, 52, 53, 54}, 0, 0, 0, 1, 2));
    EXPECT_EQ(buffer, (Bytes{1, 2, 90, 51, 52, 91, 53, 54, 92}));
}

TEST_F(ZyrRangeImageFill, SetValueTakesTheImagesOwnRows) {
    EXPECT_TRUE(image_.SetValue(image_.Data(), 0, 0, 0, 1, 2));
    EXPECT_EQ(valueBytes(image_), (Bytes{1, 2, 1, 2, 3, 4}));
}

TEST_F(ZyrRangeImageFill, SetValueTakesAViewsOwnRows) {
    Bytes buffer = {1, 2, 90, 3, 4, 91, 5, 6, 92};
    image_.CreateRangeImage(buffer.data(), 2, 3, 3, 0, 0, 0, 1, 0, 1, 0, 1, 0);
    EXPECT_TRUE(image_.SetValue(image_.Data(), 0, 0, 0, 1, 2));
    EXPECT_EQ(buffer, (Bytes{1, 2, 90, 1, 2, 91, 90, 3, 92}));
}

TEST_F(ZyrRangeImageFill, SetValueRefusesAnotherTypeAndChangesNothing) {
    for (const int type : {-1, 1, 2, 6, 7}) EXPECT_FALSE(set(Bytes(64, 9), type, 5, 99, 0, 2));
    EXPECT_EQ(valueBytes(image_), data_);
    EXPECT_EQ(valueRange(image_), (Numbers{10, 20}));
}

TEST_F(ZyrRangeImageFill, SetValueRefusesRowsOutOfRangeAndChangesNothing) {
    EXPECT_FALSE(set(Bytes(64, 9), 0, 5, 99, -1, 1));
    EXPECT_FALSE(set(Bytes(64, 9), 0, 5, 99, 2, 1));
    EXPECT_FALSE(set(Bytes(64, 9), 0, 5, 99, 0, 3));
    EXPECT_FALSE(set(Bytes(64, 9), 0, 5, 99, 3, 3));
    EXPECT_EQ(valueBytes(image_), data_);
    EXPECT_EQ(valueRange(image_), (Numbers{10, 20}));
}

TEST_F(ZyrRangeImageFill, SetValueRefusesAnEmptyImage) {
    EXPECT_FALSE(ZyrRangeImage().SetValue(data_.data(), 0, 5, 99, 0, 0));
}

TEST_F(ZyrRangeImageFill, SetValueOnRowsWithoutColumnsIsTrue) {
    image_.SetSize(0, 5, 0);
    EXPECT_TRUE(set({9}, 0, 0, 0, 0, 4));
}

TEST_F(ZyrRangeImageFill, SetValuePassesOpenCVsErrorOnNullOnceTheRangeIsWidened) {
    EXPECT_THROW(image_.SetValue(nullptr, 0, 5, 99, 0, 2), cv::Exception);
    EXPECT_EQ(valueRange(image_), (Numbers{5, 99}));
}

TEST_F(ZyrRangeImageFill, ViewOfANegativeSizeOrStepIsOpenCVsErrorAndChangesNothing) {
    unsigned char data[8] = {};
    const auto view = [&](int width, int height, int step) {
        image_.CreateRangeImage(data, width, height, step, 0, 0, 0, 1, 0, 1, 0, 1, 0);
    };
    const int width = image_.Width();
    EXPECT_THROW(view(-1, 2, 0), cv::Exception);
    EXPECT_THROW(view(2, -1, 0), cv::Exception);
    EXPECT_THROW(view(2, 2, -4), cv::Exception);
    EXPECT_EQ(image_.Width(), width);
}

TEST_F(ZyrRangeImageFill, SetValueWidensTheValueRange) {
    EXPECT_TRUE(set({9, 9}, 0, 5, 30, 0, 0));
    EXPECT_EQ(valueRange(image_), (Numbers{5, 30}));
}

TEST_F(ZyrRangeImageFill, SetValueNeverNarrowsTheValueRange) {
    EXPECT_TRUE(set({9, 9}, 0, 11, 19, 0, 0));
    EXPECT_TRUE(set({9, 9}, 0, 10, 20, 0, 0));
    EXPECT_EQ(valueRange(image_), (Numbers{10, 20}));
}

TEST_F(ZyrRangeImageFill, SetValueIgnoresRangeEndsOfZeroOrBelow) {
    EXPECT_TRUE(set({9, 9}, 0, 0, 0, 0, 0));
    EXPECT_TRUE(set({9, 9}, 0, -5, -1, 0, 0));
    EXPECT_EQ(valueRange(image_), (Numbers{10, 20}));
}

TEST_F(ZyrRangeImageFill, SetValueNeverRaisesANegativeMaximumByAValueOfZeroOrBelow) {
    ZyrRangeImage image(data_.data(), 2, 3, 0, 0, -30, -20, 1, 0, 1, 0, 1, 0);
    EXPECT_TRUE(image.SetValue(data_.data(), 0, -40, -10, 0, 0));
    EXPECT_TRUE(image.SetValue(data_.data(), 0, -40, 0, 0, 0));
    EXPECT_EQ(valueRange(image), (Numbers{-30, -20}));
}

TEST_F(ZyrRangeImageFill, SetValueMovesEachEndOfTheRangeByItself) {
    EXPECT_TRUE(set({9, 9}, 0, 5, 0, 0, 0));
    EXPECT_EQ(valueRange(image_), (Numbers{5, 20}));
    EXPECT_TRUE(set({9, 9}, 0, 0, 30, 0, 0));
    EXPECT_EQ(valueRange(image_), (Numbers{5, 30}));
}

TEST_F(ZyrRangeImageFill, SetValueNeverSetsTheMinimumOfADefaultImage) {
    ZyrRangeImage image;
    image.SetSize(2, 3, 0);
    EXPECT_TRUE(image.SetValue(data_.data(), 0, 5, 9, 0, 2));
    EXPECT_EQ(valueRange(image), (Numbers{0, 9}));
}
