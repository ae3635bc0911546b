#include "Scenes.h"

namespace {

using zyr::readPly;
using Doubles = std::vector<double>;
using Ints = std::vector<int>;

constexpr double kHole = test::kInvalid;

const std::string kXyz = "property float x\nproperty float y\nproperty float z\n";

std::string head(const std::string& format, const std::string& elements) {
    return "ply\nformat " + format + " 1.0\n" + elements + "end_header\n";
}

std::string ascii(const std::string& elements, const std::string& body) {
    return head("ascii", elements) + body;
}

TEST(ReadPly, GivesPointsOfText) {
    const zyr::Scene scene = readPly(ascii("element vertex 2\n" + kXyz, "1 -2 3.5\n4e2 5 6\n"));
    EXPECT_EQ(scene.kind, zyr::Scene::Cloud);
    EXPECT_EQ(test::pointsOf(scene), (Doubles{1, -2, 3.5, 400, 5, 6}));
    EXPECT_EQ(test::leftOut(scene), "");
}

TEST(ReadPly, LastLineMayLackItsEndAndLinesMayEndWithCarriageReturns) {
    std::string text = ascii("element vertex 1\n" + kXyz, "1 2 3");
    EXPECT_EQ(test::pointsOf(readPly(text)), (Doubles{1, 2, 3}));
    for (std::size_t at = 0; (at = text.find('\n', at)) != text.npos; at += 2)
        text.replace(at, 1, "\r\n");
    EXPECT_EQ(test::pointsOf(readPly(text)), (Doubles{1, 2, 3}));
}

TEST(ReadPly, GivesDoublesOfBothByteOrders) {
    const std::string elements =
        "element vertex 1\nproperty double x\nproperty double y\nproperty double z\n";
    const Doubles point = {0.1, -1e300, 5e-324};
    EXPECT_EQ(test::pointsOf(readPly(head("binary_little_endian", elements) + test::raw(point))),
              point);
    EXPECT_EQ(test::pointsOf(readPly(head("binary_big_endian", elements) + test::swapped(point))),
              point);
}

TEST(ReadPly, TakesCoordinatesOfAnyType) {
    const std::string elements =
        "element vertex 1\nproperty char x\nproperty ushort y\nproperty int z\n";
    const std::string body = test::raw<signed char>({-3}) + test::raw<std::uint16_t>({65535}) +
                             test::raw<std::int32_t>({-70000});
    EXPECT_EQ(test::pointsOf(readPly(head("binary_little_endian", elements) + body)),
              (Doubles{-3, 65535, -70000}));
}

TEST(ReadPly, KeepsNormalsAndColoursBlueFirst) {
    const std::string elements = "element vertex 1\n" + kXyz +
                                 "property float nx\nproperty float ny\nproperty float nz\n"
                                 "property uchar red\nproperty uchar green\nproperty uchar blue\n";
    const zyr::Scene scene = readPly(ascii(elements, "1 2 3 0 0 1 10 20 30\n"));
    EXPECT_EQ(test::normalsOf(scene), (Doubles{0, 0, 1}));
    EXPECT_EQ(test::colorsOf(scene), (Ints{30, 20, 10}));
}

TEST(ReadPly, AlphaIsTheFourthChannelAndFractionsAreScaled) {
    const std::string elements = "element vertex 1\n" + kXyz +
                                 "property float red\nproperty float green\n"
                                 "property float blue\nproperty uchar alpha\n";
    EXPECT_EQ(test::colorsOf(readPly(ascii(elements, "1 2 3 1 0.5 0 7\n"))),
              (Ints{0, 128, 255, 7}));
}

TEST(ReadPly, NamesPropertiesThatAreLeftOut) {
    const std::string elements =
        "comment about x\nobj_info 1\nelement vertex 1\nproperty uchar quality\n" + kXyz +
        "property list uchar float weights\nproperty uchar red\n";
    const zyr::Scene scene = readPly(ascii(elements, "9 1 2 3 2 0.5 0.5 7\n"));
    EXPECT_EQ(test::pointsOf(scene), (Doubles{1, 2, 3}));
    EXPECT_EQ(test::leftOut(scene), "vertex properties quality, weights, red; ");
}

TEST(ReadPly, NotFiniteCoordinatesMakeHoles) {
    const std::string elements = "element vertex 4\n" + kXyz;
    const zyr::Scene scene =
        readPly(ascii(elements, "nan 2 3\n1 inf 3\n1 2 -Infinity\n1 2 1e400\n"));
    EXPECT_EQ(test::pointsOf(scene), Doubles(12, kHole));
}

const std::string kFour =
    "element vertex 4\n" + kXyz + "element face 1\nproperty list uchar int vertex_indices\n";
const std::string kSquare = "0 0 0\n1 0 0\n1 1 0\n0 1 0\n";

TEST(ReadPly, PolygonsBecomeFans) {
    const zyr::Scene scene = readPly(ascii(kFour, kSquare + "4 3 2 1 0\n"));
    EXPECT_EQ(scene.kind, zyr::Scene::Mesh);
    EXPECT_EQ(test::trianglesOf(scene), (Ints{3, 2, 1, 3, 1, 0}));
    EXPECT_EQ(test::leftOut(scene), "1 polygons: made into triangles; ");
}

TEST(ReadPly, FacesOfTwoCornersAreLeftOut) {
    const zyr::Scene scene = readPly(ascii(kFour, kSquare + "2 3 2\n"));
    EXPECT_EQ(scene.triangleCount(), 0);
    EXPECT_EQ(test::leftOut(scene), "1 faces of fewer than 3 corners; ");
}

TEST(ReadPly, AttributesOfAPolygonGoToAllItsTriangles) {
    const std::string elements = kFour +
                                 "property uchar red\nproperty uchar green\n"
                                 "property uchar blue\n";
    const zyr::Scene scene = readPly(ascii(elements, kSquare + "4 0 1 2 3 1 2 3\n"));
    EXPECT_EQ(test::bytesOf(scene.triangleColors), (Ints{3, 2, 1, 3, 2, 1}));
}

TEST(ReadPly, OtherElementsAreSteppedOver) {
    const std::string elements =
        "element camera 1\nproperty double angle\nproperty list uchar short "
        "ids\nelement vertex 1\n" +
        kXyz;
    const std::string body = test::raw<double>({0.5}) + std::string("\x02", 1) +
                             test::raw<std::int16_t>({1, 2}) + test::raw<float>({1, 2, 3});
    const zyr::Scene scene = readPly(head("binary_little_endian", elements) + body);
    EXPECT_EQ(test::pointsOf(scene), (Doubles{1, 2, 3}));
    EXPECT_EQ(test::leftOut(scene), "1 elements named camera; ");
}

TEST(ReadPly, FaultsNameTheirPlace) {
    test::expectFault(readPly, "plx\n", "line 1: not a PLY file");
    test::expectFault(readPly, "ply\nformat ascii 1.0\n", "no end_header");
    test::expectFault(readPly, "ply\nformat utf 1.0\n", "line 2: unknown format \"utf\"");
    test::expectFault(readPly, "ply\nproperty float x\n", "line 2: a property before any element");
    test::expectFault(readPly, "ply\nelement vertex -1\n", "line 2: an element needs");
    test::expectFault(readPly, "ply\nelement v 1\nproperty half x\n", "unknown type \"half\"");
    test::expectFault(readPly, "ply\nelement v 1\nproperty list float int x\n", "no whole one");
    test::expectFault(readPly, "ply\nend_header\n", "no format line");
    test::expectFault(readPly, ascii("", ""), "no element named vertex");
    test::expectFault(readPly, ascii("element vertex 1\n", "1\n"), "without properties");
    test::expectFault(readPly, ascii("element vertex 1\nproperty int x\n", "1\n"), "no x, y and z");
    test::expectFault(readPly, ascii("element vertex 1\n" + kXyz, "1 2 a\x1b\n"),
                      "line 8: not a number: \"a?\"");
}

TEST(ReadPly, CountsAreHeldAgainstTheBytes) {
    const std::string elements = "element vertex 4000000000\n" + kXyz;
    test::expectFault(readPly, ascii(elements, "1 2 3\n"), "more than can be held");
    test::expectFault(readPly, ascii("element vertex 700000000\n" + kXyz, "1 2 3\n"), "cut short");
    test::expectFault(readPly, ascii("element vertex 99999999999999999999\n" + kXyz, "1 2 3\n"),
                      "line 3: an element needs a name and a count");
    test::expectFault(readPly, ascii(kFour, kSquare + "200 0 1 2\n"), "a list is longer than");
    test::expectFault(readPly, ascii(kFour, kSquare + "-1 0 1 2\n"), "a negative length");
    test::expectFault(readPly, ascii(kFour, kSquare + "nan 0 1 2\n"), "a negative length");
}

TEST(ReadPly, CornersAreHeldAgainstTheVertices) {
    test::expectFault(readPly, ascii(kFour, kSquare + "3 0 1 4\n"), "names vertex 4 of 4");
    test::expectFault(readPly, ascii(kFour, kSquare + "3 0 1 -1\n"), "names vertex -1 of 4");
    test::expectFault(readPly, ascii(kFour, kSquare + "3 0 1 1.5\n"), "names vertex 1.5 of 4");
}

TEST(ReadPly, BytesBehindTheEndAreNamed) {
    EXPECT_EQ(test::leftOut(readPly(ascii("element vertex 1\n" + kXyz, "1 2 3\n4\n"))),
              "bytes behind the last element; ");
}

}  // namespace
