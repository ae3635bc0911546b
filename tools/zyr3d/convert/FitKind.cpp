#include "Grid.h"
#include "Mesh.h"
#include "Table.h"
#include "convert/Fit.h"
#include "convert/Range.h"

namespace zyr {
namespace {

void setGrid(Scene& scene, const GridSize& size) {
    const auto cells = static_cast<std::int64_t>(size.columns) * size.rows;
    if (scene.kind != Scene::Cloud || cells != scene.cloud.Length())
        throw UsageTrouble("--grid " + std::to_string(size.columns) + "x" +
                           std::to_string(size.rows) + " does not fit " +
                           std::to_string(scene.cloud.Length()) + " points of a cloud");
    scene.columns = size.columns;
    scene.rows = size.rows;
}

void makeMesh(Scene& scene, const std::optional<double>& jump) {
    if (!scene.isGrid())
        throw UsageTrouble("a cloud becomes a mesh by its grid, which this one lacks: see --grid");
    const Grid grid = jump ? Grid(scene.cloud, scene.columns, scene.rows, *jump)
                           : Grid(scene.cloud, scene.columns, scene.rows);
    ZyrTriangleMesh mesh = triangulate(scene.cloud, grid);
    scene.kind = Scene::Mesh;
    scene.triangles = mesh.DeepCopyTriangle();
    scene.triangleNormals = mesh.DeepCopyTriangleNormal();
    scene.columns = scene.rows = 0;
}

void dropTriangles(Scene& scene, const Format& format) {
    if (scene.triangleCount() > 0)
        scene.leftOut.push_back(grouped(static_cast<std::uint64_t>(scene.triangleCount())) +
                                " triangles: " + format.name + " has none");
    scene.kind = Scene::Cloud;
    scene.triangles = Zyr3DIntArray();
    scene.triangleNormals = ZyrVector3dArray();
    scene.triangleColors = ZyrColorArray();
}

}  // namespace

void fitKind(Scene& scene, const Format& format, const ConvertSettings& settings) {
    const bool isRange = scene.kind == Scene::Range;
    if (isRange) calibrate(scene, settings);
    const bool isPointsWanted = !format.can(kRanges) || settings.camera || settings.isMeshWanted;
    if (isRange && isPointsWanted && !(format.can(kRanges) && !format.can(kClouds)))
        scene = cloudOfRange(scene, settings);
    if (settings.grid) setGrid(scene, *settings.grid);
    if (scene.kind == Scene::Range) return;
    if (!format.can(kClouds) && !format.can(kMeshes))
        throw UsageTrouble(std::string(format.name) + " holds range images alone");
    const bool isMeshWanted = settings.isMeshWanted || !format.can(kClouds);
    if (isMeshWanted && scene.kind == Scene::Cloud) makeMesh(scene, settings.jump);
    if (!format.can(kMeshes) && scene.kind == Scene::Mesh) dropTriangles(scene, format);
}

}  // namespace zyr
