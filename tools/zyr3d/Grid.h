#pragma once

#include "ZyrPointCloud.h"

namespace zyr {

/// The points of a cloud as the pixels of the sensor that saw them, row by row.
class Grid {
public:
    Grid(ZyrPointCloud& cloud, int columns, int rows);
    Grid(ZyrPointCloud& cloud, int columns, int rows, double reach);

    int columns() const { return columns_; }
    int rows() const { return rows_; }
    int index(int column, int row) const { return row * columns_ + column; }
    /// Null when there is no such pixel or its point is invalid.
    ZyrVector3d* point(int column, int row) const;
    /// How far apart neighbours on one surface are at most.
    double reach() const { return reach_; }

private:
    ZyrVector3dArray& points_;
    int columns_, rows_;
    double reach_ = 0.0;
};

/// The unit vector along a x b; invalid where that has no length.
ZyrVector3d crossDirection(ZyrVector3d a, const ZyrVector3d& b);

/// One normal a point, to the side from which the grid's columns run to the right and its rows
/// down. Invalid where the point is, or where its surroundings don't tell.
ZyrVector3dArray gridNormals(const Grid& grid);

}  // namespace zyr
