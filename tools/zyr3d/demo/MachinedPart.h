#pragma once

#include <opencv2/core.hpp>

namespace zyr {

/// A milled block with pockets, bores and a boss, a ball and a gauge block on a fixture plate. In
/// mm: x right, y away from the observer, z up from the plate's top. All arithmetic is in IEEE
/// basic operations and square roots, so that it gives the same bits everywhere.
namespace scene {

/// No point of the scene lies higher.
constexpr double kTop = 60.0;

enum class Material { Plate, Metal, Ceramic };

/// The distance to the nearest surface or less, negative inside.
double distance(const cv::Point3d& p);
cv::Point3d normal(const cv::Point3d& p);
Material material(const cv::Point3d& p);
/// How light the surface is at p, about 1, by the marks that tools leave.
double toolMarks(const cv::Point3d& p, const cv::Point3d& normal);
/// From 1 in the open to 0 in a corner that no ambient light reaches.
double openness(const cv::Point3d& p, const cv::Point3d& normal);

}  // namespace scene
}  // namespace zyr
