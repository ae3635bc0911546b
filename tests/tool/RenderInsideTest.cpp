#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

#include "RenderData.h"
#include "render/Drawing.h"
#include "render/Raster.h"
#include "render/Shading.h"
#include "render/Spacing.h"

namespace {

using Points = std::vector<cv::Vec3d>;
const cv::Vec3b kWhite(255, 255, 255);

int inkPixels(const cv::Mat& picture) {
    int count = 0;
    for (int row = 0; row < picture.rows; ++row)
        for (int column = 0; column < picture.cols; ++column)
            count += picture.at<cv::Vec3b>(row, column) != kWhite;
    return count;
}

cv::Mat drawn(const zyr::Subject& subject, const char* view) {
    return zyr::drawPicture(subject, test::smallLook(view));
}

double chance(std::mt19937& random, double most) {
    return std::uniform_real_distribution<double>(0.0, most)(random);
}

TEST(RenderRaster, NearerDiskHidesTheFartherWhicheverComesFirst) {
    for (bool isNearFirst : {true, false}) {
        zyr::Raster raster({20, 20}, {0, 0, 20, 20});
        raster.drawDisk(isNearFirst ? 1 : 0, {10, 10, isNearFirst ? 5.0F : 1.0F}, 4);
        raster.drawDisk(isNearFirst ? 0 : 1, {10, 10, isNearFirst ? 1.0F : 5.0F}, 4);
        EXPECT_EQ(raster.id(10, 10), 1);
    }
}

TEST(RenderRaster, NearerTriangleHidesTheFartherWhereBothAre) {
    zyr::Raster raster({20, 20}, {0, 0, 20, 20});
    raster.drawTriangle(0, {0, 0, 3}, {10, 0, 3}, {0, 10, 3});
    raster.drawTriangle(1, {0, 0, 1}, {20, 0, 1}, {0, 20, 1});
    EXPECT_EQ(raster.id(2, 2), 0);
    EXPECT_EQ(raster.id(8, 8), 1);
    EXPECT_EQ(raster.id(15, 15), zyr::Raster::kNothing);
}

TEST(RenderRaster, TrianglesWithACommonEdgeLeaveNoGap) {
    zyr::Raster raster({30, 30}, {0, 0, 30, 30});
    raster.drawTriangle(0, {1.3F, 2.1F, 0}, {27.7F, 4.9F, 0}, {5.1F, 26.3F, 0});
    raster.drawTriangle(1, {27.7F, 4.9F, 0}, {28.2F, 28.9F, 0}, {5.1F, 26.3F, 0});
    for (int i = 5; i < 25; ++i) EXPECT_TRUE(raster.has(i, i)) << i;
}

TEST(RenderRaster, TriangleSeenFromItsEdgeIsALine) {
    zyr::Raster raster({20, 20}, {0, 0, 20, 20});
    raster.drawTriangle(7, {2, 10.5F, 0}, {17, 10.5F, 4}, {9, 10.5F, -3});
    for (int column = 3; column < 16; ++column) EXPECT_EQ(raster.id(10, column), 7) << column;
    EXPECT_FALSE(raster.has(9, 9));
}

TEST(RenderRaster, NothingIsDrawnOutsideTheWindow) {
    zyr::Raster raster({20, 20}, {5, 5, 10, 10});
    raster.drawTriangle(0, {-1e9F, -1e9F, 0}, {1e9F, -1e9F, 0}, {0, 1e9F, 0});
    raster.drawDisk(1, {2, 2, 9}, 3);
    raster.drawDisk(1, {-1e30F, 1e30F, 9}, 3);
    EXPECT_FALSE(raster.has(4, 10));
    EXPECT_TRUE(raster.has(5, 10));
    EXPECT_FALSE(raster.has(2, 2));
}

TEST(RenderSpacing, OfAGridIsItsPitchAndFollowsTheDensity) {
    std::vector<cv::Vec3f> points;
    std::vector<int> chosen;
    for (int i = 0; i < 3200; ++i) {
        const float pitch = i < 1600 ? 1.0F : 4.0F, start = i < 1600 ? 0.0F : 500.0F;
        const int k = i % 1600;
        points.emplace_back(start + pitch * static_cast<float>(k % 40),
                            pitch * static_cast<float>(k / 40), 0.0F);
        chosen.push_back(i);
    }
    const std::vector<float> spacings = zyr::spacings(points, chosen);
    EXPECT_NEAR(spacings[820], 1.0F, 0.5F);
    EXPECT_NEAR(spacings[1600 + 820], 4.0F, 2.0F);
}

/// Points at random on a square of 100 x 100, none of them in the middle.
Points squareWithHole(double holeSide) {
    std::mt19937 random(3);
    Points points;
    while (points.size() < 20000) {
        const double x = chance(random, 100), y = chance(random, 100);
        if (std::max(std::abs(x - 50), std::abs(y - 50)) > holeSide / 2)
            points.push_back({x, y, 0});
    }
    return points;
}

TEST(Render, SplatsCloseASurface) {
    const cv::Mat picture = drawn(test::pointsOf(squareWithHole(0)), "top");
    int gaps = 0;
    for (int row = 10; row < 110; ++row)
        for (int column = 30; column < 130; ++column)
            gaps += picture.at<cv::Vec3b>(row, column) == kWhite;
    EXPECT_LE(gaps, 10);  // of 10,000: by chance a spot is bare
}

TEST(Render, HoleInACloudStaysAHole) {
    const cv::Mat picture = drawn(test::pointsOf(squareWithHole(10)), "top");
    EXPECT_EQ(picture.at<cv::Vec3b>(60, 80), kWhite);
    EXPECT_EQ(picture.at<cv::Vec3b>(60 - 4, 80 + 4), kWhite);
    EXPECT_NE(picture.at<cv::Vec3b>(60 - 8, 80 + 8), kWhite);
}

TEST(Render, HoleInARangeImageStaysAHole) {
    std::vector<float> values(40 * 30, 1.0F);
    for (int row = 10; row < 20; ++row)
        for (int column = 15; column < 25; ++column)
            values[static_cast<std::size_t>(row * 40 + column)] = NAN;
    values[0] = 2.0F;
    const ZyrRangeImage image(values.data(), 40, 30, 0, CV_32F, 0, 0, 1, 0, 1, 0, 1, 0);
    const cv::Mat picture = drawn(zyr::subjectOf(image), "top");
    EXPECT_EQ(picture.at<cv::Vec3b>(60, 80), kWhite);
    EXPECT_NE(picture.at<cv::Vec3b>(25, 80), kWhite);
}

TEST(Render, ZeroIsAHoleOfUnsigned16BitValuesAlone) {
    std::vector<std::uint16_t> counts = {0, 1, 2, 3};
    std::vector<std::int16_t> values = {0, 1, 2, 3};
    const ZyrRangeImage unsignedImage(counts.data(), 2, 2, 0, CV_16U, 0, 0, 1, 0, 1, 0, 1, 0);
    const ZyrRangeImage signedImage(values.data(), 2, 2, 0, CV_16S, 0, 0, 1, 0, 1, 0, 1, 0);
    EXPECT_EQ(zyr::subjectOf(unsignedImage).triangles.size(), 1u);
    EXPECT_EQ(zyr::subjectOf(signedImage).triangles.size(), 2u);
}

TEST(Render, RowsOfARangeImageRunDown) {
    std::vector<float> values = {1, 1, 1, 1, 1, 1, NAN, NAN};
    const ZyrRangeImage image(values.data(), 2, 4, 0, CV_32F, 0, 0, 1, 0, 1, 0, 1, 0);
    const cv::Mat picture = drawn(zyr::subjectOf(image), "top");
    const zyr::Subject subject = zyr::subjectOf(image);
    EXPECT_EQ(subject.stretch[1], -1.0);
    EXPECT_GT(inkPixels(picture), 0);
}

TEST(Render, MirroredPointsGiveTheMirroredOutline) {
    std::mt19937 random(5);
    Points points, mirrored;
    for (int i = 0; i < 300; ++i) {
        const double x = chance(random, 1400), y = chance(random, 1100), z = chance(random, 97);
        points.push_back({x, y, z});
        mirrored.push_back({-x, y, z});
    }
    const cv::Mat a = drawn(test::pointsOf(points), "top");
    const cv::Mat b = drawn(test::pointsOf(mirrored), "top");
    for (int row = 0; row < a.rows; ++row)
        for (int column = 0; column < a.cols; ++column)
            ASSERT_EQ(a.at<cv::Vec3b>(row, column) == kWhite,
                      b.at<cv::Vec3b>(row, a.cols - 1 - column) == kWhite)
                << row << " " << column;
}

TEST(Render, WindingOfTrianglesMakesNoDifference) {
    ZyrTriangleMesh mesh = test::blockMesh(), turned = test::blockMesh();
    for (int t = 0; t < turned.NumTriangles(); t += 2) {
        int a = 0, b = 0, c = 0;
        turned.SelectTriangle(t, &a, &b, &c);
        turned.ReplaceTriangle(t, a, c, b);
    }
    const cv::Mat one = drawn(zyr::subjectOf(mesh), "iso");
    const cv::Mat other = drawn(zyr::subjectOf(turned), "iso");
    EXPECT_EQ(cv::norm(one, other, cv::NORM_INF), 0.0);
}

TEST(Render, EndsOfTheLegendAreTheBoundsOfTheData) {
    ZyrPointCloud cloud = test::hillCloud();
    double low = 1e9, high = -1e9;
    for (int i = 0; i < cloud.Length(); ++i) {
        if (!cloud[i].IsValid()) continue;
        low = std::min(low, cloud[i].z);
        high = std::max(high, cloud[i].z);
    }
    const zyr::Scale scale = zyr::heightScale(zyr::subjectOf(cloud, 48));
    EXPECT_EQ(scale.low, low);
    EXPECT_EQ(scale.high, high);
}

TEST(Render, StrayPointIsLeftOutAndCounted) {
    Points points = squareWithHole(0);
    points.push_back({1e30, 0, 0});
    points.push_back({50, 50, -1e6});
    const zyr::Subject subject = test::pointsOf(points);
    EXPECT_EQ(subject.strays, 2);
    EXPECT_LT(zyr::boundsOf(subject).high[0], 101.0);
    EXPECT_EQ(zyr::boundsOf(subject).low[2], 0.0);
}

TEST(Render, PointsFarApartAreNoStraysWhereTheyAreMany) {
    Points points = squareWithHole(0);
    for (int i = 0; i < 1000; ++i) points.push_back({1e5 + i, 0, 0});
    EXPECT_EQ(test::pointsOf(points).strays, 0);
}

TEST(Render, OddDataIsDrawnAllTheSame) {
    const double inf = std::numeric_limits<double>::infinity(), nan = NAN;
    const std::vector<Points> oddities = {
        {{1, 2, 3}},
        {{5, 5, 5}, {5, 5, 5}, {5, 5, 5}},
        {{0, 0, 0}, {0, 0, 1}},
        {{0, 0, 0}, {3e38, 3e38, 3e38}, {-3e38, 0, 0}},
        {{1e-310, 0, 0}, {0, 1e-310, 0}},
        {{1e9, 1e9, 1e9}, {1e9 + 1e-6, 1e9, 1e9}},
        {{nan, 0, 0}, {1, 2, 3}, {0, -inf, 0}, {inf, 0, 0}, {-1e300, 0, 0}, {2, 3, 4}}};
    for (std::size_t i = 0; i < oddities.size(); ++i)
        for (const char* view : {"top", "front", "iso", "10,-80"})
            EXPECT_GT(inkPixels(drawn(test::pointsOf(oddities[i]), view)), 0) << i << " " << view;
}

TEST(Render, NoValidPointIsNothingToDraw) {
    ZyrTriangleMesh emptyMesh;
    EXPECT_TRUE(test::pointsOf({}).isEmpty());
    EXPECT_TRUE(test::pointsOf({{NAN, 0, 0}, {-1e300, 0, 0}}).isEmpty());
    EXPECT_TRUE(zyr::subjectOf(emptyMesh).isEmpty());
    EXPECT_TRUE(zyr::subjectOf(ZyrRangeImage()).isEmpty());
}

TEST(Render, FlatMeshSeenFromItsEdgeIsALine) {
    ZyrVector3dArray vertices;
    for (const auto& v : {ZyrVector3d(0, 0, 0), ZyrVector3d(4, 0, 0), ZyrVector3d(0, 3, 0)})
        vertices.Append(v);
    Zyr3DIntArray corners;
    for (int i : {0, 1, 2}) corners.Append(i);
    ZyrTriangleMesh mesh(vertices, corners);
    EXPECT_GT(inkPixels(drawn(zyr::subjectOf(mesh), "front")), 100);
}

TEST(Render, TrianglesWithCornersThatAreNotThereAreLeftOut) {
    ZyrTriangleMesh mesh = test::blockMesh();
    mesh.ReplaceTriangle(0, 0, 1, 8);
    mesh.ReplaceTriangle(1, -1, 1, 2);
    mesh.ReplaceTriangle(2, 3, 3, 4);
    const zyr::Subject subject = zyr::subjectOf(mesh);
    EXPECT_EQ(subject.triangles.size(), 9u);
    EXPECT_EQ(subject.triangleColors.size(), 9u);
}

}  // namespace
