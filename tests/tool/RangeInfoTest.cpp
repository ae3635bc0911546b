#include <opencv2/core.hpp>

#include "Program.h"
#include "ZyrRangeImage.h"
#include "support/RangeFile.h"

namespace {

class RangeInfo : public test::Tool {
protected:
    static std::string golden(const std::string& name) {
        return test::readText(ZYR_GOLDEN_DIR "/rangeimage/" + name);
    }

    test::Result infoOf(const std::string& bytes, const std::string& name = "in.zrt") const {
        test::writeText(path(name), bytes);
        return run("info " + name);
    }
};

TEST_F(RangeInfo, TellsTypeSizeAndValues) {
    const test::Result result = infoOf(golden("type2_bgr.zrt"));
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(row(result, "type"), "16-bit unsigned");
    EXPECT_EQ(row(result, "size"), "3 x 2");
    EXPECT_EQ(row(result, "values"), "0 to 65535");
}

TEST_F(RangeInfo, TellsCalibrationColoursAndBytes) {
    const test::Result result = infoOf(golden("type2_bgr.zrt"));
    EXPECT_EQ(row(result, "resolution x, y, z"), "0.5, 0.25, 0.01");
    EXPECT_EQ(row(result, "offset x, y, z"), "-1.5, 2.5, 100.125");
    EXPECT_EQ(row(result, "colours"), "3 channels");
    EXPECT_EQ(row(result, "bytes raw"), "30");  // 6 values, 6 colours
    EXPECT_EQ(row(result, "bytes on disk"), "108 (360.0 %)");
}

TEST_F(RangeInfo, TellsValidValuesAndTheBoxThatTheCalibrationGives) {
    test::RangeFile file;  // resolution 0.5, 0.25, 0.01, offset -1.5, 2.5, 100.125
    file.type = 2;
    file.width = 3;
    file.height = 2;
    file.valueStream =
        test::literalStream(test::bytesOf(std::vector<std::uint16_t>{0, 100, 300, 0, 200, 0}));
    test::writeFile(path("in.zrt"), file.bytes());
    const test::Result result = run("info in.zrt");
    EXPECT_EQ(row(result, "valid values"), "3 (50.0 %)");
    EXPECT_EQ(row(result, "x"), "-1 to -0.5");
    EXPECT_EQ(row(result, "y"), "2.5 to 2.75");
    EXPECT_EQ(row(result, "z"), "101.125 to 103.125");
}

TEST_F(RangeInfo, ZeroIsValidWhereItIsNoCount) {
    test::RangeFile file;
    file.type = 6;
    file.width = 3;
    file.height = 1;
    file.valueStream = test::literalStream(
        test::bytesOf(std::vector<double>{0, std::nan(""), 3.4028234663852886e+38}));
    test::writeFile(path("in.zrt"), file.bytes());
    const test::Result result = run("info in.zrt");
    EXPECT_EQ(row(result, "valid values"), "1 (33.3 %)");
    EXPECT_EQ(row(result, "z"), "100.125 to 100.125");
}

TEST_F(RangeInfo, ImageOfHolesHasNoBox) {
    cv::Mat holes(2, 2, CV_16UC1, cv::Scalar(0));
    cv::imwrite(path("in.png"), holes);
    ASSERT_EQ(run("convert in.png in.zrt").exitCode, 0);
    const test::Result result = run("info in.zrt");
    EXPECT_EQ(row(result, "valid values"), "0 (0.0 %)");
    EXPECT_EQ(result.out.find("\n  x  "), std::string::npos);
}

TEST_F(RangeInfo, NamesEachType) {
    const char* const names[] = {"8-bit unsigned", "8-bit signed",  "16-bit unsigned",
                                 "16-bit signed",  "32-bit signed", "float",
                                 "double"};
    for (int type = 0; type < 7; ++type) {
        const test::Result result = infoOf(golden("type" + std::to_string(type) + ".zrt"));
        EXPECT_EQ(row(result, "type"), names[type]);
        EXPECT_EQ(row(result, "colours"), "none");
    }
}

TEST_F(RangeInfo, UnknownTypeIsSaidToBeSo) {
    std::string bytes = golden("type2.zrt");
    bytes[4] = 77;
    const test::Result result = infoOf(bytes);
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(row(result, "type"), "unknown, so that no values are read");
}

TEST_F(RangeInfo, SuffixMayHaveAnyCase) {
    EXPECT_EQ(infoOf(golden("type2.zrt"), "in.Zrt").exitCode, 0);
}

TEST_F(RangeInfo, CutFileIsFileTrouble) {
    const std::string bytes = golden("type2_bgr.zrt");
    for (std::size_t length = 0; length < bytes.size(); length += 9)
        expectTrouble(infoOf(bytes.substr(0, length)), 3, "in.zrt: refused");
}

TEST_F(RangeInfo, WhatIsNoRegularFileIsFileTrouble) {
    std::filesystem::create_directory(path("folder.zrt"));
    std::filesystem::create_directory(path("folder.bmp"));
    expectTrouble(run("info folder.zrt"), 3, "folder.zrt: not a regular file");
    expectTrouble(run("info folder.bmp"), 3, "folder.bmp: not a regular file");
    expectTrouble(run("info none.zrt"), 3, "none.zrt: no such file");
    expectTrouble(run("info none.png"), 3, "none.png: no such file");
}

TEST_F(RangeInfo, TellsWhatAPictureHolds) {
    cv::Mat values(4, 5, CV_16UC1, cv::Scalar(700));
    values.at<std::uint16_t>(1, 2) = 65000;
    for (const char* name : {"in.png", "in.tif", "in.TIFF"}) {
        ASSERT_TRUE(cv::imwrite(path(name), values));
        const test::Result result = run(std::string("info ") + name);
        EXPECT_EQ(result.exitCode, 0) << name;
        EXPECT_EQ(row(result, "type"), "16-bit unsigned") << name;
        EXPECT_EQ(row(result, "size"), "5 x 4") << name;
        EXPECT_EQ(row(result, "values"), "700 to 65000") << name;
        EXPECT_EQ(row(result, "bytes raw"), "40") << name;
    }
}

TEST_F(RangeInfo, PicturesOfEightBitsAreReadToo) {
    for (const char* name : {"in.jpg", "in.jpeg", "in.bmp", "in.png"}) {
        ASSERT_TRUE(cv::imwrite(path(name), cv::Mat(8, 8, CV_8UC1, cv::Scalar(90))));
        const test::Result result = run(std::string("info ") + name);
        EXPECT_EQ(row(result, "type"), "8-bit unsigned") << name;
        EXPECT_EQ(row(result, "values"), "90 to 90") << name;
    }
}

TEST_F(RangeInfo, ColourPictureHasItsChannelsAndAllItsBytes) {
    for (const char* name : {"in.jpg", "in.png"}) {
        ASSERT_TRUE(cv::imwrite(path(name), cv::Mat(8, 5, CV_8UC3, cv::Scalar(90, 90, 90))));
        const test::Result result = run(std::string("info ") + name);
        EXPECT_EQ(row(result, "size"), "5 x 8") << name;
        EXPECT_EQ(row(result, "values"), "90 to 90") << name;  // of the grey that is read
        EXPECT_EQ(row(result, "colours"), "3 channels") << name;
        EXPECT_EQ(row(result, "bytes raw"), "120") << name;
    }
}

TEST_F(RangeInfo, WhatIsNoPictureIsFileTrouble) {
    for (const char* name : {"in.png", "in.jpg", "in.bmp", "in.tif"})
        expectTrouble(infoOf("no picture", name), 3, std::string(name) + ": not a picture");
}

TEST_F(RangeInfo, HugePictureIsRefusedByItsHeader) {
    cv::imwrite(path("in.png"), cv::Mat(4, 5, CV_16UC1, cv::Scalar(7)));
    std::string bytes = test::readText(path("in.png"));
    bytes.replace(16, 8, std::string("\x7F\xFF\xFF\xFF\x7F\xFF\xFF\xFF", 8));
    expectTrouble(infoOf(bytes, "in.png"), 3, "in.png: over 64 megapixels");
}

TEST_F(RangeInfo, NoMutationOfAFileStopsTheProgram) {
    EXPECT_EQ(runInfoOnMutations(golden("type2_bgr.zrt"), "zrt").exitCode, 3);
    for (const std::string suffix : {"png", "jpg", "bmp", "tif"}) {
        cv::imwrite(path("in." + suffix), cv::Mat(16, 16, CV_8UC1, cv::Scalar(90)));
        EXPECT_EQ(runInfoOnMutations(test::readText(path("in." + suffix)), suffix).exitCode, 3)
            << suffix;
    }
}

}  // namespace
