#pragma once

#include <cmath>
#include <cstdint>
#include <opencv2/core.hpp>
#include <vector>

#include "ZyrPointCloud.h"
#include "ZyrRangeImage.h"
#include "ZyrTriangleMesh.h"
#include "render/Look.h"
#include "render/Subject.h"

namespace test {

/// A hill of height 1 on a plain, exact to the last bit on every machine.
inline double hill(double x, double y) {
    return 1.0 / (1.0 + x * x + y * y);
}

/// A cloud in a grid of 48 x 36 over the hill, with colours and a hole of 6 x 5 points.
inline ZyrPointCloud hillCloud() {
    constexpr int kColumns = 48, kRows = 36;
    ZyrPointCloud cloud;
    ZyrVector3dArray points;
    ZyrColorArray colors;
    points.SetSize(kColumns * kRows);
    colors.Create(kColumns * kRows, 3);
    for (int i = 0; i < kColumns * kRows; ++i) {
        const int column = i % kColumns, row = i / kColumns;
        const double x = (column - 20) / 8.0, y = (16 - row) / 8.0;
        const bool isHole = column >= 30 && column < 36 && row >= 8 && row < 13;
        points[i] = isHole ? ZyrVector3d() : ZyrVector3d(x, y, hill(x, y));
        colors.Data()[3 * i] = static_cast<unsigned char>(5 * column);
        colors.Data()[3 * i + 1] = static_cast<unsigned char>(7 * row);
        colors.Data()[3 * i + 2] = 200;
    }
    cloud.SetPoints(points);
    cloud.SetColors(colors);
    return cloud;
}

/// A block of 3 x 2 x 1 with a corner at the origin and a colour for each side's triangles.
inline ZyrTriangleMesh blockMesh() {
    ZyrVector3dArray vertices;
    for (int i = 0; i < 8; ++i) vertices.Append(ZyrVector3d(i & 1 ? 3 : 0, i & 2 ? 2 : 0, i >> 2));
    Zyr3DIntArray triangles;
    const int corners[] = {0, 2, 1, 1, 2, 3, 4, 5, 6, 5, 7, 6, 0, 1, 4, 1, 5, 4,
                           2, 6, 3, 3, 6, 7, 0, 4, 2, 2, 4, 6, 1, 3, 5, 3, 7, 5};
    for (int corner : corners) triangles.Append(corner);
    ZyrColorArray colors;
    colors.Create(12, 3);
    for (int i = 0; i < 36; ++i)
        colors.Data()[i] = static_cast<unsigned char>(40 + 200 * ((i / 6 + i % 3) % 2));
    return ZyrTriangleMesh(vertices, triangles, ZyrColorArray(), colors);
}

/// The hill as 16-bit counts with a hole of 0.
inline ZyrRangeImage hillImage() {
    constexpr int kWidth = 60, kHeight = 45;
    std::vector<std::uint16_t> values;
    for (int i = 0; i < kWidth * kHeight; ++i) {
        const double x = (i % kWidth - 25) / 10.0, y = (i / kWidth - 20) / 10.0;
        const bool isHole = i % kWidth > 40 && i % kWidth < 50 && i / kWidth > 30;
        const double value = isHole ? 0.0 : 1000 + 5000 * hill(x, y);
        values.push_back(static_cast<std::uint16_t>(value));
    }
    return ZyrRangeImage(values.data(), kWidth, kHeight, 0, CV_16U, 0, 0, 0.01, -10.0, 0.5, 0.0,
                         0.5, 0.0);
}

/// The points alone.
inline zyr::Subject pointsOf(const std::vector<cv::Vec3d>& points) {
    ZyrVector3dArray array;
    for (const cv::Vec3d& p : points) array.Append(ZyrVector3d(p[0], p[1], p[2]));
    ZyrPointCloud cloud(array, ZyrColorArray(), ZyrVector3dArray());
    return zyr::subjectOf(cloud, 0);
}

/// A small picture of the subject alone.
inline zyr::Look smallLook(const char* view) {
    zyr::Look look;
    look.size = {160, 120};
    look.isBare = true;
    look.background = {255, 255, 255};
    zyr::View chosen;
    zyr::parseView(view, chosen);
    look.view = chosen;
    return look;
}

}  // namespace test
