#include <gtest/gtest.h>

#include "support/GoldenMesh.h"

/// What Zyr3DFileIO::SaveTriangleMesh makes of the golden meshes. The compressor is free, so that a
/// body is compared decoded.

using test::Bytes;
using test::MeshParts;
using test::saveMesh;
using Saved = test::SavedMesh;

namespace {

class GoldenMeshWriting : public testing::TestWithParam<test::GoldenMeshVariant> {
protected:
    const MeshParts golden_{test::readFile(GetParam().path())};
    const Saved saved_ = saveMesh(test::goldenMesh(GetParam()));
};

/// The body of the golden mesh of all four lists without its normals.
Bytes withoutNormals(const Bytes& body) {
    const auto part = [&body](std::ptrdiff_t first, std::ptrdiff_t last) {
        return Bytes(body.begin() + first, body.begin() + last);
    };
    const std::ptrdiff_t coordinates = 96, colors = 16, corners = 36, triangleNormals = 72;
    const std::ptrdiff_t corner = 2 * coordinates + colors;  // where the first one stands
    const std::ptrdiff_t last = corner + corners + triangleNormals;
    return test::all({part(0, coordinates), part(2 * coordinates, corner + corners),
                      part(last, static_cast<std::ptrdiff_t>(body.size()))});
}

}  // namespace

INSTANTIATE_TEST_SUITE_P(All, GoldenMeshWriting, testing::ValuesIn(test::goldenMeshVariants()),
                         [](const auto& variant) { return variant.param.name(); });

TEST_P(GoldenMeshWriting, HeaderIsTheGoldenOne) {
    ASSERT_TRUE(saved_.isSaved);
    EXPECT_EQ(saved_.parts().header, golden_.header);
}

TEST_P(GoldenMeshWriting, PreambleIsTheGoldenOneSaveForTheStreamsOwnSize) {
    EXPECT_EQ(saved_.parts().vertexChannels, golden_.vertexChannels);
    EXPECT_EQ(saved_.parts().triangleChannels, golden_.triangleChannels);
    EXPECT_EQ(saved_.parts().streamSize, saved_.parts().stream.size());
    EXPECT_EQ(saved_.parts().bodySize, golden_.bodySize);
}

TEST_P(GoldenMeshWriting, BodyDecodesToTheGoldenOne) {
    ASSERT_EQ(golden_.body().size(), golden_.bodySize);
    EXPECT_EQ(saved_.parts().body(), golden_.body());
}

TEST(MeshWriting, FlagForNormalsLeavesColoursOfAnyChannelsAsTheyAre) {
    for (const int vertexChannels : {1, 3, 4})
        for (const int triangleChannels : {1, 3, 4}) {
            const test::GoldenMeshVariant variant{vertexChannels, triangleChannels, true, true};
            const MeshParts golden(test::readFile(variant.path()));
            const MeshParts saved = saveMesh(test::goldenMesh(variant), false, true).parts();
            EXPECT_EQ(saved.line("FIELDS"), "FIELDS x y z rgb fa fb fc frgb");
            EXPECT_EQ(saved.line("SIZE"), "SIZE 8 8 8 4 4 4 4 4");
            EXPECT_EQ(saved.vertexChannels, static_cast<unsigned>(vertexChannels));
            EXPECT_EQ(saved.triangleChannels, static_cast<unsigned>(triangleChannels));
            EXPECT_EQ(saved.body(), withoutNormals(golden.body())) << variant.name();
        }
}

TEST_P(GoldenMeshWriting, FlagsLeaveListsOutAsIfTheyWereNotThere) {
    for (const bool withNormals : {false, true})
        for (const bool withColors : {false, true}) {
            test::GoldenMeshVariant variant = GetParam();
            if (!withNormals) variant.hasVertexNormals = variant.hasTriangleNormals = false;
            if (!withColors) variant.vertexChannels = variant.triangleChannels = 0;
            const MeshParts expected(test::readFile(variant.path()));
            if (expected.header.empty()) continue;  // one colour list alone, of other channels
            const Saved saved = saveMesh(test::goldenMesh(GetParam()), withNormals, withColors);
            EXPECT_EQ(saved.parts().header, expected.header);
            EXPECT_EQ(saved.parts().vertexChannels, expected.vertexChannels);
            EXPECT_EQ(saved.parts().triangleChannels, expected.triangleChannels);
            EXPECT_EQ(saved.parts().body(), expected.body());
        }
}
