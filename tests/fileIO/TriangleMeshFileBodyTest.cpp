#include <gtest/gtest.h>

#include "support/GoldenMesh.h"

/// Bodies of a size or a stream that is not sound, and what a load leaves of the old lists.

using test::all;
using test::Bytes;
using test::bytesOf;
using test::LoadedMesh;
using test::MeshHeader;

namespace {

using Values = std::vector<double>;

const Values kVertices = {1, 2, 3, 4, 5, 6};
const std::vector<int> kTriangle = {7, 8, 9};

/// Of two vertices.
Bytes doubles() {
    return bytesOf<double>({1, 4, 2, 5, 3, 6});
}

Bytes corners() {
    return bytesOf<int>({7, 8, 9});
}

LoadedMesh load(const MeshHeader& header, const Bytes& body) {
    return test::loadMesh(test::meshFile(header, body));
}

LoadedMesh loadStream(const Bytes& stream) {
    return test::loadMesh(
        test::joined(MeshHeader(2, 1).bytes(), test::meshStream(4, 4, stream, 60)));
}

void expectPlain(const LoadedMesh& mesh) {
    EXPECT_TRUE(mesh.isLoaded);
    EXPECT_EQ(test::values(mesh.vertices), kVertices);
    EXPECT_EQ(test::values(mesh.triangles), kTriangle);
}

}  // namespace

TEST(MeshBody, SizeWordOfTheColumnsIsNotConsulted) {
    const Bytes stream = test::literalStream(all({doubles(), corners()}));
    for (const std::uint32_t size : {0U, 1U, 59U, 61U, 0xFFFFFFFFU})
        expectPlain(test::loadMesh(
            test::joined(MeshHeader(2, 1).bytes(), test::meshStream(4, 4, stream, size))));
}

TEST(MeshBody, StreamOfAnotherNumberOfBytesIsRefused) {
    for (const std::size_t size : {0U, 1U, 48U, 59U, 61U, 1000U})
        EXPECT_FALSE(load(MeshHeader(2, 1), Bytes(size)).isLoaded) << size;
}

TEST(MeshBody, StreamThatEndsInsideAChunkIsRefused) {
    const Bytes stream = test::literalStream(all({doubles(), corners()}));
    for (std::size_t size = 0; size < stream.size(); ++size)
        EXPECT_FALSE(loadStream(test::prefix(stream, size)).isLoaded) << size;
    EXPECT_TRUE(loadStream(stream).isLoaded);
}

TEST(MeshBody, ReferenceBeforeTheBodyIsRefused) {
    EXPECT_FALSE(loadStream({7 << 5, 51, 0}).isLoaded);
}

TEST(MeshBody, ReferenceBeforeTheBodyIsRefusedInACutFileToo) {
    Bytes file =
        test::joined(MeshHeader(2, 1).bytes(), test::meshStream(4, 4, {7 << 5, 51, 0}, 60));
    file[MeshHeader(2, 1).bytes().size() + 8] = 100;
    EXPECT_FALSE(test::loadMesh(file).isLoaded);
}

TEST(MeshBody, BackReferencesAreRead) {
    const LoadedMesh mesh = loadStream({0, 0, 7 << 5, 50, 0});
    EXPECT_TRUE(mesh.isLoaded);
    EXPECT_EQ(test::values(mesh.vertices), Values(6, 0.0));
}

TEST(MeshBody, UncompressedBytesDeclaredBinaryAreRefused) {
    const Bytes raw = all({doubles(), corners()});
    MeshHeader header = MeshHeader(2, 1).kind("binary");
    EXPECT_FALSE(test::loadMesh(all({header.bytes(), bytesOf<std::uint32_t>({4, 4, 60, 60}), raw}))
                     .isLoaded);
}

TEST(MeshBody, StatedStreamSizeBeyondTheFileGivesWhatIsThere) {
    Bytes file = test::meshFile(MeshHeader(2, 1), all({doubles(), corners()}));
    const std::size_t sizeWord = MeshHeader(2, 1).bytes().size() + 8;
    for (const unsigned char high : Bytes{0x01, 0x7F, 0xFF}) {
        file[sizeWord + 3] = high;
        expectPlain(test::loadMesh(file));
    }
}

TEST(MeshBody, RefusedFileLeavesTheListsAsTheyWere) {
    test::MeshLists mesh = test::fullGoldenMesh();
    EXPECT_FALSE(mesh.load(test::meshFile(MeshHeader(2, 1), Bytes(59))));
    EXPECT_EQ(mesh.vertices.Length() + mesh.triangles.Length() + mesh.vertexNormals.Length() +
                  mesh.triangleNormals.Length() + mesh.vertexColors.cols + mesh.triangleColors.cols,
              4 + 9 + 4 + 3 + 4 + 3);
}

TEST(MeshBody, OldElementsAreReplaced) {
    test::MeshLists mesh = test::fullGoldenMesh();
    EXPECT_TRUE(mesh.load(test::meshFile(MeshHeader(2, 1), all({doubles(), corners()}))));
    EXPECT_EQ(test::values(mesh.vertices), kVertices);
    EXPECT_EQ(test::values(mesh.triangles), kTriangle);
    EXPECT_EQ(mesh.vertexNormals.Length() + mesh.triangleNormals.Length(), 0);
}

TEST(MeshBody, NoVerticesGiveFalse) {
    EXPECT_FALSE(load(MeshHeader(0, 0), {}).isLoaded);
    EXPECT_FALSE(load(MeshHeader(0, 1), corners()).isLoaded);
}

TEST(MeshBody, NoTrianglesLoad) {
    const LoadedMesh mesh =
        load(MeshHeader(2, 0).columns("x y z fa fb fc fnx fny fnz frgb", "8 8 8 4 4 4 8 8 8 4"),
             doubles());
    EXPECT_TRUE(mesh.isLoaded);
    EXPECT_EQ(test::values(mesh.vertices), kVertices);
    EXPECT_EQ(mesh.triangles.Length() + mesh.triangleNormals.Length(), 0);
    EXPECT_EQ(mesh.triangleColors.total(), 0U);
}

TEST(MeshBody, ListThatServesAsVerticesAndUnwantedNormalsGetsTheVertices) {
    test::MeshLists mesh;
    mesh.vertexNormals = mesh.triangleNormals = mesh.vertices;
    EXPECT_TRUE(mesh.load(test::meshFile(MeshHeader(2, 1), all({doubles(), corners()}))));
    EXPECT_EQ(test::values(mesh.vertices), kVertices);
}

TEST(MeshBody, ListThatServesAsVerticesAndLongerNormalsIsNotOverrun) {
    test::MeshLists mesh;
    mesh.triangleNormals = mesh.vertices;
    const MeshHeader header =
        MeshHeader(2, 100).columns("x y z fa fb fc fnx fny fnz", "8 8 8 4 4 4 8 8 8");
    EXPECT_TRUE(mesh.load(test::meshFile(header, Bytes(48 + 1200 + 2400))));
    EXPECT_EQ(mesh.vertices.Length(), 2);
}
