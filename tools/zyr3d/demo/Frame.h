#pragma once

#include <opencv2/core.hpp>
#include <string>

#include "ZyrVector3dArray.h"

namespace zyr {

/// The coordinate, in all three components, of a pixel that has no depth. Not 0, which the pixels
/// below the optical centre have for a true coordinate.
constexpr float kHole = -1e9F;

/// What a sensor delivers, or a file: the raw buffers that a cloud is built from.
struct Frame {
    std::string name;
    std::string unit;          ///< of the coordinates, "" where it is not known
    cv::Mat coordinates;       ///< x y z of each pixel, as floats or doubles without gaps
    double holeMark = kHole;   ///< marks missing points in the coordinates
    cv::Mat colors;            ///< of the same size, 8-bit with 1, 3 or 4 channels; or empty
    ZyrVector3dArray normals;  ///< as many as points, or none

    /// Whether neighbours in the buffer are neighbours on the surface.
    bool isOrganised() const { return coordinates.rows > 1 && coordinates.cols > 1; }
};

}  // namespace zyr
