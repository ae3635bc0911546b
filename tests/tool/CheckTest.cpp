#include "Program.h"
#include "support/CloudFile.h"
#include "support/MeshFile.h"
#include "support/RangeFile.h"
#include "support/ZyrValues.h"

namespace {

using test::Bytes;

/// The bytes of a file, and what is said of it behind its name.
struct Case {
    Bytes bytes;
    std::string answer;
};

class Check : public test::Tool {
protected:
    /// All in one run, in order.
    void expectAnswers(const std::string& suffix, const std::vector<Case>& cases) const {
        std::string names;
        for (std::size_t i = 0; i < cases.size(); ++i) {
            names += " " + std::to_string(i) + "." + suffix;
            test::writeFile(path(std::to_string(i) + "." + suffix), cases[i].bytes);
        }
        const test::Result result = run("check" + names);
        const std::vector<std::string> lines = test::linesOf(result.out);
        EXPECT_EQ(result.err, "");
        ASSERT_EQ(lines.size(), cases.size()) << result.out;
        for (std::size_t i = 0; i < cases.size(); ++i)
            EXPECT_EQ(lines[i], std::to_string(i) + "." + suffix + ": " + cases[i].answer);
    }

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

/// Two points with colours: 16 bytes of preamble and header aside, 56 bytes of columns.
Bytes cloudBody(std::uint32_t channels, const std::vector<std::uint32_t>& words) {
    const Bytes points = test::bytesOf(std::vector<double>{1, 4, 2, 5, 3, 6});
    return test::compressed(channels, test::joined(points, test::bytesOf(words)));
}

test::CloudHeader coloured() {
    return test::CloudHeader(2).columns("x y z rgb", "8 8 8 4", "F F F U", "1 1 1 1");
}

std::string at(const Bytes& header, std::size_t more, const std::string& why) {
    return "invalid at byte " + std::to_string(header.size() + more) + ": " + why;
}

TEST_F(Check, TellsWhatAValidCloudHolds) {
    const Bytes header = test::CloudHeader(3).bytes();
    const double hole = test::kInvalid;
    const Bytes body = test::bytesOf(std::vector<double>{1, hole, 2, 1, hole, 2, 1, hole, 2});
    expectAnswers("zpt", {{test::joined(header, test::compressed(1, body)),
                           "valid: point cloud, 3 points, 1 hole (33.3 %)"}});
}

TEST_F(Check, NamesTheFaultOfACloudsBodyAndItsByte) {
    const Bytes header = coloured().bytes();
    const Bytes body = cloudBody(3, {0xFFFF8001, 0xFF0000FF});
    Bytes longer = body, badSize = body, badChannels = body;
    longer.push_back(0);
    badSize[8] = 55;
    badChannels[0] = 2;
    const Bytes cut = test::prefix(body, body.size() - 1);
    expectAnswers(
        "zpt",
        {{test::joined(header, body), "valid: point cloud, 2 points, 0 holes"},
         {test::joined(header, longer), at(header, body.size(), "1 bytes behind the body")},
         {test::joined(header, badChannels), at(header, 0, "a channel count of 2")},
         {test::joined(header, badSize), at(header, 8, "a size of 55 for columns of 56 bytes")},
         {test::joined(header, cut),
          at(header, cut.size(), "cut short: 57 of 58 bytes of the stream are there")},
         {test::joined(header, test::prefix(body, 2)),
          at(header, 2, "cut short: no channel count")}});
}

TEST_F(Check, NamesTheChunkOfAStreamThatIsAtFault) {
    const Bytes header = test::CloudHeader(1).bytes();
    const Bytes eight(8, 0);
    // 24 bytes: 8 literals as 9 bytes of stream, and then what is wrong.
    const auto file = [&](const Bytes& tail) {
        const Bytes stream = test::joined({{7}, eight, tail});
        return test::joined(header, test::compressed(1, stream, 24));
    };
    expectAnswers(
        "zpt",
        {{file({0xE0, 7, 0}), "valid: point cloud, 1 point, 0 holes"},
         {file({0xE0, 6, 0}), at(header, 12 + 12, "the stream gives 23 of 24 bytes")},
         {file({0xE0, 8, 0}), at(header, 12 + 9, "the stream gives more bytes than it should")},
         {file({0xE0, 7, 8}), at(header, 12 + 9, "the stream refers to before its output")},
         {file({0xE0, 7}), at(header, 12 + 9, "the stream's last chunk is cut")},
         {file({15, 1, 2}), at(header, 12 + 9, "the stream's last chunk is cut")}});
}

TEST_F(Check, ColoursMustFitTheirChannels) {
    const Bytes header = coloured().bytes();
    // The words are in the last run of 24, behind the preamble, a run of 32 and a control byte.
    const std::size_t run = 12 + 33;
    expectAnswers(
        "zpt",
        {{test::joined(header, cloudBody(1, {7, 255})), "valid: point cloud, 2 points, 0 holes"},
         {test::joined(header, cloudBody(1, {7, 256})), at(header, run, "a grey level of 256")},
         {test::joined(header, cloudBody(3, {0xFF000000, 0xFE000000})),
          at(header, run, "a colour of three channels whose alpha is not 255")},
         {test::joined(header, cloudBody(4, {0xFF000000, 0xFE000000})),
          "valid: point cloud, 2 points, 0 holes"}});
}

TEST_F(Check, NumbersThatAreNoneAreTold) {
    const Bytes header = test::CloudHeader(1).bytes();
    const Bytes body = test::bytesOf(std::vector<double>{1, std::nan(""), 2});
    expectAnswers("zpt", {{test::joined(header, test::compressed(1, body)),
                           "valid: point cloud, 1 point, 1 hole (100.0 %), 1 component that is not "
                           "a number"}});
}

TEST_F(Check, PlainBodiesAreHeldAgainstTheirRecords) {
    const Bytes header = test::CloudHeader(2).kind("binary").bytes();
    const Bytes body(48, 0);
    expectAnswers(
        "zpt", {{test::joined(header, body), "valid: point cloud, 2 points, 0 holes"},
                {test::joined(header, Bytes(47, 0)),
                 at(header, 47, "cut short: 47 of 48 bytes of the body are there")},
                {test::joined(header, Bytes(50, 0)), at(header, 48, "2 bytes behind the body")}});
}

/// A header of two points in which a line is replaced or added before WIDTH, and the answer.
Case headerCase(std::string test::CloudHeader::*line, const std::string& text,
                const std::string& answer) {
    test::CloudHeader header(2);
    header.*line = text;
    return {test::joined(header.bytes(), Bytes(100, 0)), answer};
}

TEST_F(Check, NamesTheLineOfAHeaderThatIsAtFault) {
    using H = test::CloudHeader;
    // VERSION takes 12 bytes, FIELDS 13, SIZE 11, TYPE 11, COUNT 12, WIDTH 8, HEIGHT 9,
    // VIEWPOINT 24, POINTS 9.
    expectAnswers(
        "zpt",
        {headerCase(&H::fields, "FIELDS x y",
                    "invalid at byte 23: line 3: SIZE has 3 words for 2 fields"),
         headerCase(&H::fields, "FIELDS x z y",
                    "invalid at byte 12: line 2: no field y in its place behind x"),
         headerCase(&H::fields, "FIELDS a b c", "invalid at byte 12: line 2: no field x"),
         headerCase(&H::fields, "FIELDS x y z\nFIELDS x y z",
                    "invalid at byte 25: line 3: a second FIELDS line"),
         headerCase(&H::size, "SIZE 8 8 2",
                    "invalid at byte 25: line 3: a size of z that it cannot have"),
         headerCase(&H::type, "TYPE F F", "invalid at byte 36: line 4: TYPE has 2 words for 3"),
         headerCase(&H::type, "TYPE F U F",
                    "invalid at byte 36: line 4: a type of y that it cannot have"),
         headerCase(&H::count, "COUNT 1 1 0",
                    "invalid at byte 47: line 5: a count of z that is no number above 0"),
         headerCase(&H::width, "WIDTH  2", "invalid at byte 59: line 6: an empty word in WIDTH"),
         headerCase(&H::width, "WIDTH 2x", "invalid at byte 59: line 6: WIDTH is not a number"),
         headerCase(&H::width, "", "invalid at byte 101: line 9: no WIDTH line before it"),
         headerCase(
             &H::height, "HEIGHT -1",
             "invalid at byte 67: line 7: HEIGHT has a number that is negative or too large"),
         headerCase(&H::viewpoint, "VIEWPOINT 0 0 0",
                    "invalid at byte 76: line 8: VIEWPOINT has 3 words for 7"),
         headerCase(&H::points, "POINTS 3",
                    "invalid at byte 100: line 9: WIDTH times HEIGHT is not POINTS"),
         headerCase(&H::data, "DATA ascii",
                    "invalid at byte 109: line 10: an ascii body, which readers do not decode: all "
                    "points are at the origin")});
}

TEST_F(Check, HeadersThatStopTheLibraryAreJustInvalid) {
    const Bytes good = test::CloudHeader(2).bytes();
    std::string line = "KEY";
    for (int i = 0; i < 61; ++i) line += " w";
    expectAnswers("zpt", {{test::joined(test::toBytes(std::string(33, 'w') + "\n"), good),
                           "invalid at byte 0: line 1: a word of more than 32 characters"},
                          {test::joined(test::toBytes("\n" + line + "\n"), good),
                           "invalid at byte 1: line 2: more than 61 words"},
                          {{}, "invalid at byte 0: line 1: no usable DATA line"}});
}

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
