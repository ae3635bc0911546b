#include <opencv2/core.hpp>
#include <vector>

#include "Program.h"
#include "ZyrRangeImage.h"
#include "support/ZyrValues.h"

namespace {

/// A slope of one count a column, from 1000 on, with one hole.
class RangeDemo : public test::Tool {
protected:
    test::Result runOnSlope(const std::string& options = "") const {
        cv::Mat depth(20, 30, CV_16UC1);
        for (int column = 0; column < 30; ++column) depth.col(column).setTo(1000 + column);
        depth.at<std::uint16_t>(7, 9) = 0;
        cv::imwrite(path("depth.png"), depth);
        return run("demo depth.png -o d" + options);
    }

    ZyrRangeImage image() const {
        ZyrRangeImage image;
        EXPECT_TRUE(image.Load(path("d/demo.zrt").c_str(), true));
        return image;
    }

    static double height(const ZyrRangeImage& image, int row, int column) {
        return image.GetValue(row, column) * image.ResolutionZ() + image.OffsetZ();
    }
};

TEST_F(RangeDemo, ImageHasOneSixteenBitValueAPixel) {
    EXPECT_EQ(runOnSlope().exitCode, 0);
    EXPECT_EQ(image().DataType(), 2);
    EXPECT_EQ(image().Width(), 30);
    EXPECT_EQ(image().Height(), 20);
}

TEST_F(RangeDemo, CountsSpreadOverTheHeightsFromOneOn) {
    runOnSlope();
    EXPECT_EQ(image().GetValue(3, 0), 1.0);
    EXPECT_EQ(image().GetValue(3, 29), 65535.0);
}

TEST_F(RangeDemo, CalibrationTurnsCountsIntoHeights) {
    runOnSlope();
    const ZyrRangeImage loaded = image();
    for (int column = 0; column < 30; ++column)
        EXPECT_NEAR(height(loaded, 3, column), 1000 + column, 29.0 / 65534) << column;
}

TEST_F(RangeDemo, HoleIsZero) {
    runOnSlope();
    EXPECT_EQ(image().GetValue(7, 9), 0.0);
}

TEST_F(RangeDemo, FlatWallKeepsItsHeight) {
    cv::imwrite(path("wall.png"), cv::Mat(5, 6, CV_16UC1, cv::Scalar(800)));
    EXPECT_EQ(run("demo wall.png -o d").exitCode, 0);
    EXPECT_EQ(height(image(), 2, 2), 800.0);
}

TEST_F(RangeDemo, PictureHasTheSameCounts) {
    runOnSlope();
    const cv::Mat picture = cv::imread(path("d/demo_range.png"), cv::IMREAD_UNCHANGED);
    ASSERT_EQ(picture.type(), CV_16UC1);
    const ZyrRangeImage loaded = image();
    for (int row = 0; row < 20; ++row)
        for (int column = 0; column < 30; ++column)
            ASSERT_EQ(picture.at<std::uint16_t>(row, column), loaded.GetValue(row, column));
}

TEST_F(RangeDemo, ColoursOfTheFrameAreInTheFile) {
    cv::imwrite(path("color.png"), cv::Mat(20, 30, CV_8UC3, cv::Scalar(10, 20, 30)));
    EXPECT_EQ(runOnSlope(" --color color.png").exitCode, 0);
    EXPECT_EQ(test::values(image().GetColor(4, 5)), (std::vector<int>{30, 20, 10, 255}));
}

TEST_F(RangeDemo, FrameWithoutColoursHasNoneInTheFile) {
    runOnSlope();
    EXPECT_FALSE(image().IsValidColor());
}

TEST_F(RangeDemo, FrameOfHolesAloneGivesZeros) {
    cv::imwrite(path("empty.png"), cv::Mat(5, 6, CV_16UC1, cv::Scalar(0)));
    EXPECT_EQ(run("demo empty.png -o d").exitCode, 0);
    EXPECT_EQ(image().GetValue(2, 2), 0.0);
    EXPECT_EQ(image().ResolutionZ(), 1.0);
}

TEST_F(RangeDemo, BytesAndTimesAreReported) {
    const test::Result result = runOnSlope();
    EXPECT_EQ(row(result, "range bytes raw"), "1,200");
    EXPECT_EQ(row(result, "range PNG bytes raw"), "1,200");
    for (const char* step : {"range build", "range save", "range load", "range PNG save"})
        EXPECT_NE(row(result, step).find('.'), std::string::npos) << step;
}

TEST_F(RangeDemo, InputOfTheOutputsNameIsFileTrouble) {
    runOnSlope();
    expectTrouble(run("demo d/demo_range.png -o d"), 3, "would be overwritten");
}

TEST_F(RangeDemo, FileThatCannotBeWrittenIsFileTrouble) {
    std::filesystem::create_directories(path("d/demo.zrt"));
    expectTrouble(runOnSlope(), 3, "d/demo.zrt: not a regular file");
}

TEST_F(RangeDemo, PictureThatCannotBeWrittenIsFileTrouble) {
    std::filesystem::create_directories(path("d/demo_range.png"));
    expectTrouble(runOnSlope(), 3, "d/demo_range.png: not a regular file");
}

TEST_F(RangeDemo, DefaultFrameHasARangeImageWithColours) {
    EXPECT_EQ(run("demo -o d").exitCode, 0);
    EXPECT_EQ(image().Width(), 640);
    EXPECT_TRUE(image().IsValidColor());
}

}  // namespace
