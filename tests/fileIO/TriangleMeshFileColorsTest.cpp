#include <gtest/gtest.h>

#include "support/MeshFile.h"

/// The two colour lists of mesh files.

using test::Bytes;
using test::MeshHeader;
using test::MeshLists;

namespace {

/// One vertex, b g r a 30 20 10 128, and two triangles: 3 2 1 255 and 6 5 4 0.
Bytes file(std::uint32_t vertexChannels, std::uint32_t triangleChannels) {
    const MeshHeader header =
        MeshHeader(1, 2).columns("x y z rgb fa fb fc frgb", "8 8 8 4 4 4 4 4");
    const Bytes body = test::all({Bytes(24), test::bytesOf<std::uint32_t>({0x800A141E}), Bytes(24),
                                  test::bytesOf<std::uint32_t>({0xFF010203, 0x00040506})});
    return test::joined(header.bytes(), test::meshBody(vertexChannels, triangleChannels, body));
}

Bytes vertexColors(const Bytes& bytes) {
    return test::bytesOf(test::loadMesh(bytes).vertexColors);
}

Bytes triangleColors(const Bytes& bytes) {
    return test::bytesOf(test::loadMesh(bytes).triangleColors);
}

}  // namespace

TEST(MeshColors, OfVerticesTakeTheFirstChannelCount) {
    EXPECT_EQ(vertexColors(file(1, 4)), (Bytes{30}));
    EXPECT_EQ(vertexColors(file(3, 4)), (Bytes{30, 20, 10}));
    EXPECT_EQ(vertexColors(file(4, 1)), (Bytes{30, 20, 10, 128}));
}

TEST(MeshColors, OfTrianglesTakeTheSecondChannelCount) {
    EXPECT_EQ(triangleColors(file(4, 1)), (Bytes{3, 6}));
    EXPECT_EQ(triangleColors(file(4, 3)), (Bytes{3, 2, 1, 6, 5, 4}));
    EXPECT_EQ(triangleColors(file(1, 4)), (Bytes{3, 2, 1, 255, 6, 5, 4, 0}));
}

TEST(MeshColors, AreOneRowOf8BitChannels) {
    const test::LoadedMesh mesh = test::loadMesh(file(3, 4));
    EXPECT_EQ(mesh.vertexColors.size(), cv::Size(1, 1));
    EXPECT_EQ(mesh.vertexColors.type(), CV_8UC3);
    EXPECT_EQ(mesh.triangleColors.size(), cv::Size(2, 1));
    EXPECT_EQ(mesh.triangleColors.type(), CV_8UC4);
}

TEST(MeshColors, OtherChannelCountsAreRefused) {
    for (const std::uint32_t channels : {0U, 2U, 5U, 255U, 0x80000001U, 0xFFFFFFFFU}) {
        EXPECT_FALSE(test::loadMesh(file(channels, 3)).isLoaded) << channels;
        EXPECT_FALSE(test::loadMesh(file(3, channels)).isLoaded) << channels;
    }
}

TEST(MeshColors, ChannelCountsDoNotMatterWhereColoursAreNotWanted) {
    for (const std::uint32_t channels : {0U, 2U, 0xFFFFFFFFU})
        EXPECT_TRUE(test::loadMesh(file(channels, channels), true, false).isLoaded) << channels;
}

TEST(MeshColors, ChannelCountsDoNotMatterWhereTheFileHasNoColours) {
    const Bytes body = test::meshBody(7, 0, Bytes(36));
    EXPECT_TRUE(test::loadMesh(test::joined(MeshHeader(1, 1).bytes(), body)).isLoaded);
}

TEST(MeshColors, ThatAreWantedButNotInTheFileAreNoFailureAndLeaveTheMatrices) {
    MeshLists mesh;
    mesh.vertexColors = test::colorRow({9, 9}, 1);
    mesh.triangleColors = test::colorRow({8}, 1);
    EXPECT_TRUE(mesh.load(test::meshFile(MeshHeader(1, 1), Bytes(36))));
    EXPECT_EQ(test::bytesOf(mesh.vertexColors), (Bytes{9, 9}));
    EXPECT_EQ(test::bytesOf(mesh.triangleColors), (Bytes{8}));
}

TEST(MeshColors, MatricesStayWhereColoursAreNotWanted) {
    MeshLists mesh;
    mesh.vertexColors = test::colorRow({9, 9}, 1);
    mesh.triangleColors = test::colorRow({8}, 1);
    EXPECT_TRUE(mesh.load(file(3, 3), true, false));
    EXPECT_EQ(test::bytesOf(mesh.vertexColors), (Bytes{9, 9}));
    EXPECT_EQ(test::bytesOf(mesh.triangleColors), (Bytes{8}));
}

TEST(MeshColors, MatricesOfThatShapeAreFilledInPlace) {
    MeshLists mesh;
    mesh.vertexColors = test::colorRow({9, 9, 9}, 3);
    mesh.triangleColors = test::colorRow({8, 8}, 1);
    const MeshLists sharer = mesh;
    EXPECT_TRUE(mesh.load(file(3, 1)));
    EXPECT_EQ(test::bytesOf(sharer.vertexColors), (Bytes{30, 20, 10}));
    EXPECT_EQ(test::bytesOf(sharer.triangleColors), (Bytes{3, 6}));
}

TEST(MeshColors, MatricesOfAnotherShapeAreMadeAnew) {
    MeshLists mesh;
    mesh.vertexColors = mesh.triangleColors = test::colorRow({9, 9, 9, 9}, 4);
    const MeshLists sharer = mesh;
    EXPECT_TRUE(mesh.load(file(3, 4)));
    EXPECT_EQ(mesh.triangleColors.size(), cv::Size(2, 1));
    EXPECT_EQ(test::bytesOf(sharer.vertexColors), (Bytes{9, 9, 9, 9}));
}

TEST(MeshColors, ColoursBehindTheCutAreZero) {
    MeshLists mesh;
    mesh.triangleColors = test::colorRow(Bytes(6, 99), 3);
    const Bytes whole = file(3, 3);
    EXPECT_TRUE(mesh.load(test::prefix(whole, whole.size() - 1)));
    EXPECT_EQ(test::bytesOf(mesh.triangleColors), (Bytes{3, 2, 1, 0, 0, 0}));
}
