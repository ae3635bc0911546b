#include "Program.h"
#include "ZyrTriangleMesh.h"
#include "support/ZyrValues.h"

namespace {

/// A mesh header of one vertex, of which a test replaces one line.
std::string header(const std::string& keyword = "", const std::string& line = "") {
    std::string text;
    for (const std::string standard :
         {"FIELDS x y z fa fb fc", "SIZE 8 8 8 4 4 4", "TYPE F F F U U U", "COUNT 1 1 1 1 1 1",
          "POINTS 1", "FACES 0", "DATA binary_compressed"})
        text += (standard.substr(0, standard.find(' ')) == keyword ? line : standard) + "\n";
    return text;
}

class MeshInfo : public test::Tool {
protected:
    test::Result infoOf(const std::string& bytes) const {
        test::writeText(path("in.ztmt"), bytes);
        return run("info in.ztmt");
    }

    static ZyrColorArray colors(int length, int channels) {
        ZyrColorArray colors;
        colors.Create(length, channels);
        colors.SetColor(9);
        return colors;
    }

    /// Three corners, a missing vertex, one good triangle and one that needs the missing vertex.
    void saveKnown(bool withLists) const {
        double values[] = {0, 0, 5, 1, 0, 5, 0, 2, -5, test::kInvalid, 0, 0};
        int corners[] = {0, 1, 2, 2, 1, 3};
        const ZyrVector3dArray vertices(values, 12, test::kInvalid), two(values, 6, test::kInvalid);
        const ZyrTriangleMesh mesh(vertices, Zyr3DIntArray(corners, 6), colors(4, 3), colors(2, 4),
                                   vertices, two);
        ASSERT_TRUE(mesh.Save(path("in.ztmt").c_str(), withLists, withLists));
    }
};

TEST_F(MeshInfo, TellsVerticesAndTriangles) {
    saveKnown(true);
    const test::Result result = run("info in.ztmt");
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(row(result, "vertices"), "4");
    EXPECT_EQ(row(result, "valid vertices"), "3 (75.0 %)");
    EXPECT_EQ(row(result, "triangles"), "2");
    EXPECT_EQ(row(result, "valid triangles"), "1 (50.0 %)");
    EXPECT_EQ(row(result, "z"), "-5 to 5");
}

TEST_F(MeshInfo, TellsListsChannelsAndBytes) {
    saveKnown(true);
    const test::Result result = run("info in.ztmt");
    EXPECT_EQ(row(result, "fields"), "x y z nx ny nz rgb fa fb fc fnx fny fnz frgb");
    EXPECT_EQ(row(result, "vertex normals"), "yes");
    EXPECT_EQ(row(result, "triangle normals"), "yes");
    EXPECT_EQ(row(result, "vertex colours"), "3 channels");
    EXPECT_EQ(row(result, "triangle colours"), "4 channels");
    EXPECT_EQ(row(result, "body"), "binary_compressed");
    EXPECT_EQ(row(result, "bytes raw"), "288");  // 4 * 52 + 2 * 40
    EXPECT_EQ(row(result, "bytes on disk").substr(0, 4),
              std::to_string(test::readText(path("in.ztmt")).size()) + " ");
}

TEST_F(MeshInfo, TellsWhichListsAreMissing) {
    saveKnown(false);
    const test::Result result = run("info in.ztmt");
    for (const char* list :
         {"vertex normals", "triangle normals", "vertex colours", "triangle colours"})
        EXPECT_EQ(row(result, list), "none") << list;
}

TEST_F(MeshInfo, CutBodyIsADifference) {
    saveKnown(true);
    std::string bytes = test::readText(path("in.ztmt"));
    bytes.pop_back();
    expectTrouble(infoOf(bytes), 1, "in.ztmt: cut short");
}

TEST_F(MeshInfo, HeaderThatWouldStopTheLibraryIsFileTrouble) {
    expectTrouble(infoOf(std::string(33, 'w') + "\n" + header()), 3,
                  "in.ztmt: line 1: a word of more than 32 characters");
    std::string line = "VERSION";
    for (int i = 1; i < 62; ++i) line += " w";
    expectTrouble(infoOf(line + "\n" + header()), 3, "in.ztmt: line 1: more than 61 words");
    expectTrouble(infoOf(header("SIZE", "SIZE 8 8 8")), 3,
                  "in.ztmt: line 2: SIZE has 3 words for 6 fields");
}

TEST_F(MeshInfo, BadNumbersAndMissingLinesAreFileTrouble) {
    expectTrouble(infoOf(header("FACES", "FACES -1")), 3, "line 6: FACES has a number");
    expectTrouble(infoOf(header("FACES", "FACES 715827883")), 3, "in.ztmt: refused");
    expectTrouble(infoOf(header("POINTS", "POINTS 0")), 3, "in.ztmt: refused");
    expectTrouble(infoOf("POINTS 1\n"), 3, "no usable DATA line");
}

TEST_F(MeshInfo, WhatIsNoRegularFileIsFileTrouble) {
    std::filesystem::create_directory(path("folder.ztmt"));
    expectTrouble(run("info folder.ztmt"), 3, "folder.ztmt: not a regular file");
    expectTrouble(run("info none.ztmt"), 3, "none.ztmt: no such file");
}

TEST_F(MeshInfo, NoMutationOfAFileStopsTheProgram) {
    saveKnown(true);
    const test::Result result = runInfoOnMutations(test::readText(path("in.ztmt")), "ztmt");
    EXPECT_EQ(result.exitCode, 3);
    EXPECT_NE((result.out + result.err).find("299.ztmt"), std::string::npos);
}

}  // namespace
