#include <cmath>
#include <cstring>
#include <limits>
#include <opencv2/core.hpp>

#include "Program.h"
#include "support/ZyrValues.h"

namespace {

using test::kInvalid;

class DemoCommand : public test::Tool {};

void expectFaultsOfASensor(const ZyrPointCloud& cloud, int dropped) {
    const double share = cloud.NumValidPoints() / 307200.0;
    EXPECT_GT(share, 0.8);
    EXPECT_LT(share, 0.95);
    EXPECT_GT(dropped, 100);
    EXPECT_TRUE(cloud.IsValidColor());
    EXPECT_TRUE(cloud.IsValidNormal());
}

void expectPlateAtHeightZeroWithNormalsUp(const ZyrPointCloud& cloud) {
    int plate = 0, isFlat = 0, isUp = 0;
    for (int i = 10 * 640; i < 20 * 640; ++i) {
        if (!cloud[i].IsValid() || !cloud.Normal(i).IsValid()) continue;
        ++plate;
        isFlat += std::abs(cloud[i].z) < 0.2;
        isUp += cloud.Normal(i).z > 0.95;
    }
    EXPECT_GT(plate, 4000);
    EXPECT_GT(isFlat, plate * 9 / 10);
    EXPECT_GT(isUp, plate * 8 / 10);
}

void expectManyColoursAndDarkHoles(const cv::Mat& picture) {
    ASSERT_EQ(picture.size(), cv::Size(1600, 600));
    const cv::Mat heights = picture(cv::Rect(60, 60, 620, 480));
    cv::Scalar mean, deviation;
    cv::meanStdDev(heights, mean, deviation);
    EXPECT_GT(deviation[0], 20.0);
    EXPECT_GT(deviation[2], 20.0);
    cv::Mat isBackground;
    cv::inRange(heights, cv::Scalar(33, 28, 25), cv::Scalar(33, 28, 25), isBackground);
    EXPECT_GT(cv::countNonZero(isBackground), 620 * 480 / 20);
}

// A run takes seconds, and each test is a process of its own: all facts about the frame in one.
TEST_F(DemoCommand, DefaultFrameComesBackBitForBitAndIsASensorsAndIsTheSameEachTime) {
    const test::Result result = run("demo");
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.err, "");
    EXPECT_NE(result.out.find("Every value came back bit for bit."), std::string::npos);
    EXPECT_EQ(row(result, "points"), "307,200");

    const ZyrPointCloud cloud = load("zyr3d-demo/demo.zpt");
    ASSERT_EQ(cloud.Length(), 307200);
    expectFaultsOfASensor(cloud, std::stoi(row(result, "outliers dropped")));
    expectPlateAtHeightZeroWithNormalsUp(cloud);
    expectManyColoursAndDarkHoles(cv::imread(path("zyr3d-demo/demo.png")));

    run("demo -o second");
    for (const std::string name : {"demo.zpt", "demo.png"})
        EXPECT_TRUE(test::readText(path("zyr3d-demo/" + name)) ==
                    test::readText(path("second/" + name)))
            << name;
}

/// A wall that stands 1 m in front of the camera, with a hole and one flying pixel.
class DepthDemo : public DemoCommand {
protected:
    DepthDemo() : depth_(48, 64, CV_16UC1, cv::Scalar(1000)) {
        depth_(cv::Rect(10, 10, 5, 4)).setTo(0);
        depth_.at<std::uint16_t>(30, 40) = 700;
        cv::imwrite(path("depth.png"), depth_);
    }

    static int index(int column, int row) { return row * 64 + column; }
    static constexpr const char* kFiles[] = {"demo.zpt", "demo.ztmt", "demo.zrt", "demo_range.png",
                                             "demo.png"};

    cv::Mat depth_;
};

TEST_F(DepthDemo, DropsTheFlyingPixelAlone) {
    const test::Result result = run("demo depth.png -o d");
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(row(result, "outliers dropped"), "1");
    EXPECT_EQ(load("d/demo.zpt").NumValidPoints(), 64 * 48 - 5 * 4 - 1);
    EXPECT_EQ(test::values(load("d/demo.zpt").Point(index(40, 30))),
              std::vector<double>(3, kInvalid));
}

TEST_F(DepthDemo, PixelsWithoutDepthAreInvalid) {
    run("demo depth.png -o d");
    EXPECT_EQ(test::values(load("d/demo.zpt").Point(index(10, 10))),
              std::vector<double>(3, kInvalid));
}

TEST_F(DepthDemo, IntrinsicsPlaceThePoints) {
    run("demo depth.png -o d --fx 50 --fy 40 --cx 32 --cy 24 --depth-scale 0.5");
    const ZyrPointCloud cloud = load("d/demo.zpt");
    EXPECT_EQ(test::values(cloud.Point(index(42, 20))), (std::vector<double>{100, -50, 500}));
}

TEST_F(DepthDemo, PixelOnTheOpticalAxisIsNoHole) {
    run("demo depth.png -o d --cx 32 --cy 24");
    EXPECT_EQ(test::values(load("d/demo.zpt").Point(index(32, 24))),
              (std::vector<double>{0, 0, 1000}));
}

TEST_F(DepthDemo, DefaultFocalLengthGoesWithTheWidth) {
    run("demo depth.png -o d");
    const float expected = static_cast<float>((63 - 31.5) / 52.5 * 1000.0);
    EXPECT_EQ(load("d/demo.zpt").Point(index(63, 47)).x, expected);
}

TEST_F(DepthDemo, NormalsOfTheWallPointAtTheCamera) {
    run("demo depth.png -o d");
    const ZyrVector3d normal = load("d/demo.zpt").Normal(index(50, 20));
    EXPECT_NEAR(normal.x, 0.0, 1e-6);
    EXPECT_NEAR(normal.y, 0.0, 1e-6);
    EXPECT_NEAR(normal.z, -1.0, 1e-6);
}

TEST_F(DepthDemo, SlopeHasTheNormalOfItsPlane) {
    // z = 1000 + x at the camera's focal length of 100 pixels: z = 1000 / (1 - (u - 32) / 100).
    cv::Mat slope(48, 64, CV_16UC1);
    for (int u = 0; u < 64; ++u) slope.col(u).setTo(cvRound(50000 / (1 - (u - 32) / 100.0)));
    cv::imwrite(path("slope.png"), slope);
    run("demo slope.png -o d --fx 100 --cx 32 --depth-scale 0.02");
    const ZyrVector3d normal = load("d/demo.zpt").Normal(index(32, 24));
    EXPECT_NEAR(normal.x, std::sqrt(0.5), 0.01);
    EXPECT_NEAR(normal.y, 0.0, 0.01);
    EXPECT_NEAR(normal.z, -std::sqrt(0.5), 0.01);
}

TEST_F(DepthDemo, ColourPictureGivesTheColours) {
    cv::Mat colors(48, 64, CV_8UC3, cv::Scalar(10, 20, 30));
    colors.at<cv::Vec3b>(5, 6) = {1, 2, 3};
    cv::imwrite(path("color.png"), colors);
    EXPECT_EQ(run("demo depth.png --color color.png -o d").exitCode, 0);
    const ZyrPointCloud cloud = load("d/demo.zpt");
    EXPECT_EQ(test::values(cloud.Color(index(6, 5))), (std::vector<int>{3, 2, 1, 255}));
    EXPECT_EQ(test::values(cloud.Color(0)), (std::vector<int>{30, 20, 10, 255}));
}

TEST_F(DepthDemo, ColourPictureIsNotOverwritten) {
    std::filesystem::create_directory(path("d"));
    cv::imwrite(path("d/demo.png"), cv::Mat(48, 64, CV_8UC3, cv::Scalar(10, 20, 30)));
    const std::string before = test::readText(path("d/demo.png"));
    expectTrouble(run("demo depth.png --color d/demo.png -o d"), 3,
                  "d/demo.png: would be overwritten");
    EXPECT_EQ(test::readText(path("d/demo.png")), before);
}

TEST_F(DepthDemo, PictureOfASmallFrameHasTheSameSize) {
    run("demo depth.png -o d");
    EXPECT_EQ(cv::imread(path("d/demo.png")).size(), cv::Size(1600, 600));
}

TEST_F(DepthDemo, FrameOfHolesAloneIsNoTrouble) {
    cv::imwrite(path("empty.png"), cv::Mat(48, 64, CV_16UC1, cv::Scalar(0)));
    const test::Result result = run("demo empty.png -o d");
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(row(result, "valid points"), "0  0.0 %");
}

TEST_F(DepthDemo, FrameOfOneRowOrOnePixelIsNoTrouble) {
    cv::imwrite(path("row.png"), depth_.row(0));
    cv::imwrite(path("pixel.png"), depth_(cv::Rect(0, 0, 1, 1)));
    EXPECT_EQ(run("demo row.png -o d").exitCode, 0);
    EXPECT_EQ(run("demo pixel.png -o d").exitCode, 0);
}

TEST_F(DepthDemo, ColourPictureOfAnotherSizeIsFileTrouble) {
    cv::imwrite(path("color.png"), cv::Mat(48, 63, CV_8UC3, cv::Scalar(1, 2, 3)));
    expectTrouble(run("demo depth.png --color color.png"), 3, "color.png: is 63 x 48");
}

TEST_F(DepthDemo, PictureOfEightBitsIsFileTrouble) {
    cv::imwrite(path("grey.png"), cv::Mat(4, 4, CV_8UC1, cv::Scalar(7)));
    expectTrouble(run("demo grey.png"), 3, "grey.png: not a depth picture");
}

TEST_F(DepthDemo, CutPictureIsFileTrouble) {
    const std::string bytes = test::readText(path("depth.png"));
    for (std::size_t length :
         {std::size_t{0}, std::size_t{7}, std::size_t{30}, bytes.size() - 20}) {
        test::writeText(path("cut.png"), bytes.substr(0, length));
        expectTrouble(run("demo cut.png"), 3, "cut.png: not a picture");
    }
}

TEST_F(DepthDemo, HugePictureIsRefusedByItsHeader) {
    std::string bytes = test::readText(path("depth.png"));
    bytes.replace(16, 8, std::string("\x7F\xFF\xFF\xFF\x7F\xFF\xFF\xFF", 8));
    test::writeText(path("huge.png"), bytes);
    expectTrouble(run("demo huge.png"), 3, "huge.png: over 64 megapixels");
}

// The limit ends each of the files in turn, within its last 512 bytes: sh counts these.
TEST_F(DepthDemo, FullDiskIsFileTroubleAndLeavesTheOldFilesAndNothingElse) {
    cv::randu(depth_, 900, 1100);  // so that each file has more than 512 bytes
    cv::imwrite(path("depth.png"), depth_);
    ASSERT_EQ(run("demo depth.png -o good").exitCode, 0);
    std::filesystem::create_directory(path("d"));
    for (const std::string name : kFiles) test::writeText(path("d/" + name), "precious");
    for (const std::string name : kFiles) {
        const auto blocks = (std::filesystem::file_size(path("good/" + name)) - 1) / 512;
        expectTrouble(run("demo depth.png -o d", "ulimit -f " + std::to_string(blocks)), 3,
                      ": cannot be written: File too large");
        for (const std::string old : kFiles)
            EXPECT_EQ(test::readText(path("d/" + old)), "precious") << name;
        EXPECT_EQ(std::distance(std::filesystem::directory_iterator(path("d")), {}), 5);
    }
}

TEST_F(DepthDemo, FileBehindALinkToADeviceIsFileTrouble) {
    for (const std::string name : {"demo.zpt", "demo.zrt", "demo.png"}) {
        std::filesystem::create_directory(path("d"));
        std::filesystem::create_symlink("/dev/full", path("d/" + name));
        expectTrouble(run("demo depth.png -o d"), 3, "d/" + name + ": not a regular file");
        std::filesystem::remove_all(path("d"));
    }
}

TEST_F(DepthDemo, FolderThatCannotBeMadeIsFileTrouble) {
    expectTrouble(run("demo depth.png -o depth.png"), 3, "depth.png: ");
}

TEST_F(DepthDemo, FileThatCannotBeWrittenIsFileTrouble) {
    std::filesystem::create_directories(path("d/demo.zpt"));
    expectTrouble(run("demo depth.png -o d"), 3, "d/demo.zpt: not a regular file");
}

TEST_F(DepthDemo, PictureThatCannotBeWrittenIsFileTrouble) {
    std::filesystem::create_directories(path("d/demo.png"));
    expectTrouble(run("demo depth.png -o d"), 3, "d/demo.png: not a regular file");
}

TEST_F(DemoCommand, MissingInputIsFileTrouble) {
    expectTrouble(run("demo none.png"), 3, "none.png: ");
    expectTrouble(run("demo none.zpt"), 3, "none.zpt: ");
    expectTrouble(run("demo ."), 3, ".: ");
}

TEST_F(DemoCommand, InputOfAnotherKindIsFileTroubleThatSaysWhatItTakes) {
    for (const std::string name : {"a.pcd", "a.ztmt"}) {
        test::writeText(path(name), "");
        expectTrouble(run("demo " + name), 3,
                      name + ": demo takes a point cloud (.zpt) or a 16-bit depth PNG");
    }
}

TEST_F(DemoCommand, NumbersOutOfRangeAreUsageErrors) {
    expectTrouble(run("demo a.png --fx 0"), 2, "--fx: not between 1 and 1e+06");
    expectTrouble(run("demo a.png --fx nan"), 2, "--fx: not between");
    expectTrouble(run("demo a.png --fy inf"), 2, "--fy: not between");
    expectTrouble(run("demo a.png --cx word"), 2, "--cx: not between");
    expectTrouble(run("demo a.png --depth-scale -1"), 2, "--depth-scale: not between");
}

TEST_F(DemoCommand, DepthOptionsWithoutADepthPictureAreUsageErrors) {
    expectTrouble(run("demo --fx 500"), 2, "depth PNG");
    expectTrouble(run("demo cloud.zpt --color a.png"), 2, "depth PNG");
}

}  // namespace
