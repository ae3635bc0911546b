#include <cstring>
#include <opencv2/core.hpp>

#include "Outcome.h"
#include "Zyr3DFileIO.h"
#include "formats/Fault.h"
#include "formats/Readers.h"
#include "formats/Writers.h"

namespace zyr {
namespace {

[[noreturn]] void fail(const char* why) {
    throw FormatFault(why);
}

/// For what the library did not write whole.
[[noreturn]] void failWriting(SafeFile& file) {
    file.requireRoom();
    fail("cannot be written");
}

/// What was written, as it is read; its faults are this file's, whose name is not yet its own.
Scene readBack(Scene (*read)(const std::string&), SafeFile& file) try {
    return read(file.temporary());
} catch (const FileTrouble&) {
    failWriting(file);
}

cv::Mat valuesOf(const ZyrRangeImage& image) {
    return cv::Mat(image.Height(), image.Width(), image.DataType(), image.Data());
}

/// By their bits, so that holes and NaN count as well.
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

bool sameCloud(ZyrPointCloud a, ZyrPointCloud b) {
    return same(a.PointData(), b.PointData()) && same(a.NormalData(), b.NormalData()) &&
           same(a.ColorData(), b.ColorData());
}

bool sameRange(const Scene& a, const Scene& b) {
    const ZyrRangeImage& x = a.range;
    const ZyrRangeImage& y = b.range;
    if (x.DataType() != y.DataType() || x.Width() != y.Width() || x.Height() != y.Height())
        return false;
    return std::memcmp(x.Data(), y.Data(), valuesOf(x).total() * valuesOf(x).elemSize()) == 0 &&
           same(a.pixelColors, b.pixelColors);
}

const char* const kNotSame = "does not read back as it was written";

}  // namespace

void writeZpt(const Scene& scene, const WriteOptions&, SafeFile& file) {
    ZyrPointCloud cloud = scene.cloud;
    if (cloud.Length() == 0) fail("no points, and a .zpt file has one at least");
    if (!cloud.Save(file.temporary().c_str(), true, true)) failWriting(file);
    if (!sameCloud(cloud, readBack(readZpt, file).cloud)) fail(kNotSame);
}

void writeZtmt(const Scene& scene, const WriteOptions&, SafeFile& file) {
    if (scene.cloud.Length() == 0) fail("no vertices, and a .ztmt file has one at least");
    if (!scene.mesh().Save(file.temporary().c_str(), true, true)) failWriting(file);
    const Scene back = readBack(readZtmt, file);
    if (!sameCloud(scene.cloud, back.cloud) || !same(scene.triangles, back.triangles) ||
        !same(scene.triangleNormals, back.triangleNormals) ||
        !same(scene.triangleColors, back.triangleColors))
        fail(kNotSame);
}

void writeZrt(const Scene& scene, const WriteOptions&, SafeFile& file) {
    const ZyrRangeImage& image = scene.range;
    cv::Mat values = valuesOf(image), colors;
    if (scene.pixelColors.Length() > 0)
        colors = cv::Mat(image.Height(), image.Width(), CV_8UC(scene.pixelColors.Channel()),
                         scene.pixelColors.Data());
    double low = 0.0, high = 0.0;
    double resolution[] = {image.ResolutionX(), image.ResolutionY(), image.ResolutionZ()};
    double offset[] = {image.OffsetX(), image.OffsetY(), image.OffsetZ()};
    if (!Zyr3DFileIO::SaveRangeImage(values, colors, file.temporary().c_str(), low, high,
                                     resolution[0], resolution[1], resolution[2], offset[0],
                                     offset[1], offset[2], true))
        failWriting(file);
    if (!sameRange(scene, readBack(readZrt, file))) fail(kNotSame);
}

}  // namespace zyr
