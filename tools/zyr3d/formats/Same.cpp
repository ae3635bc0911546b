#include "formats/Same.h"

#include <array>
#include <cstring>
#include <opencv2/core.hpp>

namespace zyr {
namespace {

bool same(ZyrVector3dArray a, ZyrVector3dArray b) {
    const auto bytes = static_cast<std::size_t>(a.Length()) * sizeof(ZyrVector3d);
    return a.Length() == b.Length() && (bytes == 0 || std::memcmp(a.Data(), b.Data(), bytes) == 0);
}

bool same(const ZyrColorArray& a, const ZyrColorArray& b) {
    const auto bytes = static_cast<std::size_t>(a.Length()) * static_cast<std::size_t>(a.Channel());
    return a.Length() == b.Length() && a.Channel() == b.Channel() &&
           (bytes == 0 || std::memcmp(a.Data(), b.Data(), bytes) == 0);
}

bool same(const Zyr3DIntArray& a, const Zyr3DIntArray& b) {
    const auto bytes = static_cast<std::size_t>(a.Length()) * sizeof(int);
    return a.Length() == b.Length() && (bytes == 0 || std::memcmp(a.Data(), b.Data(), bytes) == 0);
}

bool sameCalibration(const ZyrRangeImage& a, const ZyrRangeImage& b) {
    const auto numbers = [](const ZyrRangeImage& image) {
        return std::array<double, 6>{image.ResolutionX(), image.ResolutionY(), image.ResolutionZ(),
                                     image.OffsetX(),     image.OffsetY(),     image.OffsetZ()};
    };
    const auto x = numbers(a), y = numbers(b);
    return std::memcmp(x.data(), y.data(), sizeof x) == 0;
}

}  // namespace

bool sameCloud(ZyrPointCloud a, ZyrPointCloud b) {
    return same(a.PointData(), b.PointData()) && same(a.NormalData(), b.NormalData()) &&
           same(a.ColorData(), b.ColorData());
}

bool sameMesh(const Scene& a, const Scene& b) {
    return sameCloud(a.cloud, b.cloud) && same(a.triangles, b.triangles) &&
           same(a.triangleNormals, b.triangleNormals) && same(a.triangleColors, b.triangleColors);
}

bool sameRange(const Scene& a, const Scene& b) {
    const ZyrRangeImage& x = a.range;
    const ZyrRangeImage& y = b.range;
    if (x.DataType() != y.DataType() || x.Width() != y.Width() || x.Height() != y.Height())
        return false;
    const auto pixels = static_cast<std::size_t>(x.Width()) * static_cast<std::size_t>(x.Height());
    const std::size_t bytes = pixels * CV_ELEM_SIZE1(x.DataType());
    return std::memcmp(x.Data(), y.Data(), bytes) == 0 && sameCalibration(x, y) &&
           same(a.pixelColors, b.pixelColors);
}

}  // namespace zyr
