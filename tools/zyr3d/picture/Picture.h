#pragma once

#include <opencv2/core.hpp>
#include <string>

#include "picture/View.h"

namespace zyr {

constexpr int kPictureWidth = 1464;
constexpr int kPictureHeight = 596;

/// A picture for people: the shaded height map with its legend next to the colours, or next to the
/// normals of a cloud without colours. Holes are dark.
cv::Mat drawPicture(const View& view, const std::string& title, const std::string& facts,
                    const std::string& unit);

}  // namespace zyr
