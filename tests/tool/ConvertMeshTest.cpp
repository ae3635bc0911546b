#include <cstring>

#include "Scenes.h"

namespace {

using zyr::readObj;
using zyr::readStl;
using Doubles = std::vector<double>;
using Ints = std::vector<int>;

/// One record: a normal, three corners and the attribute word.
std::string record(const std::vector<float>& values, std::uint16_t attribute = 0) {
    return test::raw(values) + test::raw<std::uint16_t>({attribute});
}

std::string binaryStl(const std::string& start, const std::string& records, std::uint32_t count) {
    std::string head = start;
    head.resize(80, ' ');
    return head + test::raw<std::uint32_t>({count}) + records;
}

const std::string kRecord = record({0, 0, 1, 0, 0, 0, 1, 0, 0, 0, 1, 0});
const std::string kOther = record({0, 0, 1, 1, 0, 0, 1, 1, 0, 0, 1, 0});
const std::string kFacet =
    "facet normal 0 0 1\n outer loop\n  vertex 0 0 0\n  vertex 1 0 0\n"
    "  vertex 0 1e0 0\n endloop\nendfacet\n";

TEST(ReadStl, WeldsCornersThatLieAtTheSamePlace) {
    const zyr::Scene scene = readStl(binaryStl("", kRecord + kOther, 2));
    EXPECT_EQ(test::pointsOf(scene), (Doubles{0, 0, 0, 1, 0, 0, 0, 1, 0, 1, 1, 0}));
    EXPECT_EQ(test::trianglesOf(scene), (Ints{0, 1, 2, 1, 3, 2}));
    EXPECT_EQ(test::flat(scene.triangleNormals), (Doubles{0, 0, 1, 0, 0, 1}));
}

TEST(ReadStl, BinaryFileMayStartWithTheWordSolid) {
    EXPECT_EQ(readStl(binaryStl("solid part", kRecord, 1)).triangleCount(), 1);
    EXPECT_EQ(readStl(binaryStl(std::string("solid\0", 6), kRecord + "more", 1)).triangleCount(),
              1);
}

TEST(ReadStl, GivesTextInAnyCaseAndLayout) {
    const zyr::Scene scene = readStl("solid a b\n" + kFacet + "endsolid a b");
    EXPECT_EQ(test::pointsOf(scene), (Doubles{0, 0, 0, 1, 0, 0, 0, 1, 0}));
    std::string upper = " SOLID\r\n" + kFacet + "ENDSOLID";
    for (char& c : upper) c = static_cast<char>(std::toupper(c));
    EXPECT_EQ(readStl(upper).triangleCount(), 1);
}

TEST(ReadStl, SeveralSolidsBecomeOneMesh) {
    const std::string solid = "solid\n" + kFacet + "endsolid\n";
    EXPECT_EQ(readStl(solid + solid).triangleCount(), 2);
}

TEST(ReadStl, AttributeBytesAreLeftOut) {
    const std::string bytes = binaryStl("", record({0, 0, 1, 0, 0, 0, 1, 0, 0, 0, 1, 0}, 5), 1);
    EXPECT_EQ(test::leftOut(readStl(bytes)), "attribute bytes of the triangles; ");
    EXPECT_EQ(test::leftOut(readStl(binaryStl("", kRecord, 1) + "x")),
              "bytes behind the last triangle; ");
}

TEST(ReadStl, FaultsNameTheirPlace) {
    test::expectFault(readStl, "", "84 bytes at least");
    test::expectFault(readStl, binaryStl("", kRecord, 2), "cut short: 2 triangles");
    test::expectFault(readStl, binaryStl("", kRecord, 0xFFFFFFFF), "more than can be held");
    test::expectFault(readStl, "solid\n" + kFacet, "cut short: no endsolid");
    test::expectFault(readStl, "solid\nvertex 1 2 3\n", "line 2: a vertex that belongs to no");
    test::expectFault(readStl, "solid\nfacet normal 0 0\n", "line 2: three numbers are needed");
    test::expectFault(readStl, "solid\nfacet normal 0 0 z\n", "line 2: not a number: \"z\"");
    test::expectFault(readStl, "solid\nfacet normal 0 0 1\nendfacet\n", "line 3: a facet of other");
    test::expectFault(readStl, "solid\nfacet normal 0 0 1\nfacet normal 0 0 1\n", "inside a facet");
}

const std::string kVertices = "v 0 0 0\nv 1 0 0\nv 1 1 0\nv 0 1 0\n";

TEST(ReadObj, IndicesCountFromOneOrBackwards) {
    EXPECT_EQ(test::trianglesOf(readObj(kVertices + "f 1 2 3\nf -4 -3 -1\n")),
              (Ints{0, 1, 2, 0, 1, 3}));
}

TEST(ReadObj, FacesMayComeBeforeTheirVertices) {
    EXPECT_EQ(test::trianglesOf(readObj("f 1 2 3\n" + kVertices)), (Ints{0, 1, 2}));
}

TEST(ReadObj, PolygonsBecomeFans) {
    const zyr::Scene scene = readObj(kVertices + "f 1 2 3 4");
    EXPECT_EQ(test::trianglesOf(scene), (Ints{0, 1, 2, 0, 2, 3}));
    EXPECT_EQ(test::leftOut(scene), "1 polygons: made into triangles; ");
}

TEST(ReadObj, NormalsOfCornersBecomeThoseOfVertices) {
    const zyr::Scene scene = readObj(kVertices +
                                     "vn 0 0 1\nvn 0 1 0\nvt 0 0\n"
                                     "f 1/1/1 2/1/2 3//1\nf 1//1 3//1 4//-1\n");
    EXPECT_EQ(test::normalsOf(scene), (Doubles{0, 0, 1, 0, 1, 0, 0, 0, 1, 0, 1, 0}));
    EXPECT_EQ(test::leftOut(scene), "lines vt; ");
}

TEST(ReadObj, NormalsThatDifferFromFaceToFaceAreLeftOut) {
    const zyr::Scene scene =
        readObj(kVertices + "vn 0 0 1\nvn 0 1 0\nf 1//1 2//1 3//1\nf 1//2 3//1 4//1\n");
    EXPECT_TRUE(test::normalsOf(scene).empty());
    EXPECT_EQ(test::leftOut(scene), "normals: vertices have several, or none of their own; ");
}

TEST(ReadObj, PointsWithoutFacesAreACloud) {
    const zyr::Scene scene = readObj("v 1 2 3\nvn 0 0 1\n");
    EXPECT_EQ(scene.kind, zyr::Scene::Cloud);
    EXPECT_EQ(test::normalsOf(scene), (Doubles{0, 0, 1}));
}

TEST(ReadObj, ColoursAreFractionsOrBytes) {
    EXPECT_EQ(test::colorsOf(readObj("v 1 2 3 1 0.5 0\n")), (Ints{0, 128, 255}));
    EXPECT_EQ(test::colorsOf(readObj("v 1 2 3 200 1 0\n")), (Ints{0, 1, 200}));
    EXPECT_EQ(test::leftOut(readObj("v 1 2 3 1 0.5 0\nv 1 2 3\n")),
              "colours: not every vertex has one; ");
}

TEST(ReadObj, WeightsGroupsAndMaterialsAreLeftOut) {
    EXPECT_EQ(test::leftOut(readObj("# about\nmtllib a.mtl\no part\nv 1 2 3 1\n\nusemtl b\n")),
              "lines mtllib, o, usemtl, weights of v; ");
}

TEST(ReadObj, LinesAreContinuedBehindABackslash) {
    EXPECT_EQ(test::trianglesOf(readObj(kVertices + "f 1 2\\\r\n 3 # last\n")), (Ints{0, 1, 2}));
}

TEST(ReadObj, FaultsNameTheirPlace) {
    test::expectFault(readObj, "v 1 2\n", "line 1: a vertex of fewer than 3");
    test::expectFault(readObj, "v 1 2 x\n", "line 1: not a number: \"x\"");
    test::expectFault(readObj, "vn 1\n", "line 1: a normal of fewer than 3");
    test::expectFault(readObj, "v 1 2 3\nPK\n", "line 2: unknown keyword \"PK\"");
    test::expectFault(readObj, kVertices + "f 1 2 0\n", "line 5: not an index: \"0\"");
    test::expectFault(readObj, kVertices + "f 1 2 99999999999999999999\n", "not an index");
    test::expectFault(readObj, kVertices + "f 1 2 5\n", "names vertex 5 of 4");
    test::expectFault(readObj, kVertices + "f 1 2 -5\n",
                      "line 5: a face names a vertex before the first");
    test::expectFault(readObj, kVertices + "vn 0 0 1\nf 1//1 2//1 3//2\n",
                      "line 6: a face names normal 2 of 1");
}

}  // namespace
