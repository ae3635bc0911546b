#include <gtest/gtest.h>

#include <opencv2/imgcodecs.hpp>

#include "ZyrRangeImage.h"
#include "support/Npy.h"
#include "support/RangeImages.h"
#include "support/TempFolder.h"

// Real frames, where the data folder is there.

namespace {

std::vector<std::uint16_t> frame(const std::string& name) {
    return test::readNpy<std::uint16_t>(std::string(ZYR_DATA_DIR "/") + name + "/grid.npy", "<u2");
}

class MeasuredRangeImage : public testing::Test {
protected:
    /// What the image gives after a way through its own file.
    ZyrRangeImage throughOwnFile(ZyrRangeImage& image, bool withColors) {
        const std::string path = folder_.path("image.zrt");
        ZyrRangeImage loaded;
        EXPECT_TRUE(image.Save(path.c_str(), withColors));
        EXPECT_TRUE(loaded.Load(path.c_str(), withColors));
        return loaded;
    }

    test::TempFolder folder_;
};

}  // namespace

TEST_F(MeasuredRangeImage, DepthPictureComesBackThroughTheOwnFileBitForBit) {
    const std::vector<std::uint16_t> grid = frame("range_rgbd");
    if (grid.empty()) GTEST_SKIP() << "no data folder";
    ZyrRangeImage image;
    ASSERT_TRUE(image.Load(ZYR_DATA_DIR "/range_rgbd/depth.png", 0.001, 0.0));
    EXPECT_EQ(test::shape(image), (std::vector{640, 480, 2}));
    EXPECT_EQ(test::valueBytes(image), test::bytesOf(grid));
    const ZyrRangeImage loaded = throughOwnFile(image, false);
    EXPECT_EQ(test::valueBytes(loaded), test::bytesOf(grid));
    EXPECT_EQ(loaded.ResolutionZ(), 0.001);
}

TEST_F(MeasuredRangeImage, ColorsOfTheDepthPictureComeBackBitForBit) {
    const cv::Mat colors = cv::imread(ZYR_DATA_DIR "/range_rgbd/color.jpg", cv::IMREAD_COLOR);
    if (colors.empty()) GTEST_SKIP() << "no data folder";
    ZyrRangeImage image;
    ASSERT_TRUE(image.Load(ZYR_DATA_DIR "/range_rgbd/depth.png", 0.001, 0.0));
    test::colorMat(image) = colors;
    ASSERT_TRUE(image.IsValidColor());
    const ZyrRangeImage loaded = throughOwnFile(image, true);
    EXPECT_TRUE(loaded.IsValidColor());
    EXPECT_EQ(test::bytesOf(test::colorMat(loaded)), test::bytesOf(colors));
}

TEST_F(MeasuredRangeImage, HeightMapComesBackThroughBothKindsOfFileBitForBit) {
    std::vector<std::uint16_t> grid = frame("range_counter");
    if (grid.empty()) GTEST_SKIP() << "no data folder";
    ASSERT_EQ(grid.size(), 1289U * 1280U);
    ZyrRangeImage image(grid.data(), 1289, 1280, 0, 2, 0, 0, 0.005, 0, 1, 0, 1, 0);
    EXPECT_EQ(test::valueBytes(throughOwnFile(image, false)), test::bytesOf(grid));
    const std::string path = folder_.path("image.png");
    ASSERT_TRUE(image.Save(path.c_str()));
    ZyrRangeImage loaded;
    ASSERT_TRUE(loaded.Load(path.c_str(), 0.005, 0.0));
    EXPECT_EQ(test::valueBytes(loaded), test::bytesOf(grid));
}
