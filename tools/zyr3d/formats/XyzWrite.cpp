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

}  // namespace

void writeXyz(const Scene& scene, const WriteOptions& options, SafeFile& file) {
    writeTable(scene, options.isFloat, ' ', file);
}

void writeCsv(const Scene& scene, const WriteOptions& options, SafeFile& file) {
    ZyrPointCloud cloud = scene.cloud;
    std::string names = "x,y,z";
    if (cloud.IsValidNormal()) names += ",nx,ny,nz";
    if (cloud.IsValidColor()) names += ",red,green,blue";
    if (cloud.IsValidColor() && cloud.ColorData().Channel() == 4) names += ",alpha";
    file.put(names + "\n");
    writeTable(scene, options.isFloat, ',', file);
}

}  // namespace zyr
