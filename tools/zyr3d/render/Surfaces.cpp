#include "render/Surfaces.h"

#include <algorithm>
#include <cmath>

#include "render/Fits.h"
#include "render/Spacing.h"

namespace zyr {
namespace {

const cv::Vec3b kNoColor(235, 235, 235);

std::size_t index(int i) {
    return static_cast<std::size_t>(i);
}

cv::Vec3f unit(const cv::Vec3f& v, const cv::Vec3f& otherwise) {
    const double norm = cv::norm(v);
    return norm > 1e-6 ? v * static_cast<float>(1.0 / norm) : otherwise;
}

cv::Vec3f towardsEye(const cv::Vec3f& normal) {
    return normal[2] < 0.0F ? -normal : normal;
}

/// The normal of placed points, whose rows run down.
cv::Vec3f upwards(const cv::Vec3f& normal) {
    return {normal[0], -normal[1], normal[2]};
}

std::vector<int> drawableOf(const Subject& subject) {
    std::vector<int> drawable;
    for (std::size_t i = 0; i < subject.points.size(); ++i)
        if (isDrawable(subject.points[i])) drawable.push_back(static_cast<int>(i));
    return drawable;
}

/// Radii of disks that close a surface, but no hole of two points' width. In a grid the triangles
/// close it, and disks go half the way to the next pixel.
std::vector<float> radiiOf(const Subject& subject, const std::vector<cv::Vec3f>& placed,
                           const Look& look, int finer) {
    if (look.pointSize)
        return std::vector<float>(placed.size(), static_cast<float>(*look.pointSize / 2 * finer));
    const double side = std::min(look.size.width, look.size.height);
    const auto largest = static_cast<float>(finer * std::max(3.0, 0.006 * side));
    if (subject.splats.size() < 2) return std::vector<float>(placed.size(), largest);
    const float share = subject.isGrid ? 0.6F : 1.25F;
    std::vector<float> radii =
        spacings(placed, subject.isGrid ? drawableOf(subject) : subject.splats);
    for (float& radius : radii) radius = std::clamp(share * radius, 0.5F, largest);
    return radii;
}

}  // namespace

Surfaces::Surfaces(const Subject& subject, const Camera& camera, const Look& look, int finer,
                   const cv::Rect& window)
    : subject_(subject),
      placed_(camera.place(subject.points)),
      raster_(look.size * finer, window),
      firstSplat_(static_cast<int>(subject.triangles.size())),
      isFlat_(look.isFlat) {
    for (const cv::Vec3f& normal : subject.normals) normals_.push_back(camera.turned(normal));
    for (int t = 0; t < firstSplat_; ++t) {
        const cv::Vec3i& corners = subject.triangles[index(t)];
        const cv::Vec3f &a = placed_[index(corners[0])], &b = placed_[index(corners[1])],
                        &c = placed_[index(corners[2])];
        raster_.drawTriangle(t, a, b, c);
        faces_.push_back(towardsEye(upwards(unit((b - a).cross(c - a), {0, 0, 1}))));
    }
    if (firstSplat_ > 0 && normals_.empty() && !isFlat_)
        creases_ = std::make_unique<Creases>(placed_, subject.triangles);
    drawSplats(look, finer);
}

void Surfaces::drawSplats(const Look& look, int finer) {
    const std::vector<float> radii = radiiOf(subject_, placed_, look, finer);
    // Behind the triangles that they are the edge of, however those are tilted.
    const float behind = subject_.isGrid ? 1.5F : 0.0F;
    for (int i : subject_.splats) {
        const float radius = radii[index(i)];
        raster_.drawDisk(firstSplat_ + i, placed_[index(i)] - cv::Vec3f(0, 0, behind * radius),
                         radius);
    }
    if (normals_.empty() && !creases_)
        normals_ = fittedNormals(raster_, firstSplat_, placed_, radii);
}

Surface Surfaces::at(int row, int column) const {
    const int id = raster_.id(row, column);
    if (id >= firstSplat_) return splat(id - firstSplat_);
    const cv::Vec3i& t = subject_.triangles[index(id)];
    cv::Vec3d shares = cornerShares(placed_[index(t[0])], placed_[index(t[1])],
                                    placed_[index(t[2])], column + 0.5, row + 0.5);
    const bool isInside = shares[0] >= 0.0 && shares[1] >= 0.0 && shares[2] >= 0.0;
    return triangle(id, isInside ? shares : cv::Vec3d(1, 0, 0));
}

Surface Surfaces::splat(int point) const {
    const bool isKnown = !normals_.empty() && normals_[index(point)] != cv::Vec3f();
    const cv::Vec3f normal = isKnown ? normals_[index(point)] : cv::Vec3f(0, 0, 1);
    return {towardsEye(normal), subject_.colors.empty() ? kNoColor : subject_.colors[index(point)],
            subject_.points[index(point)][2]};
}

Surface Surfaces::triangle(int t, const cv::Vec3d& shares) const {
    const cv::Vec3i& corners = subject_.triangles[index(t)];
    cv::Vec3d color;
    double height = 0.0;
    for (int k = 0; k < 3; ++k) {
        height += subject_.points[index(corners[k])][2] * shares[k];
        if (!subject_.colors.empty())
            color += cv::Vec3d(subject_.colors[index(corners[k])]) * shares[k];
    }
    Surface surface{triangleNormal(t, shares), kNoColor, height};
    if (!subject_.colors.empty()) surface.color = cv::Vec3b(color);
    if (!subject_.triangleColors.empty()) surface.color = subject_.triangleColors[index(t)];
    return surface;
}

cv::Vec3f Surfaces::triangleNormal(int t, const cv::Vec3d& shares) const {
    const cv::Vec3f& face = faces_[index(t)];
    if (isFlat_) return face;
    const cv::Vec3i& corners = subject_.triangles[index(t)];
    cv::Vec3f sum;
    for (int k = 0; k < 3; ++k) {
        const cv::Vec3f own =
            creases_ ? upwards(creases_->corner(t, k)) : normals_[index(corners[k])];
        const cv::Vec3f normal = own != cv::Vec3f() ? own : face;
        sum += normal * static_cast<float>(std::copysign(shares[k], normal.dot(face)));
    }
    cv::Vec3f normal = unit(sum, face);
    normal[2] = std::max(normal[2], 0.0F);
    return normal;
}

}  // namespace zyr
