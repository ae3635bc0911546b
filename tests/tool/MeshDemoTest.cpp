#include <array>
#include <opencv2/core.hpp>
#include <vector>

#include "Program.h"
#include "ZyrTriangleMesh.h"
#include "support/ZyrValues.h"

namespace {

/// Walls at 1 m (0 is a hole) that a camera of 100 pixels of focal length sees.
class MeshDemo : public test::Tool {
protected:
    test::Result runOn(const cv::Mat& depth) const {
        cv::imwrite(path("depth.png"), depth);
        return run("demo depth.png -o d --fx 100");
    }

    ZyrTriangleMesh mesh() const {
        ZyrTriangleMesh mesh;
        EXPECT_TRUE(mesh.Load(path("d/demo.ztmt").c_str(), true, true));
        return mesh;
    }

    static cv::Mat wall() { return cv::Mat(20, 30, CV_16UC1, cv::Scalar(1000)); }
};

TEST_F(MeshDemo, WallGivesTwoTrianglesACell) {
    const test::Result result = runOn(wall());
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(row(result, "mesh vertices"), "600");
    EXPECT_EQ(row(result, "mesh triangles"), "1,102");  // 29 * 19 * 2
    EXPECT_EQ(mesh().NumVertices(), 600);
    EXPECT_EQ(mesh().NumValidTriangles(), 1102);
}

TEST_F(MeshDemo, FirstCellHasTheCornersOfItsPixels) {
    runOn(wall());
    ZyrTriangleMesh loaded = mesh();
    std::array<int, 3> first{}, second{};
    loaded.SelectTriangle(0, &first[0], &first[1], &first[2]);
    loaded.SelectTriangle(1, &second[0], &second[1], &second[2]);
    EXPECT_EQ(first, (std::array<int, 3>{0, 30, 1}));
    EXPECT_EQ(second, (std::array<int, 3>{1, 30, 31}));
}

TEST_F(MeshDemo, TrianglesFaceTheCamera) {
    runOn(wall());
    ZyrTriangleMesh loaded = mesh();
    for (int t = 0; t < loaded.NumTriangles(); ++t) {
        ZyrVector3d normal;
        loaded.SelectTriangleNormal(t, &normal);
        ASSERT_NEAR(normal.z, -1.0, 1e-12) << t;
    }
}

TEST_F(MeshDemo, HoleTakesTheTrianglesAtItsCorner) {
    cv::Mat depth = wall();
    depth.at<std::uint16_t>(10, 10) = 0;
    // Four cells have the pixel for a corner: at two of them it lies on the diagonal.
    EXPECT_EQ(row(runOn(depth), "mesh triangles"), "1,096");
    EXPECT_FALSE(mesh().IsValidVertex(10 * 30 + 10));
}

TEST_F(MeshDemo, StepInDepthIsNotBridged) {
    cv::Mat depth = wall();
    depth.colRange(15, 30).setTo(2000);
    EXPECT_EQ(row(runOn(depth), "mesh triangles"), "1,064");  // one column of 19 cells less
}

TEST_F(MeshDemo, FrameOfHolesAloneGivesVerticesAndNoTriangles) {
    const test::Result result = runOn(cv::Mat(4, 5, CV_16UC1, cv::Scalar(0)));
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(row(result, "mesh vertices"), "20");
    EXPECT_EQ(row(result, "mesh triangles"), "0");
}

TEST_F(MeshDemo, VerticesHaveTheColoursAndNormalsOfTheCloud) {
    cv::imwrite(path("depth.png"), wall());
    cv::imwrite(path("color.png"), cv::Mat(20, 30, CV_8UC3, cv::Scalar(10, 20, 30)));
    EXPECT_EQ(run("demo depth.png --color color.png -o d").exitCode, 0);
    ZyrPointCloud cloud = load("d/demo.zpt");
    EXPECT_EQ(test::values(mesh().DeepCopyVertex()), test::values(cloud.PointData()));
    EXPECT_EQ(test::values(mesh().DeepCopyVertexNormal()), test::values(cloud.NormalData()));
    EXPECT_EQ(test::values(mesh().DeepCopyVertexColor()[77]), (std::vector<int>{30, 20, 10, 255}));
}

TEST_F(MeshDemo, BytesAreThoseOfItsColumnsAndOfTheFile) {
    const test::Result result = runOn(wall());
    EXPECT_EQ(row(result, "mesh bytes raw"), "68,472");  // 600 * 48 + 1102 * 36
    std::string disk = row(result, "mesh bytes on disk");
    disk.erase(std::remove(disk.begin(), disk.end(), ','), disk.end());
    EXPECT_EQ(std::stoull(disk), std::filesystem::file_size(path("d/demo.ztmt")));
    EXPECT_NE(row(result, "mesh load").find('.'), std::string::npos);
}

TEST_F(MeshDemo, DefaultFrameHasAMesh) {
    EXPECT_EQ(run("demo -o d").exitCode, 0);
    EXPECT_EQ(mesh().NumVertices(), 307200);
    EXPECT_GT(mesh().NumTriangles(), 400000);
    EXPECT_TRUE(mesh().IsValidVertexColor());
}

TEST_F(MeshDemo, PointsWithoutAGridSkipMeshAndRangeImageAndSaySo) {
    const test::Result result = runOn(wall().row(0));
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_NE(result.out.find("\nSkipped: mesh and range image"), std::string::npos);
    EXPECT_FALSE(std::filesystem::exists(path("d/demo.ztmt")));
    EXPECT_FALSE(std::filesystem::exists(path("d/demo.zrt")));
    EXPECT_FALSE(std::filesystem::exists(path("d/demo_range.png")));
}

TEST_F(MeshDemo, FileThatCannotBeWrittenIsFileTrouble) {
    std::filesystem::create_directories(path("d/demo.ztmt"));
    expectTrouble(runOn(wall()), 3, "d/demo.ztmt: not a regular file");
}

}  // namespace
