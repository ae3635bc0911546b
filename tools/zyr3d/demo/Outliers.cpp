#include "demo/Outliers.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <unordered_map>
#include <vector>

#include "Grid.h"

namespace zyr {
namespace {

/// Minus infinity and what is as far away are valid by the library's rule, but no measurement.
bool isMeasurement(ZyrVector3d p) {
    return p.IsValid() && std::min({p.x, p.y, p.z}) > -kInvalidValue;
}

int dropImpossible(ZyrPointCloud& cloud) {
    int dropped = 0;
    for (int i = 0; i < cloud.Length(); ++i) {
        if (isMeasurement(cloud[i])) continue;
        dropped += cloud[i].IsValid();
        cloud.InvalidatePoint(i);  // all three components, also of points that have one NaN
    }
    return dropped;
}

int invalidate(ZyrPointCloud& cloud, const std::vector<int>& indices) {
    for (int i : indices) cloud.InvalidatePoint(i);
    return static_cast<int>(indices.size());
}

bool isLonelyPixel(const Grid& grid, int column, int row) {
    const ZyrVector3d* p = grid.point(column, row);
    if (p == nullptr) return false;
    int near = 0;
    for (int y = row - 1; y <= row + 1; ++y)
        for (int x = column - 1; x <= column + 1; ++x) {
            const ZyrVector3d* other = grid.point(x, y);
            near += other != nullptr && other != p && (*other - *p).Norm() < grid.reach();
        }
    return near < 2;
}

std::vector<int> lonelyPixels(const Grid& grid) {
    std::vector<int> lonely;
    for (int row = 0; row < grid.rows(); ++row)
        for (int column = 0; column < grid.columns(); ++column)
            if (isLonelyPixel(grid, column, row)) lonely.push_back(grid.index(column, row));
    return lonely;
}

/// Counts points in cubes, some points a side on a surface.
class Cubes {
public:
    explicit Cubes(const ZyrPointCloud& cloud) : low_(kInvalidValue, kInvalidValue, kInvalidValue) {
        ZyrVector3d high(-kInvalidValue, -kInvalidValue, -kInvalidValue);
        for (int i = 0; i < cloud.Length(); ++i) {
            ZyrVector3d p = cloud.Point(i);
            if (!p.IsValid()) continue;
            low_ = low_.Minimum(p);
            high = high.Maximum(p);
        }
        if (cloud.NumValidPoints() > 0) edge_ = edge(high - low_, cloud.NumValidPoints());
        for (int i = 0; i < cloud.Length(); ++i)
            if (cloud.Point(i).IsValid()) ++counts_[key(cloud.Point(i), 0, 0, 0)];
    }

    /// Whether the cubes around p hold hardly a point but itself.
    bool isLonely(const ZyrVector3d& p) const {
        if (edge_ == 0.0) return false;
        int near = 0;
        for (int dx = -1; dx <= 1; ++dx)
            for (int dy = -1; dy <= 1; ++dy)
                for (int dz = -1; dz <= 1; ++dz) {
                    const auto found = counts_.find(key(p, dx, dy, dz));
                    if (found != counts_.end()) near += found->second;
                    if (near > 3) return false;
                }
        return true;
    }

private:
    static double edge(const ZyrVector3d& extent, int points) {
        std::vector<double> sides = {extent.x, extent.y, extent.z};
        std::sort(sides.begin(), sides.end());
        return std::max(4.0 * std::sqrt(sides[1] * sides[2] / points), sides[2] / 1e6);
    }

    std::uint64_t key(const ZyrVector3d& p, int dx, int dy, int dz) const {
        const auto cell = [this](double offset, int step) {
            const double cells = edge_ > 0.0 ? offset / edge_ : 0.0;
            return static_cast<std::uint64_t>(static_cast<std::int64_t>(cells) + step + 1);
        };
        return cell(p.x - low_.x, dx) << 42 | cell(p.y - low_.y, dy) << 21 | cell(p.z - low_.z, dz);
    }

    ZyrVector3d low_;
    double edge_ = 0.0;
    std::unordered_map<std::uint64_t, int> counts_;
};

std::vector<int> lonelyPoints(const ZyrPointCloud& cloud) {
    const Cubes cubes(cloud);
    std::vector<int> lonely;
    for (int i = 0; i < cloud.Length(); ++i)
        if (cloud.Point(i).IsValid() && cubes.isLonely(cloud.Point(i))) lonely.push_back(i);
    return lonely;
}

}  // namespace

int dropOutliers(ZyrPointCloud& cloud, int columns, int rows) {
    const int impossible = dropImpossible(cloud);
    const bool isOrganised = columns > 1 && rows > 1;
    return impossible + invalidate(cloud, isOrganised ? lonelyPixels(Grid(cloud, columns, rows))
                                                      : lonelyPoints(cloud));
}

}  // namespace zyr
