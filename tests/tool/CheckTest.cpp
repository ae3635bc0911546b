#include "CheckCommand.h"
#include "support/CloudFile.h"
#include "support/MeshFile.h"
#include "support/RangeFile.h"

namespace {

using test::Bytes;

class Check : public test::CheckCommand {
protected:
    /// Every proper prefix is invalid, at a place inside it, and so is the file with a byte more.
    void expectNoPrefixIsValid(const std::string& file, const std::string& suffix) const {
        const Bytes bytes = test::readFile(file);
        for (std::size_t size = 0; size < bytes.size(); ++size)
            test::writeFile(path(std::to_string(100000 + size) + "." + suffix),
                            test::prefix(bytes, size));
        const test::Result result = run("check -j 2 1*." + suffix);
        EXPECT_EQ(result.exitCode, 1) << file;
        const std::vector<std::string> lines = test::linesOf(result.out);
        ASSERT_EQ(lines.size(), bytes.size()) << file;
        for (std::size_t size = 0; size < bytes.size(); ++size) {
            const std::size_t at = lines[size].find(": invalid at byte ");
            ASSERT_NE(at, std::string::npos) << lines[size];
            EXPECT_LE(std::stoul(lines[size].substr(at + 18)), size) << lines[size];
        }
        for (std::size_t size = 0; size < bytes.size(); ++size)
            std::filesystem::remove(path(std::to_string(100000 + size) + "." + suffix));
    }
};

TEST_F(Check, NamesTheTriangleWhoseVertexIsNotThere) {
    const Bytes header = test::MeshHeader(2, 2).bytes();
    const auto file = [&](std::int32_t corner) {
        const Bytes points = test::bytesOf(std::vector<double>{0, 1, 0, 1, 0, 1});
        const Bytes corners = test::bytesOf(std::vector<std::int32_t>{0, 1, 1, 0, 0, corner});
        return test::joined(header, test::meshBody(4, 4, test::joined(points, corners)));
    };
    // 72 bytes: runs of 32, 32 and 8, in the last of which the third corners are.
    const std::size_t run = 16 + 33 + 33;
    expectAnswers("ztmt", {{file(1), "valid: triangle mesh, 2 vertices, 0 holes, 2 triangles"},
                           {file(2), at(header, run, "triangle 1 names vertex 2 of 2")},
                           {file(-1), at(header, run, "triangle 1 names vertex -1 of 2")}});
}

TEST_F(Check, MeshHeadersHaveRulesOfTheirOwn) {
    test::MeshHeader noFaces(1, 0), noVertices(0, 0), noCorners(1, 0);
    noFaces.faces = "";
    noCorners.columns("x y z", "8 8 8").type = "TYPE F F F";
    // VERSION takes 12 bytes, FIELDS 22, SIZE 17, TYPE 17, COUNT 18, POINTS 9, FACES 8.
    expectAnswers("ztmt",
                  {{noFaces.bytes(), "invalid at byte 95: line 7: no FACES line before it"},
                   {noVertices.bytes(), "invalid at byte 86: line 6: a mesh without vertices"},
                   {noCorners.bytes(), "invalid at byte 12: line 2: no field fa"}});
}

TEST_F(Check, NamesTheFaultOfARangeImageAndItsByte) {
    test::RangeFile good;
    good.type = 2;
    good.width = 3;
    good.height = 1;
    good.valueStream = {5, 0, 0, 7, 0, 9, 0};
    const auto with = [&](auto change) {
        test::RangeFile file = good;
        change(file);
        return file.bytes();
    };
    using F = test::RangeFile;
    expectAnswers(
        "zrt",
        {{good.bytes(), "valid: range image, 3 x 1, 1 hole (33.3 %)"},
         {with([](F& f) { f.version = 2; }), "invalid at byte 0: a version of 2 instead of 1"},
         {with([](F& f) { f.type = 7; }), "invalid at byte 4: an unknown type of values: 7"},
         {with([](F& f) { f.width = 0; }), "invalid at byte 8: a width below 1"},
         {with([](F& f) { f.height = -1; }), "invalid at byte 12: a height below 1"},
         {with([](F& f) { f.calibration[4] = std::nan(""); }),
          "invalid at byte 48: a resolution or offset that is no finite number"},
         {with([](F& f) { f.channels = 2; }), "invalid at byte 64: a channel count of 2"},
         {with([](F& f) { f.height = 200; }),
          "invalid at byte 68: the block is too small for the image's pixels"},
         {with([](F& f) { f.height = 2; }), "invalid at byte 79: the stream gives 6 of 12 bytes"},
         {with([](F& f) { f.valueStream.push_back(0xFF); }),
          "invalid at byte 79: the stream's last chunk is cut"},
         {with([](F& f) {
              f.colorStream = {1, 5, 5};
          }),
          "invalid at byte 86: the stream gives 2 of 3 bytes"},
         {test::joined(good.bytes(), {1, 2}), "invalid at byte 83: 2 bytes behind the last block"},
         {test::prefix(good.bytes(), 82),
          "invalid at byte 79: cut short: no size of the colour block"},
         {test::prefix(good.bytes(), 75),
          "invalid at byte 75: cut short: 3 of 7 bytes of the value block are there"},
         {{0xFF}, "invalid at byte 0: a first byte of 255 marks what is no range image"}});
}

TEST_F(Check, GoldenFilesAreValidButForTheirBadCorners) {
    EXPECT_EQ(run("check " ZYR_GOLDEN_DIR "/pointcloud/*.zpt").exitCode, 0);
    EXPECT_EQ(run("check " ZYR_GOLDEN_DIR "/rangeimage/*.zrt").exitCode, 0);
    // Their second triangle names vertex -1 to show that readers keep it.
    const test::Result result = run("check " ZYR_GOLDEN_DIR "/mesh/*.ztmt");
    for (const std::string& line : test::linesOf(result.out))
        EXPECT_NE(line.find("triangle 1 names vertex -1 of 4"), std::string::npos) << line;
}

TEST_F(Check, NoPrefixOfAGoldenFileIsValid) {
    for (const char* name : {"pointcloud/points.zpt", "pointcloud/points_normals_bgra.zpt"})
        expectNoPrefixIsValid(std::string(ZYR_GOLDEN_DIR "/") + name, "zpt");
    for (const char* name : {"mesh/mesh.ztmt", "mesh/mesh_vn_vc3_tn_tc4.ztmt"})
        expectNoPrefixIsValid(std::string(ZYR_GOLDEN_DIR "/") + name, "ztmt");
    for (const char* name : {"rangeimage/type6.zrt", "rangeimage/type2_bgr.zrt"})
        expectNoPrefixIsValid(std::string(ZYR_GOLDEN_DIR "/") + name, "zrt");
}

TEST_F(Check, FilesThatCannotBeReadAreFileTrouble) {
    std::filesystem::create_directory(path("folder.zpt"));
    expectTrouble(run("check folder.zpt"), 3, "folder.zpt: not a regular file");
    expectTrouble(run("check none.zrt"), 3, "none.zrt: no such file");
    expectTrouble(run("check none.other"), 3, "none.other: no such file");
    expectTrouble(run("check"), 2, "FILE");
}

TEST_F(Check, AnswersInJson) {
    test::writeFile(path("bad.zpt"), test::CloudHeader(2).bytes());
    const test::Result result =
        run("check --json bad.zpt none.zpt " ZYR_GOLDEN_DIR "/rangeimage/type0.zrt");
    EXPECT_EQ(result.exitCode, 3);
    EXPECT_EQ(
        test::linesOf(result.out)[0],
        R"({"file":"bad.zpt","valid":false,"offset":132,"fault":"cut short: no channel count"})");
    EXPECT_EQ(test::linesOf(result.out)[1],
              R"({"file":"none.zpt","error":"none.zpt: no such file"})");
    EXPECT_EQ(test::linesOf(result.out)[2],
              R"({"file":")" ZYR_GOLDEN_DIR
              R"(/rangeimage/type0.zrt","valid":true,"kind":"range image",)"
              R"("size":[3,2],"holes":0})");
}

}  // namespace
