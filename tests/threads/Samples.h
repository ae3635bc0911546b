#pragma once

#include <vector>

#include "ZyrPointCloud.h"
#include "ZyrRangeImage.h"
#include "ZyrTriangleMesh.h"
#include "support/Colors.h"
#include "support/RangeImages.h"

/// Objects to work on in threads, others for each seed, and the sum of all that one holds: exact,
/// since all values are small multiples of a quarter.
namespace test {

constexpr int kPoints = 20000;

inline ZyrPointCloud cloudOf(int seed) {
    std::vector<double> doubles(3 * kPoints);
    for (std::size_t i = 0; i < doubles.size(); ++i)
        doubles[i] = 0.25 * static_cast<double>((i * 7919 + static_cast<std::size_t>(seed)) % 5003);
    ZyrPointCloud cloud(doubles.data(), static_cast<int>(doubles.size()), CV_64F, -1.0);
    cloud.SetNormals(cloud.DeepCopyPoints());
    std::vector<unsigned char> colors;
    for (int i = 0; i < 3 * kPoints; ++i) colors.push_back(static_cast<unsigned char>(i + seed));
    cloud.SetColors(test::colorsOf(3, colors));
    return cloud;
}

inline double sumOf(const ZyrPointCloud& cloud) {
    double sum = 0;
    for (int i = 0; i < cloud.Length(); ++i)
        sum += cloud.Point(i).x + cloud.Normal(i).z + cloud.Color(i).r;
    return sum;
}

inline ZyrTriangleMesh meshOf(int seed) {
    ZyrPointCloud cloud = cloudOf(seed);
    constexpr int kTriangles = 5000;
    std::vector<int> corners(3 * kTriangles);
    for (std::size_t k = 0; k < corners.size(); ++k) corners[k] = static_cast<int>(k % kPoints);
    const test::Bytes colors(4 * kTriangles, static_cast<unsigned char>(seed));
    return ZyrTriangleMesh(cloud.PointData(),
                           Zyr3DIntArray(corners.data(), static_cast<int>(corners.size())),
                           cloud.ColorData(), test::colorsOf(4, colors), cloud.NormalData(),
                           ZyrVector3dArray(cloud.PointData().Data(), 3 * kTriangles, -1.0));
}

inline double sumOf(ZyrTriangleMesh mesh) {
    double sum = 0;
    for (int i = 0; i < mesh.NumVertices(); ++i) {
        ZyrColor color;
        mesh.SelectVertexColor(i, &color);
        sum += mesh.VertexData()[3 * i] + mesh.VertexNormalData()[3 * i + 2] + color.g;
    }
    for (int i = 0; i < mesh.NumTriangles(); ++i) {
        ZyrColor color;
        mesh.SelectTriangleColor(i, &color);
        sum += mesh.TriangleData()[3 * i + 1] + mesh.TriangleNormData()[3 * i] + color.a;
    }
    return sum;
}

inline ZyrRangeImage imageOf(int seed) {
    std::vector<unsigned short> values(200 * 100);
    for (std::size_t k = 0; k < values.size(); ++k)
        values[k] = static_cast<unsigned short>(k * 13 + static_cast<std::size_t>(seed));
    return ZyrRangeImage(values.data(), 200, 100, 0, CV_16U, 0, 65535, 0.1, 0, 1, 0, 1, 0);
}

inline double sumOf(const ZyrRangeImage& image) {
    double sum = 0;
    for (int row = 0; row < image.Height(); ++row)
        for (int column = 0; column < image.Width(); ++column)
            sum += image.GetValue(row, column) + image.GetColor(row, column).r;
    return sum;
}

inline double sumOf(const ZyrColorArray& colors) {
    double sum = 0;
    for (int i = 0; i < colors.Length(); ++i) sum += colors[i].r + colors[i].a;
    return sum;
}

}  // namespace test
