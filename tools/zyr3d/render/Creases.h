#pragma once

#include <array>
#include <opencv2/core.hpp>
#include <vector>

namespace zyr {

/// Normals of a mesh that has none of its own: each corner's is the mean of the triangles around it
/// that face nearly the same way as its own, so that round things look round and edges stay sharp.
class Creases {
public:
    Creases(const std::vector<cv::Vec3f>& points, const std::vector<cv::Vec3i>& triangles);

    const cv::Vec3f& corner(int triangle, int k) const {
        return corners_[static_cast<std::size_t>(triangle)][static_cast<std::size_t>(k)];
    }

private:
    void gatherAround();
    cv::Vec3f meanAround(int triangle, int k) const;

    const std::vector<cv::Vec3i>& triangles_;
    std::vector<float> doubleAreas_;
    std::vector<cv::Vec3f> faces_;
    std::vector<std::array<cv::Vec3f, 3>> corners_;
    std::vector<int> places_;           ///< of each point: the first one that lies there
    std::vector<int> starts_, around_;  ///< the triangles around each place
};

}  // namespace zyr
