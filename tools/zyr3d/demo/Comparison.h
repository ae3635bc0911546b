#pragma once

#include <string>

#include "ZyrPointCloud.h"
#include "ZyrTriangleMesh.h"

namespace zyr {

/// What differs between two clouds: "points", "normals" or "colours"; "" when every bit is the
/// same.
std::string difference(ZyrPointCloud& a, ZyrPointCloud& b);
/// Likewise the list of a mesh that differs.
std::string difference(ZyrTriangleMesh& a, ZyrTriangleMesh& b);

}  // namespace zyr
