#pragma once

#include <opencv2/core.hpp>
#include <string>
#include <vector>

#include "files/SafeFile.h"

namespace zyr {

struct ImageFile {
    std::string path;
    std::vector<unsigned char> bytes;
    cv::Mat image;  ///< as it is stored (no conversion)
};

/// Throws FileTrouble, also for pictures of more than 64 megapixels.
ImageFile loadImageFile(const std::string& path);
cv::Mat readImage(const std::string& path);

/// The picture as the library's range images read it, one value a pixel. Throws FileTrouble.
cv::Mat greyOf(const ImageFile& file);

/// Puts the picture into the file as a PNG and finishes it. Throws FileTrouble.
void putPng(SafeFile& file, const cv::Mat& picture);

}  // namespace zyr
