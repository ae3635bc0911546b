#pragma once

#include <array>
#include <opencv2/core.hpp>
#include <string>

#include "picture/Scale.h"

namespace zyr {

/// What stands around a drawing: everything in one size and two inks that show on its background.
class Furniture {
public:
    Furniture(cv::Mat& picture, const cv::Vec3b& background);

    /// Text, lines and gaps are so many times as large as in a picture of 1200 x 900.
    double zoom() const { return zoom_; }
    int zoomed(double pixels) const { return cvRound(pixels * zoom_); }

    void title(const std::string& text, const std::string& facts);
    /// The colours of heights with round ticks, in this box and to the right of it.
    void legend(const cv::Rect& box, Scale scale);
    /// The directions of x, y and z: right, up and towards the eye.
    void triad(cv::Point middle, const std::array<cv::Vec3d, 3>& axes);
    /// A bar of a round length that ends at a place, and its length.
    void scaleBar(cv::Point end, double pixelsPerUnit);

private:
    void line(const cv::Point2d& from, const cv::Point2d& to, const cv::Vec3b& ink, double width);

    cv::Mat& picture_;
    double zoom_;
    cv::Vec3b ink_, faint_;
};

}  // namespace zyr
