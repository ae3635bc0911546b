#include <gtest/gtest.h>

#include "support/MeshFile.h"

/// How many elements a mesh file may declare: what takes more than 64 MiB must be backed by its
/// bytes.

using test::Bytes;
using test::MeshHeader;

namespace {

constexpr long kAllowed = 64L << 20;
constexpr long kMostVertices = kAllowed / 24;
constexpr long kMostFaces = (kAllowed - 24) / 12;  // beside one vertex

bool loadsAscii(MeshHeader header, long bytes = 0) {
    const Bytes body(static_cast<std::size_t>(bytes), '0');
    return test::loadMesh(test::joined(header.kind("ascii").bytes(), body)).isLoaded;
}

/// The four words and so many zeros of a stream that states to be longer.
bool loadsCut(const MeshHeader& header, std::size_t present, std::uint32_t vertexChannels = 4,
              std::uint32_t triangleChannels = 4) {
    const Bytes words =
        test::bytesOf<std::uint32_t>({vertexChannels, triangleChannels, 0x7FFFFFFF, 0});
    return test::loadMesh(test::all({header.bytes(), words, Bytes(present)})).isLoaded;
}

MeshHeader withNormals(MeshHeader header) {
    return header.columns("x y z nx ny nz fa fb fc fnx fny fnz", "8 8 8 8 8 8 4 4 4 8 8 8");
}

MeshHeader withColors(MeshHeader header) {
    return header.columns("x y z rgb fa fb fc frgb", "8 8 8 4 4 4 4 4");
}

}  // namespace

TEST(MeshLimits, AsciiElementsOf64MiBNeedNoBytes) {
    EXPECT_TRUE(loadsAscii(MeshHeader(kMostVertices, 0)));
    EXPECT_FALSE(loadsAscii(MeshHeader(kMostVertices + 1, 0)));
    EXPECT_TRUE(loadsAscii(MeshHeader(1, kMostFaces)));
    EXPECT_FALSE(loadsAscii(MeshHeader(1, kMostFaces + 1)));
}

TEST(MeshLimits, AsciiElementsBeyondNeedSixBytesEach) {
    const MeshHeader header(kMostVertices, 2);
    EXPECT_TRUE(loadsAscii(header, 6 * (kMostVertices + 2)));
    EXPECT_FALSE(loadsAscii(header, 6 * (kMostVertices + 2) - 1));
}

TEST(MeshLimits, AsciiNormalsCountWhereTheyAreWanted) {
    MeshHeader vertices = withNormals(MeshHeader(kAllowed / 48, 0));
    EXPECT_TRUE(loadsAscii(vertices));
    vertices.points = "POINTS " + std::to_string(kAllowed / 48 + 1);
    EXPECT_FALSE(loadsAscii(vertices));
    EXPECT_TRUE(test::loadMesh(vertices.kind("ascii").bytes(), false).isLoaded);
    const long faces = (kAllowed - 48) / 36;
    EXPECT_TRUE(loadsAscii(withNormals(MeshHeader(1, faces))));
    EXPECT_FALSE(loadsAscii(withNormals(MeshHeader(1, faces + 1))));
}

TEST(MeshLimits, AsciiColoursDoNotCountSinceTheyAreNotRead) {
    EXPECT_TRUE(loadsAscii(withColors(MeshHeader(kMostVertices, 0))));
    EXPECT_TRUE(loadsAscii(withColors(MeshHeader(1, kMostFaces))));
}

TEST(MeshLimits, CutBodyOf64MiBNeedsNoBytes) {
    EXPECT_TRUE(loadsCut(MeshHeader(kMostVertices, 0), 0));
    EXPECT_FALSE(loadsCut(MeshHeader(kMostVertices + 1, 0), 0));
    EXPECT_TRUE(loadsCut(MeshHeader(1, kMostFaces), 0));
    EXPECT_FALSE(loadsCut(MeshHeader(1, kMostFaces + 1), 0));
}

TEST(MeshLimits, CutBodyBeyondNeedsAByteForEach88) {
    // 24 * 2796203 / 88 = 762600.8
    EXPECT_TRUE(loadsCut(MeshHeader(kMostVertices + 1, 0), 762601));
    EXPECT_FALSE(loadsCut(MeshHeader(kMostVertices + 1, 0), 762600));
}

TEST(MeshLimits, NormalsCountWhereTheyAreWanted) {
    const auto floats = [](long points) {
        return MeshHeader(points, 0).columns("x y z nx ny nz fa fb fc", "4 4 4 4 4 4 4 4 4");
    };
    EXPECT_TRUE(loadsCut(floats(kAllowed / 48), 0));
    EXPECT_FALSE(loadsCut(floats(kAllowed / 48 + 1), 0));
}

TEST(MeshLimits, ColoursCountByTheirChannels) {
    const auto floats = [](long points) {
        return MeshHeader(points, 0).columns("x y z rgb fa fb fc", "4 4 4 4 4 4 4");
    };
    for (const long channels : {1L, 3L, 4L}) {
        const long most = kAllowed / (24 + channels);
        const auto count = static_cast<std::uint32_t>(channels);
        for (const std::uint32_t other : {1U, 4U}) {
            EXPECT_TRUE(loadsCut(floats(most), 0, count, other)) << channels;
            EXPECT_FALSE(loadsCut(floats(most + 1), 0, count, other)) << channels;
        }
    }
    EXPECT_TRUE(test::loadMesh(floats(kMostVertices).bytes()).isLoaded);
}

TEST(MeshLimits, TriangleColoursCountByTheirChannels) {
    const auto floats = [](long faces) {
        return MeshHeader(1, faces).columns("x y z fa fb fc fnx fny fnz frgb",
                                            "4 4 4 4 4 4 4 4 4 4");
    };
    for (const long channels : {1L, 3L, 4L}) {
        const long most = (kAllowed - 24) / (12 + 24 + channels);
        const auto count = static_cast<std::uint32_t>(channels);
        for (const std::uint32_t other : {1U, 4U}) {
            EXPECT_TRUE(loadsCut(floats(most), 0, other, count)) << channels;
            EXPECT_FALSE(loadsCut(floats(most + 1), 0, other, count)) << channels;
        }
    }
    EXPECT_TRUE(test::loadMesh(floats((kAllowed - 24) / 36).bytes()).isLoaded);
}

TEST(MeshLimits, ElementsWithoutAColumnAreBackedByNothing) {
    const auto loads = [](const MeshHeader& header, std::size_t bodySize) {
        return test::loadMesh(test::meshFile(header, Bytes(bodySize))).isLoaded;
    };
    EXPECT_TRUE(loads(MeshHeader(kMostVertices, 1).columns("fa fb fc", "4 4 4"), 12));
    EXPECT_FALSE(loads(MeshHeader(kMostVertices + 1, 1).columns("fa fb fc", "4 4 4"), 12));
    EXPECT_TRUE(loads(MeshHeader(1, kMostFaces).columns("x y z", "8 8 8"), 24));
    EXPECT_FALSE(loads(MeshHeader(1, kAllowed / 12 + 1).columns("x y z", "8 8 8"), 24));
}

TEST(MeshLimits, TrianglesThatComeFirstAreBackedByTheirBytes) {
    // (12 * 5592406 + 24) / 88 = 762601.1
    const MeshHeader header =
        MeshHeader(1, kAllowed / 12 + 1).columns("fa fb fc x y z", "4 4 4 8 8 8");
    EXPECT_TRUE(loadsCut(header, 762602));
    EXPECT_FALSE(loadsCut(header, 762601));
}

TEST(MeshLimits, WhatIsRefusedIsSoWhateverTheListsHeld) {
    test::MeshLists mesh;
    EXPECT_TRUE(mesh.load(MeshHeader(2, 1).kind("ascii").bytes()));
    EXPECT_FALSE(mesh.load(MeshHeader(kMostVertices + 1, 0).kind("ascii").bytes()));
    EXPECT_EQ(mesh.vertices.Length(), 2);
    EXPECT_EQ(mesh.triangles.Length(), 3);
}

TEST(MeshLimits, MillionsOfElementsWithoutAColumnAreRefused) {
    const MeshHeader noIndices = MeshHeader(1, 700000000).columns("x y z", "8 8 8");
    const MeshHeader noVertices = MeshHeader(2147483647, 1).columns("fa fb fc", "4 4 4");
    for (const std::size_t present : {0U, 100U}) {
        EXPECT_FALSE(loadsCut(noIndices, present));
        EXPECT_FALSE(loadsCut(noVertices, present));
    }
    EXPECT_FALSE(test::loadMesh(test::meshFile(noIndices, Bytes(24))).isLoaded);
    EXPECT_FALSE(test::loadMesh(test::meshFile(noVertices, Bytes(12))).isLoaded);
}

TEST(MeshLimits, MostThatAHeaderCanStateIsRefused) {
    for (const char* kind : {"ascii", "binary", "binary_compressed"}) {
        EXPECT_FALSE(loadsCut(MeshHeader(2147483647, 0).kind(kind), 100)) << kind;
        EXPECT_FALSE(loadsCut(MeshHeader(1, 715827882).kind(kind), 100)) << kind;
    }
}

// A sparse file has a byte for each 88 of theirs.
TEST(MeshLimits, MoreIndicesThanAnIntCanCountAreRefused) {
    const test::TempFolder folder;
    const std::string path = folder.path("large.ztmt");
    const Bytes words = test::bytesOf<std::uint32_t>({3, 3, 0x7FFFFFFF, 0});
    test::writeFile(path, test::joined(MeshHeader(1, 715827883).bytes(), words));
    std::filesystem::resize_file(path, 98000000);
    test::MeshLists mesh;
    EXPECT_FALSE(mesh.load(path, false, false));
}

TEST(MeshLimits, SizesBeyond64BitsAreRefused) {
    MeshHeader header =
        MeshHeader(2, 1).columns("x y z a b c", "8 8 8 2147483647 2147483647 2147483647");
    header.count = "COUNT 1 1 1 2147483647 2147483647 2147483647";
    EXPECT_FALSE(loadsCut(header, 100));
}

TEST(MeshLimits, LargeUnknownColumnOfACutBodyIsRefused) {
    MeshHeader header = MeshHeader(1, 0).columns("x y z a", "8 8 8 1");
    header.count = "COUNT 1 1 1 2000000000";
    EXPECT_FALSE(loadsCut(header, 100));
}
