#pragma once

#include <opencv2/core.hpp>
#include <vector>

namespace zyr {

/// How far each of the chosen points is from its neighbours, in the points' unit, evened out over
/// its surroundings. 0 where points lie on one another or there is just one.
std::vector<float> spacings(const std::vector<cv::Vec3f>& points, const std::vector<int>& chosen);

}  // namespace zyr
