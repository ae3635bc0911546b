#include "render/Raster.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace zyr {
namespace {

double crossOf(const cv::Vec3f& from, const cv::Vec3f& to, double x, double y) {
    return (double{to[0]} - from[0]) * (y - from[1]) - (double{to[1]} - from[1]) * (x - from[0]);
}

double areaOf(const cv::Vec3f& a, const cv::Vec3f& b, const cv::Vec3f& c) {
    return crossOf(a, b, c[0], c[1]);
}

double lengthOf(const cv::Vec3f& a, const cv::Vec3f& b) {
    return std::max(std::abs(double{a[0]} - b[0]), std::abs(double{a[1]} - b[1]));
}

/// So thin that it may pass between the pixels' middles.
bool isSeenFromEdge(const cv::Vec3f& a, const cv::Vec3f& b, const cv::Vec3f& c) {
    constexpr double kThin = 0.01;
    const double longest = std::max({lengthOf(a, b), lengthOf(b, c), lengthOf(c, a)});
    return std::abs(areaOf(a, b, c)) <= kThin * longest;
}

}  // namespace

cv::Vec3d cornerShares(const cv::Vec3f& a, const cv::Vec3f& b, const cv::Vec3f& c, double x,
                       double y) {
    const double area = areaOf(a, b, c);
    return {crossOf(b, c, x, y) / area, crossOf(c, a, x, y) / area, crossOf(a, b, x, y) / area};
}

Raster::Raster(cv::Size size, const cv::Rect& window)
    : ids_(size, CV_32S, cv::Scalar(kNothing)),
      heights_(size, CV_32F, cv::Scalar(-std::numeric_limits<float>::infinity())),
      window_(window & cv::Rect({0, 0}, size)) {}

void Raster::put(int id, int row, int column, float height) {
    float& front = heights_.at<float>(row, column);
    if (!(height > front)) return;
    front = height;
    ids_.at<int>(row, column) = id;
}

void Raster::putAt(int id, const cv::Vec3d& at) {
    const bool isInside = at[0] >= window_.x && at[0] < window_.br().x && at[1] >= window_.y &&
                          at[1] < window_.br().y;
    if (isInside)
        put(id, static_cast<int>(at[1]), static_cast<int>(at[0]), static_cast<float>(at[2]));
}

cv::Rect Raster::pixelsBetween(const cv::Vec2f& low, const cv::Vec2f& high) const {
    const auto pixel = [](float at, int least, int most) {
        return static_cast<int>(
            std::clamp(at, static_cast<float>(least), static_cast<float>(most)));
    };
    const int left = pixel(std::ceil(low[0] - 0.5F), window_.x, window_.br().x);
    const int top = pixel(std::ceil(low[1] - 0.5F), window_.y, window_.br().y);
    const int right = pixel(std::floor(high[0] + 0.5F), window_.x, window_.br().x);
    const int bottom = pixel(std::floor(high[1] + 0.5F), window_.y, window_.br().y);
    return {left, top, std::max(0, right - left), std::max(0, bottom - top)};
}

void Raster::drawDisk(int id, const cv::Vec3f& at, float radius) {
    const cv::Rect box =
        pixelsBetween({at[0] - radius, at[1] - radius}, {at[0] + radius, at[1] + radius});
    const float bulge = 0.15F / std::max(radius, 0.5F);
    for (int row = box.y; row < box.br().y; ++row)
        for (int column = box.x; column < box.br().x; ++column) {
            const float dx = static_cast<float>(column) + 0.5F - at[0];
            const float dy = static_cast<float>(row) + 0.5F - at[1];
            const float square = dx * dx + dy * dy;
            if (square <= radius * radius) put(id, row, column, at[2] - bulge * square);
        }
    putAt(id, {at[0], at[1], double{at[2]} - bulge});
}

void Raster::drawTriangle(int id, const cv::Vec3f& a, const cv::Vec3f& b, const cv::Vec3f& c) {
    if (isSeenFromEdge(a, b, c)) {
        drawLine(id, a, b);
        drawLine(id, b, c);
        return drawLine(id, c, a);
    }
    const cv::Rect box =
        pixelsBetween({std::min({a[0], b[0], c[0]}), std::min({a[1], b[1], c[1]})},
                      {std::max({a[0], b[0], c[0]}), std::max({a[1], b[1], c[1]})});
    const double doubleArea = std::abs(areaOf(a, b, c)), side = areaOf(a, b, c) < 0.0 ? -1.0 : 1.0;
    for (int row = box.y; row < box.br().y; ++row)
        for (int column = box.x; column < box.br().x; ++column) {
            const double x = column + 0.5, y = row + 0.5;
            const double atA = side * crossOf(b, c, x, y), atB = side * crossOf(c, a, x, y);
            const double atC = side * crossOf(a, b, x, y);
            if (atA < 0.0 || atB < 0.0 || atC < 0.0) continue;
            put(id, row, column,
                static_cast<float>((atA * a[2] + atB * b[2] + atC * c[2]) / doubleArea));
        }
}

void Raster::drawLine(int id, const cv::Vec3f& a, const cv::Vec3f& b) {
    constexpr double kMostSteps = 1 << 16;
    const double steps = std::min(std::ceil(lengthOf(a, b)), kMostSteps) + 1.0;
    for (double step = 0.0; step <= steps; step += 1.0) {
        const cv::Vec3d at = cv::Vec3d(a) * (1.0 - step / steps) + cv::Vec3d(b) * (step / steps);
        putAt(id, at);
    }
}

}  // namespace zyr
