#pragma once

#include <cstdio>

namespace cv {
class Mat;
}

/// The reader of range-image files, on a stream that its caller owns. Zyr3DFileIO::LoadRangeImage
/// leaves its file open; who reads many files opens and closes them by itself and comes here.
namespace zyr {

/// A range image as a file has it. The value range is not stored.
struct RangeImageParts {
    cv::Mat& values;
    cv::Mat& colors;
    double& resolutionX;
    double& resolutionY;
    double& resolutionZ;
    double& offsetX;
    double& offsetY;
    double& offsetZ;
};

/// Whether a type code, or the type of a matrix, is one channel of a depth from 8-bit unsigned to
/// double.
constexpr bool isRangeValueType(int type) {
    return type >= 0 && type <= 6;
}

/// Reads from the stream's position on. False leaves everything in image as it was; whoever shares
/// its matrices is never written to.
bool readRangeImage(std::FILE* file, const RangeImageParts& image, bool withColors);

}  // namespace zyr
