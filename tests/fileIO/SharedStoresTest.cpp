#include <gtest/gtest.h>

#include "ZyrPointCloud.h"
#include "support/CloudFile.h"
#include "support/DoubleBits.h"
#include "support/GoldenCloud.h"
#include "support/MeshFile.h"

/// Files read where points and normals share one store.

using test::Bytes;

namespace {

/// Files of five points: those of the golden folder, and one for each of the other kinds of body.
std::vector<std::pair<std::string, Bytes>> filesOfFivePoints() {
    std::vector<std::pair<std::string, Bytes>> files;
    for (const test::GoldenVariant& variant : test::goldenVariants())
        files.emplace_back(variant.name, test::readFile(variant.path()));
    for (const char* kind : {"ascii", "binary"}) {
        const auto header =
            test::CloudHeader(5)
                .columns("x y z nx ny nz rgb", "8 8 8 8 8 8 4", "F F F F F F U", "1 1 1 1 1 1 1")
                .kind(kind);
        files.emplace_back(kind, test::joined(header.bytes(), Bytes(5 * 52)));
    }
    return files;
}

struct Flags {
    bool withNormals, withColors;
};

constexpr Flags kAllFlags[] = {{false, false}, {false, true}, {true, false}, {true, true}};

}  // namespace

TEST(SharedStores, OneListForPointsAndNormalsHasThePointsOfTheFile) {
    for (const auto& [name, bytes] : filesOfFivePoints())
        for (const Flags flags : kAllFlags) {
            const test::MemoryFile file(bytes);
            ZyrVector3dArray both = test::vectors({1, 2, 3});
            cv::Mat colors;
            EXPECT_TRUE(Zyr3DFileIO::LoadPointCloud(both, both, colors, file.path().c_str(),
                                                    flags.withNormals, flags.withColors));
            EXPECT_EQ(both.Length(), 5) << name << flags.withNormals << flags.withColors;
        }
}

TEST(SharedStores, CloudWhoseNormalsAreItsPointsHasThePointsOfTheFile) {
    const test::TempFolder folder;
    for (const auto& [name, bytes] : filesOfFivePoints())
        for (const Flags flags : kAllFlags) {
            const std::string path = folder.path(name + ".zpt");
            test::writeFile(path, bytes);
            ZyrPointCloud cloud(test::vectors({1, 2, 3}), ZyrColorArray(), ZyrVector3dArray());
            cloud.SetNormals(cloud.PointData());
            EXPECT_TRUE(cloud.Load(path.c_str(), flags.withNormals, flags.withColors));
            EXPECT_EQ(cloud.Length(), 5) << name << flags.withNormals << flags.withColors;
        }
}

TEST(SharedStores, PointsAreThoseOfTheFileWhereItsNormalsAreNotRead) {
    for (const test::GoldenVariant& variant : test::goldenVariants()) {
        ZyrVector3dArray both;
        cv::Mat colors;
        EXPECT_TRUE(
            Zyr3DFileIO::LoadPointCloud(both, both, colors, variant.path().c_str(), false, false));
        EXPECT_EQ(test::bits(both), test::bits(test::goldenPoints())) << variant.name;
    }
}

TEST(SharedStores, OneListForVerticesAndTriangleNormalsHasTheVerticesOfTheFile) {
    for (const std::size_t numVertices : {2, 1024, 1500}) {
        const auto header = test::MeshHeader(long(numVertices), 3000)
                                .columns("x y z fa fb fc fnx fny fnz", "8 8 8 4 4 4 8 8 8");
        test::MeshLists mesh;
        ZyrVector3dArray& both = mesh.vertices;
        mesh.triangleNormals = both;
        ASSERT_TRUE(mesh.load(test::meshFile(header, Bytes(numVertices * 24 + 3000 * 36))));
        EXPECT_EQ(mesh.triangleNormals.Data(), both.Data());
        const std::vector<double> origins(3 * numVertices);
        EXPECT_EQ(test::bits(both), test::bits(test::vectors(origins))) << numVertices;
    }
}
