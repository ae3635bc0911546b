#pragma once

#include <opencv2/core.hpp>
#include <string>

#include "ZyrPointCloud.h"

namespace zyr {

/// What is drawn where there is nothing.
const cv::Vec3b kHoleColor(20, 16, 14);

/// A cloud as an eye sees it, pixel by pixel.
struct View {
    cv::Mat height;        ///< doubles; NaN where there is nothing
    cv::Mat normals;       ///< 3 floats: right, up, towards the eye
    cv::Mat colors;        ///< b, g, r; empty when the cloud has none
    char axis = 'z';       ///< that the heights are taken from
    bool isDepth = false;  ///< the heights grow away from the eye
    std::string kind;      ///< what sort of view it is, for people
};

/// Element i as b, g, r, whatever the number of channels.
cv::Vec3b colorAt(const ZyrColorArray& colors, int i);

/// As the sensor saw it.
View viewGrid(ZyrPointCloud& cloud, int columns, int rows);

/// An orthographic view of a cloud without grid: from where its camera stood when the coordinates
/// look like a camera's, else along its thinnest direction, from above if that is z.
View viewOrthographic(ZyrPointCloud& cloud);

}  // namespace zyr
