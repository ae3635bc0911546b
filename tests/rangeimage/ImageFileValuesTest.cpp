#include <gtest/gtest.h>

#include <limits>
#include <opencv2/imgcodecs.hpp>

#include "ZyrRangeImage.h"
#include "support/RangeImages.h"
#include "support/TempFolder.h"

// Which numbers image files get; expected by the rule of OpenCV's saturating conversion.

using test::Bytes;

namespace {

template <class T>
ZyrRangeImage row(std::vector<T> data, int type, double resolutionZ) {
    return ZyrRangeImage(data.data(), static_cast<int>(data.size()), 1, 0, type, 0, 0, resolutionZ,
                         0, 1, 0, 1, 0);
}

/// What the image file holds once the library has written it.
cv::Mat written(ZyrRangeImage& image, const std::string& name) {
    const test::TempFolder folder;
    EXPECT_TRUE(image.Save(folder.path(name).c_str()));
    return cv::imread(folder.path(name), cv::IMREAD_UNCHANGED);
}

Bytes shorts(const std::vector<std::uint16_t>& values) {
    return test::bytesOf(values);
}

}  // namespace

TEST(ImageFileValues, SaveRoundsHalvesToEven) {
    ZyrRangeImage image = row<float>({1.0F, 3.0F, 5.0F}, 5, 2.0);
    EXPECT_EQ(test::bytesOf(written(image, "a.png")), shorts({0, 2, 2}));
}

TEST(ImageFileValues, SaveMakesZeroOfWhatIsNoNumberOrBeyond32Bits) {
    const float infinity = std::numeric_limits<float>::infinity();
    const float nan = std::numeric_limits<float>::quiet_NaN();
    ZyrRangeImage image = row<float>({3.4e38F, nan, -infinity, 1e10F}, 5, 1.0);
    EXPECT_EQ(test::bytesOf(written(image, "a.png")), shorts({0, 0, 0, 0}));
}

TEST(ImageFileValues, JpegKeepsAConstantImageNearly) {
    ZyrRangeImage image = row<std::uint8_t>(std::vector<std::uint8_t>(16, 90), 0, 1);
    const cv::Mat jpeg = written(image, "a.jpg");
    ASSERT_EQ(jpeg.type(), CV_8U);
    EXPECT_LE(cv::norm(jpeg, cv::Mat(1, 16, CV_8U, cv::Scalar(90)), cv::NORM_INF), 2.0);
}
