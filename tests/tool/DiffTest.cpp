#include <nlohmann/json.hpp>

#include "Program.h"
#include "ZyrTriangleMesh.h"
#include "support/CloudFile.h"
#include "support/RangeFile.h"
#include "support/ZyrValues.h"

namespace {

class Diff : public test::Tool {
protected:
    void saveCloud(const std::string& name, std::vector<double> points,
                   std::vector<unsigned char> colors = {}) const {
        ZyrVector3dArray normals;
        cv::Mat row;
        if (!colors.empty()) row = test::colorRow(colors, 3);
        ZyrVector3dArray vectors = test::vectors(points);
        ASSERT_TRUE(Zyr3DFileIO::SavePointCloud(vectors, normals, row, path(name).c_str(), false,
                                                !colors.empty()));
    }

    void saveRange(const std::string& name, std::uint16_t third, double offsetZ) const {
        test::RangeFile file;
        file.type = 2;
        file.width = 3;
        file.height = 1;
        file.calibration[5] = offsetZ;
        file.valueStream =
            test::literalStream(test::bytesOf(std::vector<std::uint16_t>{1, 2, third}));
        test::writeFile(path(name), file.bytes());
    }

    nlohmann::json json(const std::string& arguments) const {
        return nlohmann::json::parse(run("diff --json " + arguments).out);
    }
};

TEST_F(Diff, EqualFilesAreSaidToBeSo) {
    saveCloud("a.zpt", {1, 2, 3, 4, 5, 6}, {1, 2, 3, 4, 5, 6});
    std::filesystem::copy_file(path("a.zpt"), path("b.zpt"));
    const test::Result result = run("diff a.zpt b.zpt");
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.out, "a.zpt and b.zpt: equal\n");
    EXPECT_EQ(result.err, "");
}

TEST_F(Diff, TellsTheLargestDifferenceOfEachColumnAndItsPlace) {
    saveCloud("a.zpt", {1, 2, 3, 4, 5, 6}, {1, 2, 3, 4, 5, 6});
    saveCloud("b.zpt", {1.5, 2, 3, 4, 5, 6.25}, {1, 2, 3, 4, 5, 16});
    const test::Result result = run("diff a.zpt b.zpt");
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.out,
              "a.zpt and b.zpt: different\n"
              "  column  largest difference  at  differing  of\n"
              "  x                      0.5   0          1   2\n"
              "  z                     0.25   1          1   2\n"
              "  rgb                     10   1          1   2\n");
}

TEST_F(Diff, DifferencesUpToTheToleranceCountAsNone) {
    saveCloud("a.zpt", {1, 2, 3, 4, 5, 6});
    saveCloud("b.zpt", {1.5, 2, 3, 4, 5, 6.25});
    EXPECT_EQ(run("diff a.zpt b.zpt --tolerance 0.5").exitCode, 0);
    EXPECT_EQ(run("diff a.zpt b.zpt --tolerance 0.49").exitCode, 1);
    EXPECT_EQ(json("a.zpt b.zpt --tolerance 0.49")["columns"]["z"]["differing"], 0);
}

TEST_F(Diff, CountsPointsThatChangedValidity) {
    const double hole = test::kInvalid;
    saveCloud("a.zpt", {1, 2, 3, hole, hole, hole, hole, hole, hole, 7, 8, 9});
    saveCloud("b.zpt", {hole, hole, hole, 4, 5, 6, 4, 5, 6, 7, 8, 9});
    const nlohmann::json found = json("a.zpt b.zpt");
    EXPECT_EQ(found["equal"], false);
    EXPECT_EQ(found["became_invalid"], 1);
    EXPECT_EQ(found["became_valid"], 2);
    EXPECT_EQ(found["columns"]["x"]["elements"], 1);
    EXPECT_EQ(found["columns"]["x"]["largest"], 0.0);
    EXPECT_NE(run("diff a.zpt b.zpt").out.find("  2 points became valid\n"), std::string::npos);
}

TEST_F(Diff, OtherCountsColumnsAndChannelsAreDifferences) {
    saveCloud("a.zpt", {1, 2, 3});
    saveCloud("b.zpt", {1, 2, 3, 4, 5, 6});
    saveCloud("c.zpt", {1, 2, 3}, {1, 2, 3});
    EXPECT_EQ(json("a.zpt b.zpt")["notes"][0], "points: 1 and 2");
    EXPECT_EQ(json("a.zpt c.zpt")["notes"][0], "rgb: in the second only");
    EXPECT_EQ(json("c.zpt a.zpt")["notes"][0], "rgb: in the first only");
    const std::string golden = ZYR_GOLDEN_DIR "/pointcloud/points_";
    EXPECT_EQ(json(golden + "bgr.zpt " + golden + "bgra.zpt")["notes"][0], "rgb: 3 and 4 channels");
}

TEST_F(Diff, ComparesRangeValuesAndCalibration) {
    saveRange("a.zrt", 3, 100);
    saveRange("b.zrt", 10, 100.5);
    const nlohmann::json found = json("a.zrt b.zrt");
    EXPECT_EQ(found["columns"]["values"]["largest"], 7.0);
    EXPECT_EQ(found["columns"]["values"]["at"], 2);
    EXPECT_EQ(found["columns"]["offset_z"]["largest"], 0.5);
    EXPECT_EQ(found["columns"]["offset_x"]["largest"], 0.0);
    EXPECT_EQ(json("a.zrt " ZYR_GOLDEN_DIR "/rangeimage/type0.zrt")["notes"][0],
              "type: 16-bit unsigned and 8-bit unsigned");
}

TEST_F(Diff, CountsValuesOfRangeImagesThatChangedValidity) {
    saveRange("a.zrt", 3, 0);
    saveRange("b.zrt", 0, 0);  // of 16-bit counts 0 is a hole
    const nlohmann::json gone = json("a.zrt b.zrt"), back = json("b.zrt a.zrt");
    EXPECT_EQ(gone["became_invalid"], 1);
    EXPECT_EQ(gone["became_valid"], 0);
    EXPECT_EQ(back["became_valid"], 1);
    EXPECT_EQ(run("diff a.zrt b.zrt --tolerance 9").exitCode, 1);
    EXPECT_NE(run("diff a.zrt b.zrt").out.find("  1 value became invalid\n"), std::string::npos);
}

TEST_F(Diff, ZeroIsAValueOfPicturesOfEightBits) {
    cv::imwrite(path("a.png"), cv::Mat(1, 3, CV_8UC1, cv::Scalar(1)));
    cv::imwrite(path("b.png"), cv::Mat(1, 3, CV_8UC1, cv::Scalar(0)));
    EXPECT_EQ(json("a.png b.png")["became_invalid"], 0);
    EXPECT_EQ(json("a.png b.png")["columns"]["values"]["differing"], 3);
}

TEST_F(Diff, HeadersThatStopTheLibraryAreFileTrouble) {
    saveCloud("a.zpt", {1, 2, 3});
    test::writeText(path("word.zpt"), std::string(33, 'w') + "\n" + test::readText(path("a.zpt")));
    expectTrouble(run("diff a.zpt word.zpt"), 3, "word.zpt: line 1: a word of more than 32");
    expectTrouble(run("diff word.zpt a.zpt"), 3, "word.zpt: line 1: a word of more than 32");
}

TEST_F(Diff, ComparesCornersOfMeshes) {
    double values[] = {0, 0, 0, 1, 0, 0, 0, 1, 0};
    const ZyrVector3dArray vertices(values, 9, -1);
    int first[] = {0, 1, 2}, second[] = {0, 1, 1};
    ASSERT_TRUE(ZyrTriangleMesh(vertices, Zyr3DIntArray(first, 3))
                    .Save(path("a.ztmt").c_str(), true, true));
    ASSERT_TRUE(ZyrTriangleMesh(vertices, Zyr3DIntArray(second, 3))
                    .Save(path("b.ztmt").c_str(), true, true));
    const nlohmann::json found = json("a.ztmt b.ztmt");
    EXPECT_EQ(found["columns"]["fc"]["largest"], 1.0);
    EXPECT_EQ(found["columns"]["fb"]["largest"], 0.0);
    EXPECT_EQ(run("diff a.ztmt b.ztmt").exitCode, 1);
}

TEST_F(Diff, NumberAgainstNoneIsInfinite) {
    test::RangeFile file;
    file.type = 6;
    file.width = file.height = 1;
    for (const auto& [name, value] : {std::pair("a.zrt", 1.0), std::pair("b.zrt", std::nan(""))}) {
        file.valueStream = test::literalStream(test::bytesOf(std::vector<double>{value}));
        test::writeFile(path(name), file.bytes());
    }
    EXPECT_NE(run("diff a.zrt b.zrt --tolerance 9").out.find("inf"), std::string::npos);
    EXPECT_TRUE(json("a.zrt b.zrt")["columns"]["values"]["largest"].is_null());
    EXPECT_EQ(run("diff b.zrt b.zrt").exitCode, 0);
}

TEST_F(Diff, FormatsMayDiffer) {
    saveCloud("a.zpt", {1, 2, 3, 4, 5, 6});
    test::writeText(path("b.xyz"), "1 2 3\n4 5 6\n");
    EXPECT_EQ(run("diff a.zpt b.xyz").exitCode, 0);
}

TEST_F(Diff, FoldersAreComparedFileByFile) {
    for (const char* folder : {"a", "b"}) std::filesystem::create_directory(path(folder));
    saveCloud("a/one.zpt", {1, 2, 3});
    saveCloud("b/one.zpt", {1, 2, 3});
    test::writeText(path("a/notes.other"), "passed over");
    EXPECT_EQ(run("diff -j 2 a b").exitCode, 0);
    saveCloud("b/two.zpt", {1, 2, 3});
    const test::Result result = run("diff a b");
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.out,
              "a/one.zpt and b/one.zpt: equal\n"
              "a/two.zpt and b/two.zpt: different\n"
              "  only b/two.zpt is there\n");
    EXPECT_EQ(run("diff a/one.zpt b").out, "a/one.zpt and b/one.zpt: equal\n");
}

TEST_F(Diff, SubfoldersArePassedOverWithAWord) {
    for (const char* folder : {"a", "b", "b/c", "b/d"})
        std::filesystem::create_directory(path(folder));
    saveCloud("a/one.zpt", {1, 2, 3});
    saveCloud("b/one.zpt", {1, 2, 3});
    saveCloud("b/c/two.zpt", {1, 2, 3});
    const test::Result result = run("diff a b");
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.out, "a/one.zpt and b/one.zpt: equal\n");
    EXPECT_EQ(result.err, "zyr3d: b: 2 subfolders passed over\n");
    EXPECT_EQ(run("diff a/one.zpt b").err, "");
}

TEST_F(Diff, WhatCannotBeComparedIsFileTrouble) {
    saveCloud("a.zpt", {1, 2, 3});
    const test::Bytes bytes = test::readFile(path("a.zpt"));
    test::writeFile(path("cut.zpt"), test::prefix(bytes, bytes.size() - 1));
    std::filesystem::create_directory(path("empty"));
    expectTrouble(run("diff a.zpt none.zpt"), 3, "none.zpt: no such file");
    expectTrouble(run("diff a.zpt cut.zpt"), 3, "cut.zpt: cut short");
    expectTrouble(run("diff empty empty"), 3, "no files that are read");
    expectTrouble(run("diff a.zpt"), 2, "B");
    expectTrouble(run("diff a.zpt a.zpt --tolerance nan"), 2, "--tolerance");
}

}  // namespace
