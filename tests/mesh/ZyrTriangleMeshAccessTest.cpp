#include <gtest/gtest.h>

#include "support/Meshes.h"

/// Select and Replace by index.

using test::MeshArrays;

namespace {

using Values = std::vector<double>;
using Indices = std::vector<int>;

const int kMin = -2147483647 - 1;
const int kMax = 2147483647;

/// Indices that no list of that length has.
Indices outOf(int length) {
    return {kMin, -length, -1, length, length + 1, kMax};
}

Values selectVertex(ZyrTriangleMesh mesh, int i) {
    ZyrVector3d out(-1, -2, -3);
    mesh.SelectVertex(i, &out);
    return test::values(out);
}

Indices selectTriangle(ZyrTriangleMesh mesh, int t) {
    int a = -7, b = -8, c = -9;
    mesh.SelectTriangle(t, &a, &b, &c);
    return {a, b, c};
}

Indices selectVertexColor(ZyrTriangleMesh mesh, int i) {
    ZyrColor out(1, 2, 3, 4);
    mesh.SelectVertexColor(i, &out);
    return test::values(out);
}

Indices selectTriangleColor(ZyrTriangleMesh mesh, int t) {
    ZyrColor out(1, 2, 3, 4);
    mesh.SelectTriangleColor(t, &out);
    return test::values(out);
}

Values selectVertexNormal(ZyrTriangleMesh mesh, int i) {
    ZyrVector3d out(-1, -2, -3);
    mesh.SelectVertexNormal(i, &out);
    return test::values(out);
}

Values selectTriangleNormal(ZyrTriangleMesh mesh, int t) {
    ZyrVector3d out(-1, -2, -3);
    mesh.SelectTriangleNormal(t, &out);
    return test::values(out);
}

const Values kUntouched = {-1, -2, -3};
const Indices kUntouchedTriangle = {-7, -8, -9};
const Indices kUntouchedColor = {1, 2, 3, 4};

/// So many vertices with normals 0 1 2, 3 4 5 ... and so many triangles.
ZyrTriangleMesh withVertexNormals(int vertices, int triangles, int normals) {
    MeshArrays arrays;
    arrays.vertices = test::vectorsFrom(vertices, 1000);
    arrays.vertexNormals = test::vectorsFrom(normals, 0);
    arrays.triangles.SetSize(3 * triangles);
    return arrays.mesh();
}

}  // namespace

TEST(MeshAccess, VertexIsSelected) {
    EXPECT_EQ(selectVertex(test::fullMesh(), 0), (Values{1, 2, 3}));
    EXPECT_EQ(selectVertex(test::fullMesh(), 3), (Values{10, 11, 12}));
}

TEST(MeshAccess, VertexOutOfRangeLeavesTheOutputUntouched) {
    for (const int i : outOf(4)) EXPECT_EQ(selectVertex(test::fullMesh(), i), kUntouched) << i;
    EXPECT_EQ(selectVertex(ZyrTriangleMesh(), 0), kUntouched);
}

TEST(MeshAccess, VertexIsReplaced) {
    ZyrTriangleMesh mesh = test::fullMesh();
    mesh.ReplaceVertex(3, ZyrVector3d(7, 8, 9));
    mesh.ReplaceVertex(0, ZyrVector3d());
    EXPECT_EQ(selectVertex(mesh, 3), (Values{7, 8, 9}));
    EXPECT_EQ(selectVertex(mesh, 0), test::kInvalidVector);
    EXPECT_EQ(selectVertex(mesh, 1), (Values{4, 5, 6}));
}

TEST(MeshAccess, VertexOutOfRangeIsNotReplaced) {
    ZyrTriangleMesh mesh = test::fullMesh();
    for (const int i : outOf(4)) mesh.ReplaceVertex(i, ZyrVector3d(7, 8, 9));
    EXPECT_EQ(test::values(mesh), test::values(test::fullArrays()));
}

TEST(MeshAccess, TrianglesIndicesAreSelected) {
    EXPECT_EQ(selectTriangle(test::fullMesh(), 0), (Indices{0, 1, 2}));
    EXPECT_EQ(selectTriangle(test::fullMesh(), 1), (Indices{2, 1, 3}));
}

TEST(MeshAccess, TriangleOutOfRangeLeavesItsIndicesUntouched) {
    for (const int t : outOf(2))
        EXPECT_EQ(selectTriangle(test::fullMesh(), t), kUntouchedTriangle) << t;
    EXPECT_EQ(selectTriangle(ZyrTriangleMesh(), 0), kUntouchedTriangle);
}

TEST(MeshAccess, RemainderOfTheIndexListIsNeitherSelectedNorReplaced) {
    MeshArrays arrays = test::fullArrays();
    arrays.triangles = test::indices({0, 1, 2, 2, 1, 3, 77});
    ZyrTriangleMesh mesh = arrays.mesh();
    EXPECT_EQ(selectTriangle(mesh, 2), kUntouchedTriangle);
    mesh.ReplaceTriangle(2, 5, 6, 7);
    EXPECT_EQ(test::values(arrays.triangles), (Indices{0, 1, 2, 2, 1, 3, 77}));
}

TEST(MeshAccess, TriangleIsReplacedByIndicesOfAnyValue) {
    ZyrTriangleMesh mesh = test::fullMesh();
    mesh.ReplaceTriangle(1, kMin, kMax, 4);
    EXPECT_EQ(selectTriangle(mesh, 1), (Indices{kMin, kMax, 4}));
    EXPECT_EQ(selectTriangle(mesh, 0), (Indices{0, 1, 2}));
}

TEST(MeshAccess, TriangleOutOfRangeIsNotReplaced) {
    ZyrTriangleMesh mesh = test::fullMesh();
    for (const int t : outOf(2)) mesh.ReplaceTriangle(t, 0, 1, 2);
    EXPECT_EQ(test::values(mesh), test::values(test::fullArrays()));
}

TEST(MeshAccess, ColoursAreSelectedAsTheirListSelectsThem) {
    // b g r of the first vertex are 10 11 12: alpha stays. b g r a of the second triangle 54 ...
    EXPECT_EQ(selectVertexColor(test::fullMesh(), 0), (Indices{12, 11, 10, 4}));
    EXPECT_EQ(selectTriangleColor(test::fullMesh(), 1), (Indices{56, 55, 54, 57}));
}

TEST(MeshAccess, GreyIsSelectedIntoThreeChannels) {
    MeshArrays arrays = test::fullArrays();
    arrays.vertexColors = test::colorsFrom(4, 1, 7);
    EXPECT_EQ(selectVertexColor(arrays.mesh(), 1), (Indices{8, 8, 8, 4}));
}

TEST(MeshAccess, ColourOutOfRangeLeavesTheOutputUntouched) {
    for (const int i : outOf(4))
        EXPECT_EQ(selectVertexColor(test::fullMesh(), i), kUntouchedColor) << i;
    for (const int t : outOf(2))
        EXPECT_EQ(selectTriangleColor(test::fullMesh(), t), kUntouchedColor) << t;
    EXPECT_EQ(selectVertexColor(ZyrTriangleMesh(), 0), kUntouchedColor);
    EXPECT_EQ(selectTriangleColor(ZyrTriangleMesh(), 0), kUntouchedColor);
}

TEST(MeshAccess, ColoursOfAnotherLengthAreNotSelected) {
    for (const int length : {1, 3, 5}) {
        MeshArrays arrays = test::fullArrays();
        arrays.vertexColors = arrays.triangleColors = test::colorsFrom(length, 3, 0);
        EXPECT_EQ(selectVertexColor(arrays.mesh(), 0), kUntouchedColor) << length;
        EXPECT_EQ(selectTriangleColor(arrays.mesh(), 0), kUntouchedColor) << length;
    }
}

TEST(MeshAccess, ColoursAreReplaced) {
    ZyrTriangleMesh mesh = test::fullMesh();
    ZyrColor color(71, 72, 73, 74);
    mesh.ReplaceVertexColor(3, color);
    mesh.ReplaceTriangleColor(0, color);
    EXPECT_EQ(selectVertexColor(mesh, 3), (Indices{71, 72, 73, 4}));
    EXPECT_EQ(selectTriangleColor(mesh, 0), (Indices{71, 72, 73, 74}));
}

TEST(MeshAccess, ColourOutOfRangeIsNotReplaced) {
    ZyrTriangleMesh mesh = test::fullMesh();
    ZyrColor color(71, 72, 73, 74);
    for (const int i : outOf(4)) mesh.ReplaceVertexColor(i, color);
    for (const int t : outOf(2)) mesh.ReplaceTriangleColor(t, color);
    EXPECT_EQ(test::values(mesh), test::values(test::fullArrays()));
}

TEST(MeshAccess, ColoursOfAnotherLengthAreNotReplaced) {
    MeshArrays arrays = test::fullArrays();
    arrays.vertexColors = test::colorsFrom(5, 3, 0);
    arrays.triangleColors = test::colorsFrom(1, 3, 0);
    ZyrTriangleMesh mesh = arrays.mesh();
    ZyrColor color(71, 72, 73, 74);
    mesh.ReplaceVertexColor(0, color);
    mesh.ReplaceTriangleColor(0, color);
    EXPECT_EQ(test::colorBytes(arrays.vertexColors), test::colorBytes(test::colorsFrom(5, 3, 0)));
    EXPECT_EQ(test::colorBytes(arrays.triangleColors), test::colorBytes(test::colorsFrom(1, 3, 0)));
}

TEST(MeshAccess, VertexNormalIsSelectedBelowTheNumberOfTriangles) {
    const ZyrTriangleMesh mesh = withVertexNormals(4, 2, 4);
    EXPECT_EQ(selectVertexNormal(mesh, 0), (Values{0, 1, 2}));
    EXPECT_EQ(selectVertexNormal(mesh, 1), (Values{3, 4, 5}));
}

TEST(MeshAccess, VertexNormalFromTheNumberOfTrianglesOnIsNotSelected) {
    const ZyrTriangleMesh mesh = withVertexNormals(4, 2, 4);
    for (const int i : {2, 3, 4, kMax, -1, kMin})
        EXPECT_EQ(selectVertexNormal(mesh, i), kUntouched) << i;
}

TEST(MeshAccess, VertexNormalBehindTheVerticesIsTheInvalidVectorWhereThereAreMoreTriangles) {
    const ZyrTriangleMesh mesh = withVertexNormals(2, 4, 2);
    EXPECT_EQ(selectVertexNormal(mesh, 1), (Values{3, 4, 5}));
    EXPECT_EQ(selectVertexNormal(mesh, 2), test::kInvalidVector);
    EXPECT_EQ(selectVertexNormal(mesh, 3), test::kInvalidVector);
    EXPECT_EQ(selectVertexNormal(mesh, 4), kUntouched);
}

TEST(MeshAccess, VertexNormalsOfAnotherLengthAreNotSelected) {
    for (const int normals : {0, 1, 2, 3, 5})
        EXPECT_EQ(selectVertexNormal(withVertexNormals(4, 2, normals), 0), kUntouched) << normals;
}

TEST(MeshAccess, VertexNormalOfAMeshWithoutVerticesButWithTrianglesIsInvalid) {
    EXPECT_EQ(selectVertexNormal(withVertexNormals(0, 1, 0), 0), test::kInvalidVector);
}

TEST(MeshAccess, TriangleNormalIsSelected) {
    EXPECT_EQ(selectTriangleNormal(test::fullMesh(), 0), (Values{201, 202, 203}));
    EXPECT_EQ(selectTriangleNormal(test::fullMesh(), 1), (Values{204, 205, 206}));
}

TEST(MeshAccess, TriangleNormalOutOfRangeLeavesTheOutputUntouched) {
    for (const int t : outOf(2))
        EXPECT_EQ(selectTriangleNormal(test::fullMesh(), t), kUntouched) << t;
    EXPECT_EQ(selectTriangleNormal(ZyrTriangleMesh(), 0), kUntouched);
}

TEST(MeshAccess, TriangleNormalsOfAnotherLengthAreNotSelected) {
    for (const int length : {1, 3, 4}) {
        MeshArrays arrays = test::fullArrays();
        arrays.triangleNormals = test::vectorsFrom(length, 0);
        EXPECT_EQ(selectTriangleNormal(arrays.mesh(), 0), kUntouched) << length;
    }
}
