#pragma once

#include <opencv2/core.hpp>
#include <string>

namespace zyr {

/// A picture as it is stored (no conversion). Throws FileTrouble, also for pictures of more than 64
/// megapixels.
cv::Mat readImage(const std::string& path);

/// Throws FileTrouble.
void writeImage(const std::string& path, const cv::Mat& image);

}  // namespace zyr
