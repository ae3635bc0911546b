#pragma once

#include <array>
#include <filesystem>
#include <opencv2/core.hpp>
#include <string>
#include <vector>

#include "ZyrRangeImage.h"
#include "rangeimage/RangeImageBlock.h"
#include "support/Held.h"
#include "support/MatBytes.h"

/// Range images to test with, and their plain forms.
namespace test {

/// A packed matrix of one channel with these bytes.
inline cv::Mat matOf(int rows, int columns, int type, const Bytes& bytes) {
    cv::Mat mat(rows, columns, type);
    std::copy(bytes.begin(), bytes.end(), mat.data);
    return mat;
}

inline zyr::RangeImageBlock& blockOf(const ZyrRangeImage& image) {
    return held<zyr::RangeImageBlock>(image);
}

inline Bytes valueBytes(const ZyrRangeImage& image) {
    return bytesOf(blockOf(image).values);
}

inline cv::Mat& colorMat(const ZyrRangeImage& image) {
    return held<cv::Mat>(blockOf(image).colors);
}

/// Gives an image a grid of colours, whose bytes count up from 1.
inline void setColors(const ZyrRangeImage& image, int rows, int columns, int channels) {
    cv::Mat colors(rows, columns, CV_8UC(channels));
    for (std::size_t i = 0; i < colors.total() * colors.elemSize(); ++i)
        colors.data[i] = static_cast<unsigned char>(i + 1);
    colorMat(image) = colors;
}

/// Resolution and offset of X, Y and Z in turn.
inline std::vector<double> calibration(const ZyrRangeImage& image) {
    return {image.ResolutionX(), image.OffsetX(),     image.ResolutionY(),
            image.OffsetY(),     image.ResolutionZ(), image.OffsetZ()};
}

inline std::vector<double> valueRange(const ZyrRangeImage& image) {
    return {image.MinValue(), image.MaxValue()};
}

/// Columns, rows and type.
inline std::vector<int> shape(const ZyrRangeImage& image) {
    return {image.Width(), image.Height(), image.DataType()};
}

/// Three columns and two rows of 16-bit values 1 to 6, a value range of 1 to 6, and a calibration
/// without two equal numbers.
inline ZyrRangeImage* newSample() {
    std::array<unsigned short, 6> data = {1, 2, 3, 4, 5, 6};
    return new ZyrRangeImage(data.data(), 3, 2, 0, 2, 1, 6, 2, 3, 4, 5, 6, 7);
}

inline const std::vector<double>& sampleCalibration() {
    static const std::vector<double> numbers = {4, 5, 6, 7, 2, 3};
    return numbers;
}

/// How many of the process's descriptors stand on a file.
inline int openDescriptors(const std::string& path) {
    int count = 0;
    for (const auto& entry : std::filesystem::directory_iterator("/proc/self/fd")) {
        std::error_code ignored;
        if (std::filesystem::read_symlink(entry, ignored) == path) ++count;
    }
    return count;
}

}  // namespace test
