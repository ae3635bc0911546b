#pragma once

#include <opencv2/core.hpp>

namespace zyr {

/// From dark blue at 0 to yellow at 1; b, g, r. Equal steps look equally large, and lightness grows
/// all the way, so that the map also reads in grey and to the colour-blind.
cv::Vec3b heightColor(double fraction);

}  // namespace zyr
