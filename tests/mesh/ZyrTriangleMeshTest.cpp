#include "ZyrTriangleMesh.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <type_traits>

#include "support/Held.h"
#include "support/Meshes.h"

/// Construction, counts and presence of the attribute lists.

using test::MeshArrays;
using test::MeshValues;

namespace {

/// A mesh of four vertices and two triangles with attribute lists of that length.
ZyrTriangleMesh withAttributes(int length) {
    MeshArrays arrays = test::fullArrays();
    arrays.vertexNormals = arrays.triangleNormals = test::vectorsFrom(length, 0);
    arrays.vertexColors = arrays.triangleColors = test::colorsFrom(length, 1, 0);
    return arrays.mesh();
}

/// The list that lies so many pointers behind the mesh's start.
template <class List>
const List& stored(const ZyrTriangleMesh& mesh, std::size_t place) {
    const auto* start = reinterpret_cast<const char*>(&mesh);
    return *static_cast<const List*>(static_cast<const void*>(start + place * sizeof(void*)));
}

}  // namespace

TEST(ZyrTriangleMesh, DefaultOneHasNoElements) {
    const ZyrTriangleMesh mesh;
    EXPECT_EQ(mesh.NumVertices(), 0);
    EXPECT_EQ(mesh.NumTriangles(), 0);
    EXPECT_EQ(mesh.NumValidVertices(), 0);
    EXPECT_EQ(mesh.NumValidTriangles(), 0);
    EXPECT_TRUE(test::values(mesh) == MeshValues());
}

TEST(ZyrTriangleMesh, NoneOfNoneCountsAsPresent) {
    const ZyrTriangleMesh mesh;
    EXPECT_TRUE(mesh.IsValidVertexColor());
    EXPECT_TRUE(mesh.IsValidVertexNormal());
    EXPECT_TRUE(mesh.IsValidTriangleColor());
    EXPECT_TRUE(mesh.IsValidTriangleNormal());
}

TEST(ZyrTriangleMesh, TwoListsLeaveTheAttributesEmpty) {
    const MeshArrays arrays = test::fullArrays();
    const ZyrTriangleMesh mesh(arrays.vertices, arrays.triangles);
    EXPECT_EQ(test::values(mesh),
              (MeshValues{test::values(arrays.vertices), {}, {}, {0, 1, 2, 2, 1, 3}, {}, {}}));
    EXPECT_FALSE(mesh.IsValidVertexColor() || mesh.IsValidVertexNormal());
    EXPECT_FALSE(mesh.IsValidTriangleColor() || mesh.IsValidTriangleNormal());
}

TEST(ZyrTriangleMesh, FourListsAreVerticesTrianglesAndTheirColours) {
    const MeshArrays arrays = test::fullArrays();
    const ZyrTriangleMesh mesh(arrays.vertices, arrays.triangles, arrays.vertexColors,
                               arrays.triangleColors);
    EXPECT_EQ(test::values(mesh), (MeshValues{test::values(arrays.vertices),
                                              {},
                                              test::colorBytes(arrays.vertexColors),
                                              {0, 1, 2, 2, 1, 3},
                                              {},
                                              test::colorBytes(arrays.triangleColors)}));
}

TEST(ZyrTriangleMesh, SixListsEndWithVertexNormalsAndTriangleNormals) {
    const MeshArrays a = test::fullArrays();
    const ZyrTriangleMesh mesh(a.vertices, a.triangles, a.vertexColors, a.triangleColors,
                               a.vertexNormals, a.triangleNormals);
    EXPECT_EQ(test::values(mesh), test::values(a));
}

TEST(ZyrTriangleMesh, ThreeIndicesAreATriangleAndARemainderIsIgnored) {
    const int expected[] = {0, 0, 0, 1, 1, 1, 2, 2};
    for (int length = 0; length < 8; ++length) {
        std::vector<int> flat(static_cast<std::size_t>(length), 1);
        const ZyrTriangleMesh mesh(ZyrVector3dArray(), test::indices(flat));
        EXPECT_EQ(mesh.NumTriangles(), expected[length]) << length;
    }
}

TEST(ZyrTriangleMesh, AttributesArePresentWhenAsManyAsWhatTheyBelongTo) {
    for (int length = 0; length < 6; ++length) {
        const ZyrTriangleMesh mesh = withAttributes(length);
        EXPECT_EQ(mesh.IsValidVertexColor(), length == 4);
        EXPECT_EQ(mesh.IsValidVertexNormal(), length == 4);
        EXPECT_EQ(mesh.IsValidTriangleColor(), length == 2);
        EXPECT_EQ(mesh.IsValidTriangleNormal(), length == 2);
    }
}

TEST(ZyrTriangleMesh, TriangleAttributesAreHeldAgainstWholeTriangles) {
    MeshArrays arrays = test::fullArrays();
    arrays.triangles = test::indices({0, 1, 2, 2, 1, 3, 0});
    EXPECT_TRUE(arrays.mesh().IsValidTriangleColor());
    EXPECT_TRUE(arrays.mesh().IsValidTriangleNormal());
}

TEST(ZyrTriangleMesh, ColoursOfAGridCountByRowsTimesColumns) {
    MeshArrays arrays = test::fullArrays();
    ZyrColorArray grid;
    test::held<cv::Mat>(grid) = cv::Mat::zeros(2, 2, CV_8UC1);
    arrays.vertexColors = arrays.triangleColors = grid;
    EXPECT_TRUE(arrays.mesh().IsValidVertexColor());
    EXPECT_FALSE(arrays.mesh().IsValidTriangleColor());
}

TEST(ZyrTriangleMesh, AttributesOfAnotherLengthAreKept) {
    ZyrTriangleMesh mesh = withAttributes(3);
    EXPECT_EQ(mesh.DeepCopyVertexNormal().Length(), 3);
    EXPECT_EQ(mesh.DeepCopyTriangleColor().Length(), 3);
}

TEST(ZyrTriangleMesh, DataAreTheFlatBuffersOfTheLists) {
    const MeshArrays a = test::fullArrays();
    ZyrTriangleMesh mesh = a.mesh();
    EXPECT_EQ(mesh.VertexData(), a.vertices.Data());
    EXPECT_EQ(mesh.VertexNormalData(), a.vertexNormals.Data());
    EXPECT_EQ(mesh.VertexColorData(), a.vertexColors.Data());
    EXPECT_EQ(mesh.TriangleData(), a.triangles.Data());
    EXPECT_EQ(mesh.TriangleNormData(), a.triangleNormals.Data());
    EXPECT_EQ(mesh.TriangleColorData(), a.triangleColors.Data());
}

TEST(ZyrTriangleMesh, DataOfEmptyListsAreNull) {
    ZyrTriangleMesh mesh;
    EXPECT_EQ(mesh.VertexData(), nullptr);
    EXPECT_EQ(mesh.VertexNormalData(), nullptr);
    EXPECT_EQ(mesh.VertexColorData(), nullptr);
    EXPECT_EQ(mesh.TriangleData(), nullptr);
    EXPECT_EQ(mesh.TriangleNormData(), nullptr);
    EXPECT_EQ(mesh.TriangleColorData(), nullptr);
}

TEST(ZyrTriangleMesh, HasNoVirtualOperations) {
    EXPECT_FALSE(std::is_polymorphic<ZyrTriangleMesh>::value);
}

TEST(ZyrTriangleMesh, ValidVerticesAreCounted) {
    const double infinity = std::numeric_limits<double>::infinity();
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double belowMark = std::nextafter(test::kInvalid, 0.0);
    const ZyrTriangleMesh mesh(
        test::vectors({0, 0, 0, test::kInvalid, 0, 0, 0, infinity, 0, 0, 0, -infinity, nan, 0, 0,
                       belowMark, belowMark, belowMark}),
        Zyr3DIntArray());
    const std::vector<bool> expected = {true, false, false, true, false, true};
    for (int i = 0; i < 6; ++i)
        EXPECT_EQ(mesh.IsValidVertex(i), expected[static_cast<std::size_t>(i)]) << i;
    EXPECT_EQ(mesh.NumVertices(), 6);
    EXPECT_EQ(mesh.NumValidVertices(), 3);
}

TEST(ZyrTriangleMesh, VertexOutOfRangeIsNotValid) {
    const ZyrTriangleMesh mesh = test::fullMesh();
    for (const int i : {-2147483647 - 1, -1, 4, 5, 2147483647})
        EXPECT_FALSE(mesh.IsValidVertex(i)) << i;
    EXPECT_FALSE(ZyrTriangleMesh().IsValidVertex(0));
}

TEST(ZyrTriangleMesh, IsSixPointersVerticesFirstEachFollowedByItsNormalsAndColours) {
    const MeshArrays a = test::fullArrays();
    const ZyrTriangleMesh mesh = a.mesh();
    static_assert(sizeof mesh == 6 * sizeof(void*));
    EXPECT_EQ(stored<ZyrVector3dArray>(mesh, 0).Data(), a.vertices.Data());
    EXPECT_EQ(stored<ZyrVector3dArray>(mesh, 1).Data(), a.vertexNormals.Data());
    EXPECT_EQ(stored<ZyrColorArray>(mesh, 2).Data(), a.vertexColors.Data());
    EXPECT_EQ(stored<Zyr3DIntArray>(mesh, 3).Data(), a.triangles.Data());
    EXPECT_EQ(stored<ZyrVector3dArray>(mesh, 4).Data(), a.triangleNormals.Data());
    EXPECT_EQ(stored<ZyrColorArray>(mesh, 5).Data(), a.triangleColors.Data());
}
