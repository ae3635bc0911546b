#include "formats/Rows.h"
#include "formats/Writers.h"

namespace zyr {
namespace {

const char* formatLine(WriteOptions::Body body) {
    if (body == WriteOptions::Ascii) return "format ascii 1.0\n";
    if (body == WriteOptions::BigEndian) return "format binary_big_endian 1.0\n";
    return "format binary_little_endian 1.0\n";
}

std::string properties(const std::string& type, const std::vector<std::string>& names) {
    std::string text;
    for (const std::string& name : names)
        text.append("property ").append(type).append(" ").append(name).append("\n");
    return text;
}

std::string colorProperties(const ZyrColorArray& colors) {
    if (colors.Channel() == 4) return properties("uchar", {"red", "green", "blue", "alpha"});
    return properties("uchar", {"red", "green", "blue"});
}

std::string header(const Scene& scene, ZyrPointCloud& cloud, const WriteOptions& options) {
    const std::string real = options.isFloat ? "float" : "double";
    std::string text = std::string("ply\n") + formatLine(options.body) +
                       "comment written by zyr3d\nelement vertex " +
                       std::to_string(cloud.Length()) + "\n" + properties(real, {"x", "y", "z"});
    if (cloud.IsValidNormal()) text += properties(real, {"nx", "ny", "nz"});
    if (cloud.IsValidColor()) text += colorProperties(cloud.ColorData());
    if (scene.kind == Scene::Mesh) {
        text += "element face " + std::to_string(scene.triangleCount()) +
                "\nproperty list uchar int vertex_indices\n";
        if (scene.triangleNormals.Length() > 0) text += properties(real, {"nx", "ny", "nz"});
        if (scene.triangleColors.Length() > 0) text += colorProperties(scene.triangleColors);
    }
    return text + "end_header\n";
}

}  // namespace

void writePly(const Scene& scene, const WriteOptions& options, SafeFile& file) {
    ZyrPointCloud cloud = scene.cloud;
    file.put(header(scene, cloud, options));
    Rows rows(file, {options.body == WriteOptions::Ascii, options.isFloat,
                     options.body == WriteOptions::BigEndian, ' '});
    for (int i = 0; i < cloud.Length(); ++i) {
        rows.vector(cloud.PointData()[i]);
        if (cloud.IsValidNormal()) rows.vector(cloud.NormalData()[i]);
        if (cloud.IsValidColor()) rows.color(cloud.ColorData(), i);
        rows.end();
    }
    for (int t = 0; t < scene.triangleCount(); ++t) {
        rows.byte(3);
        for (int corner = 0; corner < 3; ++corner) rows.integer(scene.triangles[3 * t + corner]);
        if (scene.triangleNormals.Length() > 0) rows.vector(scene.triangleNormals[t]);
        if (scene.triangleColors.Length() > 0) rows.color(scene.triangleColors, t);
        rows.end();
    }
}

}  // namespace zyr
