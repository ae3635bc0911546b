#include "render/Fits.h"

#include <algorithm>
#include <cmath>

namespace zyr {
namespace {

std::size_t at(int index) {
    return static_cast<std::size_t>(index);
}

/// The plane z = slopeX x + slopeY y + c nearest to some points.
class PlaneFit {
public:
    void add(const cv::Vec3f& p) {
        const double x = p[0], y = p[1], z = p[2];
        count_ += 1.0;
        x_ += x, y_ += y, z_ += z;
        xx_ += x * x, xy_ += x * y, yy_ += y * y, xz_ += x * z, yz_ += y * z;
    }

    /// In the picture's directions, where y runs down; straight at the eye when there is no plane.
    cv::Vec3f normal() const {
        const double xx = xx_ * count_ - x_ * x_, xy = xy_ * count_ - x_ * y_;
        const double yy = yy_ * count_ - y_ * y_;
        const double xz = xz_ * count_ - x_ * z_, yz = yz_ * count_ - y_ * z_;
        const double determinant = xx * yy - xy * xy;
        if (!(determinant > 1e-6 * (xx + yy) * (xx + yy))) return {0, 0, 1};
        const double slopeX = (xz * yy - yz * xy) / determinant;
        const double slopeY = (yz * xx - xz * xy) / determinant;
        const cv::Vec3d n(-slopeX, slopeY, 1.0);
        return cv::Vec3f(n * (1.0 / cv::norm(n)));
    }

private:
    double count_ = 0.0, x_ = 0.0, y_ = 0.0, z_ = 0.0;
    double xx_ = 0.0, xy_ = 0.0, yy_ = 0.0, xz_ = 0.0, yz_ = 0.0;
};

}  // namespace

std::vector<cv::Vec3f> fittedNormals(const Raster& raster, int firstId,
                                     const std::vector<cv::Vec3f>& points,
                                     const std::vector<float>& radii) {
    constexpr int kSteps = 2;
    constexpr float kSteepest = 3.0F;
    const auto fit = [&](int i) {
        const cv::Vec3f& middle = points[at(i)];
        const float step = std::max(1.0F, 0.9F * radii[at(i)]);
        PlaneFit plane;
        for (int v = -kSteps; v <= kSteps; ++v)
            for (int u = -kSteps; u <= kSteps; ++u) {
                const int row = static_cast<int>(middle[1] + static_cast<float>(v) * step);
                const int column = static_cast<int>(middle[0] + static_cast<float>(u) * step);
                if (!raster.has(row, column) || raster.id(row, column) < firstId) continue;
                const cv::Vec3f offset = points[at(raster.id(row, column) - firstId)] - middle;
                if (std::abs(offset[2]) < kSteepest * kSteps * step) plane.add(offset);
            }
        return plane.normal();
    };
    std::vector<cv::Vec3f> normals(points.size());
    for (int row = 0; row < raster.size().height; ++row)
        for (int column = 0; column < raster.size().width; ++column) {
            const int i = raster.id(row, column) - firstId;
            if (i >= 0 && normals[at(i)] == cv::Vec3f()) normals[at(i)] = fit(i);
        }
    return normals;
}

}  // namespace zyr
