#include <gtest/gtest.h>

#include <cstdlib>
#include <opencv2/imgcodecs.hpp>

#include "RenderData.h"
#include "render/Drawing.h"

/// Pictures that people have looked at, pixel by pixel. After a wanted change make them anew, and
/// look at them:
///     ZYR_MAKE_GOLDEN=1 build/release/tests/tool_test --gtest_filter='*RenderGolden*'
namespace {

enum Data { Cloud, Points, Mesh, Range };

struct Golden {
    const char* name;
    Data data;
    const char* view;
    zyr::ColorBy color;
    bool isFlat;
};

zyr::Subject subjectOf(Data data) {
    ZyrPointCloud cloud = test::hillCloud();
    ZyrTriangleMesh mesh = test::blockMesh();
    if (data == Cloud) return zyr::subjectOf(cloud, 48);
    if (data == Points) return zyr::subjectOf(cloud, 0);
    return data == Mesh ? zyr::subjectOf(mesh) : zyr::subjectOf(test::hillImage());
}

cv::Mat draw(const Golden& golden) {
    zyr::Look look = test::smallLook(golden.view);
    look.isBare = false;
    look.color = golden.color;
    look.isFlat = golden.isFlat;
    look.title = golden.name;
    return zyr::drawPicture(subjectOf(golden.data), look);
}

/// How many pixels differ, in any channel.
int differences(const cv::Mat& a, const cv::Mat& b) {
    if (a.size() != b.size() || a.type() != b.type()) return -1;
    int count = 0;
    for (int i = 0; i < a.rows * a.cols; ++i)
        count += a.at<cv::Vec3b>(i / a.cols, i % a.cols) != b.at<cv::Vec3b>(i / a.cols, i % a.cols);
    return count;
}

class RenderGolden : public testing::TestWithParam<Golden> {};

TEST_P(RenderGolden, PictureIsTheOneThatWasLookedAt) {
    const std::string path = ZYR_GOLDEN_DIR "/render/" + std::string(GetParam().name) + ".png";
    const cv::Mat picture = draw(GetParam());
    if (std::getenv("ZYR_MAKE_GOLDEN") != nullptr) cv::imwrite(path, picture);
    EXPECT_EQ(differences(picture, cv::imread(path)), 0) << path;
}

using zyr::ColorBy;

INSTANTIATE_TEST_SUITE_P(
    Pictures, RenderGolden,
    testing::Values(Golden{"cloud_top_height", Cloud, "top", ColorBy::Height, false},
                    Golden{"cloud_iso_rgb", Cloud, "iso", ColorBy::Rgb, false},
                    Golden{"cloud_bottom_normal", Cloud, "bottom", ColorBy::Normal, false},
                    Golden{"points_iso_height", Points, "iso", ColorBy::Height, false},
                    Golden{"points_front_rgb", Points, "front", ColorBy::Rgb, false},
                    Golden{"mesh_iso_height", Mesh, "iso", ColorBy::Height, false},
                    Golden{"mesh_side_normal", Mesh, "side", ColorBy::Normal, false},
                    Golden{"mesh_turned_rgb_flat", Mesh, "-30,20", ColorBy::Rgb, true},
                    Golden{"range_top_height", Range, "top", ColorBy::Height, false},
                    Golden{"range_iso_normal", Range, "iso", ColorBy::Normal, false}),
    [](const auto& golden) { return std::string(golden.param.name); });

}  // namespace
