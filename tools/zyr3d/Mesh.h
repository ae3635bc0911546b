#pragma once

#include <cstdint>

#include "Grid.h"
#include "ZyrTriangleMesh.h"

namespace zyr {

/// A mesh whose vertices are the cloud's points, holes included, with its colours and normals,
/// which it shares. Each cell of the grid gives two triangles, less those with a corner that is
/// missing or an edge that jumps. They face the side to which the grid's normals point.
ZyrTriangleMesh triangulate(ZyrPointCloud& cloud, const Grid& grid);

/// Bytes of all that a file of the mesh holds, before it is compressed.
std::uint64_t meshBytes(const ZyrTriangleMesh& mesh);

}  // namespace zyr
