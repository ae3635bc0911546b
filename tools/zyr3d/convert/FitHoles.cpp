#include <cstring>
#include <limits>

#include "convert/Fit.h"

namespace zyr {
namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

void markByNan(ZyrVector3dArray& vectors) {
    for (int i = 0; i < vectors.Length(); ++i)
        if (!vectors[i].IsValid()) vectors[i] = ZyrVector3d(kNaN, kNaN, kNaN);
}

ZyrVector3dArray selected(ZyrVector3dArray& from, const std::vector<int>& kept) {
    ZyrVector3dArray to;
    if (from.Length() == 0) return to;
    to.SetSize(static_cast<int>(kept.size()));
    for (std::size_t i = 0; i < kept.size(); ++i) to[static_cast<int>(i)] = from[kept[i]];
    return to;
}

ZyrColorArray selected(const ZyrColorArray& from, const std::vector<int>& kept) {
    ZyrColorArray to;
    if (from.Length() == 0) return to;
    const auto channels = static_cast<std::size_t>(from.Channel());
    to.Create(static_cast<int>(kept.size()), from.Channel());
    for (std::size_t i = 0; i < kept.size(); ++i)
        std::memcpy(to.Data() + i * channels,
                    from.Data() + static_cast<std::size_t>(kept[i]) * channels, channels);
    return to;
}

/// Keeps the triangles that have all corners, by the corners' new places (-1: gone).
void dropTriangles(Scene& scene, const std::vector<int>& places) {
    std::vector<int> kept, corners;
    for (int t = 0; t < scene.triangleCount(); ++t) {
        int moved[3];
        bool isWhole = true;
        for (int corner = 0; corner < 3; ++corner) {
            moved[corner] = places[static_cast<std::size_t>(scene.triangles[3 * t + corner])];
            isWhole = isWhole && moved[corner] >= 0;
        }
        if (!isWhole) continue;
        kept.push_back(t);
        corners.insert(corners.end(), moved, moved + 3);
    }
    scene.triangles = Zyr3DIntArray(corners.data(), static_cast<int>(corners.size()));
    scene.triangleNormals = selected(scene.triangleNormals, kept);
    scene.triangleColors = selected(scene.triangleColors, kept);
}

void dropHoles(Scene& scene) {
    ZyrVector3dArray& points = scene.cloud.PointData();
    std::vector<int> kept, places;
    for (int i = 0; i < points.Length(); ++i) {
        const bool isValid = points[i].IsValid();
        places.push_back(isValid ? static_cast<int>(kept.size()) : -1);
        if (isValid) kept.push_back(i);
    }
    const bool hasNormals = scene.cloud.IsValidNormal(), hasColors = scene.cloud.IsValidColor();
    scene.cloud =
        ZyrPointCloud(selected(points, kept),
                      hasColors ? selected(scene.cloud.ColorData(), kept) : ZyrColorArray(),
                      hasNormals ? selected(scene.cloud.NormalData(), kept) : ZyrVector3dArray());
    dropTriangles(scene, places);
    if (scene.isGrid()) scene.leftOut.push_back("the grid: it has gaps where holes are dropped");
    scene.columns = scene.rows = 0;
}

}  // namespace

Loss fitHoles(Scene& scene, Holes holes, bool canBeNan) {
    Loss loss;
    loss.holes = static_cast<std::uint64_t>(scene.cloud.Length() - scene.cloud.NumValidPoints());
    const int triangles = scene.triangleCount();
    if (holes == Holes::Drop && loss.holes > 0) dropHoles(scene);
    if (holes != Holes::Keep && canBeNan) {
        markByNan(scene.cloud.PointData());
        markByNan(scene.cloud.NormalData());
        markByNan(scene.triangleNormals);
    }
    loss.droppedTriangles = static_cast<std::uint64_t>(triangles - scene.triangleCount());
    return loss;
}

}  // namespace zyr
