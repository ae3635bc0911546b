#pragma once

#include <opencv2/core.hpp>
#include <string>

#include "ZyrRangeImage.h"
#include "files/SafeFile.h"

namespace zyr {

/// A picture as it is stored (no conversion). Throws FileTrouble, also for pictures of more than 64
/// megapixels.
cv::Mat readImage(const std::string& path);

/// A picture as the library's range images read it, one value a pixel. Throws FileTrouble.
ZyrRangeImage readPictureValues(const std::string& path);

/// Puts the picture into the file as a PNG and finishes it. Throws FileTrouble.
void putPng(SafeFile& file, const cv::Mat& picture);

}  // namespace zyr
