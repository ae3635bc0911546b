#pragma once

#include <opencv2/core.hpp>
#include <string>

namespace zyr {

enum class Anchor { Left, Middle, Right };

/// The width of a text in pixels. A size of 1 has capitals of 21 pixels.
int textWidth(const std::string& text, double size);

/// Text on its base line. What lies outside the picture is cut off.
void write(cv::Mat& picture, const std::string& text, cv::Point at, double size,
           const cv::Vec3b& color, Anchor anchor);

/// The text, shortened in its middle to so many pixels.
std::string fitted(const std::string& text, double size, int width);

}  // namespace zyr
