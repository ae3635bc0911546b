#include "render/Creases.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <tuple>

namespace zyr {
namespace {

std::size_t at(int index) {
    return static_cast<std::size_t>(index);
}

auto coordinates(const cv::Vec3f& point) {
    return std::make_tuple(point[0], point[1], point[2]);
}

/// Files without shared vertices repeat a vertex for each of its triangles.
std::vector<int> sharedPlaces(const std::vector<cv::Vec3f>& points) {
    std::vector<int> order(points.size()), places(points.size());
    std::iota(order.begin(), order.end(), 0);
    std::stable_sort(order.begin(), order.end(), [&](int a, int b) {
        return coordinates(points[at(a)]) < coordinates(points[at(b)]);
    });
    for (std::size_t i = 0; i < order.size(); ++i) {
        const bool isRepeated = i > 0 && points[at(order[i])] == points[at(order[i - 1])];
        places[at(order[i])] = isRepeated ? places[at(order[i - 1])] : order[i];
    }
    return places;
}

}  // namespace

Creases::Creases(const std::vector<cv::Vec3f>& points, const std::vector<cv::Vec3i>& triangles)
    : triangles_(triangles), places_(sharedPlaces(points)), starts_(points.size() + 1, 0) {
    for (const cv::Vec3i& t : triangles) {
        const cv::Vec3d origin = points[at(t[0])];
        const cv::Vec3d cross =
            (cv::Vec3d(points[at(t[1])]) - origin).cross(cv::Vec3d(points[at(t[2])]) - origin);
        const double area = cv::norm(cross);
        doubleAreas_.push_back(static_cast<float>(area));
        faces_.push_back(area > 0.0 ? cv::Vec3f(cross * (1.0 / area)) : cv::Vec3f());
    }
    gatherAround();
    for (int t = 0; t < static_cast<int>(triangles.size()); ++t)
        corners_.push_back({meanAround(t, 0), meanAround(t, 1), meanAround(t, 2)});
}

void Creases::gatherAround() {
    for (const cv::Vec3i& t : triangles_)
        for (int k = 0; k < 3; ++k) ++starts_[at(places_[at(t[k])]) + 1];
    std::partial_sum(starts_.begin(), starts_.end(), starts_.begin());
    std::vector<int> next = starts_;
    around_.resize(at(starts_.back()));
    for (std::size_t t = 0; t < triangles_.size(); ++t)
        for (int k = 0; k < 3; ++k)
            around_[at(next[at(places_[at(triangles_[t][k])])]++)] = static_cast<int>(t);
}

cv::Vec3f Creases::meanAround(int triangle, int k) const {
    constexpr float kSameWay = 0.82F;  // cosine of 35 degrees
    constexpr int kMostAround = 64;
    const std::size_t place = at(places_[at(triangles_[at(triangle)][k])]);
    const cv::Vec3f own = faces_[at(triangle)];
    cv::Vec3f sum;
    const int end = std::min(starts_[place + 1], starts_[place] + kMostAround);
    for (int i = starts_[place]; i < end; ++i) {
        const cv::Vec3f& other = faces_[at(around_[at(i)])];
        const float cosine = own.dot(other);
        // Triangles of one surface may be wound either way.
        if (std::abs(cosine) > kSameWay)
            sum += other * std::copysign(doubleAreas_[at(around_[at(i)])], cosine);
    }
    const double norm = cv::norm(sum);
    return norm > 0.0 ? sum * static_cast<float>(1.0 / norm) : own;
}

}  // namespace zyr
