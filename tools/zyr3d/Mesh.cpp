#include "Mesh.h"

#include <cmath>

namespace zyr {
namespace {

struct Pixel {
    int column, row;
};

/// The triangles of a grid and their normals, as they are found.
struct Triangulation {
    const Grid& grid;
    Zyr3DIntArray corners;
    ZyrVector3dArray normals;

    /// Whether both pixels have points, near enough for one surface.
    bool isEdge(Pixel a, Pixel b) const {
        const ZyrVector3d* from = grid.point(a.column, a.row);
        const ZyrVector3d* to = grid.point(b.column, b.row);
        if (from == nullptr || to == nullptr) return false;
        const double pixels = std::hypot(a.column - b.column, a.row - b.row);
        return (*to - *from).Norm() < grid.reach() * pixels;
    }

    void add(Pixel a, Pixel b, Pixel c) {
        if (!isEdge(a, b) || !isEdge(b, c) || !isEdge(c, a)) return;
        for (const Pixel& pixel : {a, b, c}) corners.Append(grid.index(pixel.column, pixel.row));
        const ZyrVector3d& origin = *grid.point(a.column, a.row);
        normals.Append(crossDirection(*grid.point(b.column, b.row) - origin,
                                      *grid.point(c.column, c.row) - origin));
    }

    void addCell(int column, int row) {
        const Pixel right{column + 1, row}, below{column, row + 1};
        add({column, row}, below, right);
        add(right, below, {column + 1, row + 1});
    }
};

}  // namespace

ZyrTriangleMesh triangulate(ZyrPointCloud& cloud, const Grid& grid) {
    Triangulation found{grid, {}, {}};
    for (int row = 0; row + 1 < grid.rows(); ++row)
        for (int column = 0; column + 1 < grid.columns(); ++column) found.addCell(column, row);
    return ZyrTriangleMesh(cloud.PointData(), found.corners, cloud.ColorData(), ZyrColorArray(),
                           cloud.NormalData(), found.normals);
}

std::uint64_t meshBytes(const ZyrTriangleMesh& mesh) {
    const auto vertices = static_cast<std::uint64_t>(mesh.NumVertices());
    const auto triangles = static_cast<std::uint64_t>(mesh.NumTriangles());
    return vertices *
               (24 + (mesh.IsValidVertexNormal() ? 24 : 0) + (mesh.IsValidVertexColor() ? 4 : 0)) +
           triangles * (12 + (mesh.IsValidTriangleNormal() ? 24 : 0) +
                        (mesh.IsValidTriangleColor() ? 4 : 0));
}

}  // namespace zyr
