#include <gtest/gtest.h>

#include "support/Meshes.h"

using test::MeshArrays;
using test::MeshValues;

namespace {

const int kMin = -2147483647 - 1;
const int kMax = 2147483647;

/// Three vertices, the triangle (0, 1, 2), and all attributes; colours as fullArrays() has them.
MeshArrays smallArrays() {
    return {test::vectorsFrom(3, 501), test::vectorsFrom(3, 601), test::colorsFrom(3, 3, 110),
            test::indices({0, 1, 2}),  test::vectorsFrom(1, 701), test::colorsFrom(1, 4, 150)};
}

template <class T>
std::vector<T> joined(std::vector<T> first, const std::vector<T>& second) {
    for (const T& value : second) first.push_back(value);
    return first;
}

/// fullArrays() with smallArrays() behind, whose indices are 4 more: worked out by hand.
MeshValues whole() {
    const MeshValues full = test::values(test::fullArrays());
    const MeshValues small = test::values(smallArrays());
    return {joined(full.vertices, small.vertices),
            joined(full.vertexNormals, small.vertexNormals),
            joined(full.vertexColors, small.vertexColors),
            {0, 1, 2, 2, 1, 3, 4, 5, 6},
            joined(full.triangleNormals, small.triangleNormals),
            joined(full.triangleColors, small.triangleColors)};
}

std::vector<int> appendedTriangles(std::vector<int> first, std::vector<int> second) {
    ZyrTriangleMesh mesh(test::vectorsFrom(4, 0), test::indices(first));
    mesh.Append(ZyrTriangleMesh(test::vectorsFrom(1, 0), test::indices(second)));
    return test::values(mesh.DeepCopyTriangle());
}

/// The mesh's lists without those whose bit is set.
MeshArrays without(MeshArrays arrays, unsigned lists) {
    if (lists & 1) arrays.vertexColors = ZyrColorArray();
    if (lists & 2) arrays.vertexNormals = ZyrVector3dArray();
    if (lists & 4) arrays.triangleColors = ZyrColorArray();
    if (lists & 8) arrays.triangleNormals = ZyrVector3dArray();
    return arrays;
}

}  // namespace

TEST(MeshAppend, AllListsTravel) {
    ZyrTriangleMesh mesh = test::fullMesh();
    EXPECT_TRUE(mesh.Append(smallArrays().mesh()));
    EXPECT_EQ(test::values(mesh), whole());
    EXPECT_TRUE(mesh.IsValidVertexColor() && mesh.IsValidVertexNormal());
    EXPECT_TRUE(mesh.IsValidTriangleColor() && mesh.IsValidTriangleNormal());
}

TEST(MeshAppend, ListThatTheOtherLacksStaysAsItIs) {
    for (unsigned lists = 0; lists < 16; ++lists) {
        ZyrTriangleMesh mesh = test::fullMesh();
        EXPECT_EQ(mesh.Append(without(smallArrays(), lists).mesh()), lists == 0);
        const MeshValues before = test::values(test::fullArrays());
        MeshValues expected = whole();
        if (lists & 1) expected.vertexColors = before.vertexColors;
        if (lists & 2) expected.vertexNormals = before.vertexNormals;
        if (lists & 4) expected.triangleColors = before.triangleColors;
        if (lists & 8) expected.triangleNormals = before.triangleNormals;
        EXPECT_EQ(test::values(mesh), expected) << lists;
    }
}

TEST(MeshAppend, ListThatTheMeshLacksStaysEmpty) {
    for (unsigned lists = 0; lists < 16; ++lists) {
        ZyrTriangleMesh mesh = without(test::fullArrays(), lists).mesh();
        EXPECT_EQ(mesh.Append(smallArrays().mesh()), lists == 0);
        MeshValues expected = whole();
        if (lists & 1) expected.vertexColors.clear();
        if (lists & 2) expected.vertexNormals.clear();
        if (lists & 4) expected.triangleColors.clear();
        if (lists & 8) expected.triangleNormals.clear();
        EXPECT_EQ(test::values(mesh), expected) << lists;
    }
}

TEST(MeshAppend, ListOfAnotherLengthStaysAsItIs) {
    MeshArrays arrays = test::fullArrays();
    arrays.vertexNormals = test::vectorsFrom(1, 0);
    arrays.triangleColors = test::colorsFrom(3, 4, 0);
    ZyrTriangleMesh mesh = arrays.mesh();
    EXPECT_FALSE(mesh.Append(smallArrays().mesh()));
    EXPECT_EQ(mesh.DeepCopyVertexNormal().Length(), 1);
    EXPECT_EQ(mesh.DeepCopyTriangleColor().Length(), 3);
    EXPECT_EQ(mesh.DeepCopyVertexColor().Length(), 7);
    EXPECT_EQ(mesh.DeepCopyTriangleNormal().Length(), 3);
}

TEST(MeshAppend, WhatTravelsIsDecidedBeforeAnythingIsAppended) {
    // Seven normals fit only the vertices to come, four only those that are there.
    MeshArrays arrays = test::fullArrays();
    arrays.vertexNormals = test::vectorsFrom(7, 0);
    ZyrTriangleMesh mesh = arrays.mesh();
    EXPECT_FALSE(mesh.Append(smallArrays().mesh()));
    EXPECT_EQ(mesh.DeepCopyVertexNormal().Length(), 7);
    EXPECT_EQ(mesh.DeepCopyVertexColor().Length(), 7);
}

TEST(MeshAppend, FourVerticesAndThreeGiveSevenAndTheTriangle456) {
    ZyrTriangleMesh mesh(test::vectorsFrom(4, 0), Zyr3DIntArray());
    mesh.SetVertexColors(test::colorsFrom(4, 3, 0));
    EXPECT_FALSE(mesh.Append(ZyrTriangleMesh(test::vectorsFrom(3, 0), test::indices({0, 1, 2}))));
    EXPECT_EQ(mesh.NumVertices(), 7);
    EXPECT_EQ(test::values(mesh.DeepCopyTriangle()), (std::vector<int>{4, 5, 6}));
    EXPECT_EQ(mesh.DeepCopyVertexColor().Length(), 4);
    EXPECT_FALSE(mesh.IsValidVertexColor());
}

TEST(MeshAppend, IndicesAreShiftedWhateverTheirValue) {
    EXPECT_EQ(appendedTriangles({}, {-1, 100, kMin}), (std::vector<int>{3, 104, kMin + 4}));
}

TEST(MeshAppend, ShiftedIndicesWrapAround) {
    EXPECT_EQ(appendedTriangles({}, {kMax, kMax - 3, kMax - 4}),
              (std::vector<int>{kMin + 3, kMin, kMax}));
}

TEST(MeshAppend, OthersRemainderStaysBehind) {
    EXPECT_EQ(appendedTriangles({9, 9, 9}, {0, 1, 2, 3, 4}), (std::vector<int>{9, 9, 9, 4, 5, 6}));
    EXPECT_EQ(appendedTriangles({}, {0, 1}), std::vector<int>());
}

TEST(MeshAppend, OwnRemainderStaysAndShiftsTheTrianglesBehindIt) {
    EXPECT_EQ(appendedTriangles({9, 9, 9, 8}, {0, 1, 2}), (std::vector<int>{9, 9, 9, 8, 4, 5, 6}));
}

TEST(MeshAppend, OtherStaysAsItIs) {
    const MeshArrays other = smallArrays();
    ZyrTriangleMesh mesh = test::fullMesh();
    mesh.Append(other.mesh());
    mesh.ReplaceVertex(4, ZyrVector3d());
    mesh.ReplaceTriangle(2, 9, 9, 9);
    EXPECT_EQ(test::values(other), test::values(smallArrays()));
}

TEST(MeshAppend, SharersSeeAllButTheColours) {
    const MeshArrays arrays = test::fullArrays();
    ZyrTriangleMesh mesh = arrays.mesh();
    mesh.Append(smallArrays().mesh());
    MeshValues expected = whole();
    expected.vertexColors = test::values(test::fullArrays()).vertexColors;
    expected.triangleColors = test::values(test::fullArrays()).triangleColors;
    EXPECT_EQ(test::values(arrays), expected);
}

TEST(MeshAppend, ToAnEmptyMeshGivesACopyOfItsOwn) {
    const MeshArrays other = test::fullArrays();
    ZyrTriangleMesh mesh;
    EXPECT_TRUE(mesh.Append(other.mesh()));
    EXPECT_EQ(test::values(mesh), test::values(other));
    mesh.Clear();
    EXPECT_EQ(test::values(other), test::values(test::fullArrays()));
}

TEST(MeshAppend, OfAnEmptyMeshChangesNothing) {
    ZyrTriangleMesh mesh = test::fullMesh();
    EXPECT_TRUE(mesh.Append(ZyrTriangleMesh()));
    EXPECT_EQ(test::values(mesh), test::values(test::fullArrays()));
}

TEST(MeshAppend, OfEmptyToEmptyIsTrue) {
    ZyrTriangleMesh mesh;
    EXPECT_TRUE(mesh.Append(ZyrTriangleMesh()));
    EXPECT_EQ(mesh.NumVertices() + mesh.NumTriangles(), 0);
}

TEST(MeshAppend, MeshAppendedToItselfIsThereTwice) {
    ZyrTriangleMesh mesh = test::fullMesh();
    EXPECT_TRUE(mesh.Append(mesh));
    const MeshValues once = test::values(test::fullArrays());
    EXPECT_EQ(test::values(mesh), (MeshValues{joined(once.vertices, once.vertices),
                                              joined(once.vertexNormals, once.vertexNormals),
                                              joined(once.vertexColors, once.vertexColors),
                                              {0, 1, 2, 2, 1, 3, 4, 5, 6, 6, 5, 7},
                                              joined(once.triangleNormals, once.triangleNormals),
                                              joined(once.triangleColors, once.triangleColors)}));
}

TEST(MeshAppend, MeshWithARemainderAppendedToItselfAppendsWholeTriangles) {
    ZyrTriangleMesh mesh(test::vectorsFrom(2, 0), test::indices({0, 1, 0, 7}));
    mesh.Append(mesh);
    EXPECT_EQ(test::values(mesh.DeepCopyTriangle()), (std::vector<int>{0, 1, 0, 7, 2, 3, 2}));
}

TEST(MeshAppend, SharerIsAppendedAsItWasBefore) {
    ZyrTriangleMesh mesh = test::fullMesh();
    const ZyrTriangleMesh sharer = mesh;
    EXPECT_TRUE(mesh.Append(sharer));
    EXPECT_EQ(mesh.NumVertices(), 8);
    EXPECT_EQ(test::values(mesh.DeepCopyTriangle()),
              (std::vector<int>{0, 1, 2, 2, 1, 3, 4, 5, 6, 6, 5, 7}));
    EXPECT_TRUE(mesh.IsValidVertexColor() && mesh.IsValidTriangleColor());
}

TEST(MeshAppend, ColoursOfAnotherChannelCountStayBehindUnreported) {
    MeshArrays other = smallArrays();
    other.vertexColors = test::colorsFrom(3, 4, 0);
    ZyrTriangleMesh mesh = test::fullMesh();
    EXPECT_TRUE(mesh.Append(other.mesh()));
    EXPECT_EQ(mesh.DeepCopyVertexColor().Length(), 4);
    EXPECT_FALSE(mesh.IsValidVertexColor());
}
