#include "picture/View.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "Grid.h"

namespace zyr {
namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

cv::Vec3d unit(const cv::Vec3d& v) {
    const double norm = cv::norm(v);
    return norm > 0.0 ? v / norm : v;
}

cv::Vec3d toVec(const ZyrVector3d& v) {
    return {v.x, v.y, v.z};
}

/// The mean step from a pixel to its neighbour: a direction of the sensor in the cloud's frame.
cv::Vec3d meanStep(const Grid& grid, int dx, int dy) {
    cv::Vec3d sum;
    for (int row = 0; row < grid.rows(); ++row)
        for (int column = 0; column < grid.columns(); ++column) {
            const ZyrVector3d* a = grid.point(column, row);
            const ZyrVector3d* b = grid.point(column + dx, row + dy);
            if (a == nullptr || b == nullptr) continue;
            const ZyrVector3d step = *b - *a;
            if (step.Norm() < grid.reach()) sum += toVec(step);
        }
    return unit(sum);
}

/// The sensor's own directions in the cloud's frame.
class Eye {
public:
    explicit Eye(const Grid& grid)
        : right_(meanStep(grid, 1, 0)),
          towards_(unit(meanStep(grid, 0, 1).cross(right_))),
          up_(towards_.cross(right_)) {}

    bool seesGrowingZ() const { return towards_[2] < 0.0; }

    /// A normal in these directions; straight at the eye where there is none.
    cv::Vec3f normal(ZyrVector3d normal) const {
        if (!normal.IsValid()) return {0, 0, 1};
        const cv::Vec3d n = toVec(normal);
        return cv::Vec3d(n.dot(right_), n.dot(up_), n.dot(towards_));
    }

private:
    cv::Vec3d right_, towards_, up_;
};

}  // namespace

cv::Vec3b colorAt(const ZyrColorArray& colors, int i) {
    ZyrColor color;
    colors.Select(i, &color);
    return {static_cast<uchar>(color.b), static_cast<uchar>(color.g), static_cast<uchar>(color.r)};
}

View viewGrid(ZyrPointCloud& cloud, int columns, int rows) {
    const Grid grid(cloud, columns, rows);
    const Eye eye(grid);
    View view;
    view.kind = "as the sensor saw it";
    view.isDepth = eye.seesGrowingZ();
    view.height.create(rows, columns, CV_64F);
    view.normals = cv::Mat(rows, columns, CV_32FC3, cv::Scalar(0, 0, 1));
    if (cloud.IsValidColor()) view.colors.create(rows, columns, CV_8UC3);
    for (int row = 0; row < rows; ++row)
        for (int column = 0; column < columns; ++column) {
            const int i = grid.index(column, row);
            const ZyrVector3d* p = grid.point(column, row);
            view.height.at<double>(row, column) = p != nullptr ? p->z : kNaN;
            view.normals.at<cv::Vec3f>(row, column) = eye.normal(cloud.Normal(i));
            if (!view.colors.empty())
                view.colors.at<cv::Vec3b>(row, column) = colorAt(cloud.ColorData(), i);
        }
    return view;
}

}  // namespace zyr
