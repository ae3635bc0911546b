#include "demo/Comparison.h"

#include <cstring>

namespace zyr {
namespace {

template <class Array>
bool sameBytes(const Array& a, const Array& b, std::size_t elementSize) {
    if (a.Length() != b.Length()) return false;
    const std::size_t bytes = static_cast<std::size_t>(a.Length()) * elementSize;
    return bytes == 0 || std::memcmp(a.Data(), b.Data(), bytes) == 0;
}

bool sameVectors(const ZyrVector3dArray& a, const ZyrVector3dArray& b) {
    return sameBytes(a, b, sizeof(ZyrVector3d));
}

bool sameColors(const ZyrColorArray& a, const ZyrColorArray& b) {
    return a.Channel() == b.Channel() && sameBytes(a, b, static_cast<std::size_t>(a.Channel()));
}

}  // namespace

std::string difference(ZyrPointCloud& a, ZyrPointCloud& b) {
    if (!sameVectors(a.PointData(), b.PointData())) return "points";
    if (!sameVectors(a.NormalData(), b.NormalData())) return "normals";
    if (!sameColors(a.ColorData(), b.ColorData())) return "colours";
    return "";
}

std::string difference(ZyrTriangleMesh& a, ZyrTriangleMesh& b) {
    if (!sameVectors(a.DeepCopyVertex(), b.DeepCopyVertex())) return "vertices";
    if (!sameBytes(a.DeepCopyTriangle(), b.DeepCopyTriangle(), sizeof(int))) return "triangles";
    if (!sameVectors(a.DeepCopyVertexNormal(), b.DeepCopyVertexNormal())) return "vertex normals";
    if (!sameColors(a.DeepCopyVertexColor(), b.DeepCopyVertexColor())) return "vertex colours";
    if (!sameVectors(a.DeepCopyTriangleNormal(), b.DeepCopyTriangleNormal()))
        return "triangle normals";
    if (!sameColors(a.DeepCopyTriangleColor(), b.DeepCopyTriangleColor()))
        return "triangle colours";
    return "";
}

}  // namespace zyr
