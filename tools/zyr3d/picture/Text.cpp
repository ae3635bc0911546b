#include "picture/Text.h"

#include <algorithm>
#include <opencv2/imgproc.hpp>

namespace zyr {
namespace {

/// Letters are drawn this many times as large and scaled down, which makes thin lines even.
constexpr int kFiner = 4;
constexpr int kFont = cv::FONT_HERSHEY_SIMPLEX;

int thickness(double size) {
    return std::max(2, cvRound(size * kFiner * 1.7));
}

cv::Size extent(const std::string& text, double size) {
    return cv::getTextSize(text, kFont, size * kFiner, thickness(size), nullptr);
}

/// How much of a pixel the letters cover, in 255ths times kFiner squared.
int cover(const cv::Mat& large, int row, int column) {
    int sum = 0;
    for (int v = 0; v < kFiner; ++v)
        for (int u = 0; u < kFiner; ++u)
            sum += large.at<uchar>(row * kFiner + v, column * kFiner + u);
    return sum;
}

void blend(cv::Vec3b& pixel, const cv::Vec3b& color, int cover) {
    constexpr int kWhole = 255 * kFiner * kFiner;
    for (int k = 0; k < 3; ++k)
        pixel[k] = static_cast<uchar>((pixel[k] * (kWhole - cover) + color[k] * cover) / kWhole);
}

}  // namespace

int textWidth(const std::string& text, double size) {
    return extent(text, size).width / kFiner;
}

void write(cv::Mat& picture, const std::string& text, cv::Point at, double size,
           const cv::Vec3b& color, Anchor anchor) {
    const int width = textWidth(text, size), above = extent(text, size).height / kFiner + 3;
    if (anchor == Anchor::Right) at.x -= width;
    if (anchor == Anchor::Middle) at.x -= width / 2;
    const cv::Rect box(at.x - 3, at.y - above, width + 6, above + above / 2);
    cv::Mat large = cv::Mat::zeros(box.height * kFiner, box.width * kFiner, CV_8U);
    cv::putText(large, text, {3 * kFiner, above * kFiner}, kFont, size * kFiner, 255,
                thickness(size), cv::LINE_AA);
    const cv::Rect seen = box & cv::Rect({0, 0}, picture.size());
    for (int row = seen.y; row < seen.br().y; ++row)
        for (int column = seen.x; column < seen.br().x; ++column)
            blend(picture.at<cv::Vec3b>(row, column), color,
                  cover(large, row - box.y, column - box.x));
}

std::string fitted(const std::string& text, double size, int width) {
    if (textWidth(text, size) <= width) return text;
    std::size_t kept = std::min<std::size_t>(text.size(), 200);
    std::string shortened;
    do {
        kept -= 1;
        shortened = text.substr(0, kept / 2) + "..." + text.substr(text.size() - (kept - kept / 2));
    } while (kept > 0 && textWidth(shortened, size) > width);
    return kept > 0 ? shortened : "";
}

}  // namespace zyr
