#pragma once

#include <opencv2/core.hpp>
#include <string>

#include "ZyrRangeImage.h"

namespace zyr {

/// A picture as it is stored (no conversion). Throws FileTrouble, also for pictures of more than 64
/// megapixels.
cv::Mat readImage(const std::string& path);

/// A picture as the library's range images read it, one value a pixel. Throws FileTrouble.
ZyrRangeImage readPictureValues(const std::string& path);

/// Throws FileTrouble.
void writeImage(const std::string& path, const cv::Mat& image);

}  // namespace zyr
