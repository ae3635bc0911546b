#include "render/Camera.h"

#include <algorithm>
#include <cmath>

namespace zyr {
namespace {

cv::Vec3f unit(const cv::Vec3d& v) {
    const double norm = cv::norm(v);
    return norm > 0.0 ? cv::Vec3f(v * (1.0 / norm)) : cv::Vec3f();
}

}  // namespace

Camera::Camera(const Subject& subject, const View& view, const cv::Rect2d& panel)
    : view_(view),
      stretch_(subject.stretch),
      center_(panel.x + panel.width / 2, panel.y + panel.height / 2) {
    const Bounds bounds = boundsOf(subject);
    middle_ = bounds.low * 0.5 + bounds.high * 0.5;
    fit(subject, panel);
}

/// Right, up and towards the eye from the middle, in the data's unit.
cv::Vec3d Camera::seen(const cv::Vec3d& point) const {
    const cv::Vec3d offset = (point - middle_).mul(stretch_);
    return {offset.dot(view_.right), offset.dot(view_.up), offset.dot(view_.eye)};
}

void Camera::fit(const Subject& subject, const cv::Rect2d& panel) {
    cv::Vec3d low = cv::Vec3d::all(HUGE_VAL), high = cv::Vec3d::all(-HUGE_VAL);
    for (const cv::Vec3d& point : subject.points) {
        if (!isDrawable(point)) continue;
        const cv::Vec3d at = seen(point);
        for (int k = 0; k < 3; ++k)
            low[k] = std::min(low[k], at[k]), high[k] = std::max(high[k], at[k]);
    }
    if (!(low[0] <= high[0])) return;
    constexpr double kDeepest = 1e9;  // pixels; the z-buffer holds floats
    const cv::Vec3d extent = high - low;
    shift_ = {(low[0] + high[0]) / 2, (low[1] + high[1]) / 2};
    scale_ = std::min({panel.width / extent[0], panel.height / extent[1], kDeepest / extent[2]});
    if (!(scale_ < 1e30)) scale_ = 1.0;  // all in one place
}

cv::Vec3f Camera::place(const cv::Vec3d& point) const {
    const cv::Vec3d at = seen(point);
    return cv::Vec3d(center_[0] + (at[0] - shift_[0]) * scale_,
                     center_[1] - (at[1] - shift_[1]) * scale_, at[2] * scale_);
}

std::vector<cv::Vec3f> Camera::place(const std::vector<cv::Vec3d>& points) const {
    std::vector<cv::Vec3f> placed(points.size());
    for (std::size_t i = 0; i < points.size(); ++i)
        if (isDrawable(points[i])) placed[i] = place(points[i]);
    return placed;
}

cv::Vec3f Camera::turned(const cv::Vec3f& normal) const {
    const cv::Vec3d n(normal[0] / stretch_[0], normal[1] / stretch_[1], normal[2] / stretch_[2]);
    return unit({n.dot(view_.right), n.dot(view_.up), n.dot(view_.eye)});
}

cv::Vec3f Camera::turnedBack(const cv::Vec3f& normal) const {
    const cv::Vec3d n = view_.right * normal[0] + view_.up * normal[1] + view_.eye * normal[2];
    return unit(n.mul(stretch_));
}

}  // namespace zyr
