#include <gtest/gtest.h>

#include "support/GoldenMesh.h"

/// What Zyr3DFileIO::SaveTriangleMesh makes of the golden meshes. The compressor is free, so that a
/// body is compared decoded.

using test::MeshParts;
using test::saveMesh;
using Saved = test::SavedMesh;

namespace {

class GoldenMeshWriting : public testing::TestWithParam<test::GoldenMeshVariant> {
protected:
    const MeshParts golden_{test::readFile(GetParam().path())};
    const Saved saved_ = saveMesh(test::goldenMesh(GetParam()));
};

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
