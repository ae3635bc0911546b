#pragma once

#include "ZyrPointCloud.h"
#include "ZyrRangeImage.h"
#include "demo/Frame.h"

namespace zyr {

/// The heights of an organised cloud as 16-bit counts. A height is resolution * count + offset;
/// columns and rows stay pixels.
struct HeightImage {
    cv::Mat values;  ///< 0 for a missing point, else 1 to 65535 over the range of heights
    cv::Mat colors;  ///< of the same size, or empty
    double resolution = 1.0;
    double offset = 0.0;

    ZyrRangeImage rangeImage() const;
    /// A .zrt file with the colours, which a ZyrRangeImage only gets from a file.
    bool save(const char* path) const;
};

HeightImage heightsOf(ZyrPointCloud& cloud, const Frame& frame);

/// What differs: "values", "colours" or "calibration"; "" when every bit is the same.
std::string difference(const HeightImage& a, const ZyrRangeImage& b);

}  // namespace zyr
