#pragma once

#include <cstddef>
#include <cstdint>

namespace cv {
class Mat;
}

/// The 32-bit colour words of point-cloud and mesh files.
namespace zyr {

bool isColorChannelCount(std::int64_t channels);

/// Whether the matrix holds colours that a file can take: 8-bit, of 1, 3 or 4 channels, one column
/// an element.
bool hasColors(const cv::Mat& colors, std::size_t elements);

/// An element as a word: 0xAARRGGBB, with alpha 255 for three channels; the bare grey level for
/// one.
std::uint32_t packColor(const unsigned char* element, int channels);

/// Makes the matrix 1 x n of the channel count, in place where it is that already, all bytes 0.
void setBlack(cv::Mat& colors, int n, int channels);

/// Stores a word in the matrix's channels (b, g, r, a as far as they go) of element i.
void unpackColor(std::uint32_t word, cv::Mat& colors, std::size_t i);

}  // namespace zyr
