#pragma once

#include <vector>

#include "render/Raster.h"

namespace zyr {

/// Normals of the splats that can be seen, from planes through what is seen around them. Zero for
/// all others. A splat's id is its point's index, less firstId.
std::vector<cv::Vec3f> fittedNormals(const Raster& raster, int firstId,
                                     const std::vector<cv::Vec3f>& points,
                                     const std::vector<float>& radii);

}  // namespace zyr
