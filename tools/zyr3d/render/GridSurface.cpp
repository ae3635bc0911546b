#include "render/GridSurface.h"

#include <algorithm>
#include <cmath>

#include "Grid.h"

namespace zyr {
namespace {

std::size_t at(int index) {
    return static_cast<std::size_t>(index);
}

cv::Vec3d toVec(const ZyrVector3d& v) {
    return {v.x, v.y, v.z};
}

ZyrPointCloud cloudOf(const std::vector<cv::Vec3d>& seen) {
    ZyrVector3dArray points;
    points.SetSize(static_cast<int>(seen.size()));
    for (std::size_t i = 0; i < seen.size(); ++i)
        points[static_cast<int>(i)] =
            isDrawable(seen[i]) ? ZyrVector3d(seen[i][0], seen[i][1], seen[i][2]) : ZyrVector3d();
    return ZyrPointCloud(points, ZyrColorArray(), ZyrVector3dArray());
}

/// The triangles between the points of a grid.
class Surface {
public:
    Surface(const Grid& grid, bool isBridged) : grid_(grid), isBridged_(isBridged) {
        for (int row = 0; row < grid.rows(); ++row)
            for (int column = 0; column < grid.columns(); ++column)
                reaches_.push_back(reachAt(column, row));
    }

    std::vector<int> corners() {
        for (int row = 0; row + 1 < grid_.rows(); ++row)
            for (int column = 0; column + 1 < grid_.columns(); ++column) {
                const int a = grid_.index(column, row), b = grid_.index(column, row + 1);
                add(a, b, a + 1);
                add(a + 1, b, b + 1);
            }
        return std::move(corners_);
    }

private:
    const ZyrVector3d* point(int i) const {
        return grid_.point(i % grid_.columns(), i / grid_.columns());
    }

    /// How far a neighbour on the same surface may be. A far surface's pixels lie wider apart, so
    /// it goes by the nearest one.
    double reachAt(int column, int row) const {
        constexpr double kSteepest = 20.0;
        const ZyrVector3d* own = grid_.point(column, row);
        double nearest = HUGE_VAL;
        for (const auto& [dx, dy] : {cv::Point(1, 0), {-1, 0}, {0, 1}, {0, -1}}) {
            const ZyrVector3d* other = grid_.point(column + dx, row + dy);
            if (own != nullptr && other != nullptr)
                nearest = std::min(nearest, (*other - *own).Norm());
        }
        return std::max(kSteepest * nearest, grid_.reach() / 2);
    }

    bool isEdge(int a, int b) const {
        if (point(a) == nullptr || point(b) == nullptr) return false;
        return isBridged_ ||
               (*point(b) - *point(a)).Norm() < std::min(reaches_[at(a)], reaches_[at(b)]);
    }

    void add(int a, int b, int c) {
        if (isEdge(a, b) && isEdge(b, c) && isEdge(c, a))
            corners_.insert(corners_.end(), {a, b, c});
    }

    const Grid& grid_;
    bool isBridged_;
    std::vector<double> reaches_;
    std::vector<int> corners_;
};

/// Beside steps and holes the surroundings don't tell a normal; there the triangles do.
void fillNormals(Subject& subject, const std::vector<cv::Vec3d>& seen) {
    std::vector<cv::Vec3d> sums(seen.size());
    for (const cv::Vec3i& t : subject.triangles) {
        const cv::Vec3d& a = seen[at(t[0])];
        const cv::Vec3d cross = (seen[at(t[1])] - a).cross(seen[at(t[2])] - a);
        for (int k = 0; k < 3; ++k) sums[at(t[k])] += cross;
    }
    for (std::size_t i = 0; i < sums.size(); ++i) {
        const double norm = cv::norm(sums[i]);
        if (subject.normals[i] == cv::Vec3f() && norm > 0.0)
            subject.normals[i] = sums[i] * (1.0 / norm);
    }
}

}  // namespace

std::vector<cv::Vec3f> normalsOf(ZyrVector3dArray& array, std::size_t points) {
    if (static_cast<std::size_t>(array.Length()) != points) return {};
    std::vector<cv::Vec3f> normals(points);
    for (std::size_t i = 0; i < points; ++i) {
        const cv::Vec3d normal = toVec(array[static_cast<int>(i)]);
        const double norm = isDrawable(normal) ? cv::norm(normal) : 0.0;
        if (norm > 0.0 && std::isfinite(1.0 / norm)) normals[i] = normal * (1.0 / norm);
    }
    return normals;
}

void addTriangles(Subject& subject, const int* corners, std::size_t count,
                  const std::vector<cv::Vec3b>& colors) {
    const auto has = [&](int i) {
        return i >= 0 && at(i) < subject.points.size() && isDrawable(subject.points[at(i)]);
    };
    for (std::size_t t = 0; t < count; ++t) {
        const cv::Vec3i triangle(corners + 3 * t);
        const int a = triangle[0], b = triangle[1], c = triangle[2];
        if (a == b || b == c || c == a || !has(a) || !has(b) || !has(c)) continue;
        subject.triangles.push_back(triangle);
        if (!colors.empty()) subject.triangleColors.push_back(colors[t]);
    }
}

void addSplats(Subject& subject, int enough) {
    std::vector<int> triangles(subject.points.size(), 0);
    for (const cv::Vec3i& triangle : subject.triangles)
        for (int k = 0; k < 3; ++k) ++triangles[at(triangle[k])];
    for (std::size_t i = 0; i < triangles.size(); ++i)
        if (triangles[i] < enough && isDrawable(subject.points[i]))
            subject.splats.push_back(static_cast<int>(i));
}

void addGridSurface(Subject& subject, const std::vector<cv::Vec3d>& seen, int columns) {
    constexpr int kAroundInnerPixel = 6;
    ZyrPointCloud cloud = cloudOf(seen);
    const Grid grid(cloud, columns, static_cast<int>(seen.size()) / columns);
    subject.isGrid = true;
    if (subject.normals.empty()) {
        ZyrVector3dArray normals = gridNormals(grid);
        subject.normals = normalsOf(normals, seen.size());
    }
    const std::vector<int> corners = Surface(grid, subject.isHeightMap).corners();
    addTriangles(subject, corners.data(), corners.size() / 3, {});
    addSplats(subject, kAroundInnerPixel);
    fillNormals(subject, seen);
}

}  // namespace zyr
