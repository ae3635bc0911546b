#include <gtest/gtest.h>

#include <cstring>
#include <memory>
#include <opencv2/core.hpp>

#include "ZyrRangeImage.h"
#include "support/MatrixLimit.h"
#include "support/RangeImages.h"
#include "support/ZyrValues.h"

// What copying, assignment, deep copying and viewing a buffer do and do not do.

using test::Bytes;
using test::calibration;
using test::valueBytes;
using test::valueRange;

namespace {

using Numbers = std::vector<double>;

void write(const ZyrRangeImage& image, unsigned short value) {
    *static_cast<unsigned short*>(image.Data()) = value;
}

class ZyrRangeImageSharing : public testing::Test {
protected:
    ZyrRangeImageSharing() { test::setColors(*image_, 2, 3, 3); }

    std::unique_ptr<ZyrRangeImage> image_{test::newSample()};
};

}  // namespace

TEST_F(ZyrRangeImageSharing, CopySharesTheValues) {
    const ZyrRangeImage copy(*image_);
    EXPECT_EQ(copy.Data(), image_->Data());
    write(copy, 77);
    EXPECT_EQ(image_->GetValue(0, 0), 77.0);
}

TEST_F(ZyrRangeImageSharing, CopySharesTheColors) {
    const ZyrRangeImage copy(*image_);
    EXPECT_EQ(copy.ColorData(), image_->ColorData());
    EXPECT_TRUE(copy.IsValidColor());
}

TEST_F(ZyrRangeImageSharing, CopyTakesTheCalibrationButNotTheValueRange) {
    const ZyrRangeImage copy(*image_);
    EXPECT_EQ(calibration(copy), test::sampleCalibration());
    EXPECT_EQ(valueRange(copy), (Numbers{0, 0}));
}

TEST_F(ZyrRangeImageSharing, CopysNumbersAreItsOwn) {
    ZyrRangeImage copy(*image_);
    copy.SetInfo(9, 9, 9, 9, 9, 9);
    EXPECT_EQ(calibration(*image_), test::sampleCalibration());
}

TEST_F(ZyrRangeImageSharing, AssignmentSharesTheValuesAndColors) {
    ZyrRangeImage target;
    target = *image_;
    EXPECT_EQ(target.Data(), image_->Data());
    EXPECT_EQ(target.ColorData(), image_->ColorData());
    EXPECT_EQ(test::shape(target), test::shape(*image_));
}

TEST_F(ZyrRangeImageSharing, AssignmentTakesTheCalibrationButKeepsTheTargetsValueRange) {
    unsigned char pixel = 0;
    ZyrRangeImage target(&pixel, 1, 1, 0, 0, 10, 20, 9, 9, 9, 9, 9, 9);
    target = *image_;
    EXPECT_EQ(calibration(target), test::sampleCalibration());
    EXPECT_EQ(valueRange(target), (Numbers{10, 20}));
}

TEST_F(ZyrRangeImageSharing, AssignmentGivesTheTarget) {
    ZyrRangeImage target;
    EXPECT_EQ(&(target = *image_), &target);
}

TEST_F(ZyrRangeImageSharing, SelfAssignmentChangesNothing) {
    ZyrRangeImage& image = *image_;
    image = *image_;
    EXPECT_EQ(image.GetValue(1, 2), 6.0);
    EXPECT_EQ(valueRange(image), (Numbers{1, 6}));
    EXPECT_TRUE(image.IsValidColor());
}

TEST_F(ZyrRangeImageSharing, AssigningAnEmptyImageTakesThePixelsAway) {
    *image_ = ZyrRangeImage();
    EXPECT_EQ(test::shape(*image_), (std::vector{0, 0, 0}));
    EXPECT_FALSE(image_->IsValidColor());
    EXPECT_EQ(valueRange(*image_), (Numbers{1, 6}));
}

TEST_F(ZyrRangeImageSharing, DeepCopySharesNoPixels) {
    const ZyrRangeImage copy = image_->DeepCopy();
    write(*image_, 77);
    image_->ColorData()[0] = 77;
    EXPECT_EQ(copy.GetValue(0, 0), 1.0);
    EXPECT_EQ(copy.GetColor(0, 0).b, 1);
}

TEST_F(ZyrRangeImageSharing, DeepCopyTakesTheCalibrationButNotTheValueRange) {
    const ZyrRangeImage copy = image_->DeepCopy();
    EXPECT_EQ(calibration(copy), test::sampleCalibration());
    EXPECT_EQ(valueRange(copy), (Numbers{0, 0}));
}

TEST_F(ZyrRangeImageSharing, DeepCopyValuesGivesAMatrixOfItsOwn) {
    const ZyrImage copy = image_->DeepCopyValues();
    write(*image_, 77);
    EXPECT_EQ(copy.mat.type(), CV_16UC1);
    EXPECT_EQ(test::bytesOf(copy.mat), test::bytesOf(std::vector<short>{1, 2, 3, 4, 5, 6}));
}

TEST_F(ZyrRangeImageSharing, DeepCopyValuesIsEmptyForAnEmptyImage) {
    EXPECT_TRUE(ZyrRangeImage().DeepCopyValues().mat.empty());
}

TEST_F(ZyrRangeImageSharing, DeepCopyValuesIsEmptyWhenTheCopyFails) {
    const test::MatrixLimit limit(11);
    EXPECT_TRUE(image_->DeepCopyValues().mat.empty());
}

TEST_F(ZyrRangeImageSharing, DeepCopyColorsGivesColorsOfItsOwn) {
    const ZyrColorArray copy = image_->DeepCopyColors();
    image_->ColorData()[0] = 77;
    EXPECT_EQ(copy.Width(), 3);
    EXPECT_EQ(copy.Height(), 2);
    EXPECT_EQ(test::values(copy[0]), (std::vector{3, 2, 1, 255}));
}

TEST_F(ZyrRangeImageSharing, ViewFollowsTheCallersBuffer) {
    Bytes data = {1, 2, 3, 4};
    ZyrRangeImage image;
    EXPECT_TRUE(image.CreateRangeImage(data.data(), 2, 2, 0, 0, 0, 0, 1, 0, 1, 0, 1, 0));
    EXPECT_EQ(image.Data(), data.data());
    data[3] = 99;
    EXPECT_EQ(image.GetValue(1, 1), 99.0);
}

TEST_F(ZyrRangeImageSharing, ViewFollowsARowStep) {
    Bytes data = {1, 2, 3, 99, 4, 5, 6, 99};
    ZyrRangeImage image;
    image.CreateRangeImage(data.data(), 3, 2, 4, 0, 0, 0, 1, 0, 1, 0, 1, 0);
    EXPECT_EQ(image.GetValue(1, 0), 4.0);
    EXPECT_EQ(valueBytes(image), (Bytes{1, 2, 3, 4, 5, 6}));
    EXPECT_EQ(valueBytes(image.DeepCopy()), (Bytes{1, 2, 3, 4, 5, 6}));
    EXPECT_TRUE(image.DeepCopyValues().mat.isContinuous());
}

TEST_F(ZyrRangeImageSharing, ViewNeedsNoAlignment) {
    Bytes data(9, 0);
    const double value = 1.5;
    std::memcpy(data.data() + 1, &value, sizeof value);
    ZyrRangeImage image;
    image.CreateRangeImage(data.data() + 1, 1, 1, 0, 6, 0, 0, 1, 0, 1, 0, 1, 0);
    EXPECT_EQ(image.GetValue(0, 0), 1.5);
}

TEST_F(ZyrRangeImageSharing, ViewTakesTheCalibrationButIgnoresTheValueRange) {
    unsigned char pixel = 0;
    image_->CreateRangeImage(&pixel, 1, 1, 0, 0, 50, 60, 20, 30, 40, 50, 60, 70);
    EXPECT_EQ(calibration(*image_), (Numbers{40, 50, 60, 70, 20, 30}));
    EXPECT_EQ(valueRange(*image_), (Numbers{1, 6}));
}

TEST_F(ZyrRangeImageSharing, ViewDetachesFromTheSharedValuesAndKeepsTheColors) {
    const ZyrRangeImage copy(*image_);
    unsigned char pixel = 9;
    image_->CreateRangeImage(&pixel, 1, 1, 0, 0, 0, 0, 1, 0, 1, 0, 1, 0);
    EXPECT_EQ(copy.GetValue(0, 0), 1.0);
    EXPECT_EQ(image_->ColorData(), copy.ColorData());
}

TEST_F(ZyrRangeImageSharing, ViewOfAnUnknownTypeKeepsTheValuesSetsTheCalibrationAndIsTrue) {
    unsigned char pixel = 9;
    for (const int type : {-1, 7, 16}) {
        EXPECT_TRUE(image_->CreateRangeImage(&pixel, 1, 1, 0, type, 0, 0, 20, 30, 40, 50, 60, 70));
        EXPECT_EQ(test::shape(*image_), (std::vector{3, 2, 2}));
        EXPECT_EQ(image_->GetValue(1, 2), 6.0);
        EXPECT_EQ(calibration(*image_), (Numbers{40, 50, 60, 70, 20, 30}));
    }
}

TEST_F(ZyrRangeImageSharing, ViewPassesOpenCVsErrorOnANullBufferAndStaysAsItWas) {
    EXPECT_THROW(image_->CreateRangeImage(nullptr, 1, 1, 0, 0, 0, 0, 9, 9, 9, 9, 9, 9),
                 cv::Exception);
    EXPECT_EQ(image_->GetValue(1, 2), 6.0);
    EXPECT_EQ(calibration(*image_), test::sampleCalibration());
}

TEST_F(ZyrRangeImageSharing, CopiesOfAViewViewTheSameBuffer) {
    Bytes data = {1, 2, 3, 4};
    image_->CreateRangeImage(data.data(), 2, 2, 0, 0, 0, 0, 1, 0, 1, 0, 1, 0);
    const ZyrRangeImage copy(*image_);
    data[0] = 99;
    EXPECT_EQ(copy.GetValue(0, 0), 99.0);
}

TEST_F(ZyrRangeImageSharing, ClearEndsAViewAndLeavesTheBuffer) {
    Bytes data = {1, 2, 3, 4};
    image_->CreateRangeImage(data.data(), 2, 2, 0, 0, 0, 0, 1, 0, 1, 0, 1, 0);
    image_->Clear();
    EXPECT_EQ(image_->Data(), nullptr);
    EXPECT_EQ(data, (Bytes{1, 2, 3, 4}));
}

TEST_F(ZyrRangeImageSharing, SetSizeToAnotherSizeEndsAView) {
    Bytes data = {1, 2, 3, 4};
    image_->CreateRangeImage(data.data(), 2, 2, 0, 0, 0, 0, 1, 0, 1, 0, 1, 0);
    image_->SetSize(2, 2, 0);
    EXPECT_EQ(image_->Data(), data.data());
    image_->SetSize(4, 1, 0);
    EXPECT_NE(image_->Data(), data.data());
}
