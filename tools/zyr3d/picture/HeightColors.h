#pragma once

#include <opencv2/core.hpp>
#include <vector>

namespace zyr {

/// The heights that a map's colours run over. The rare extremes share the colour at their end.
struct HeightRange {
    double low = 0.0, high = 1.0;

    /// Of a map in which NaN stands for nothing.
    static HeightRange of(const cv::Mat& height);
    /// 0 at low to 1 at high.
    double fraction(double height) const;
    /// Between five and ten round heights.
    std::vector<double> ticks() const;
    /// The decimals that tell the ticks apart; -1 when they are too large or small for plain
    /// digits.
    int decimals() const;
};

/// From cold at 0 to warm at 1; b, g, r.
cv::Vec3b heightColor(double fraction);

}  // namespace zyr
