#include <nlohmann/json.hpp>

#include "Program.h"

namespace {

const std::string kMilk = ZYR_DATA_DIR "/cloud_milk/milk.pcd";
const std::string kFragment = ZYR_DATA_DIR "/mesh_frag115/frag_115.ply";
const std::string kCounter = ZYR_DATA_DIR "/mesh_counter/counter.stl";
const std::string kDepth = ZYR_DATA_DIR "/range_rgbd/depth.png";

/// Files as other programs and devices wrote them.
class RealFiles : public test::Tool {
protected:
    void SetUp() override {
        if (!std::filesystem::exists(ZYR_DATA_DIR)) GTEST_SKIP() << "no data in " ZYR_DATA_DIR;
    }
};

TEST_F(RealFiles, AreValid) {
    const test::Result result =
        run("check -j 2 " + kMilk + " " + kFragment + " " + kCounter + " " + kDepth);
    EXPECT_EQ(result.exitCode, 0) << result.out << result.err;
    const std::vector<std::string> lines = test::linesOf(result.out);
    ASSERT_EQ(lines.size(), 4u);
    // The numbers are those of the arrays beside the files.
    EXPECT_EQ(lines[0].rfind(kMilk + ": valid: point cloud, 307,200 points, 65,793 holes", 0), 0u)
        << lines[0];
    EXPECT_EQ(lines[1],
              kFragment + ": valid: triangle mesh, 64,365 vertices, 0 holes, 127,229 triangles");
    EXPECT_EQ(lines[2],
              kCounter + ": valid: triangle mesh, 41,837 vertices, 0 holes, 83,750 triangles");
    EXPECT_EQ(lines[3].rfind(kDepth + ": valid: picture, 640 x 480, ", 0), 0u) << lines[3];
}

TEST_F(RealFiles, AreInvalidWithoutTheirEnd) {
    for (const std::string& file : {kMilk, kFragment, kCounter, kDepth}) {
        const std::string name = "cut" + std::filesystem::path(file).extension().string();
        const std::string bytes = test::readText(file);
        const std::size_t size = bytes.size() * 2 / 3;
        test::writeText(path(name), bytes.substr(0, size));
        const auto json = nlohmann::json::parse(run("check --json " + name).out);
        EXPECT_EQ(json["valid"], false) << name;
        EXPECT_EQ(json["offset"], size) << json;
    }
}

TEST_F(RealFiles, AreDescribedWithTheirBodies) {
    const test::Result milk = run("info " + kMilk);
    EXPECT_EQ(row(milk, "grid"), "640 x 480");
    EXPECT_EQ(row(milk, "body"), "binary_compressed");
    const test::Result counter = run("info " + kCounter);
    EXPECT_EQ(row(counter, "body"), "binary");
    EXPECT_EQ(row(counter, "bytes raw"), "4,187,500");  // 83,750 records of 50 bytes
}

TEST_F(RealFiles, AreDrawnTheSameEachTime) {
    const std::string files = kMilk + " " + kFragment + " " + kCounter + " " + kDepth;
    ASSERT_EQ(run("render --size 320x240 -j 2 --out a " + files).exitCode, 0);
    ASSERT_EQ(run("render --size 320x240 --out b " + files).exitCode, 0);
    for (const char* name : {"milk", "frag_115", "counter", "depth"}) {
        const std::string file = "/" + std::string(name) + ".png";
        const cv::Mat picture = cv::imread(path("a") + file);
        ASSERT_EQ(picture.size(), cv::Size(320, 240)) << name;
        cv::Mat drawn;
        cv::inRange(picture, cv::Scalar(248, 247, 246), cv::Scalar(252, 251, 250), drawn);
        // A fifth of the picture at least is no background.
        EXPECT_LT(cv::countNonZero(drawn), 320 * 240 * 4 / 5) << name;
        EXPECT_EQ(test::readText(path("a") + file), test::readText(path("b") + file)) << name;
    }
}

}  // namespace
