#include "Grid.h"

#include <algorithm>
#include <vector>

namespace zyr {
namespace {

/// The usual distance between neighbours in a row.
double medianPitch(const Grid& grid) {
    std::vector<double> distances;
    for (int row = 0; row < grid.rows(); ++row)
        for (int column = 0; column < grid.columns(); ++column) {
            const ZyrVector3d* a = grid.point(column, row);
            const ZyrVector3d* b = grid.point(column + 1, row);
            if (a != nullptr && b != nullptr) distances.push_back((*b - *a).Norm());
        }
    if (distances.empty()) return 0.0;
    const auto middle = distances.begin() + static_cast<std::ptrdiff_t>(distances.size() / 2);
    std::nth_element(distances.begin(), middle, distances.end());
    return *middle;
}

/// How far the surroundings that a normal is fitted to go, in pixels.
constexpr int kAround = 3;

/// The surface's direction along one axis of the grid: the slope of a plane through the
/// surroundings, from pairs of points that lie opposite each other.
ZyrVector3d tangent(const Grid& grid, int column, int row, int dx, int dy) {
    ZyrVector3d sum(0, 0, 0);
    for (int aside = -kAround; aside <= kAround; ++aside)
        for (int step = 1; step <= kAround; ++step) {
            const int x = column + aside * dy, y = row + aside * dx;
            const ZyrVector3d* before = grid.point(x - step * dx, y - step * dy);
            const ZyrVector3d* after = grid.point(x + step * dx, y + step * dy);
            if (before == nullptr || after == nullptr) continue;
            const ZyrVector3d difference = *after - *before;
            if (difference.Norm() < grid.reach() * step) sum = sum + difference * step;
        }
    return sum;
}

ZyrVector3d normalAt(const Grid& grid, int column, int row) {
    if (grid.point(column, row) == nullptr) return ZyrVector3d();
    const ZyrVector3d right = tangent(grid, column, row, 1, 0);
    const ZyrVector3d down = tangent(grid, column, row, 0, 1);
    return crossDirection(down, right);
}

}  // namespace

ZyrVector3d crossDirection(ZyrVector3d a, const ZyrVector3d& b) {
    ZyrVector3d cross = a.Cross(b);
    return cross.Norm() > 0.0 ? cross.Normalized() : ZyrVector3d();
}

Grid::Grid(ZyrPointCloud& cloud, int columns, int rows)
    : points_(cloud.PointData()), columns_(columns), rows_(rows) {
    constexpr double kSteepest = 6.0;  // neighbours on a slope of 80 degrees
    reach_ = kSteepest * medianPitch(*this);
}

Grid::Grid(ZyrPointCloud& cloud, int columns, int rows, double reach)
    : points_(cloud.PointData()), columns_(columns), rows_(rows), reach_(reach) {}

ZyrVector3d* Grid::point(int column, int row) const {
    if (column < 0 || row < 0 || column >= columns_ || row >= rows_) return nullptr;
    ZyrVector3d& p = points_[index(column, row)];
    return p.IsValid() ? &p : nullptr;
}

ZyrVector3dArray gridNormals(const Grid& grid) {
    ZyrVector3dArray normals;
    normals.SetSize(grid.columns() * grid.rows());
    for (int row = 0; row < grid.rows(); ++row)
        for (int column = 0; column < grid.columns(); ++column)
            normals[grid.index(column, row)] = normalAt(grid, column, row);
    return normals;
}

}  // namespace zyr
