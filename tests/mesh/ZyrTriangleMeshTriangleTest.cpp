#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "support/Meshes.h"

/// Which triangles are valid, and the corners that are selected.

namespace {

using Indices = std::vector<int>;

const int kMin = -2147483647 - 1;
const int kMax = 2147483647;

/// A right angle at the second vertex; the fourth is in line with the first two; the fifth is a
/// hole.
ZyrVector3dArray corners() {
    return test::vectors({0, 0, 0, 1, 0, 0, 1, 1, 0, 2, 0, 0, test::kInvalid, 0, 0});
}

bool isValid(const ZyrVector3dArray& vertices, int a, int b, int c) {
    return ZyrTriangleMesh(vertices, test::indices({a, b, c})).IsValidTriangle(0);
}

bool isValid(int a, int b, int c) {
    return isValid(corners(), a, b, c);
}

std::vector<double> flat(const Zyr3DTriangle& t) {
    return {t.a.x, t.a.y, t.a.z, t.b.x, t.b.y, t.b.z, t.c.x, t.c.y, t.c.z};
}

/// What selecting the only triangle of these vertices makes of a triangle of sevens.
std::vector<double> select(const ZyrVector3dArray& vertices, int a, int b, int c, int t = 0) {
    const ZyrVector3d seven(7, 7, 7);
    Zyr3DTriangle out(seven, seven, seven);
    ZyrTriangleMesh(vertices, test::indices({a, b, c})).SelectTriangle(t, &out);
    return flat(out);
}

const std::vector<double> kUntouched(9, 7.0);

/// Three vertices, of which so many are holes, the last first.
ZyrVector3dArray threeWithHoles(int holes) {
    ZyrVector3dArray vertices = test::vectors({1, 2, 3, 4, 5, 6, 7, 8, 9});
    for (int i = 3 - holes; i < 3; ++i) vertices[i].InValidate();
    return vertices;
}

constexpr double kHole = test::kInvalid;

}  // namespace

TEST(MeshTriangle, OfThreeVerticesApartIsValid) {
    EXPECT_TRUE(isValid(0, 1, 2));
    EXPECT_TRUE(isValid(2, 0, 1));
}

TEST(MeshTriangle, OfTwoEqualIndicesIsNotValid) {
    EXPECT_FALSE(isValid(0, 0, 1));
    EXPECT_FALSE(isValid(0, 1, 0));
    EXPECT_FALSE(isValid(1, 0, 0));
    EXPECT_FALSE(isValid(2, 2, 2));
}

TEST(MeshTriangle, OfAnIndexOutOfRangeIsNotValid) {
    for (const int i : {kMin, -1, 5, 6, kMax}) {
        EXPECT_FALSE(isValid(i, 1, 2)) << i;
        EXPECT_FALSE(isValid(0, i, 2)) << i;
        EXPECT_FALSE(isValid(0, 1, i)) << i;
    }
}

TEST(MeshTriangle, OfCollinearVerticesIsNotValid) {
    EXPECT_FALSE(isValid(0, 1, 3));
    EXPECT_FALSE(isValid(3, 0, 1));
}

TEST(MeshTriangle, OfAHoleIsNotValid) {
    EXPECT_FALSE(isValid(4, 1, 2));
    EXPECT_FALSE(isValid(0, 4, 2));
    EXPECT_FALSE(isValid(0, 1, 4));
}

TEST(MeshTriangle, OfANaNIsNotValid) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    EXPECT_FALSE(isValid(test::vectors({0, 0, 0, 1, 0, 0, 1, nan, 0}), 0, 1, 2));
}

TEST(MeshTriangle, IsTestedByTheAngleAtItsSecondCorner) {
    // A flat one: 1 / |cos| - 1 is 2e-8 at its top.
    const ZyrVector3dArray thin = test::vectors({0, 0, 0, 1, 1e-4, 0, 2, 0, 0});
    EXPECT_FALSE(isValid(thin, 0, 1, 2));
    // A steep one: 1 / |cos| - 1 is 99 at its base and 2e-4 at its top.
    const ZyrVector3dArray steep = test::vectors({0, 0, 0, 0.01, 1, 0, 0.02, 0, 0});
    EXPECT_TRUE(isValid(steep, 1, 0, 2));
    EXPECT_TRUE(isValid(steep, 0, 1, 2));
    // A needle: a right angle at its foot, and 1 / |cos| - 1 is 5e-7 at its tip.
    const ZyrVector3dArray needle = test::vectors({0, 0, 0, 1, 0, 0, 1, 1e-3, 0});
    EXPECT_TRUE(isValid(needle, 0, 1, 2));
    EXPECT_FALSE(isValid(needle, 1, 0, 2));
}

TEST(MeshTriangle, IsTestedBeyondWhereSquaresKeepTheirDigits) {
    // 1 / cos - 1 is 1e-5, below the bound, but the squared lengths' product rounds to two units of
    // the smallest number and the squared dot product to one.
    const double cosine = 1 / 1.00001;
    const double side = std::pow(1.5, 0.25) * std::exp2(-268.5) * 1.0000025;
    EXPECT_FALSE(isValid(test::vectors({side, 0, 0, 0, 0, 0, side * cosine,
                                        side * std::sqrt(1 - cosine * cosine), 0}),
                         0, 1, 2));
}

TEST(MeshTriangle, OutOfRangeIsNotValid) {
    const ZyrTriangleMesh mesh(corners(), test::indices({0, 1, 2, 2, 1, 0, 0}));
    EXPECT_TRUE(mesh.IsValidTriangle(1));
    for (const int t : {kMin, -1, 2, 3, kMax}) EXPECT_FALSE(mesh.IsValidTriangle(t)) << t;
    EXPECT_FALSE(ZyrTriangleMesh().IsValidTriangle(0));
}

TEST(MeshTriangle, TestLeavesTheVerticesAlone) {
    const ZyrVector3dArray vertices = corners();
    EXPECT_FALSE(isValid(vertices, 0, 1, 3));
    EXPECT_EQ(test::values(vertices), test::values(corners()));
}

TEST(MeshTriangle, ValidOnesAreCounted) {
    const ZyrTriangleMesh mesh(corners(), test::indices({0, 1, 2, 0, 0, 1, 2, 1, 0, 0, 1, 3, -1,
                                                         0, 1, 0, 1, 5, 0, 1, 4, 3, 2, 0, 1, 2}));
    EXPECT_EQ(mesh.NumTriangles(), 8);
    EXPECT_EQ(mesh.NumValidTriangles(), 3);
}

TEST(MeshTriangle, NoneIsValidWithoutVertices) {
    EXPECT_EQ(ZyrTriangleMesh(ZyrVector3dArray(), test::indices({0, 1, 2})).NumValidTriangles(), 0);
}

TEST(MeshCorners, AreTheThreeVerticesInTheirOrder) {
    EXPECT_EQ(select(threeWithHoles(0), 2, 0, 1), (std::vector<double>{7, 8, 9, 1, 2, 3, 4, 5, 6}));
}

TEST(MeshCorners, OfATriangleOutOfRangeAreNotSelected) {
    for (const int t : {kMin, -1, 1, kMax})
        EXPECT_EQ(select(threeWithHoles(0), 0, 1, 2, t), kUntouched) << t;
}

TEST(MeshCorners, FirstAndSecondIndexMayEqualTheNumberOfVertices) {
    EXPECT_EQ(select(threeWithHoles(0), 3, 0, 1),
              (std::vector<double>{kHole, kHole, kHole, 1, 2, 3, 4, 5, 6}));
    EXPECT_EQ(select(threeWithHoles(0), 0, 3, 1),
              (std::vector<double>{1, 2, 3, kHole, kHole, kHole, 4, 5, 6}));
}

TEST(MeshCorners, FirstAndSecondIndexAboveTheNumberOfVerticesSelectNothing) {
    for (const int i : {4, 5, kMax}) {
        EXPECT_EQ(select(threeWithHoles(0), i, 0, 1), kUntouched) << i;
        EXPECT_EQ(select(threeWithHoles(0), 0, i, 1), kUntouched) << i;
    }
}

TEST(MeshCorners, FirstAndSecondIndexAreHeldAgainstAllVertices) {
    EXPECT_EQ(select(threeWithHoles(3), 3, 3, 0), std::vector<double>(9, kHole));
}

TEST(MeshCorners, ThirdIndexMayEqualTheNumberOfValidVertices) {
    EXPECT_EQ(select(threeWithHoles(2), 0, 0, 1),
              (std::vector<double>{1, 2, 3, 1, 2, 3, kHole, kHole, kHole}));
    EXPECT_EQ(select(threeWithHoles(0), 0, 1, 3),
              (std::vector<double>{1, 2, 3, 4, 5, 6, kHole, kHole, kHole}));
}

TEST(MeshCorners, ThirdIndexAboveTheNumberOfValidVerticesSelectsNothing) {
    EXPECT_EQ(select(threeWithHoles(2), 0, 0, 2), kUntouched);
    EXPECT_EQ(select(threeWithHoles(0), 0, 1, 4), kUntouched);
    EXPECT_EQ(select(threeWithHoles(3), 0, 1, 1), kUntouched);
}

TEST(MeshCorners, ThirdIndexMayPointAtAVertexBehindAHole) {
    // Two of three are valid, so that index 2 is let through.
    ZyrVector3dArray vertices = threeWithHoles(0);
    vertices[0].InValidate();
    EXPECT_EQ(select(vertices, 1, 1, 2), (std::vector<double>{4, 5, 6, 4, 5, 6, 7, 8, 9}));
}

TEST(MeshCorners, NegativeIndicesAreTheInvalidVector) {
    for (const int i : {-1, kMin})
        EXPECT_EQ(select(threeWithHoles(0), i, i, i), std::vector<double>(9, kHole)) << i;
}

TEST(MeshCorners, EqualIndicesAndCollinearCornersAreSelectedAllTheSame) {
    EXPECT_EQ(select(threeWithHoles(0), 0, 0, 0), (std::vector<double>{1, 2, 3, 1, 2, 3, 1, 2, 3}));
}

TEST(MeshTriangle, IndicesLeftOverAreNoTriangle) {
    test::MeshArrays arrays = test::fullArrays();
    arrays.vertices = corners();
    arrays.triangles = test::indices({0, 1, 2, 2, 1, 0, 0});
    ZyrTriangleMesh mesh = arrays.mesh();
    EXPECT_EQ(mesh.NumValidTriangles(), 2);
    const ZyrVector3d seven(7, 7, 7);
    Zyr3DTriangle triangle(seven, seven, seven);
    ZyrVector3d normal = seven;
    mesh.SelectTriangle(2, &triangle);
    mesh.SelectTriangleNormal(2, &normal);
    EXPECT_EQ(flat(triangle), kUntouched);
    EXPECT_EQ(normal.x, 7.0);
}

TEST(MeshTriangle, IndicesLeftOverHaveNoColour) {
    test::MeshArrays arrays = test::fullArrays();
    arrays.triangles = test::indices({0, 1, 2, 2, 1, 0, 0});
    ZyrTriangleMesh mesh = arrays.mesh();
    ZyrColor first, color;
    mesh.SelectTriangleColor(0, &first);
    const std::vector<int> before = test::values(color);
    mesh.SelectTriangleColor(2, &color);
    EXPECT_EQ(test::values(color), before);
    mesh.ReplaceTriangleColor(2, first);
    EXPECT_EQ(test::colorBytes(mesh.DeepCopyTriangleColor()),
              test::colorBytes(test::fullArrays().triangleColors));
}
