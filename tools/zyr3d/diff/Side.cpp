#include "diff/Side.h"

#include <opencv2/core.hpp>

#include "Outcome.h"
#include "ZyrPointCloud.h"
#include "ZyrRangeImage.h"
#include "ZyrTriangleMesh.h"
#include "files/CloudFile.h"
#include "files/FileKind.h"
#include "files/ImageFile.h"
#include "files/MeshFile.h"
#include "files/RangeFile.h"
#include "files/ValueType.h"
#include "formats/Scene.h"

namespace zyr {
namespace {

void addTrait(Side& side, const std::string& name, const std::string& text) {
    side.traits.push_back({name, text});
}

/// Three columns of which the names start with a prefix.
void addVectors(Side& side, const std::string& prefix, const ZyrVector3dArray& vectors,
                bool arePositions) {
    if (vectors.Length() == 0) return;
    const auto length = static_cast<std::size_t>(vectors.Length());
    for (std::size_t axis = 0; axis < 3; ++axis) {
        Column column{prefix + "xyz"[axis], 1, std::vector<double>(length), arePositions};
        for (std::size_t i = 0; i < length; ++i) column.values[i] = vectors.Data()[3 * i + axis];
        side.columns.push_back(std::move(column));
    }
}

void addPoints(Side& side, const ZyrVector3dArray& points) {
    addVectors(side, "", points, true);
    for (int i = 0; i < points.Length(); ++i) side.isValid.push_back(points[i].IsValid() ? 1 : 0);
}

void addColors(Side& side, const std::string& name, const ZyrColorArray& colors) {
    if (colors.Length() == 0) return;
    const auto channels = static_cast<std::size_t>(colors.Channel());
    const unsigned char* bytes = colors.Data();
    const std::size_t size = static_cast<std::size_t>(colors.Length()) * channels;
    side.columns.push_back({name, channels, {bytes, bytes + size}});
}

void addCorners(Side& side, const Zyr3DIntArray& triangles) {
    const auto length = static_cast<std::size_t>(triangles.Length() / 3);
    const int* corners = triangles.Data();
    for (std::size_t corner = 0; corner < 3; ++corner) {
        Column column{std::string("f") + "abc"[corner], 1, std::vector<double>(length)};
        for (std::size_t i = 0; i < length; ++i) column.values[i] = corners[3 * i + corner];
        side.columns.push_back(std::move(column));
    }
}

Side cloudSide(ZyrPointCloud cloud) {
    Side side;
    addTrait(side, "kind", "point cloud");
    addTrait(side, "points", std::to_string(cloud.Length()));
    addPoints(side, cloud.PointData());
    addVectors(side, "n", cloud.NormalData(), false);
    addColors(side, "rgb", cloud.ColorData());
    return side;
}

Side meshSide(ZyrTriangleMesh mesh) {
    Side side;
    addTrait(side, "kind", "triangle mesh");
    addTrait(side, "vertices", std::to_string(mesh.NumVertices()));
    addTrait(side, "triangles", std::to_string(mesh.NumTriangles()));
    addPoints(side, mesh.DeepCopyVertex());
    addVectors(side, "n", mesh.DeepCopyVertexNormal(), false);
    addColors(side, "rgb", mesh.DeepCopyVertexColor());
    addCorners(side, mesh.DeepCopyTriangle());
    addVectors(side, "fn", mesh.DeepCopyTriangleNormal(), false);
    addColors(side, "frgb", mesh.DeepCopyTriangleColor());
    return side;
}

void addGrid(Side& side, const std::string& name, const cv::Mat& grid) {
    if (grid.empty()) return;
    cv::Mat values;
    grid.reshape(1).convertTo(values, CV_64F);
    side.columns.push_back({name, static_cast<std::size_t>(grid.channels()),
                            std::vector<double>(values.begin<double>(), values.end<double>())});
}

Side gridSide(const cv::Mat& grid) {
    Side side;
    side.isGrid = true;
    addTrait(side, "kind", "range image");
    addTrait(side, "type", grid.empty() ? "unknown" : valueTypeName(grid.depth()));
    addTrait(side, "size", std::to_string(grid.cols) + " x " + std::to_string(grid.rows));
    addGrid(side, "values", grid);
    if (grid.empty()) return side;
    for (const double value : side.columns[0].values)
        side.isValid.push_back(isHoleValue(value, grid.depth()) ? 0 : 1);
    return side;
}

Side rangeSide(const RangeFile& file) {
    Side side = gridSide(file.values);
    addGrid(side, "rgb", file.colors);
    side.columns.push_back({"resolution x", 1, {file.resolutionX}});
    side.columns.push_back({"resolution y", 1, {file.resolutionY}});
    side.columns.push_back({"resolution z", 1, {file.resolutionZ}});
    side.columns.push_back({"offset x", 1, {file.offsetX}});
    side.columns.push_back({"offset y", 1, {file.offsetY}});
    side.columns.push_back({"offset z", 1, {file.offsetZ}});
    return side;
}

/// What the library reads as zeros is not there to be compared.
void requireWhole(const std::string& path, const TextHeaderFile& disk) {
    if (disk.header.body == "ascii") throw Fault(path, "an ascii body, which is not decoded");
    if (disk.isCut()) throw Fault(path, "cut short: `zyr3d check` tells where");
}

Side loadCloud(const std::string& path) {
    const CloudFile file = loadCloudFile(path);
    requireWhole(path, file.disk);
    return cloudSide(file.cloud);
}

Side loadMesh(const std::string& path) {
    const MeshFile file = loadMeshFile(path);
    requireWhole(path, file.disk);
    return meshSide(file.mesh);
}

Side loadForeign(const std::string& path) {
    const Scene scene = readScene(path);
    if (scene.kind == Scene::Mesh) return meshSide(scene.mesh());
    if (scene.kind == Scene::Cloud) return cloudSide(scene.cloud);
    const ZyrRangeImage& image = scene.range;
    return gridSide(cv::Mat(image.Height(), image.Width(), image.DataType(), image.Data()));
}

}  // namespace

Side loadSide(const std::string& path) {
    switch (fileKind(path)) {
        case FileKind::Cloud:
            return loadCloud(path);
        case FileKind::Mesh:
            return loadMesh(path);
        case FileKind::Range:
            return rangeSide(loadRangeFile(path));
        case FileKind::Picture:
            return gridSide(readImage(path));
        case FileKind::Foreign:
            return loadForeign(path);
    }
    throw FileTrouble(path + ": not of a kind that is known");
}

}  // namespace zyr
