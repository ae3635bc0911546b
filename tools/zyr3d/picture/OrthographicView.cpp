#include <algorithm>
#include <cmath>
#include <limits>
#include <opencv2/imgproc.hpp>

#include "picture/View.h"

namespace zyr {
namespace {

constexpr int kWidth = 640;
constexpr int kHeight = 480;
constexpr int kMargin = 12;

double component(const ZyrVector3d& v, int axis) {
    return axis == 0 ? v.x : axis == 1 ? v.y : v.z;
}

/// The box around the valid points.
struct Box {
    cv::Vec3d low = cv::Vec3d::all(kInvalidValue), high = cv::Vec3d::all(-kInvalidValue);

    explicit Box(const ZyrPointCloud& cloud) {
        for (int i = 0; i < cloud.Length(); ++i) {
            const ZyrVector3d p = cloud.Point(i);
            if (!ZyrVector3d(p).IsValid()) continue;
            const cv::Vec3d v(p.x, p.y, p.z);
            for (int k = 0; k < 3; ++k) {
                low[k] = std::min(low[k], v[k]);
                high[k] = std::max(high[k], v[k]);
            }
        }
    }
    double extent(int axis) const { return high[axis] - low[axis]; }
    bool spansOrigin(int axis) const { return low[axis] < 0.0 && high[axis] > 0.0; }
};

/// Which axis of the cloud runs along which of the picture, and in what direction.
struct Axes {
    int right = 0, up = 1, eye = 2;
    double upSign = 1.0, eyeSign = 1.0;
};

Axes chooseAxes(const Box& box) {
    if (box.spansOrigin(0) && box.spansOrigin(1) && box.low[2] > 0.0) return {0, 1, 2, -1.0, -1.0};
    const double x = box.extent(0), y = box.extent(1), z = box.extent(2);
    if (z <= x && z <= y) return {0, 1, 2, 1.0, 1.0};
    if (box.spansOrigin(0) && box.spansOrigin(1) && box.high[2] < 0.0) return {0, 1, 2, 1.0, 1.0};
    if (y <= x) return {0, 2, 1, 1.0, -1.0};
    return {1, 2, 0, 1.0, 1.0};
}

class Rendering {
public:
    Rendering(ZyrPointCloud& cloud, const Box& box, const Axes& axes) : cloud_(cloud), axes_(axes) {
        const double x = box.extent(axes.right), y = box.extent(axes.up);
        pixel_ = std::max({x / (kWidth - 2 * kMargin), y / (kHeight - 2 * kMargin), 1e-300});
        middle_ = (box.low + box.high) * 0.5;
        const double spacing = std::sqrt(x / pixel_ * y / pixel_ / std::max(1, cloud.Length()));
        radius_ = std::clamp(cvRound(0.9 * spacing), 0, 4);
        nearest_ = cv::Mat(kHeight, kWidth, CV_32S, cv::Scalar(-1));
    }

    /// The index of the point in front in each pixel, -1 where there is none.
    const cv::Mat& draw() {
        for (int i = 0; i < cloud_.Length(); ++i)
            if (cloud_[i].IsValid()) drawPoint(i);
        return nearest_;
    }

    double pixel() const { return pixel_; }

private:
    double value(int i, int axis) const { return component(cloud_.Point(i), axis); }

    double towardsEye(int i) const { return axes_.eyeSign * value(i, axes_.eye); }

    void drawPoint(int i) {
        const double x = (value(i, axes_.right) - middle_[axes_.right]) / pixel_;
        const double y = axes_.upSign * (value(i, axes_.up) - middle_[axes_.up]) / pixel_;
        const int column = kWidth / 2 + cvRound(x), row = kHeight / 2 - cvRound(y);
        for (int v = std::max(row - radius_, 0); v <= std::min(row + radius_, kHeight - 1); ++v)
            for (int u = std::max(column - radius_, 0); u <= std::min(column + radius_, kWidth - 1);
                 ++u) {
                int& front = nearest_.at<int>(v, u);
                if (front < 0 || towardsEye(i) > towardsEye(front)) front = i;
            }
    }

    ZyrPointCloud& cloud_;
    Axes axes_;
    double pixel_;
    cv::Vec3d middle_;
    int radius_;
    cv::Mat nearest_;
};

/// Heights in pixels towards the eye, smoothed where there are some.
cv::Mat smoothed(const cv::Mat& height, double scale) {
    const cv::Mat present = height == height;
    cv::Mat values = cv::Mat::zeros(height.size(), CV_64F), weights;
    double lowest = 0.0;
    cv::minMaxLoc(height, &lowest, nullptr, nullptr, nullptr, present);
    cv::Mat relative = (height - lowest) * scale;
    relative.copyTo(values, present);
    present.convertTo(weights, CV_64F, 1.0 / 255.0);
    cv::GaussianBlur(values, values, {}, 1.6);
    cv::GaussianBlur(weights, weights, {}, 1.6);
    return values / cv::max(weights, 1e-6);
}

cv::Mat normalsOf(const cv::Mat& heightInPixels) {
    cv::Mat dx, dy, normals(heightInPixels.size(), CV_32FC3);
    cv::Sobel(heightInPixels, dx, CV_64F, 1, 0, 3, 0.125);
    cv::Sobel(heightInPixels, dy, CV_64F, 0, 1, 3, 0.125);
    for (int row = 0; row < normals.rows; ++row)
        for (int column = 0; column < normals.cols; ++column) {
            const cv::Vec3d n(-dx.at<double>(row, column), dy.at<double>(row, column), 1.0);
            normals.at<cv::Vec3f>(row, column) = n / cv::norm(n);
        }
    return normals;
}

void fill(View& view, const ZyrPointCloud& cloud, const cv::Mat& nearest, int axis) {
    ZyrPointCloud shared = cloud;
    for (int row = 0; row < kHeight; ++row)
        for (int column = 0; column < kWidth; ++column) {
            const int i = nearest.at<int>(row, column);
            if (i < 0) continue;
            view.height.at<double>(row, column) = component(cloud.Point(i), axis);
            if (!view.colors.empty())
                view.colors.at<cv::Vec3b>(row, column) = colorAt(shared.ColorData(), i);
        }
}

}  // namespace

View viewOrthographic(ZyrPointCloud& cloud) {
    const Box box(cloud);
    const Axes axes = chooseAxes(box);
    View view;
    view.axis = "xyz"[axes.eye];
    view.isDepth = axes.eyeSign < 0.0;
    view.kind = "orthographic";
    view.height = cv::Mat(kHeight, kWidth, CV_64F, std::numeric_limits<double>::quiet_NaN());
    view.normals = cv::Mat(kHeight, kWidth, CV_32FC3, cv::Scalar(0, 0, 1));
    if (cloud.IsValidColor()) view.colors = cv::Mat(kHeight, kWidth, CV_8UC3, kHoleColor);
    if (cloud.NumValidPoints() == 0) return view;
    Rendering rendering(cloud, box, axes);
    fill(view, cloud, rendering.draw(), axes.eye);
    view.normals = normalsOf(smoothed(view.height, axes.eyeSign / rendering.pixel()));
    return view;
}

}  // namespace zyr
