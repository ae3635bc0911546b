#include <gtest/gtest.h>

#include "support/MeshFile.h"
#include "support/ZyrValues.h"

/// The worked bytes of docs/formats/triangle-mesh.md.

using test::Bytes;
using test::MeshLists;

namespace {

const Bytes kBody = {
    0, 0, 0,    0,    0, 0,    0,    0,    0,    0,    0,    0,    0, 0, 0xF0, 0x3F,  // x
    0, 0, 0,    0,    0, 0,    0,    0,                                               //
    0, 0, 0,    0,    0, 0,    0,    0,    0,    0,    0,    0,    0, 0, 0,    0,     // y
    0, 0, 0,    0,    0, 0,    0,    0x40,                                            //
    0, 0, 0,    0,    0, 0,    0,    0,    0,    0,    0,    0,    0, 0, 0,    0,     // z
    0, 0, 0,    0,    0, 0,    0,    0,                                               //
    0, 0, 0xFF, 0xFF, 0, 0xFF, 0,    0xFF, 0xC0, 0x01, 0x80, 0xFF,                    // rgb
    0, 0, 0,    0,    1, 0,    0,    0,    2,    0,    0,    0,                       // fa fb fc
    0, 0, 0,    0,    0, 0,    0,    0,    0,    0,    0,    0,    0, 0, 0,    0,     // fnx fny
    0, 0, 0,    0,    0, 0,    0xF0, 0x3F};                                           // fnz

MeshLists worked() {
    MeshLists mesh;
    mesh.vertices = test::vectors({0, 0, 0, 1, 0, 0, 0, 2, 0});
    mesh.vertexColors = test::colorRow({0, 0, 255, 0, 255, 0, 192, 1, 128}, 3);
    mesh.triangles = test::indices({0, 1, 2});
    mesh.triangleNormals = test::vectors({0, 0, 1});
    return mesh;
}

}  // namespace

TEST(MeshDocument, WorkedBytesAreWritten) {
    const test::MemoryFile file({});
    ASSERT_TRUE(worked().save(file.path(), true, true));
    const test::MeshParts parts(test::readFile(file.path()));
    EXPECT_EQ(parts.header.size(), 252U);
    EXPECT_EQ(parts.line("FIELDS"), "FIELDS x y z rgb fa fb fc fnx fny fnz");
    EXPECT_EQ(parts.vertexChannels, 3U);
    EXPECT_EQ(parts.triangleChannels, 4U);
    EXPECT_EQ(parts.bodySize, 0x78U);
    EXPECT_EQ(parts.body(), kBody);
    EXPECT_LT(parts.streamSize, 0x7CU);
}

TEST(MeshDocument, WorkedBytesAreRead) {
    const test::MeshHeader header =
        test::MeshHeader(3, 1).columns("x y z rgb fa fb fc fnx fny fnz", "8 8 8 4 4 4 4 8 8 8");
    const Bytes body = test::meshBody(3, 4, kBody);
    ASSERT_EQ(body.size(), 16U + 0x7C);
    const test::LoadedMesh mesh = test::loadMesh(test::joined(header.bytes(), body));
    EXPECT_TRUE(mesh.isLoaded);
    EXPECT_EQ(test::values(mesh.vertices), test::values(worked().vertices));
    EXPECT_EQ(test::bytesOf(mesh.vertexColors), test::bytesOf(worked().vertexColors));
    EXPECT_EQ(test::values(mesh.triangles), (std::vector<int>{0, 1, 2}));
    EXPECT_EQ(test::values(mesh.triangleNormals), (std::vector<double>{0, 0, 1}));
}
