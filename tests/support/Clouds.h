#pragma once

#include <gtest/gtest.h>

#include "ZyrPointCloud.h"
#include "support/CloudFile.h"
#include "support/ZyrValues.h"

namespace test {

inline const std::vector<double> kInvalidVector = {kInvalid, kInvalid, kInvalid};

/// So many colours with that value in every byte.
inline ZyrColorArray colorArray(int length, int channels, int value) {
    ZyrColorArray colors;
    colors.Create(length, channels);
    colors.SetColor(value);
    return colors;
}

/// A cloud whose points, normals and colours of 4 channels all differ.
inline ZyrPointCloud fullCloud(int length) {
    ZyrVector3dArray points, normals;
    ZyrColorArray colors;
    if (length > 0) colors.Create(length, 4);
    for (int i = 0; i < length; ++i) {
        points.Append(ZyrVector3d(i + 0.1, i + 0.2, i + 0.3));
        normals.Append(ZyrVector3d(-i, 1, 0));
        ZyrColor color(i, i + 10, i + 20, i + 30);
        colors.Replace(i, color);
    }
    return ZyrPointCloud(points, colors, normals);
}

/// Writes to the first element of each of the cloud's arrays.
inline void changeFirst(ZyrPointCloud& cloud) {
    ZyrColor color(90, 91, 92, 93);
    cloud.PointData()[0] = ZyrVector3d(97, 98, 99);
    cloud.NormalData()[0] = ZyrVector3d(94, 95, 96);
    cloud.ColorData().Replace(0, color);
}

inline void expectSameElements(ZyrPointCloud a, ZyrPointCloud b) {
    EXPECT_EQ(values(a.PointData()), values(b.PointData()));
    EXPECT_EQ(values(a.NormalData()), values(b.NormalData()));
    ASSERT_EQ(a.ColorData().Length(), b.ColorData().Length());
    for (int i = 0; i < a.ColorData().Length(); ++i)
        EXPECT_EQ(values(a.Color(i)), values(b.Color(i)));
}

}  // namespace test
