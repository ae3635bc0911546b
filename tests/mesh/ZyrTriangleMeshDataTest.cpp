#include <gtest/gtest.h>

#include "support/DoubleBits.h"
#include "support/Meshes.h"
#include "support/Npy.h"
#include "support/PlainTriangle.h"

/// Measured and designed meshes, with all lists that they have, through a file and back.

namespace {

class RealMesh : public testing::TestWithParam<const char*> {
protected:
    void SetUp() override {
        const std::string folder = std::string(ZYR_DATA_DIR "/") + GetParam();
        xyz_ = test::readNpy<double>(folder + "/xyz.npy", "<f8");
        normals_ = test::readNpy<double>(folder + "/normals.npy", "<f8");
        bgr_ = test::readNpy<unsigned char>(folder + "/bgr.npy", "|u1");
        faces_ = test::readNpy<int>(folder + "/faces.npy", "<i4");
        if (xyz_.empty() || faces_.empty()) GTEST_SKIP() << "no " << folder;
    }

    /// The mesh, its triangles with normals and colours of their first corners.
    ZyrTriangleMesh mesh() const {
        ZyrColorArray vertexColors, triangleColors;
        if (!bgr_.empty()) {
            vertexColors.Create(static_cast<int>(bgr_.size() / 3), 3);
            std::copy(bgr_.begin(), bgr_.end(), vertexColors.Data());
            triangleColors.Create(static_cast<int>(faces_.size() / 3), 4);
            for (std::size_t i = 0; i < faces_.size() / 3 * 4; ++i)
                triangleColors.Data()[i] = bgr_[i % bgr_.size()];
        }
        return ZyrTriangleMesh(test::vectors(xyz_), test::indices(faces_), vertexColors,
                               triangleColors, test::vectors(normals_),
                               firstCorners(normals_.empty() ? xyz_ : normals_));
    }

    ZyrVector3dArray firstCorners(const std::vector<double>& vectors) const {
        std::vector<double> flat;
        for (std::size_t i = 0; i < faces_.size(); i += 3)
            for (std::size_t k = 0; k < 3; ++k)
                flat.push_back(vectors[static_cast<std::size_t>(faces_[i]) * 3 + k]);
        return test::vectors(flat);
    }

    std::vector<double> xyz_, normals_;
    std::vector<unsigned char> bgr_;
    std::vector<int> faces_;
};

}  // namespace

INSTANTIATE_TEST_SUITE_P(All, RealMesh, testing::Values("mesh_frag115", "mesh_counter"),
                         [](const auto& mesh) { return std::string(mesh.param); });

TEST_P(RealMesh, ComesBackFromItsFileBitForBit) {
    const test::TempFolder folder;
    ZyrTriangleMesh before = mesh(), back;
    ASSERT_TRUE(before.Save(folder.path("a.ztmt").c_str(), true, true));
    ASSERT_TRUE(back.Load(folder.path("a.ztmt").c_str(), true, true));
    EXPECT_TRUE(test::values(back.DeepCopyVertex()) == xyz_);
    EXPECT_TRUE(test::values(back.DeepCopyTriangle()) == faces_);
    EXPECT_TRUE(test::colorBytes(back.DeepCopyVertexColor()) == bgr_);
    EXPECT_TRUE(test::bits(back.DeepCopyVertex()) == test::bits(before.DeepCopyVertex()));
    EXPECT_TRUE(test::bits(back.DeepCopyVertexNormal()) ==
                test::bits(before.DeepCopyVertexNormal()));
    EXPECT_TRUE(test::bits(back.DeepCopyTriangleNormal()) ==
                test::bits(before.DeepCopyTriangleNormal()));
    EXPECT_TRUE(test::colorBytes(back.DeepCopyTriangleColor()) ==
                test::colorBytes(before.DeepCopyTriangleColor()));
}

TEST_P(RealMesh, HasAllListsThatItCameWith) {
    const test::TempFolder folder;
    ZyrTriangleMesh back;
    ASSERT_TRUE(mesh().Save(folder.path("a.ztmt").c_str(), true, true));
    ASSERT_TRUE(back.Load(folder.path("a.ztmt").c_str(), true, true));
    EXPECT_EQ(back.IsValidVertexNormal(), !normals_.empty());
    EXPECT_EQ(back.IsValidVertexColor(), !bgr_.empty());
    EXPECT_EQ(back.IsValidTriangleColor(), !bgr_.empty());
    EXPECT_TRUE(back.IsValidTriangleNormal());
}

TEST_P(RealMesh, CountsTheTrianglesThatThePlainRuleNames) {
    const ZyrTriangleMesh real = mesh();
    const ZyrVector3dArray vertices = test::vectors(xyz_);
    int valid = 0;
    for (std::size_t i = 0; i < faces_.size(); i += 3)
        valid += test::isValidTriangle(vertices, &faces_[i]) ? 1 : 0;
    EXPECT_EQ(real.NumValidTriangles(), valid);
    EXPECT_GT(valid, real.NumTriangles() / 2);
}

TEST_P(RealMesh, AppendedToItselfIsThereTwice) {
    ZyrTriangleMesh twice = mesh();
    twice.Append(twice);
    std::vector<int> expected = faces_;
    for (const int i : faces_) expected.push_back(i + static_cast<int>(xyz_.size() / 3));
    EXPECT_TRUE(test::values(twice.DeepCopyTriangle()) == expected);
    EXPECT_EQ(twice.NumValidTriangles(), 2 * mesh().NumValidTriangles());
}
