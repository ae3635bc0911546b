#pragma once

#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <vector>

#include "support/MeshFile.h"
#include "support/ZyrValues.h"

/// The values of the golden mesh files, as golden/make_mesh_golden.py has them.
namespace test {

struct GoldenMeshVariant {
    int vertexChannels;  ///< 0: no colours
    int triangleChannels;
    bool hasVertexNormals, hasTriangleNormals;

    std::string name() const {
        std::string name = "mesh";
        if (hasVertexNormals) name += "_vn";
        if (vertexChannels > 0) name += "_vc" + std::to_string(vertexChannels);
        if (hasTriangleNormals) name += "_tn";
        if (triangleChannels > 0) name += "_tc" + std::to_string(triangleChannels);
        return name;
    }
    std::string path() const { return ZYR_GOLDEN_DIR "/mesh/" + name() + ".ztmt"; }
};

inline void PrintTo(const GoldenMeshVariant& variant, std::ostream* out) {
    *out << variant.name();
}

/// All sixteen combinations of lists; all channel counts beside each other.
inline const std::vector<GoldenMeshVariant>& goldenMeshVariants() {
    static const std::vector<GoldenMeshVariant> variants = {
        {0, 0, false, false}, {3, 0, false, false}, {0, 4, false, false}, {3, 4, false, false},
        {0, 0, true, false},  {3, 0, true, false},  {0, 4, true, false},  {3, 4, true, false},
        {0, 0, false, true},  {3, 0, false, true},  {0, 4, false, true},  {3, 4, false, true},
        {0, 0, true, true},   {3, 0, true, true},   {0, 4, true, true},   {3, 4, true, true},
        {1, 1, true, true},   {1, 3, true, true},   {1, 4, true, true},   {3, 1, true, true},
        {3, 3, true, true},   {4, 1, true, true},   {4, 3, true, true},   {4, 4, true, true},
    };
    return variants;
}

/// A quiet NaN that is told from others by its payload.
inline double markedNaN() {
    return valueAt<double>(bytesOf<std::uint64_t>({0x7FF8000000000123}), 0);
}

/// The first channels of b g r a colours; of one channel b, which files take for the grey level.
inline cv::Mat firstChannels(const std::vector<Bytes>& colors, int channels) {
    if (channels == 0) return cv::Mat();
    Bytes bytes;
    for (const Bytes& color : colors)
        bytes = joined(bytes, prefix(color, static_cast<std::size_t>(channels)));
    return colorRow(bytes, channels);
}

inline MeshLists goldenMesh(const GoldenMeshVariant& variant) {
    const double nan = markedNaN();
    MeshLists mesh;
    mesh.vertices = vectors(
        {1.5, -2.0, 3.25, kInvalid, kInvalid, kInvalid, 0.0, -0.0, nan, 5e-324, 1e10, -7.0});
    mesh.triangles = indices({0, 1, 2, -1, 3, 2147483647, -2147483647 - 1, 4, 0});
    if (variant.hasVertexNormals)
        mesh.vertexNormals =
            vectors({0.0, 0.0, 1.0, 1.0, 0.0, 0.0, 0.6, 0.8, 0.0, nan, -1.0, kInvalid});
    if (variant.hasTriangleNormals)
        mesh.triangleNormals = vectors({0.0, -1.0, 0.0, -0.0, 0.0, nan, 0.0, 0.28, 0.96});
    mesh.vertexColors =
        firstChannels({{30, 20, 10, 255}, {0, 0, 0, 0}, {255, 254, 253, 128}, {7, 8, 9, 1}},
                      variant.vertexChannels);
    mesh.triangleColors = firstChannels({{1, 2, 3, 4}, {50, 100, 200, 254}, {128, 0, 64, 255}},
                                        variant.triangleChannels);
    return mesh;
}

inline MeshLists fullGoldenMesh() {
    return goldenMesh({3, 4, true, true});
}

}  // namespace test
