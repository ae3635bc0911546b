#include "demo/MachinedPart.h"

#include <algorithm>
#include <cmath>

namespace zyr::scene {
namespace {

constexpr double kSqrtHalf = 0.70710678118654752;
constexpr double kPlateHolePitch = 25.0;
constexpr double kBlockHeight = 40.0;

/// The block's own frame: turned on the plate by the angle of the triangle 5, 12, 13.
cv::Point3d inBlock(const cv::Point3d& p) {
    const double cosine = 12.0 / 13.0, sine = 5.0 / 13.0;
    return {cosine * p.x + sine * p.y, cosine * p.y - sine * p.x, p.z};
}

double length2(double x, double y) {
    return std::sqrt(x * x + y * y);
}

/// Exact distance to a rectangle, whose corners are rounded outside by the radius.
double roundedRectangle(double x, double y, double halfX, double halfY, double radius) {
    const double dx = std::abs(x) - (halfX - radius), dy = std::abs(y) - (halfY - radius);
    return length2(std::max(dx, 0.0), std::max(dy, 0.0)) + std::min(std::max(dx, dy), 0.0) - radius;
}

double circle(double x, double y, double radius) {
    return length2(x, y) - radius;
}

double chamfered(double a, double b, double size) {
    return std::max(std::max(a, b), (a + b + size) * kSqrtHalf);
}

/// Cuts what lies within an outline and above a floor, with a broken edge at the top.
double cut(double solid, double outline, double z, double floor, double top, double edge) {
    const double tool = std::max(outline, floor - z);
    const double bevel = std::max((outline - edge - (z - top)) * kSqrtHalf, z - top - 0.1);
    return std::max(solid, -std::min(tool, std::max(bevel, floor - z)));
}

double plate(const cv::Point3d& p) {
    const double x = p.x / kPlateHolePitch, y = p.y / kPlateHolePitch;
    const double dx = (x - std::floor(x) - 0.5) * kPlateHolePitch;
    const double dy = (y - std::floor(y) - 0.5) * kPlateHolePitch;
    return cut(p.z, circle(dx, dy, 3.0), p.z, -14.0, 0.0, 0.8);
}

double boltHoles(double solid, const cv::Point3d& p) {
    const double x = std::abs(p.x) - 66.5, y = std::abs(p.y) - 40.5;
    return cut(solid, circle(x, y, 3.4), p.z, -1.0, p.x < 0 ? 24.0 : kBlockHeight, 1.2);
}

double boss(double solid, const cv::Point3d& p) {
    const double side = circle(p.x - 38.0, p.y + 22.0, 17.0);
    const double body = std::max(chamfered(side, p.z - 56.0, 2.5), -p.z);
    const double bore = circle(p.x - 38.0, p.y + 22.0, 8.5);
    return cut(std::min(solid, body), bore, p.z, 26.0, 56.0, 1.5);
}

double block(const cv::Point3d& world) {
    const cv::Point3d p = inBlock(world);
    const double side = roundedRectangle(p.x, p.y, 75.0, 50.0, 6.0);
    // Nothing inside matters from afar, and an outer bound will do.
    const double outer = std::max(side, p.z - 56.0);
    if (outer > 6.0) return outer;
    double d = std::max(chamfered(side, p.z - kBlockHeight, 3.0), -p.z);
    d = std::max(d, -std::max(p.x + 58.0, 24.0 - p.z));
    d = cut(d, roundedRectangle(p.x + 25.0, p.y - 14.0, 27.0, 24.0, 8.0), p.z, 20.0, kBlockHeight,
            1.0);
    d = cut(d, roundedRectangle(p.x + 25.0, p.y - 14.0, 14.0, 11.0, 6.0), p.z, 12.0, 20.0, 0.8);
    d = cut(d, roundedRectangle(p.x + 21.0, p.y + 31.0, 28.0, 7.0, 7.0), p.z, 31.0, kBlockHeight,
            0.8);
    d = cut(d, circle(p.x - 39.0, p.y - 21.0, 20.0), p.z, 28.0, kBlockHeight, 1.0);
    d = cut(d, circle(p.x - 39.0, p.y - 21.0, 11.5), p.z, -1.0, 28.0, 1.0);
    return boss(boltHoles(d, p), p);
}

double ball(const cv::Point3d& p) {
    const double x = p.x - 106.0, y = p.y + 64.0, z = p.z - 22.0;
    const double sphere = std::sqrt(x * x + y * y + z * z) - 15.0;
    const double foot = std::max(circle(x, y, 7.0 + 0.25 * (12.0 - p.z)), p.z - 12.0) * 0.9;
    return std::min(sphere, foot);
}

double gaugeBlock(const cv::Point3d& p) {
    const double x = 0.8 * (p.x + 106.0) - 0.6 * (p.y - 66.0);
    const double y = 0.6 * (p.x + 106.0) + 0.8 * (p.y - 66.0);
    return chamfered(roundedRectangle(x, y, 20.0, 13.0, 1.0), p.z - 16.0, 1.2);
}

/// 0 to 1 and back over one period.
double triangleWave(double value) {
    return std::abs(2.0 * (value - std::floor(value)) - 1.0);
}

}  // namespace

double distance(const cv::Point3d& p) {
    return std::min(std::min(plate(p), block(p)), std::min(ball(p), gaugeBlock(p)));
}

cv::Point3d normal(const cv::Point3d& p) {
    constexpr double kStep = 0.02;
    const cv::Point3d corners[] = {{1, -1, -1}, {-1, -1, 1}, {-1, 1, -1}, {1, 1, 1}};
    cv::Point3d sum;
    for (const cv::Point3d& corner : corners) sum += corner * distance(p + corner * kStep);
    const double norm = std::sqrt(sum.dot(sum));
    return norm > 0 ? sum * (1.0 / norm) : cv::Point3d(0, 0, 1);
}

Material material(const cv::Point3d& p) {
    const double metal = std::min(block(p), gaugeBlock(p)), rest = std::min(plate(p), ball(p));
    if (metal < rest) return Material::Metal;
    return ball(p) < plate(p) ? Material::Ceramic : Material::Plate;
}

double toolMarks(const cv::Point3d& p, const cv::Point3d& n) {
    const cv::Point3d q = inBlock(p);
    if (material(p) != Material::Metal || n.z < 0.9) return 1.0;
    const bool isTop = p.z > kBlockHeight - 1.0;
    // Fly-cut arcs on the top, rings of an end mill on the floors.
    const double radius =
        isTop ? length2(q.x + 140.0, q.y - 10.0) / 5.5 : length2(q.x + 25.0, q.y - 14.0) / 3.0;
    return 0.93 + 0.09 * triangleWave(radius);
}

double openness(const cv::Point3d& p, const cv::Point3d& n) {
    double closed = 0.0, weight = 0.5;
    for (double reach = 2.0; reach < 20.0; reach *= 2.0, weight *= 0.62)
        closed += weight * (reach - std::min(distance(p + n * reach), reach)) / reach;
    return std::max(0.0, 1.0 - closed);
}

}  // namespace zyr::scene
