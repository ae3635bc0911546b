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

    cv::Vec3f corner(int triangle, int k) const;

private:
    void gatherAround();

    const std::vector<cv::Vec3i>& triangles_;
    std::vector<float> doubleAreas_;
    std::vector<cv::Vec3f> faces_;
    std::vector<int> places_;           ///< of each point: the first one that lies there
    std::vector<int> starts_, around_;  ///< the triangles around each place
};

}  // namespace zyr
