#include "files/Loading.h"

#include <cstring>

namespace zyr {

ZyrColorArray colorsOf(const cv::Mat& pixels) {
    ZyrColorArray colors;
    if (pixels.empty()) return colors;
    colors.Create(static_cast<int>(pixels.total()), pixels.channels());
    std::memcpy(colors.Data(), pixels.data, pixels.total() * pixels.elemSize());
    return colors;
}

cv::Mat pixelsOf(const ZyrColorArray& colors) {
    if (colors.Length() == 0) return {};
    return cv::Mat(colors.Height(), colors.Width(), CV_8UC(colors.Channel()), colors.Data());
}

}  // namespace zyr
