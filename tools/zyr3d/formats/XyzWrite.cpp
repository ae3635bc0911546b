#include "formats/PointColumns.h"
#include "formats/Rows.h"
#include "formats/Writers.h"

namespace zyr {
namespace {

void writeTable(const Scene& scene, bool isFloat, char separator, SafeFile& file) {
    ZyrPointCloud cloud = scene.cloud;
    Rows rows(file, {true, isFloat, false, separator});
    for (int i = 0; i < cloud.Length(); ++i) {
        rows.vector(cloud.PointData()[i]);
        if (cloud.IsValidNormal()) rows.vector(cloud.NormalData()[i]);
        if (cloud.IsValidColor()) rows.color(cloud.ColorData(), i);
        rows.end();
    }
}

std::string namesOf(ZyrPointCloud& cloud, char separator) {
    const std::string mark(1, separator);
    std::string names = "x" + mark + "y" + mark + "z";
    for (const char* name : {"nx", "ny", "nz"})
        if (cloud.IsValidNormal()) names += mark + name;
    for (const char* name : {"red", "green", "blue"})
        if (cloud.IsValidColor()) names += mark + name;
    if (cloud.IsValidColor() && cloud.ColorData().Channel() == 4) names += mark + "alpha";
    return names + "\n";
}

/// Whether readers of columns without names would take colours for normals, as very dark ones, or
/// normals for colours.
bool isMistaken(ZyrPointCloud& cloud, bool isFloat) {
    const bool hasColors = cloud.IsValidColor();
    if (hasColors == cloud.IsValidNormal()) return false;
    ColorGuess guess;
    for (int i = 0; i < cloud.Length(); ++i) {
        if (hasColors) {
            for (int c = 0; c < 3; ++c) guess.take(channelAt(cloud.ColorData(), i, c));
        } else {
            const ZyrVector3d& normal = cloud.NormalData()[i];
            for (const double value : {normal.x, normal.y, normal.z})
                guess.take(isFloat ? static_cast<float>(value) : value);
        }
    }
    return cloud.Length() > 0 && guess.areColors() != hasColors;
}

}  // namespace

void writeXyz(const Scene& scene, const WriteOptions& options, SafeFile& file) {
    ZyrPointCloud cloud = scene.cloud;
    // A comment, which other readers pass over; without points it tells that this is a cloud.
    if (cloud.Length() == 0 || isMistaken(cloud, options.isFloat))
        file.put("# " + namesOf(cloud, ' '));
    writeTable(scene, options.isFloat, ' ', file);
}

void writeCsv(const Scene& scene, const WriteOptions& options, SafeFile& file) {
    ZyrPointCloud cloud = scene.cloud;
    file.put(namesOf(cloud, ','));
    writeTable(scene, options.isFloat, ',', file);
}

}  // namespace zyr
