#include "fileIO/ColorWords.h"

#include <opencv2/core.hpp>

#include "ZyrColor.h"

namespace zyr {

std::uint32_t packColor(const unsigned char* element, int channels) {
    if (channels == 1) return element[0];
    unsigned int word = 0;
    RGBA2argb(element[2], element[1], element[0], channels == 4 ? element[3] : 255, &word);
    return word;
}

bool isColorChannelCount(std::int64_t channels) {
    return channels == 1 || channels == 3 || channels == 4;
}

bool hasColors(const cv::Mat& colors, std::size_t elements) {
    return !colors.empty() && colors.depth() == CV_8U && isColorChannelCount(colors.channels()) &&
           static_cast<std::size_t>(colors.cols) == elements;
}

void setBlack(cv::Mat& colors, int n, int channels) {
    colors.create(1, n, CV_8UC(channels));
    colors.setTo(0);
}

// A word's bytes lie in the order of the channels: b, g, r, a.
void unpackColor(std::uint32_t word, cv::Mat& colors, std::size_t i) {
    const std::size_t count = colors.elemSize();
    unsigned char* element = colors.ptr() + i * count;
    for (std::size_t k = 0; k < count; ++k)
        element[k] = static_cast<unsigned char>(word >> (8 * k));
}

}  // namespace zyr
