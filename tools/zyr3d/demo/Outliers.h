#pragma once

#include "ZyrPointCloud.h"

namespace zyr {

/// Invalidates points that have hardly a neighbour near them, and all that is no finite coordinate.
/// Points that were invalid before don't count. Gives the number of points that were dropped.
///
/// A grid of so many columns tells the neighbours; with one row or column the cloud has no grid and
/// they are looked for in space.
int dropOutliers(ZyrPointCloud& cloud, int columns, int rows);

}  // namespace zyr
