#include "ZyrRangeImage.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <memory>
#include <opencv2/core.hpp>

#include "support/RangeImages.h"
#include "support/ZyrValues.h"

using test::Bytes;
using test::calibration;
using test::shape;
using test::valueRange;

namespace {

using Numbers = std::vector<double>;

/// An image of one type from packed data, with a value range of 0 to 0 and the default calibration.
template <class T>
ZyrRangeImage imageOf(std::vector<T> data, int width, int height, int type) {
    return ZyrRangeImage(data.data(), width, height, 0, type, 0, 0, 1, 0, 1, 0, 1, 0);
}

template <class T>
void expectEnds(int type) {
    using Limits = std::numeric_limits<T>;
    const ZyrRangeImage image =
        imageOf<T>({Limits::lowest(), Limits::max(), Limits::min(), T(1)}, 2, 2, type);
    EXPECT_EQ(image.DataType(), type);
    EXPECT_EQ(image.GetValue(0, 0), static_cast<double>(Limits::lowest()));
    EXPECT_EQ(image.GetValue(0, 1), static_cast<double>(Limits::max()));
    EXPECT_EQ(image.GetValue(1, 0), static_cast<double>(Limits::min()));
    EXPECT_EQ(image.GetValue(1, 1), 1.0);
}

}  // namespace

TEST(ZyrRangeImage, DefaultHasNoPixels) {
    const ZyrRangeImage image;
    EXPECT_EQ(shape(image), (std::vector{0, 0, 0}));
    EXPECT_EQ(image.Data(), nullptr);
    EXPECT_EQ(image.ColorData(), nullptr);
    EXPECT_FALSE(image.IsValidColor());
}

TEST(ZyrRangeImage, DefaultHasResolutionsOfOneAndAllElseZero) {
    const ZyrRangeImage image;
    EXPECT_EQ(calibration(image), (Numbers{1, 0, 1, 0, 1, 0}));
    EXPECT_EQ(valueRange(image), (Numbers{0, 0}));
}

TEST(ZyrRangeImage, IsOnePointerToItsBlock) {
    EXPECT_EQ(sizeof(ZyrRangeImage), sizeof(void*));
}

TEST(ZyrRangeImage, ConstructorTakesRangeThenZThenXThenYResolutionBeforeOffset) {
    unsigned char pixel = 9;
    const ZyrRangeImage image(&pixel, 1, 1, 0, 0, 10, 20, 2, 3, 4, 5, 6, 7);
    EXPECT_EQ(valueRange(image), (Numbers{10, 20}));
    EXPECT_EQ(image.ResolutionZ(), 2);
    EXPECT_EQ(image.OffsetZ(), 3);
    EXPECT_EQ(image.ResolutionX(), 4);
    EXPECT_EQ(image.OffsetX(), 5);
    EXPECT_EQ(image.ResolutionY(), 6);
    EXPECT_EQ(image.OffsetY(), 7);
}

TEST(ZyrRangeImage, ConstructorCopiesTheBuffer) {
    std::vector<unsigned char> data = {1, 2, 3, 4, 5, 6};
    const ZyrRangeImage image(data.data(), 3, 2, 0, 0, 0, 0, 1, 0, 1, 0, 1, 0);
    data.assign(6, 99);
    EXPECT_EQ(test::valueBytes(image), (Bytes{1, 2, 3, 4, 5, 6}));
}

TEST(ZyrRangeImage, ConstructorLeavesOutTheGapsOfARowStep) {
    Bytes data = {1, 2, 3, 99, 4, 5, 6, 99};
    const ZyrRangeImage image(data.data(), 3, 2, 4, 0, 0, 0, 1, 0, 1, 0, 1, 0);
    const auto* first = static_cast<const unsigned char*>(image.Data());
    EXPECT_EQ(Bytes(first, first + 6), (Bytes{1, 2, 3, 4, 5, 6}));
}

TEST(ZyrRangeImage, ConstructorKeepsNumbersButNoPixelsOfAnUnknownType) {
    std::vector<double> data(4);
    for (const int type : {-1, 7, 8, 16, 1000}) {
        const ZyrRangeImage image(data.data(), 2, 2, 0, type, 10, 20, 2, 3, 4, 5, 6, 7);
        EXPECT_EQ(shape(image), (std::vector{0, 0, 0})) << type;
        EXPECT_EQ(valueRange(image), (Numbers{10, 20}));
        EXPECT_EQ(calibration(image), test::sampleCalibration());
    }
}

TEST(ZyrRangeImage, ConstructorTakesANullBufferWithoutSize) {
    EXPECT_NO_THROW(ZyrRangeImage(nullptr, 0, 0, 0, 3, 0, 0, 1, 0, 1, 0, 1, 0));
}

TEST(ZyrRangeImage, ConstructorPassesOpenCVsErrorOnANullBufferWithASize) {
    EXPECT_THROW(ZyrRangeImage(nullptr, 2, 2, 0, 0, 0, 0, 1, 0, 1, 0, 1, 0), cv::Exception);
}

TEST(ZyrRangeImage, ConstructorPassesOpenCVsErrorOnAStepThatCutsAnElement) {
    std::vector<unsigned short> data(8);
    EXPECT_THROW(ZyrRangeImage(data.data(), 2, 2, 5, 2, 0, 0, 1, 0, 1, 0, 1, 0), cv::Exception);
}

TEST(ZyrRangeImage, SetInfoTakesZThenXThenYResolutionBeforeOffset) {
    ZyrRangeImage image;
    image.SetInfo(2, 3, 4, 5, 6, 7);
    EXPECT_EQ(image.ResolutionZ(), 2);
    EXPECT_EQ(image.OffsetZ(), 3);
    EXPECT_EQ(image.ResolutionX(), 4);
    EXPECT_EQ(image.OffsetX(), 5);
    EXPECT_EQ(image.ResolutionY(), 6);
    EXPECT_EQ(image.OffsetY(), 7);
}

TEST(ZyrRangeImage, SetInfoLeavesPixelsAndValueRange) {
    const std::unique_ptr<ZyrRangeImage> image(test::newSample());
    image->SetInfo(1, 1, 1, 1, 1, 1);
    EXPECT_EQ(valueRange(*image), (Numbers{1, 6}));
    EXPECT_EQ(image->GetValue(1, 2), 6.0);
}

TEST(ZyrRangeImage, GetValueWidensEachTypeToDouble) {
    expectEnds<std::uint8_t>(0);
    expectEnds<std::int8_t>(1);
    expectEnds<std::uint16_t>(2);
    expectEnds<std::int16_t>(3);
    expectEnds<std::int32_t>(4);
    expectEnds<float>(5);
    expectEnds<double>(6);
}

TEST(ZyrRangeImage, GetValueOfAFloatImageIsTheFloatWidened) {
    EXPECT_EQ(imageOf<float>({0.1F}, 1, 1, 5).GetValue(0, 0), 0.100000001490116119384765625);
}

TEST(ZyrRangeImage, GetValueAppliesNeitherResolutionNorOffset) {
    ZyrRangeImage image = imageOf<unsigned char>({7}, 1, 1, 0);
    image.SetInfo(10, 100, 10, 100, 10, 100);
    EXPECT_EQ(image.GetValue(0, 0), 7.0);
}

TEST(ZyrRangeImage, GetValueAddressesRowFirst) {
    const ZyrRangeImage image = imageOf<unsigned char>({1, 2, 3, 4, 5, 6}, 3, 2, 0);
    EXPECT_EQ(image.GetValue(0, 2), 3.0);
    EXPECT_EQ(image.GetValue(1, 0), 4.0);
}

TEST(ZyrRangeImage, GetValueIsZeroOutOfRange) {
    const ZyrRangeImage image = imageOf<unsigned char>({1, 2, 3, 4, 5, 6}, 3, 2, 0);
    EXPECT_EQ(image.GetValue(2, 0), 0.0);
    EXPECT_EQ(image.GetValue(0, 3), 0.0);
    EXPECT_EQ(image.GetValue(-1, 0), 0.0);
    EXPECT_EQ(image.GetValue(1, -1), 0.0);
    EXPECT_EQ(ZyrRangeImage().GetValue(0, 0), 0.0);
}

TEST(ZyrRangeImage, GetValueIsZeroForValuesOfSeveralChannels) {
    const ZyrRangeImage image;
    test::blockOf(image).values = cv::Mat(1, 1, CV_8UC3, cv::Scalar(7, 7, 7));
    EXPECT_EQ(image.GetValue(0, 0), 0.0);
}

TEST(ZyrRangeImage, ClearRestoresTheDefaults) {
    const std::unique_ptr<ZyrRangeImage> image(test::newSample());
    test::setColors(*image, 2, 3, 3);
    image->Clear();
    EXPECT_EQ(shape(*image), (std::vector{0, 0, 0}));
    EXPECT_EQ(image->Data(), nullptr);
    EXPECT_EQ(image->ColorData(), nullptr);
    EXPECT_EQ(calibration(*image), (Numbers{1, 0, 1, 0, 1, 0}));
    EXPECT_EQ(valueRange(*image), (Numbers{0, 0}));
}

TEST(ZyrRangeImage, ClearLeavesPixelsToThoseWhoShareThem) {
    const std::unique_ptr<ZyrRangeImage> image(test::newSample());
    test::setColors(*image, 2, 3, 3);
    const ZyrRangeImage copy(*image);
    image->Clear();
    EXPECT_EQ(copy.GetValue(1, 2), 6.0);
    EXPECT_EQ(test::values(copy.GetColor(0, 0)), (std::vector{3, 2, 1, 255}));
}
