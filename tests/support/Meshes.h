#pragma once

#include <gtest/gtest.h>

#include "ZyrTriangleMesh.h"
#include "support/MeshFile.h"
#include "support/ZyrValues.h"

/// Meshes, and their lists read through the mesh's own members.
namespace test {

inline const std::vector<double> kInvalidVector = {kInvalid, kInvalid, kInvalid};

/// So many vectors, all different, from a first value on.
inline ZyrVector3dArray vectorsFrom(int length, double first) {
    std::vector<double> flat;
    for (int i = 0; i < 3 * length; ++i) flat.push_back(first + i);
    return vectors(flat);
}

/// So many colours, all different: b g r (a) are first, first + 1 ...
inline ZyrColorArray colorsFrom(int length, int channels, int first) {
    ZyrColorArray colors;
    if (length > 0) colors.Create(length, channels);
    for (int i = 0; i < length * channels; ++i)
        colors.Data()[i] = static_cast<unsigned char>(first + i);
    return colors;
}

/// The lists that a mesh is made of, to be kept as sharers.
struct MeshArrays {
    ZyrVector3dArray vertices, vertexNormals;
    ZyrColorArray vertexColors;
    Zyr3DIntArray triangles;
    ZyrVector3dArray triangleNormals;
    ZyrColorArray triangleColors;

    ZyrTriangleMesh mesh() const {
        return ZyrTriangleMesh(vertices, triangles, vertexColors, triangleColors, vertexNormals,
                               triangleNormals);
    }
};

/// All six lists, of four vertices and two triangles.
inline MeshArrays fullArrays() {
    return {vectorsFrom(4, 1),           vectorsFrom(4, 101), colorsFrom(4, 3, 10),
            indices({0, 1, 2, 2, 1, 3}), vectorsFrom(2, 201), colorsFrom(2, 4, 50)};
}

inline ZyrTriangleMesh fullMesh() {
    return fullArrays().mesh();
}

/// A mesh's lists as plain values.
struct MeshValues {
    std::vector<double> vertices, vertexNormals;
    Bytes vertexColors;
    std::vector<int> triangles;
    std::vector<double> triangleNormals;
    Bytes triangleColors;

    bool operator==(const MeshValues& o) const {
        return vertices == o.vertices && vertexNormals == o.vertexNormals &&
               vertexColors == o.vertexColors && triangles == o.triangles &&
               triangleNormals == o.triangleNormals && triangleColors == o.triangleColors;
    }
};

inline Bytes colorBytes(const ZyrColorArray& colors) {
    return Bytes(colors.Data(), colors.Data() + colors.Length() * colors.Channel());
}

inline MeshValues values(ZyrTriangleMesh mesh) {
    return {values(mesh.DeepCopyVertex()),          values(mesh.DeepCopyVertexNormal()),
            colorBytes(mesh.DeepCopyVertexColor()), values(mesh.DeepCopyTriangle()),
            values(mesh.DeepCopyTriangleNormal()),  colorBytes(mesh.DeepCopyTriangleColor())};
}

inline MeshValues values(const MeshArrays& arrays) {
    return {values(arrays.vertices),         values(arrays.vertexNormals),
            colorBytes(arrays.vertexColors), values(arrays.triangles),
            values(arrays.triangleNormals),  colorBytes(arrays.triangleColors)};
}

inline void PrintTo(const MeshValues& m, std::ostream* out) {
    *out << testing::PrintToString(m.vertices) << testing::PrintToString(m.vertexNormals)
         << testing::PrintToString(m.vertexColors) << testing::PrintToString(m.triangles)
         << testing::PrintToString(m.triangleNormals) << testing::PrintToString(m.triangleColors);
}

}  // namespace test
