#include "formats/Fault.h"
#include "formats/Rows.h"
#include "formats/Writers.h"

namespace zyr {
namespace {

/// Readers of this format know no NaN.
ZyrVector3d validOrZero(ZyrVector3d normal) {
    return normal.IsValid() ? normal : ZyrVector3d(0, 0, 0);
}

}  // namespace

void writeObj(const Scene& scene, const WriteOptions& options, SafeFile& file) {
    ZyrPointCloud cloud = scene.cloud;
    if (cloud.Length() == 0) throw FormatFault("no points, and an OBJ file has one at least");
    Rows rows(file, {true, options.isFloat, false, ' '});
    file.put("# written by zyr3d\n");
    for (int i = 0; i < cloud.Length(); ++i) {
        file.put("v ");
        rows.vector(cloud.PointData()[i]);
        if (cloud.IsValidColor())
            for (int channel = 0; channel < 3; ++channel)
                rows.real(channelAt(cloud.ColorData(), i, channel) / 255.0);
        rows.end();
    }
    for (int i = 0; cloud.IsValidNormal() && i < cloud.Length(); ++i) {
        file.put("vn ");
        rows.vector(validOrZero(cloud.NormalData()[i]));
        rows.end();
    }
    for (int t = 0; t < scene.triangleCount(); ++t) {
        std::string line = "f";
        for (int corner = 0; corner < 3; ++corner) {
            const std::string index = std::to_string(scene.triangles[3 * t + corner] + 1);
            line.append(" ").append(index);
            if (cloud.IsValidNormal()) line.append("//").append(index);
        }
        file.put(line + "\n");
    }
}

}  // namespace zyr
