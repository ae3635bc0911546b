#include <algorithm>
#include <cmath>

#include "render/Subject.h"

namespace zyr {
namespace {

/// Of every so many points, which is enough to tell where most are.
std::vector<double> sampled(const std::vector<cv::Vec3d>& points, int axis) {
    constexpr std::size_t kMost = 200000;
    const std::size_t stride = points.size() / kMost + 1;
    std::vector<double> values;
    for (std::size_t i = 0; i < points.size(); i += stride)
        if (isDrawable(points[i])) values.push_back(points[i][axis]);
    return values;
}

/// The value that so large a share of the others is below.
double quantile(std::vector<double>& values, double share) {
    const auto nth = values.begin() + static_cast<std::ptrdiff_t>(
                                          share * (static_cast<double>(values.size()) - 1.0));
    std::nth_element(values.begin(), nth, values.end());
    return *nth;
}

/// What 99 % of the points lie in.
Bounds usualBounds(const std::vector<cv::Vec3d>& points) {
    Bounds bounds;
    for (int axis = 0; axis < 3; ++axis) {
        std::vector<double> values = sampled(points, axis);
        if (values.empty()) return {};
        bounds.low[axis] = quantile(values, 0.005);
        bounds.high[axis] = quantile(values, 0.995);
    }
    return bounds;
}

/// How far from the usual bounds a point may be.
cv::Vec3d reachAround(const Subject& subject, const Bounds& usual) {
    constexpr double kFar = 4.0, kThin = 0.05;
    const cv::Vec3d extent = usual.high - usual.low;
    const double largest = std::max({extent[0], extent[1], extent[2]});
    cv::Vec3d reach;
    for (int k = 0; k < 3; ++k) reach[k] = kFar * std::max(extent[k], kThin * largest);
    if (subject.isHeightMap) reach = {HUGE_VAL, HUGE_VAL, kFar * extent[2]};
    for (int k = 0; k < 3; ++k)
        if (reach[k] == 0.0) reach[k] = HUGE_VAL;
    return reach;
}

}  // namespace

void dropStrays(Subject& subject) {
    const Bounds usual = usualBounds(subject.points);
    const cv::Vec3d reach = reachAround(subject, usual);
    const auto isStray = [&](const cv::Vec3d& point) {
        for (int k = 0; k < 3; ++k)
            if (point[k] < usual.low[k] - reach[k] || point[k] > usual.high[k] + reach[k])
                return true;
        return false;
    };
    for (cv::Vec3d& point : subject.points) {
        if (!isDrawable(point) || !isStray(point)) continue;
        point = cv::Vec3d::all(NAN);
        ++subject.strays;
    }
}

}  // namespace zyr
