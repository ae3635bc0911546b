#include <cmath>

#include "Program.h"

namespace {

/// Of files of other formats, pictures among them.
class CheckOfOthers : public test::Tool {};

TEST_F(CheckOfOthers, ForeignFilesAreReadByTheirReaders) {
    test::writeText(path("good.xyz"), "1 2 3\n4 5 6\n");
    test::writeText(path("bad.ply"), "ply\nformat ascii 1.0\n");
    const test::Result result = run("check good.xyz bad.ply");
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(test::linesOf(result.out)[0], "good.xyz: valid: point cloud, 2 points, 0 holes");
    EXPECT_EQ(test::linesOf(result.out)[1].rfind("bad.ply: invalid at byte ", 0), 0u) << result.out;
}

TEST_F(CheckOfOthers, ForeignFaultsHaveTheirByte) {
    const std::string ply =
        "ply\nformat binary_little_endian 1.0\nelement vertex 1\nproperty float x\n"
        "property float y\nproperty float z\nend_header\n";
    const std::string pcd =
        "FIELDS x y z\nSIZE 4 4 4\nTYPE F F F\nWIDTH 1\nHEIGHT 1\nPOINTS 1\n"
        "DATA ascii\n";
    const std::string twelve(12, '\1'), stl = std::string(80, ' ') + std::string("\1\0\0\0", 4);
    const auto at = [](std::size_t byte) {
        return "invalid at byte " + std::to_string(byte) + ": ";
    };
    struct Sample {
        const char* name;
        std::string bytes, answer;
    };
    const std::vector<Sample> cases = {
        {"a.ply", ply + twelve + "junk", at(ply.size() + 12) + "4 bytes behind the end"},
        {"b.ply", ply + "12345", at(ply.size() + 5) + "cut short: "},
        {"c.stl", stl + std::string(50, '\1') + "junk", at(134) + "4 bytes behind the end"},
        {"d.stl", stl + "12345", at(89) + "cut short: "},
        {"e.pcd", pcd + "1 2 3\njunk\n", at(pcd.size() + 6) + "5 bytes behind the end"},
        {"f.pcd", pcd + "1 2 q\n", at(pcd.size()) + "line 1 of the points: not a number: "},
        {"g.obj", "v 1 2 3\nv 4 5 6\nv 7 8 0\nf 1 2 9\n",
         at(24) + "line 4: a face names vertex 9 of 3"},
        {"h.xyz", "1 2 3\n4 5\n", at(6) + "line 2: fewer columns than before"},
        {"i.xyz",
         "\xEF\xBB\xBF"
         "1 2 3\n4 5\n",
         at(9) + "line 2: fewer columns than before"}};
    for (const Sample& each : cases) {
        test::writeText(path(each.name), each.bytes);
        const test::Result result = run(std::string("check ") + each.name);
        EXPECT_EQ(result.exitCode, 1) << each.name;
        EXPECT_EQ(result.out.rfind(each.name + (": " + each.answer), 0), 0u) << result.out;
    }
}

TEST_F(CheckOfOthers, PicturesEndWhereTheirFilesDo) {
    for (const char* name : {"a.png", "a.jpg"}) {
        cv::imwrite(path(name), cv::Mat(64, 64, CV_8UC3, cv::Scalar(1, 2, 3)));
        EXPECT_EQ(run(std::string("check ") + name).exitCode, 0) << name;
    }
    const std::string png = test::readText(path("a.png")), jpeg = test::readText(path("a.jpg"));
    test::writeText(path("more.png"), png + "junk");
    test::writeText(path("more.jpg"), jpeg + "junk");
    test::writeText(path("cut.jpg"), jpeg.substr(0, jpeg.size() - 9));
    const std::vector<std::string> lines =
        test::linesOf(run("check more.png more.jpg cut.jpg").out);
    const auto at = [](std::size_t byte) { return ": invalid at byte " + std::to_string(byte); };
    EXPECT_EQ(lines[0], "more.png" + at(png.size()) + ": 4 bytes behind the end");
    EXPECT_EQ(lines[1].rfind("more.jpg" + at(jpeg.size() + 4) + ": no end mark here", 0), 0u);
    EXPECT_EQ(lines[2].rfind("cut.jpg" + at(jpeg.size() - 9) + ": no end mark here", 0), 0u);
}

TEST_F(CheckOfOthers, PicturesAreDecoded) {
    cv::imwrite(path("good.png"), cv::Mat(2, 3, CV_16UC1, cv::Scalar(7)));
    test::writeText(path("bad.png"), "no picture");
    const test::Result result = run("check good.png bad.png");
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.out,
              "good.png: valid: picture, 3 x 2, 0 holes\n"
              "bad.png: invalid: not a picture that can be read\n");
}

TEST_F(CheckOfOthers, ZeroIsAHoleOfUnsignedCountsOf16BitsAlone) {
    const cv::Mat values = (cv::Mat_<float>(1, 4) << 0, 5, std::nanf(""), INFINITY);
    cv::imwrite(path("float.tif"), values);
    cv::imwrite(path("byte.png"), cv::Mat(1, 4, CV_8UC1, cv::Scalar(0)));
    cv::imwrite(path("count.png"), cv::Mat(1, 4, CV_16UC1, cv::Scalar(0)));
    const std::vector<std::string> lines =
        test::linesOf(run("check float.tif byte.png count.png").out);
    EXPECT_EQ(lines[0], "float.tif: valid: picture, 4 x 1, 2 holes (50.0 %)");
    EXPECT_EQ(lines[1], "byte.png: valid: picture, 4 x 1, 0 holes");
    EXPECT_EQ(lines[2], "count.png: valid: picture, 4 x 1, 4 holes (100.0 %)");
}

}  // namespace
