#include "Scenes.h"
#include "support/PlainLzf.h"

namespace {

using zyr::readNpy;
using zyr::readPcd;
using zyr::readXyz;
using Doubles = std::vector<double>;
using Ints = std::vector<int>;

std::string pcd(const std::string& fields, const std::string& size, const std::string& type,
                const std::string& count, const std::string& grid, const std::string& data) {
    return "# .PCD v0.7\nVERSION 0.7\nFIELDS " + fields + "\nSIZE " + size + "\nTYPE " + type +
           "\nCOUNT " + count + "\nWIDTH " + grid.substr(0, grid.find('x')) + "\nHEIGHT " +
           grid.substr(grid.find('x') + 1) + "\nVIEWPOINT 0 0 0 1 0 0 0\nDATA " + data + "\n";
}

std::string xyzPcd(const std::string& grid, const std::string& data) {
    return pcd("x y z", "4 4 4", "F F F", "1 1 1", grid, data);
}

std::string compressedBody(const std::string& columns) {
    const test::Bytes stream = test::literalStream(test::toBytes(columns));
    return test::raw<std::uint32_t>({static_cast<std::uint32_t>(stream.size()),
                                     static_cast<std::uint32_t>(columns.size())}) +
           std::string(stream.begin(), stream.end());
}

TEST(ReadPcd, GivesTextWithItsGrid) {
    const zyr::Scene scene = readPcd(xyzPcd("1x2", "ascii") + "1 2 3\r\nnan 5 6");
    EXPECT_EQ(test::pointsOf(scene),
              (Doubles{1, 2, 3, test::kInvalid, test::kInvalid, test::kInvalid}));
    EXPECT_EQ(scene.columns, 1);
    EXPECT_EQ(scene.rows, 2);
}

TEST(ReadPcd, OneRowIsNoGrid) {
    EXPECT_FALSE(readPcd(xyzPcd("2x1", "ascii") + "1 2 3\n4 5 6\n").isGrid());
}

TEST(ReadPcd, StepsOverPaddingAndFieldsOfSeveralValues) {
    const std::string header =
        pcd("x _ y hist z", "8 1 4 4 2", "F U F F I", "1 3 1 2 1", "1x1", "binary");
    const std::string body = test::raw<double>({0.1}) + "abc" + test::raw<float>({2}) +
                             test::raw<float>({8, 9}) + test::raw<std::int16_t>({-3});
    const zyr::Scene scene = readPcd(header + body);
    EXPECT_EQ(test::pointsOf(scene), (Doubles{0.1, 2, -3}));
    EXPECT_EQ(test::leftOut(scene), "fields hist; ");
}

TEST(ReadPcd, CompressedBodyHasOneColumnAfterTheOther) {
    const std::string columns = test::raw<float>({1, 4, 2, 5, 3, 6});
    const zyr::Scene scene = readPcd(xyzPcd("2x1", "binary_compressed") + compressedBody(columns));
    EXPECT_EQ(test::pointsOf(scene), (Doubles{1, 2, 3, 4, 5, 6}));
}

TEST(ReadPcd, ZeroesBehindACompressedBodyArePadding) {
    const std::string bytes =
        xyzPcd("1x1", "binary_compressed") + compressedBody(test::raw<float>({1, 2, 3}));
    EXPECT_EQ(test::leftOut(readPcd(bytes + std::string(100, '\0'))), "");
    EXPECT_EQ(test::leftOut(readPcd(bytes + "x")), "bytes behind the last point; ");
}

TEST(ReadPcd, ColoursArePackedInAFloatOrAnInteger) {
    const std::uint32_t word = 0x00102030;
    for (const char* type : {"F F F F", "F F F U"}) {
        const std::string bytes = pcd("x y z rgb", "4 4 4 4", type, "1 1 1 1", "1x1", "binary") +
                                  test::raw<float>({1, 2, 3}) + test::raw<std::uint32_t>({word});
        EXPECT_EQ(test::colorsOf(readPcd(bytes)), (Ints{0x30, 0x20, 0x10})) << type;
    }
}

TEST(ReadPcd, RgbaHasAlpha) {
    const std::string bytes = pcd("x y z rgba", "4 4 4 4", "F F F U", "1 1 1 1", "1x1", "ascii");
    EXPECT_EQ(test::colorsOf(readPcd(bytes + "1 2 3 4278255360")), (Ints{0, 255, 0, 255}));
}

TEST(ReadPcd, PackedColoursOfTextAreWordsOrFloatsOfTheSameBits) {
    const std::string bytes = pcd("x y z rgb", "4 4 4 4", "F F F F", "1 1 1 1", "1x1", "ascii");
    // 0x0000FF00 as a float is 9.147676e-41.
    EXPECT_EQ(test::colorsOf(readPcd(bytes + "1 2 3 9.147676e-41")), (Ints{0, 255, 0}));
    EXPECT_EQ(test::colorsOf(readPcd(bytes + "1 2 3 4278255360")), (Ints{0, 255, 0}));
}

TEST(ReadPcd, NormalsAreRead) {
    const std::string bytes = pcd("x y z normal_x normal_y normal_z curvature", "4 4 4 4 4 4 4",
                                  "F F F F F F F", "1 1 1 1 1 1 1", "1x1", "ascii");
    const zyr::Scene scene = readPcd(bytes + "1 2 3 0 0 1 0.5\n");
    EXPECT_EQ(test::normalsOf(scene), (Doubles{0, 0, 1}));
    EXPECT_EQ(test::leftOut(scene), "fields curvature; ");
}

TEST(ReadPcd, OtherViewpointIsLeftOut) {
    std::string bytes = xyzPcd("1x1", "ascii") + "1 2 3\n";
    bytes.replace(bytes.find("VIEWPOINT 0"), 11, "VIEWPOINT 1");
    EXPECT_EQ(test::leftOut(readPcd(bytes)), "the viewpoint; ");
}

TEST(ReadPcd, FaultsNameTheirPlace) {
    test::expectFault(readPcd, "", "no DATA line");
    test::expectFault(readPcd, "FIELDS x\nSIZE 4 4\n", "line 2: SIZE has not one word");
    test::expectFault(readPcd, "FIELDS x\nSIZE -4\n", "line 2: not a count: \"-4\"");
    test::expectFault(readPcd, "WIDTH 99999999999\n", "line 1: not a count");
    test::expectFault(readPcd, "\x89PNG\n", "line 1: unknown keyword");
    test::expectFault(readPcd, "VIEWPOINT 1\n", "line 1: VIEWPOINT needs 7");
    test::expectFault(readPcd, "DATA text\n", "line 1: unknown kind of DATA \"text\"");
    test::expectFault(readPcd, pcd("x y z", "4 4 3", "F F F", "1 1 1", "1x1", "ascii"),
                      "unknown type");
    test::expectFault(readPcd, pcd("a b c", "4 4 4", "F F F", "1 1 1", "1x1", "ascii") + "1 2 3",
                      "no fields x, y and z");
    test::expectFault(readPcd, "POINTS 3\n" + xyzPcd("1x2", "ascii"), "not WIDTH times HEIGHT");
    test::expectFault(readPcd, xyzPcd("1x2", "ascii") + "1 2 3\n4 5 z\n", "line 12: not a number");
    test::expectFault(readPcd, xyzPcd("1x2", "ascii") + "1 2 3 4 5\n6\n",
                      "fewer values than fields");
    test::expectFault(readPcd, xyzPcd("1x1", "ascii") + "#1 2 3\n", "cut short: 0 of 1 points");
}

TEST(ReadPcd, CountsAreHeldAgainstTheBytes) {
    test::expectFault(readPcd, xyzPcd("4000000000x4000000000", "binary"), "more than can be held");
    test::expectFault(readPcd, xyzPcd("20000x20000", "binary") + "abc", "cut short");
    test::expectFault(readPcd, xyzPcd("20000x20000", "ascii") + "1 2 3\n", "cut short");
    test::expectFault(readPcd, xyzPcd("20000x20000", "binary_compressed") + "12345678",
                      "cut short");
    test::expectFault(readPcd, pcd("x y z", "4 4 4", "F F F", "1 1 4294967295", "1x1", "binary"),
                      "the fields are too large");
}

TEST(ReadPcd, BrokenStreamIsAFault) {
    const std::string header = xyzPcd("1x1", "binary_compressed");
    const std::string body = compressedBody(test::raw<float>({1, 2, 3}));
    test::expectFault(readPcd, header + "1234567", "cut short");
    test::expectFault(readPcd, header + body.substr(0, body.size() - 1), "bytes of the stream");
    test::expectFault(readPcd, header + test::raw<std::uint32_t>({2, 12}) + "\x1f" + "a", "broken");
    test::expectFault(readPcd, header + test::raw<std::uint32_t>({2, 12}) + "\xff\xff", "broken");
    test::expectFault(readPcd, header + test::raw<std::uint32_t>({2, 16}) + "ab",
                      "not that of its points");
}

TEST(ReadXyz, TakesBlanksCommasSemicolonsAndComments) {
    const Doubles points = {1, 2, 3, 4, 5, 6};
    EXPECT_EQ(test::pointsOf(readXyz("# cloud\n1 2\t3\n\n4  5 6")), points);
    EXPECT_EQ(test::pointsOf(readXyz("1,2, 3\r\n4,5,6,\r\n")), points);
    EXPECT_EQ(test::pointsOf(readXyz("// by hand\n1;2;3\n4;5;6\n")), points);
    EXPECT_EQ(test::pointsOf(readXyz("\xEF\xBB\xBF+1 2 3\n4 5 6\n")), points);
}

TEST(ReadXyz, NamesTellWhatColumnsAreFor) {
    const zyr::Scene scene = readXyz("Z,\"y\",x,Intensity,R,G,B\n3,2,1,9,10,20,30\n");
    EXPECT_EQ(test::pointsOf(scene), (Doubles{1, 2, 3}));
    EXPECT_EQ(test::colorsOf(scene), (Ints{30, 20, 10}));
    EXPECT_EQ(test::leftOut(scene), "columns Intensity; ");
}

TEST(ReadXyz, CommentBeforeTheNumbersMayNameTheColumns) {
    EXPECT_EQ(test::pointsOf(readXyz("//Y X Z\n2 1 3\n")), (Doubles{1, 2, 3}));
}

TEST(ReadXyz, MoreColumnsAreColoursOrNormals) {
    EXPECT_EQ(test::colorsOf(readXyz("1 2 3 10 20 30\n1 2 3 0 0 1\n")),
              (Ints{30, 20, 10, 1, 0, 0}));
    EXPECT_EQ(test::normalsOf(readXyz("1 2 3 0 0 1\n1 2 3 1 0 0\n")), (Doubles{0, 0, 1, 1, 0, 0}));
    const zyr::Scene all = readXyz("1 2 3 0 0 1 10 20 30 40\n");
    EXPECT_EQ(test::normalsOf(all), (Doubles{0, 0, 1}));
    EXPECT_EQ(test::colorsOf(all), (Ints{30, 20, 10, 40}));
    EXPECT_EQ(test::leftOut(readXyz("1 2 3 4\n")), "columns 4; ");
}

TEST(ReadXyz, EmptyCellMakesAHole) {
    EXPECT_EQ(test::pointsOf(readXyz("1,,3\n")), Doubles(3, test::kInvalid));
}

TEST(ReadXyz, FaultsNameTheirPlace) {
    test::expectFault(readXyz, "", "no columns x, y and z");
    test::expectFault(readXyz, "1 2\n", "line 1: fewer than 3 columns");
    test::expectFault(readXyz, "1 2 3\n1 2\n", "line 2: fewer columns than before");
    test::expectFault(readXyz, "1 2 3\n1 2 0x10\n", "line 2: not a number: \"0x10\"");
    test::expectFault(readXyz, "x,y\n1,2\n", "fewer than 3 columns");
    test::expectFault(readXyz, "x,y,w\n1,2,3\n", "no columns x, y and z");
}

std::string npy(const std::string& descr, const std::string& order, const std::string& shape,
                const std::string& body) {
    const std::string text =
        "{'descr': '" + descr + "', 'fortran_order': " + order + ", 'shape': (" + shape + "), }\n";
    return std::string("\x93NUMPY\x01\x00", 8) +
           test::raw<std::uint16_t>({static_cast<std::uint16_t>(text.size())}) + text + body;
}

TEST(ReadNpy, ThreeColumnsOfFloatsAreACloud) {
    const zyr::Scene scene =
        readNpy(npy("<f8", "False", "2, 3", test::raw<double>({1, 2, 3, 0.1, 5, 6})));
    EXPECT_EQ(test::pointsOf(scene), (Doubles{1, 2, 3, 0.1, 5, 6}));
    EXPECT_FALSE(scene.isGrid());
}

TEST(ReadNpy, TakesBothByteOrdersAndBothArrayOrders) {
    EXPECT_EQ(test::pointsOf(readNpy(npy(">f4", "False", "1, 3", test::swapped<float>({1, 2, 3})))),
              (Doubles{1, 2, 3}));
    EXPECT_EQ(
        test::pointsOf(readNpy(npy("<f4", "True", "2, 3", test::raw<float>({1, 4, 2, 5, 3, 6})))),
        (Doubles{1, 2, 3, 4, 5, 6}));
}

TEST(ReadNpy, ThreeAxesAreAGrid) {
    const zyr::Scene scene =
        readNpy(npy("<f4", "False", "2, 1, 3", test::raw<float>({1, 2, 3, 4, 5, 6})));
    EXPECT_EQ(scene.rows, 2);
    EXPECT_EQ(scene.columns, 1);
    EXPECT_EQ(test::pointsOf(scene), (Doubles{1, 2, 3, 4, 5, 6}));
}

TEST(ReadNpy, TwoAxesOfOtherNumbersAreARangeImage) {
    const zyr::Scene scene =
        readNpy(npy(">u2", "True", "2, 3", test::swapped<std::uint16_t>({1, 4, 2, 5, 3, 65535})));
    EXPECT_EQ(scene.kind, zyr::Scene::Range);
    EXPECT_EQ(scene.range.DataType(), 2);
    EXPECT_EQ(scene.range.Width(), 3);
    EXPECT_EQ(scene.range.GetValue(0, 1), 2.0);
    EXPECT_EQ(scene.range.GetValue(1, 2), 65535.0);
}

TEST(ReadNpy, FaultsSayWhatIsWrong) {
    test::expectFault(readNpy, "PK", "not an NPY file");
    test::expectFault(readNpy, std::string("\x93NUMPY\x09\x00\x00\x00\x00\x00", 12),
                      "unknown version");
    test::expectFault(readNpy, npy("<c8", "False", "1, 3", ""), "unknown type");
    test::expectFault(readNpy, npy("<f16", "False", "1, 3", ""), "unknown type");
    test::expectFault(readNpy, npy("<f4", "False", "2, 3", "abc"), "cut short");
    test::expectFault(readNpy, npy("<f4", "False", "-2, 3", "abc"), "no list of counts");
    test::expectFault(readNpy, npy("<u4", "False", "1, 1", "abcd"), "range images do not have");
    test::expectFault(readNpy, npy("<f4", "False", "1,", "abcd"), "neither");
    test::expectFault(readNpy, npy("<u2", "False", "0, 5", ""), "no values");
    test::expectFault(readNpy, npy("<f4", "False", "4294967296, 4294967296, 3", "abc"),
                      "cut short");
}

}  // namespace
