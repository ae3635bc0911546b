#pragma once

#include <opencv2/core.hpp>
#include <optional>
#include <string>

#include "render/View.h"

namespace zyr {

enum class ColorBy { Height, Rgb, Normal };

/// How a picture is to look.
struct Look {
    cv::Size size{1200, 900};
    std::optional<View> view;      ///< else the subject's natural one
    std::optional<ColorBy> color;  ///< else its colours where it has them, and heights where not
    cv::Vec3b background{250, 249, 248};
    std::optional<double> pointSize;  ///< in pixels; else from the points' spacing
    bool isFlat = false;              ///< a triangle is a facet, whatever the normals
    bool isBare = false;              ///< the subject alone, without text, legend and axes
    std::string title;
};

}  // namespace zyr
