#include "Comparison.h"

#include <cstring>

namespace zyr {
namespace {

template <class Array>
bool sameBytes(const Array& a, const Array& b, std::size_t elementSize) {
    if (a.Length() != b.Length()) return false;
    const std::size_t bytes = static_cast<std::size_t>(a.Length()) * elementSize;
    return bytes == 0 || std::memcmp(a.Data(), b.Data(), bytes) == 0;
}

}  // namespace

std::string difference(ZyrPointCloud& a, ZyrPointCloud& b) {
    const auto channels = static_cast<std::size_t>(a.ColorData().Channel());
    if (!sameBytes(a.PointData(), b.PointData(), sizeof(ZyrVector3d))) return "points";
    if (!sameBytes(a.NormalData(), b.NormalData(), sizeof(ZyrVector3d))) return "normals";
    if (a.ColorData().Channel() != b.ColorData().Channel() ||
        !sameBytes(a.ColorData(), b.ColorData(), channels))
        return "colours";
    return "";
}

}  // namespace zyr
