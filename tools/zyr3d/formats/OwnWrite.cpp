#include <cerrno>
#include <opencv2/core.hpp>

#include "Outcome.h"
#include "Zyr3DFileIO.h"
#include "files/Loading.h"
#include "formats/Fault.h"
#include "formats/Readers.h"
#include "formats/Same.h"
#include "formats/Writers.h"

namespace zyr {
namespace {

[[noreturn]] void fail(const char* why) {
    throw FormatFault(why);
}

/// Has the library save, by a name without a suffix, and holds what it wrote, as it is read,
/// against what it should be.
template <class Save, class IsSame>
void writeChecked(SafeFile& file, const Save& save, Scene (*read)(const std::string&),
                  const IsSame& isSame) {
    const std::string name = file.opened();
    errno = 0;
    const bool isSaved = save(name.c_str());
    const int error = errno;
    if (!isSaved) file.failWritten(error, "cannot be written");
    std::string found = "does not read back as it was written";
    try {
        if (isSame(read(file.temporary()))) return;
    } catch (const FileTrouble& trouble) {
        found = trouble.what();
    }
    file.failWritten(error, found);
}

}  // namespace

void writeZpt(const Scene& scene, const WriteOptions&, SafeFile& file) {
    ZyrPointCloud cloud = scene.cloud;
    if (cloud.Length() == 0) fail("no points, and a .zpt file has one at least");
    ZyrVector3dArray points = cloud.PointData(), normals = cloud.NormalData();
    cv::Mat colors = pixelsOf(cloud.ColorData());
    const auto save = [&](const char* name) {
        return Zyr3DFileIO::SavePointCloud(points, normals, colors, name, true, true);
    };
    writeChecked(file, save, readZpt,
                 [&](const Scene& back) { return sameCloud(cloud, back.cloud); });
}

void writeZtmt(const Scene& scene, const WriteOptions&, SafeFile& file) {
    if (scene.cloud.Length() == 0) fail("no vertices, and a .ztmt file has one at least");
    ZyrPointCloud cloud = scene.cloud;
    ZyrVector3dArray vertices = cloud.PointData(), normals = cloud.NormalData();
    ZyrVector3dArray triangleNormals = scene.triangleNormals;
    Zyr3DIntArray triangles = scene.triangles;
    cv::Mat colors = pixelsOf(cloud.ColorData()), triangleColors = pixelsOf(scene.triangleColors);
    const auto save = [&](const char* name) {
        return Zyr3DFileIO::SaveTriangleMesh(vertices, normals, colors, triangles, triangleNormals,
                                             triangleColors, name, true, true);
    };
    writeChecked(file, save, readZtmt, [&](const Scene& back) { return sameMesh(scene, back); });
}

void writeZrt(const Scene& scene, const WriteOptions&, SafeFile& file) {
    const ZyrRangeImage& image = scene.range;
    cv::Mat values(image.Height(), image.Width(), image.DataType(), image.Data()), colors;
    if (scene.pixelColors.Length() > 0)
        colors = cv::Mat(image.Height(), image.Width(), CV_8UC(scene.pixelColors.Channel()),
                         scene.pixelColors.Data());
    double low = 0.0, high = 0.0;
    double resolution[] = {image.ResolutionX(), image.ResolutionY(), image.ResolutionZ()};
    double offset[] = {image.OffsetX(), image.OffsetY(), image.OffsetZ()};
    const auto save = [&](const char* name) {
        return Zyr3DFileIO::SaveRangeImage(values, colors, name, low, high, resolution[0],
                                           resolution[1], resolution[2], offset[0], offset[1],
                                           offset[2], true);
    };
    writeChecked(file, save, readZrt, [&](const Scene& back) { return sameRange(scene, back); });
}

}  // namespace zyr
