#include <sys/stat.h>

#include <vector>

#include "Program.h"
#include "support/ZyrValues.h"

namespace {

/// The lines of a header of two points, of which a test replaces one.
std::string header(const std::string& keyword = "", const std::string& line = "") {
    std::string text;
    for (const std::string standard :
         {"FIELDS x y z", "SIZE 4 4 4", "TYPE F F F", "COUNT 1 1 1", "WIDTH 2", "HEIGHT 1",
          "VIEWPOINT 0 0 0 1 0 0 0", "POINTS 2", "DATA binary"})
        text += (standard.substr(0, standard.find(' ')) == keyword ? line : standard) + "\n";
    return text;
}

const std::string kBody(24, '\0');

class InfoCommand : public test::Tool {
protected:
    test::Result infoOf(const std::string& bytes) const {
        test::writeText(path("in.zpt"), bytes);
        return run("info in.zpt");
    }

    /// Three points, the last of them invalid.
    void saveKnown(int channels, bool withNormals) const {
        double values[] = {1, -2, 3, 4.5, 5, -6.25, test::kInvalid, 0, 0};
        ZyrPointCloud cloud(values, 9, 6, test::kInvalid);
        ZyrColorArray colors;
        colors.Create(3, channels);
        colors.SetColor(9);
        cloud.SetColors(colors);
        if (withNormals) cloud.SetNormals(cloud.DeepCopyPoints());
        ASSERT_TRUE(cloud.Save(path("in.zpt").c_str(), true, true));
    }
};

TEST_F(InfoCommand, TellsPointsAndBounds) {
    saveKnown(3, false);
    const test::Result result = run("info in.zpt");
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(row(result, "points"), "3");
    EXPECT_EQ(row(result, "valid points"), "2 (66.6 %)");
    EXPECT_EQ(row(result, "x"), "1 to 4.5");
    EXPECT_EQ(row(result, "y"), "-2 to 5");
    EXPECT_EQ(row(result, "z"), "-6.25 to 3");
}

TEST_F(InfoCommand, TellsFieldsAndBytes) {
    saveKnown(3, true);
    const test::Result result = run("info in.zpt");
    EXPECT_EQ(row(result, "fields"), "x y z nx ny nz rgb");
    EXPECT_EQ(row(result, "normals"), "yes");
    EXPECT_EQ(row(result, "body"), "binary_compressed");
    EXPECT_EQ(row(result, "bytes raw"), "156");
    EXPECT_EQ(row(result, "bytes on disk").substr(0, 4),
              std::to_string(test::readText(path("in.zpt")).size()) + " ");
}

TEST_F(InfoCommand, TellsTheChannelsOfColours) {
    saveKnown(1, false);
    EXPECT_EQ(row(run("info in.zpt"), "colours"), "1 channel");
    saveKnown(3, false);
    EXPECT_EQ(row(run("info in.zpt"), "colours"), "3 channels");
    saveKnown(4, false);
    EXPECT_EQ(row(run("info in.zpt"), "colours"), "4 channels");
}

TEST_F(InfoCommand, PlainBodyHasNeitherColoursNorNormals) {
    const test::Result result = infoOf(header() + kBody);
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(row(result, "colours"), "none");
    EXPECT_EQ(row(result, "normals"), "none");
    EXPECT_EQ(row(result, "body"), "binary");
}

TEST_F(InfoCommand, SaysThatAsciiIsNotDecoded) {
    const test::Result result = infoOf(header("DATA", "DATA ascii") + "1 2 3\n4 5 6\n");
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_NE(row(result, "body").find("not decoded"), std::string::npos);
    EXPECT_EQ(row(result, "x"), "0 to 0");
}

TEST_F(InfoCommand, CutBodyIsADifference) {
    expectTrouble(infoOf(header() + kBody.substr(1)), 1, "in.zpt: cut short: 23 of 24 bytes");
}

TEST_F(InfoCommand, CutCompressedBodyIsADifference) {
    saveKnown(3, true);
    std::string bytes = test::readText(path("in.zpt"));
    bytes.pop_back();
    expectTrouble(infoOf(bytes), 1, "in.zpt: cut short");
}

TEST_F(InfoCommand, WorstOfSeveralFilesDecides) {
    saveKnown(3, true);
    test::writeText(path("cut.zpt"), header());
    EXPECT_EQ(run("info in.zpt cut.zpt in.zpt").exitCode, 1);
    EXPECT_EQ(run("info none.zpt cut.zpt in.zpt").exitCode, 3);
}

TEST_F(InfoCommand, LongWordIsFileTrouble) {
    expectTrouble(infoOf("VERSION " + std::string(33, '1') + "\n" + header() + kBody), 3,
                  "in.zpt: line 1: a word of more than 32 characters");
}

TEST_F(InfoCommand, WordOf32CharactersIsFine) {
    EXPECT_EQ(infoOf("VERSION " + std::string(32, '1') + "\n" + header() + kBody).exitCode, 0);
}

TEST_F(InfoCommand, LineOf62WordsIsFileTrouble) {
    std::string line = "VERSION";
    for (int i = 1; i < 61; ++i) line += " w";
    EXPECT_EQ(infoOf(line + "\n" + header() + kBody).exitCode, 0);
    expectTrouble(infoOf(line + " w\n" + header() + kBody), 3, "in.zpt: line 1: more than 61");
    expectTrouble(infoOf(line + " \n" + header() + kBody), 3, "in.zpt: line 1: more than 61");
}

TEST_F(InfoCommand, SizeLineOfAnotherWordCountIsFileTrouble) {
    expectTrouble(infoOf(header("SIZE", "SIZE 4 4") + kBody), 3,
                  "in.zpt: line 2: SIZE has 2 words for 3 fields");
    expectTrouble(infoOf(header("SIZE", "SIZE 4 4 4 ") + kBody), 3, "SIZE has 4 words");
    expectTrouble(infoOf("SIZE 4 4 4\n" + header() + kBody), 3, "line 1: SIZE has 3 words for 0");
}

TEST_F(InfoCommand, LongCommentsAreFine) {
    EXPECT_EQ(infoOf("#" + std::string(500, 'w') + "\n" + header() + kBody).exitCode, 0);
}

// The library's limit.
TEST_F(InfoCommand, HeaderMayTakeAMebibyteAndNoMore) {
    const std::size_t others = header().size() + 2;
    const auto withComment = [](std::size_t size) {
        return "#" + std::string(size, 'c') + "\n" + header() + kBody;
    };
    EXPECT_EQ(infoOf(withComment((1 << 20) - others)).exitCode, 0);
    EXPECT_EQ(run("check in.zpt").exitCode, 0);
    EXPECT_EQ(load("in.zpt").Length(), 2);
    expectTrouble(infoOf(withComment((1 << 20) - others + 1)), 3, "no usable DATA line");
    EXPECT_FALSE(ZyrPointCloud().Load(path("in.zpt").c_str(), true, true));
}

TEST_F(InfoCommand, SpaceBeforeTheHashMakesNoComment) {
    expectTrouble(infoOf(" #" + std::string(500, 'w') + "\n" + header() + kBody), 3, "32");
}

TEST_F(InfoCommand, HeaderWithoutEndIsFileTrouble) {
    expectTrouble(infoOf(""), 3, "no usable DATA line");
    expectTrouble(infoOf(header("DATA", "DATA other") + kBody), 3, "no usable DATA line");
    expectTrouble(infoOf(std::string(200000, '\0')), 3, "no usable DATA line");
    expectTrouble(infoOf(std::string(200000, '\r')), 3, "no usable DATA line");
}

TEST_F(InfoCommand, ContradictionsAreFileTrouble) {
    expectTrouble(infoOf(header("POINTS", "POINTS 3") + kBody), 3, "in.zpt: refused");
    expectTrouble(infoOf(header("WIDTH", "WIDTH -2") + kBody), 3, "line 5: WIDTH");
    expectTrouble(infoOf(header("FIELDS", "FIELDS a b c") + kBody), 3, "in.zpt: refused");
}

TEST_F(InfoCommand, WhatIsNoCloudFileIsFileTrouble) {
    std::filesystem::create_directory(path("folder.zpt"));
    ASSERT_EQ(mkfifo(path("pipe.zpt").c_str(), 0600), 0);
    test::writeText(path("in.other"), header() + kBody);
    expectTrouble(run("info none.zpt"), 3, "none.zpt: no such file");
    expectTrouble(run("info folder.zpt"), 3, "folder.zpt: not a regular file");
    expectTrouble(run("info pipe.zpt"), 3, "pipe.zpt: not a regular file");
    expectTrouble(run("info in.other"), 3, "in.other: not a format that is read");
}

TEST_F(InfoCommand, NoMutationOfAFileStopsTheProgram) {
    saveKnown(3, true);
    const test::Result result = runInfoOnMutations(test::readText(path("in.zpt")), "zpt");
    EXPECT_EQ(result.exitCode, 3);
    EXPECT_NE((result.out + result.err).find("299.zpt"), std::string::npos);
}

}  // namespace
