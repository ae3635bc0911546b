#pragma once

#include <string>

#include "ZyrPointCloud.h"

namespace zyr {

/// What differs between two clouds: "points", "normals" or "colours"; "" when every bit is the
/// same.
std::string difference(ZyrPointCloud& a, ZyrPointCloud& b);

}  // namespace zyr
