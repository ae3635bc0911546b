#include <gtest/gtest.h>

#include "support/Meshes.h"

/// Who shares a mesh's lists, and what clearing, setting and assigning do to them.

using test::MeshArrays;
using test::MeshValues;

namespace {

/// The lengths of the six lists, in the order of MeshArrays.
std::vector<int> lengths(const MeshArrays& a) {
    return {a.vertices.Length(),  a.vertexNormals.Length(),   a.vertexColors.Length(),
            a.triangles.Length(), a.triangleNormals.Length(), a.triangleColors.Length()};
}

std::vector<int> lengths(ZyrTriangleMesh mesh) {
    return lengths({mesh.DeepCopyVertex(), mesh.DeepCopyVertexNormal(), mesh.DeepCopyVertexColor(),
                    mesh.DeepCopyTriangle(), mesh.DeepCopyTriangleNormal(),
                    mesh.DeepCopyTriangleColor()});
}

/// Changes the first element of each list through the mesh's buffers.
void changeFirst(ZyrTriangleMesh& mesh) {
    *mesh.VertexData() = -1;
    *mesh.VertexNormalData() = -2;
    *mesh.VertexColorData() = 253;
    *mesh.TriangleData() = -4;
    *mesh.TriangleNormData() = -5;
    *mesh.TriangleColorData() = 250;
}

const std::vector<int> kFull = {4, 4, 4, 6, 2, 2};
/// What clearing leaves of lists that are shared: a colour array lets go of its own matrix only.
const std::vector<int> kOnlyColors = {0, 0, 4, 0, 0, 2};
const std::vector<int> kNone = {0, 0, 0, 0, 0, 0};

}  // namespace

TEST(MeshSharing, ConstructedMeshSharesItsLists) {
    const MeshArrays arrays = test::fullArrays();
    ZyrTriangleMesh mesh = arrays.mesh();
    changeFirst(mesh);
    EXPECT_EQ(test::values(arrays), test::values(mesh));
}

TEST(MeshSharing, MeshOfTwoOrFourListsSharesThem) {
    const MeshArrays a = test::fullArrays();
    ZyrTriangleMesh two(a.vertices, a.triangles);
    ZyrTriangleMesh four(a.vertices, a.triangles, a.vertexColors, a.triangleColors);
    EXPECT_EQ(two.VertexData(), a.vertices.Data());
    EXPECT_EQ(two.TriangleData(), a.triangles.Data());
    EXPECT_EQ(four.VertexData(), a.vertices.Data());
    EXPECT_EQ(four.TriangleData(), a.triangles.Data());
    EXPECT_EQ(four.VertexColorData(), a.vertexColors.Data());
    EXPECT_EQ(four.TriangleColorData(), a.triangleColors.Data());
}

TEST(MeshSharing, CopySharesAllLists) {
    ZyrTriangleMesh mesh = test::fullMesh();
    const ZyrTriangleMesh copy(mesh);
    changeFirst(mesh);
    EXPECT_EQ(test::values(copy), test::values(mesh));
}

TEST(MeshSharing, CopyingLeavesTheSourceAlone) {
    const ZyrTriangleMesh mesh = test::fullMesh();
    const ZyrTriangleMesh copy(mesh);
    EXPECT_EQ(test::values(mesh), test::values(test::fullArrays()));
}

TEST(MeshSharing, AssignmentSharesAllLists) {
    ZyrTriangleMesh mesh = test::fullMesh(), target;
    target = mesh;
    changeFirst(mesh);
    EXPECT_EQ(test::values(target), test::values(mesh));
}

TEST(MeshSharing, AssignmentGivesTheTarget) {
    ZyrTriangleMesh mesh = test::fullMesh(), target;
    EXPECT_EQ(&(target = mesh), &target);
}

TEST(MeshSharing, AssignmentEmptiesWhatTheTargetShared) {
    const MeshArrays arrays = test::fullArrays();
    ZyrTriangleMesh target = arrays.mesh();
    const ZyrTriangleMesh sharer = target;
    target = ZyrTriangleMesh(test::vectorsFrom(1, 0), test::indices({0, 0, 0}));
    EXPECT_EQ(lengths(arrays), kOnlyColors);
    EXPECT_EQ(lengths(sharer), kOnlyColors);
    EXPECT_EQ(target.NumVertices(), 1);
}

TEST(MeshSharing, AssignmentOfAMeshToItselfEmptiesIt) {
    ZyrTriangleMesh mesh = test::fullMesh();
    ZyrTriangleMesh& same = mesh;
    mesh = same;
    EXPECT_EQ(lengths(mesh), kNone);
}

TEST(MeshSharing, AssignmentOfASharerEmptiesBothSaveTheColours) {
    ZyrTriangleMesh mesh = test::fullMesh();
    const ZyrTriangleMesh sharer = mesh;
    mesh = sharer;
    EXPECT_EQ(lengths(mesh), kOnlyColors);
    EXPECT_EQ(lengths(sharer), kOnlyColors);
}

TEST(MeshSharing, ClearingTheSourceOfAnAssignmentEmptiesTheTarget) {
    ZyrTriangleMesh a = test::fullMesh(), b;
    b = a;
    a.Clear();
    EXPECT_EQ(lengths(a), kNone);
    EXPECT_EQ(lengths(b), kOnlyColors);
}

TEST(MeshSharing, ClearingTheSourceOfADeepCopyLeavesTheCopy) {
    ZyrTriangleMesh a = test::fullMesh(), b;
    b = a.DeepCopy();
    a.Clear();
    EXPECT_EQ(test::values(b), test::values(test::fullArrays()));
}

TEST(MeshSharing, DeepCopySharesNothing) {
    ZyrTriangleMesh mesh = test::fullMesh();
    ZyrTriangleMesh copy = mesh.DeepCopy();
    changeFirst(mesh);
    EXPECT_EQ(test::values(copy), test::values(test::fullArrays()));
}

TEST(MeshSharing, DeepCopiesOfListsShareNothing) {
    ZyrTriangleMesh mesh = test::fullMesh();
    const MeshArrays copies = {mesh.DeepCopyVertex(),         mesh.DeepCopyVertexNormal(),
                               mesh.DeepCopyVertexColor(),    mesh.DeepCopyTriangle(),
                               mesh.DeepCopyTriangleNormal(), mesh.DeepCopyTriangleColor()};
    changeFirst(mesh);
    EXPECT_EQ(test::values(copies), test::values(test::fullArrays()));
}

TEST(MeshSharing, DeepCopyOfAnEmptyMeshIsEmpty) {
    EXPECT_EQ(lengths(ZyrTriangleMesh().DeepCopy()), kNone);
}

TEST(MeshSharing, ListsOutliveTheirMesh) {
    const MeshArrays arrays = test::fullArrays();
    { const ZyrTriangleMesh mesh = arrays.mesh(); }
    EXPECT_EQ(test::values(arrays), test::values(test::fullArrays()));
}

TEST(MeshSharing, ReplacementsAreSeenByAllWhoShare) {
    const MeshArrays arrays = test::fullArrays();
    ZyrTriangleMesh mesh = arrays.mesh();
    ZyrColor color(1, 2, 3, 4);
    mesh.ReplaceVertex(3, ZyrVector3d(7, 8, 9));
    mesh.ReplaceTriangle(1, 5, 6, 7);
    mesh.ReplaceVertexColor(3, color);
    mesh.ReplaceTriangleColor(1, color);
    EXPECT_EQ(test::values(arrays.vertices[3]), (std::vector<double>{7, 8, 9}));
    EXPECT_EQ(test::values(arrays.triangles), (std::vector<int>{0, 1, 2, 5, 6, 7}));
    EXPECT_EQ(test::values(arrays.vertexColors[3]), (std::vector<int>{1, 2, 3, 255}));
    EXPECT_EQ(test::values(arrays.triangleColors[1]), (std::vector<int>{1, 2, 3, 4}));
}

TEST(MeshClearing, EachOperationClearsItsOneList) {
    using Operation = void (ZyrTriangleMesh::*)();
    const Operation operations[] = {
        &ZyrTriangleMesh::ClearVertices,       &ZyrTriangleMesh::ClearVertexNormal,
        &ZyrTriangleMesh::ClearVertexColors,   &ZyrTriangleMesh::ClearTriangles,
        &ZyrTriangleMesh::ClearTriangleNormal, &ZyrTriangleMesh::ClearTriangleColors};
    for (std::size_t i = 0; i < 6; ++i) {
        ZyrTriangleMesh mesh = test::fullMesh();
        (mesh.*operations[i])();
        std::vector<int> expected = kFull;
        expected[i] = 0;
        EXPECT_EQ(lengths(mesh), expected) << i;
    }
}

TEST(MeshClearing, IsSeenByAllWhoShareSaveForColours) {
    const MeshArrays arrays = test::fullArrays();
    ZyrTriangleMesh mesh = arrays.mesh();
    mesh.ClearVertices();
    EXPECT_EQ(lengths(arrays), (std::vector<int>{0, 4, 4, 6, 2, 2}));
    mesh.ClearVertexNormal();
    EXPECT_EQ(lengths(arrays), (std::vector<int>{0, 0, 4, 6, 2, 2}));
    mesh.ClearTriangles();
    EXPECT_EQ(lengths(arrays), (std::vector<int>{0, 0, 4, 0, 2, 2}));
    mesh.ClearTriangleNormal();
    mesh.ClearVertexColors();
    mesh.ClearTriangleColors();
    EXPECT_EQ(lengths(arrays), kOnlyColors);
}

TEST(MeshClearing, OfAllEmptiesTheSixLists) {
    const MeshArrays arrays = test::fullArrays();
    ZyrTriangleMesh mesh = arrays.mesh();
    mesh.Clear();
    EXPECT_EQ(lengths(mesh), kNone);
    EXPECT_EQ(lengths(arrays), kOnlyColors);
    EXPECT_EQ(mesh.VertexColorData(), nullptr);
}

TEST(MeshSetting, VerticesAreSharedAndTheOldListIsEmptied) {
    const MeshArrays old = test::fullArrays();
    const ZyrVector3dArray vertices = test::vectorsFrom(5, 0);
    ZyrTriangleMesh mesh = old.mesh();
    mesh.SetVertices(vertices);
    EXPECT_EQ(mesh.VertexData(), vertices.Data());
    EXPECT_EQ(lengths(old), (std::vector<int>{0, 4, 4, 6, 2, 2}));
    EXPECT_EQ(lengths(mesh), (std::vector<int>{5, 4, 4, 6, 2, 2}));
}

TEST(MeshSetting, TrianglesAreSharedAndTheOldListIsEmptied) {
    const MeshArrays old = test::fullArrays();
    const Zyr3DIntArray triangles = test::indices({0, 1, 2});
    ZyrTriangleMesh mesh = old.mesh();
    mesh.SetTriangles(triangles);
    EXPECT_EQ(mesh.TriangleData(), triangles.Data());
    EXPECT_EQ(lengths(old), (std::vector<int>{4, 4, 4, 0, 2, 2}));
    EXPECT_EQ(lengths(mesh), (std::vector<int>{4, 4, 4, 3, 2, 2}));
}

TEST(MeshSetting, VertexColoursAreSharedAndSharersOfTheOldOnesKeepThem) {
    const MeshArrays old = test::fullArrays();
    const ZyrColorArray colors = test::colorsFrom(5, 4, 0);
    ZyrTriangleMesh mesh = old.mesh();
    mesh.SetVertexColors(colors);
    EXPECT_EQ(mesh.VertexColorData(), colors.Data());
    EXPECT_EQ(lengths(old), kFull);
    EXPECT_EQ(lengths(mesh), (std::vector<int>{4, 4, 5, 6, 2, 2}));
}

TEST(MeshSetting, TriangleColoursAreSharedAndTheOldOnesAreNotCleared) {
    const MeshArrays old = test::fullArrays();
    const ZyrColorArray colors = test::colorsFrom(3, 4, 0);
    ZyrTriangleMesh mesh = old.mesh();
    mesh.SetTriangleColors(colors);
    EXPECT_EQ(mesh.TriangleColorData(), colors.Data());
    EXPECT_EQ(lengths(old), kFull);
    EXPECT_EQ(lengths(mesh), (std::vector<int>{4, 4, 4, 6, 2, 3}));
}

TEST(MeshSetting, ListThatTheMeshSharesAlreadyIsEmptied) {
    const MeshArrays arrays = test::fullArrays();
    ZyrTriangleMesh mesh = arrays.mesh();
    mesh.SetVertices(arrays.vertices);
    mesh.SetTriangles(arrays.triangles);
    mesh.SetVertexColors(arrays.vertexColors);
    mesh.SetTriangleColors(arrays.triangleColors);
    EXPECT_EQ(lengths(mesh), (std::vector<int>{0, 4, 4, 0, 2, 2}));
}
