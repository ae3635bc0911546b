#include "picture/ColorMap.h"

#include <algorithm>
#include <array>

namespace zyr {
namespace {

/// Steps of 11 to 12 in CIELAB each, along an arc of hues from violet-blue over green.
constexpr std::array<std::array<int, 3>, 17> kAnchors = {{{115, 45, 64},
                                                          {145, 69, 64},
                                                          {159, 88, 54},
                                                          {163, 103, 44},
                                                          {164, 116, 35},
                                                          {164, 130, 25},
                                                          {162, 143, 24},
                                                          {158, 155, 35},
                                                          {154, 169, 48},
                                                          {147, 181, 65},
                                                          {138, 192, 88},
                                                          {126, 201, 112},
                                                          {113, 208, 136},
                                                          {100, 213, 161},
                                                          {89, 218, 188},
                                                          {82, 221, 215},
                                                          {85, 229, 247}}};

}  // namespace

cv::Vec3b heightColor(double fraction) {
    const double at = std::clamp(fraction, 0.0, 1.0) * (kAnchors.size() - 1.0);
    const auto i = std::min(static_cast<std::size_t>(at), kAnchors.size() - 2);
    const double part = at - static_cast<double>(i);
    cv::Vec3b color;
    for (std::size_t k = 0; k < 3; ++k)
        color[static_cast<int>(k)] =
            cv::saturate_cast<uchar>(kAnchors[i][k] * (1.0 - part) + kAnchors[i + 1][k] * part);
    return color;
}

}  // namespace zyr
