#pragma once

#include "render/View.h"

namespace zyr {

/// An orthographic camera that sees a subject whole in a panel of a picture.
class Camera {
public:
    Camera(const Subject& subject, const View& view, const cv::Rect2d& panel);

    /// Column, row, and height towards the eye, all in pixels. Pixel i has its middle at i + 0.5.
    cv::Vec3f place(const cv::Vec3d& point) const;
    std::vector<cv::Vec3f> place(const std::vector<cv::Vec3d>& points) const;
    /// A normal of the data as the picture sees it: right, up and towards the eye.
    cv::Vec3f turned(const cv::Vec3f& normal) const;
    /// And back.
    cv::Vec3f turnedBack(const cv::Vec3f& normal) const;
    double pixelsPerUnit() const { return scale_; }

private:
    cv::Vec3d seen(const cv::Vec3d& point) const;
    void fit(const Subject& subject, const cv::Rect2d& panel);

    View view_;
    cv::Vec3d stretch_, middle_;
    cv::Vec2d center_, shift_;  ///< of the panel; of what is seen from the middle
    double scale_ = 1.0;
};

}  // namespace zyr
