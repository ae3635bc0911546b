#include <cstring>

#include "Outcome.h"
#include "formats/Fault.h"
#include "formats/Readers.h"
#include "formats/Writers.h"

namespace zyr {
namespace {

[[noreturn]] void fail(const char* why) {
    throw FormatFault(why);
}

/// What was written, as it is read; its faults are this file's, whose name is not yet its own.
Scene readBack(Scene (*read)(const std::string&), const SafeFile& file) try {
    return read(file.temporary());
} catch (const FileTrouble&) {
    fail("cannot be read back, as from a full disk");
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

bool sameRange(const ZyrRangeImage& a, const ZyrRangeImage& b) {
    if (a.DataType() != b.DataType() || a.Width() != b.Width() || a.Height() != b.Height())
        return false;
    for (int row = 0; row < a.Height(); ++row)
        for (int column = 0; column < a.Width(); ++column) {
            const double x = a.GetValue(row, column), y = b.GetValue(row, column);
            if (x != y && (x == x || y == y)) return false;
        }
    return same(a.DeepCopyColors(), b.DeepCopyColors());
}

const char* const kNotSame = "does not read back as it was written";

}  // namespace

void writeZpt(const Scene& scene, const WriteOptions&, SafeFile& file) {
    ZyrPointCloud cloud = scene.cloud;
    if (cloud.Length() == 0) fail("no points, and a .zpt file has one at least");
    if (!cloud.Save(file.temporary().c_str(), true, true)) fail("cannot be written");
    if (!sameCloud(cloud, readBack(readZpt, file).cloud)) fail(kNotSame);
}

void writeZtmt(const Scene& scene, const WriteOptions&, SafeFile& file) {
    if (scene.cloud.Length() == 0) fail("no vertices, and a .ztmt file has one at least");
    if (!scene.mesh().Save(file.temporary().c_str(), true, true)) fail("cannot be written");
    const Scene back = readBack(readZtmt, file);
    if (!sameCloud(scene.cloud, back.cloud) || !same(scene.triangles, back.triangles) ||
        !same(scene.triangleNormals, back.triangleNormals) ||
        !same(scene.triangleColors, back.triangleColors))
        fail(kNotSame);
}

void writeZrt(const Scene& scene, const WriteOptions&, SafeFile& file) {
    ZyrRangeImage image = scene.range;
    if (!image.Save(file.temporary().c_str(), true)) fail("cannot be written");
    if (!sameRange(image, readBack(readZrt, file).range)) fail(kNotSame);
}

}  // namespace zyr
