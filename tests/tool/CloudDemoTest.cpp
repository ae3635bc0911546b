#include <cstring>
#include <limits>
#include <vector>

#include "Program.h"
#include "support/Npy.h"
#include "support/ZyrValues.h"

namespace {

using test::kInvalid;

/// A flat patch of 30 x 20 points, a unit apart.
std::vector<double> patch() {
    std::vector<double> values;
    for (int y = 0; y < 20; ++y)
        for (int x = 0; x < 30; ++x) values.insert(values.end(), {1.0 * x, 1.0 * y, 0.1 * x});
    return values;
}

/// The number that a text starts with; commas group its digits.
double number(std::string text) {
    text.erase(std::remove(text.begin(), text.end(), ','), text.end());
    return std::stod(text);
}

class CloudDemo : public test::Tool {
protected:
    void save(std::vector<double> values, int colorChannels = 0) const {
        ZyrPointCloud cloud(values.data(), static_cast<int>(values.size()), 6, kInvalid);
        if (colorChannels > 0) {
            ZyrColorArray colors;
            colors.Create(cloud.Length(), colorChannels);
            for (int i = 0; i < cloud.Length() * colorChannels; ++i)
                colors.Data()[i] = static_cast<unsigned char>(i * 7);
            cloud.SetColors(colors);
        }
        ASSERT_TRUE(cloud.Save(path("in.zpt").c_str(), true, true));
    }
};

TEST_F(CloudDemo, WritesTheSamePointsAgain) {
    save(patch());
    EXPECT_EQ(run("demo in.zpt -o d").exitCode, 0);
    EXPECT_EQ(test::values(load("d/demo.zpt").PointData()), patch());
}

TEST_F(CloudDemo, KeepsColoursOfAnyChannelCount) {
    for (int channels : {1, 3, 4}) {
        save(patch(), channels);
        EXPECT_EQ(run("demo in.zpt -o d").exitCode, 0);
        ZyrPointCloud before = load("in.zpt"), after = load("d/demo.zpt");
        ASSERT_EQ(after.ColorData().Channel(), channels);
        EXPECT_EQ(std::memcmp(before.ColorData().Data(), after.ColorData().Data(),
                              static_cast<std::size_t>(600 * channels)),
                  0);
    }
}

TEST_F(CloudDemo, KeepsTheNormalsOfTheFile) {
    std::vector<double> values = patch();
    ZyrPointCloud cloud(values.data(), static_cast<int>(values.size()), 6, kInvalid);
    cloud.SetNormals(cloud.DeepCopyPoints());
    ASSERT_TRUE(cloud.Save(path("in.zpt").c_str(), true, true));
    EXPECT_EQ(run("demo in.zpt -o d").exitCode, 0);
    EXPECT_EQ(test::values(load("d/demo.zpt").NormalData()), values);
}

TEST_F(CloudDemo, DropsAPointFarFromAllOthers) {
    std::vector<double> values = patch();
    values.insert(values.end(), {15, 10, 25});
    save(values);
    EXPECT_EQ(row(run("demo in.zpt -o d"), "outliers dropped"), "1");
    EXPECT_FALSE(load("d/demo.zpt").Point(600).IsValid());
    EXPECT_EQ(load("d/demo.zpt").NumValidPoints(), 600);
}

TEST_F(CloudDemo, DropsMinusInfinity) {
    std::vector<double> values = patch();
    values[4] = -std::numeric_limits<double>::infinity();
    save(values);
    const test::Result result = run("demo in.zpt -o d");
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(row(result, "outliers dropped"), "1");
    EXPECT_EQ(test::values(load("d/demo.zpt").Point(1)), std::vector<double>(3, kInvalid));
}

TEST_F(CloudDemo, CoordinatesOfAnySizeAreNoTrouble) {
    for (double scale : {1e-300, 1e-30, 1e30, 1e37}) {
        std::vector<double> values = patch();
        for (double& value : values) value *= scale;
        values.insert(values.end(), {-3.4e38, 3.4e38, -3.4e38});
        save(values);
        EXPECT_EQ(run("demo in.zpt -o d").exitCode, 0) << scale;
    }
}

TEST_F(CloudDemo, CloudsWithoutExtentAreNoTrouble) {
    for (std::size_t points : {1, 2, 50}) {
        save(std::vector<double>(3 * points, 5.0));
        EXPECT_EQ(run("demo in.zpt -o d").exitCode, 0) << points;
    }
    save(std::vector<double>(30, kInvalid));
    EXPECT_EQ(run("demo in.zpt -o d").exitCode, 0);
}

TEST_F(CloudDemo, PictureHasTheUsualSizeAndShowsTheCloud) {
    save(patch());
    run("demo in.zpt -o d");
    const cv::Mat picture = cv::imread(path("d/demo.png"));
    EXPECT_EQ(picture.size(), cv::Size(1600, 600));
    cv::Scalar mean, deviation;
    cv::meanStdDev(picture(cv::Rect(60, 60, 620, 480)), mean, deviation);
    EXPECT_GT(deviation[1], 20.0);
}

TEST_F(CloudDemo, FileOfSeveralRowsHasAGridWithNormals) {
    std::string body;
    for (float y : {0.0F, 1.0F, 2.0F})
        for (float x : {0.0F, 1.0F, 2.0F, 3.0F})
            for (float value : {x, y, 9.0F})
                body.append(reinterpret_cast<const char*>(&value), sizeof value);
    test::writeText(path("in.zpt"),
                    "FIELDS x y z\nSIZE 4 4 4\nTYPE F F F\nCOUNT 1 1 1\nWIDTH 4\nHEIGHT 3\n"
                    "VIEWPOINT 0 0 0 1 0 0 0\nPOINTS 12\nDATA binary\n" +
                        body);
    EXPECT_EQ(run("demo in.zpt -o d").exitCode, 0);
    EXPECT_EQ(test::values(load("d/demo.zpt").Normal(5)), (std::vector<double>{0, 0, -1}));
}

TEST_F(CloudDemo, CloudWithoutPointsIsFileTrouble) {
    test::writeText(path("in.zpt"),
                    "FIELDS x y z\nSIZE 4 4 4\nTYPE F F F\nCOUNT 1 1 1\nWIDTH 0\nHEIGHT 1\n"
                    "VIEWPOINT 0 0 0 1 0 0 0\nPOINTS 0\nDATA binary\n");
    expectTrouble(run("demo in.zpt"), 3, "in.zpt: holds no points");
}

TEST_F(CloudDemo, HeaderThatWouldStopTheLibraryIsFileTrouble) {
    test::writeText(path("in.zpt"), std::string(33, 'w') + "\n");
    expectTrouble(run("demo in.zpt"), 3, "in.zpt: line 1: a word of more than 32 characters");
}

TEST_F(CloudDemo, CutFileIsFileTrouble) {
    save(patch());
    const std::string whole = test::readText(path("in.zpt"));
    test::writeText(path("cut.zpt"), whole.substr(0, whole.size() - 1));
    expectTrouble(run("demo cut.zpt -o d"), 3, "cut.zpt: its body is cut short");
    EXPECT_FALSE(test::fileExists(path("d/demo.zpt")));
}

TEST_F(CloudDemo, InputIsNotOverwritten) {
    save(patch());
    std::filesystem::create_directory(path("d"));
    std::filesystem::rename(path("in.zpt"), path("d/demo.zpt"));
    const std::string before = test::readText(path("d/demo.zpt"));
    expectTrouble(run("demo d/demo.zpt -o d"), 3, "d/demo.zpt: would be overwritten");
    expectTrouble(run("demo ./d/../d/demo.zpt -o d"), 3, "would be overwritten");
    EXPECT_EQ(test::readText(path("d/demo.zpt")), before);
    EXPECT_EQ(run("demo d/demo.zpt -o other").exitCode, 0);
}

TEST_F(CloudDemo, TableTellsRawBytesAndBytesOnDisk) {
    save(patch(), 3);
    const test::Result result = run("demo in.zpt -o d");
    const std::size_t disk = test::readText(path("d/demo.zpt")).size();
    EXPECT_EQ(row(result, "bytes raw"), "16,800");  // 600 points of 24 + 4
    const std::string figures = row(result, "bytes on disk");
    EXPECT_EQ(number(figures), static_cast<double>(disk)) << figures;
    EXPECT_NEAR(number(figures.substr(figures.find(' '))),
                100.0 * static_cast<double>(disk) / 16800, 0.051);
}

TEST_F(CloudDemo, TableTellsTheTimeOfEachStep) {
    save(patch());
    const test::Result result = run("demo in.zpt -o d");
    EXPECT_EQ(row(result, "step"), "ms  ns a point");
    for (const char* step : {"build", "save", "load"}) {
        const std::string figures = row(result, step);
        const double ms = number(figures), perPoint = number(figures.substr(figures.find(' ')));
        EXPECT_GE(ms, 0.0) << figures;
        EXPECT_LT(ms, 60000.0) << figures;
        EXPECT_GT(perPoint, 0.0) << figures;
        // Milliseconds are rounded to a hundredth, which 600 points share.
        EXPECT_NEAR(perPoint, ms * 1e6 / 600, 0.005e6 / 600 + 0.1) << figures;
    }
}

TEST_F(CloudDemo, RealScanComesBackBitForBit) {
    const std::string scan = ZYR_DATA_DIR "/cloud_rs1/xyz.npy";
    std::vector<double> values = test::readNpy<double>(scan, "<f8");
    if (values.empty()) GTEST_SKIP() << "no data folder";
    save(values);
    const test::Result result = run("demo in.zpt -o d");
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(row(result, "points"), "289,541");
    const ZyrPointCloud before = load("in.zpt"), after = load("d/demo.zpt");
    ASSERT_EQ(before.Length(), 289541);
    ASSERT_EQ(after.Length(), 289541);
    int dropped = 0, changed = 0;
    for (int i = 0; i < before.Length(); ++i) {
        ZyrVector3d from = before.Point(i), to = after.Point(i);
        const bool isDropped = from.IsValid() && !to.IsValid();
        dropped += isDropped;
        changed += !isDropped && std::memcmp(&from, &to, sizeof from) != 0;
    }
    EXPECT_EQ(changed, 0);
    EXPECT_EQ(number(row(result, "outliers dropped")), dropped);
}

}  // namespace
