#pragma once

#include <opencv2/core.hpp>

#include "ZyrColorArray.h"

namespace zyr {

struct RangeCalibration {
    double resolutionX = 1.0;
    double resolutionY = 1.0;
    double offsetX = 0.0;
    double offsetY = 0.0;
    double resolutionZ = 1.0;
    double offsetZ = 0.0;
};

/// What a range image holds.
struct RangeImageBlock {
    cv::Mat values;
    ZyrColorArray colors;
    double minValue = 0.0;
    double maxValue = 0.0;
    RangeCalibration calibration;
};

}  // namespace zyr
