#pragma once

#include <optional>
#include <string>

#include "demo/Frame.h"

namespace zyr {

/// The pinhole that a depth picture was taken through, in pixels. What is left open is that of the
/// usual camera: 525 pixels of focal length for 640 columns, its centre in the middle.
struct Pinhole {
    std::optional<double> fx, fy, cx, cy;
    double depthScale = 1.0;  ///< millimetres a count
};

/// Turns a 16-bit depth picture (0: no depth) into coordinates in mm: x right, y down, z away from
/// the camera. The colour picture is taken when its path is not empty. Throws FileTrouble.
Frame readDepthImage(const std::string& path, const std::string& colorPath, const Pinhole& pinhole);

}  // namespace zyr
