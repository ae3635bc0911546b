#include <algorithm>
#include <cmath>

#include "convert/Fit.h"
#include "convert/Range.h"

namespace zyr {
namespace {

void leaveOut(Scene& scene, const char* what, const Format& format) {
    scene.leftOut.push_back(std::string(what) + ": " + format.name + " has none");
}

bool isCalibrated(const ZyrRangeImage& image) {
    return image.ResolutionX() != 1.0 || image.ResolutionY() != 1.0 || image.ResolutionZ() != 1.0 ||
           image.OffsetX() != 0.0 || image.OffsetY() != 0.0 || image.OffsetZ() != 0.0;
}

void fitRange(Scene& scene, const Format& format) {
    if (scene.pixelColors.Length() > 0 && !format.can(kColors)) {
        leaveOut(scene, "colours", format);
        scene.pixelColors = ZyrColorArray();
    }
    if (isCalibrated(scene.range) && !format.can(kCalibration))
        leaveOut(scene, "the calibration", format);
    if (std::string(format.name) == "PNG") fitPicture(scene);
}

void fitTriangles(Scene& scene, const Format& format) {
    if (scene.triangleNormals.Length() > 0 && !format.can(kTriangleNormals)) {
        leaveOut(scene, "normals of triangles", format);
        scene.triangleNormals = ZyrVector3dArray();
    }
    if (scene.triangleColors.Length() > 0 && !format.can(kTriangleColors)) {
        leaveOut(scene, "colours of triangles", format);
        scene.triangleColors = ZyrColorArray();
    }
}

}  // namespace

void fitAttributes(Scene& scene, const Format& format) {
    if (scene.kind == Scene::Range) return fitRange(scene, format);
    ZyrPointCloud& cloud = scene.cloud;
    if (cloud.IsValidNormal() && !format.can(kNormals)) {
        leaveOut(scene, "normals", format);
        cloud.SetNormals(ZyrVector3dArray());
    }
    const bool hasColors = cloud.IsValidColor();
    if (hasColors && !format.can(kColors)) {
        leaveOut(scene, "colours", format);
        cloud.SetColors(ZyrColorArray());
    } else if (hasColors && cloud.ColorData().Channel() == 4 && !format.can(kAlpha)) {
        leaveOut(scene, "alpha", format);
    }
    if (scene.isGrid() && !format.can(kGrid)) {
        leaveOut(scene, "the grid", format);
        scene.columns = scene.rows = 0;
    }
    fitTriangles(scene, format);
}

double floatRounding(const Scene& scene) {
    double largest = 0.0;
    ZyrPointCloud cloud = scene.cloud;
    for (int i = 0; i < cloud.Length(); ++i) {
        const ZyrVector3d& point = cloud.PointData()[i];
        for (const double value : {point.x, point.y, point.z})
            if (std::isfinite(value))
                largest = std::max(largest, std::abs(value - static_cast<float>(value)));
    }
    return largest;
}

}  // namespace zyr
