#include "Grid.h"
#include "formats/Rows.h"
#include "formats/Scalar.h"
#include "formats/Writers.h"

namespace zyr {
namespace {

ZyrVector3d cornerOf(const Scene& scene, ZyrPointCloud& cloud, int t, int corner) {
    return cloud.PointData()[scene.triangles[3 * t + corner]];
}

/// Readers take a zero vector for one that is to be computed.
ZyrVector3d normalOf(const Scene& scene, ZyrPointCloud& cloud, int t) {
    if (scene.triangleNormals.Length() > 0 && scene.triangleNormals[t].IsValid())
        return scene.triangleNormals[t];
    const ZyrVector3d origin = cornerOf(scene, cloud, t, 0);
    ZyrVector3d normal = crossDirection(cornerOf(scene, cloud, t, 1) - origin,
                                        cornerOf(scene, cloud, t, 2) - origin);
    return normal.IsValid() ? normal : ZyrVector3d(0, 0, 0);
}

void writeAscii(const Scene& scene, ZyrPointCloud& cloud, bool isFloat, SafeFile& file) {
    Rows rows(file, {true, isFloat, false, ' '});
    file.put("solid zyr3d\n");
    for (int t = 0; t < scene.triangleCount(); ++t) {
        file.put("facet normal ");
        rows.vector(normalOf(scene, cloud, t));
        rows.end();
        file.put("outer loop\n");
        for (int corner = 0; corner < 3; ++corner) {
            file.put("vertex ");
            rows.vector(cornerOf(scene, cloud, t, corner));
            rows.end();
        }
        file.put("endloop\nendfacet\n");
    }
    file.put("endsolid zyr3d\n");
}

void writeBinary(const Scene& scene, ZyrPointCloud& cloud, SafeFile& file) {
    // No "solid" in front, by which some take a file for text.
    std::string head = "binary STL written by zyr3d";
    head.resize(80, ' ');
    appendAs(head, static_cast<std::uint32_t>(scene.triangleCount()));
    file.put(head);
    Rows rows(file, {false, true, false, ' '});
    for (int t = 0; t < scene.triangleCount(); ++t) {
        rows.vector(normalOf(scene, cloud, t));
        for (int corner = 0; corner < 3; ++corner) rows.vector(cornerOf(scene, cloud, t, corner));
        for (int attribute = 0; attribute < 2; ++attribute) rows.byte(0);
        rows.end();
    }
}

}  // namespace

void writeStl(const Scene& scene, const WriteOptions& options, SafeFile& file) {
    ZyrPointCloud cloud = scene.cloud;
    if (options.body == WriteOptions::Ascii)
        writeAscii(scene, cloud, options.isFloat, file);
    else
        writeBinary(scene, cloud, file);
}

}  // namespace zyr
