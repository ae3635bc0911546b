#include "CheckCommand.h"
#include "support/CloudFile.h"
#include "support/ZyrValues.h"

namespace {

using test::Bytes;
using test::Case;

class CheckCloud : public test::CheckCommand {};

/// Two points with colours: 16 bytes of preamble and header aside, 56 bytes of columns.
Bytes cloudBody(std::uint32_t channels, const std::vector<std::uint32_t>& words) {
    const Bytes points = test::bytesOf(std::vector<double>{1, 4, 2, 5, 3, 6});
    return test::compressed(channels, test::joined(points, test::bytesOf(words)));
}

test::CloudHeader coloured() {
    return test::CloudHeader(2).columns("x y z rgb", "8 8 8 4", "F F F U", "1 1 1 1");
}

TEST_F(CheckCloud, TellsWhatAValidCloudHolds) {
    const Bytes header = test::CloudHeader(3).bytes();
    const double hole = test::kInvalid;
    const Bytes body = test::bytesOf(std::vector<double>{1, hole, 2, 1, hole, 2, 1, hole, 2});
    expectAnswers("zpt", {{test::joined(header, test::compressed(1, body)),
                           "valid: point cloud, 3 points, 1 hole (33.3 %)"}});
}

TEST_F(CheckCloud, NamesTheFaultOfACloudsBodyAndItsByte) {
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

TEST_F(CheckCloud, NamesTheChunkOfAStreamThatIsAtFault) {
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

TEST_F(CheckCloud, ColoursMustFitTheirChannels) {
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

TEST_F(CheckCloud, NumbersThatAreNoneAreTold) {
    const Bytes header = test::CloudHeader(1).bytes();
    const Bytes body = test::bytesOf(std::vector<double>{1, std::nan(""), 2});
    expectAnswers("zpt", {{test::joined(header, test::compressed(1, body)),
                           "valid: point cloud, 1 point, 1 hole (100.0 %), 1 component that is not "
                           "a number"}});
}

TEST_F(CheckCloud, PlainBodiesAreHeldAgainstTheirRecords) {
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

TEST_F(CheckCloud, NamesTheLineOfAHeaderThatIsAtFault) {
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

TEST_F(CheckCloud, HeadersThatStopTheLibraryAreJustInvalid) {
    const Bytes good = test::CloudHeader(2).bytes();
    std::string line = "KEY";
    for (int i = 0; i < 61; ++i) line += " w";
    expectAnswers("zpt", {{test::joined(test::toBytes(std::string(33, 'w') + "\n"), good),
                           "invalid at byte 0: line 1: a word of more than 32 characters"},
                          {test::joined(test::toBytes("\n" + line + "\n"), good),
                           "invalid at byte 1: line 2: more than 61 words"},
                          {{}, "invalid at byte 0: line 1: no usable DATA line"}});
}

}  // namespace
