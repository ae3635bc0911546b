#include <array>

#include "formats/Rows.h"
#include "formats/Scalar.h"
#include "formats/Writers.h"

namespace zyr {
namespace {

constexpr std::array<const char*, 7> kTypes = {"|u1", "|i1", "<u2", "<i2", "<i4", "<f4", "<f8"};
constexpr std::array<std::size_t, 7> kSizes = {1, 1, 2, 2, 4, 4, 8};

/// Padded, so that the values start at a multiple of 64.
std::string header(const std::string& type, const std::string& shape) {
    std::string text =
        "{'descr': '" + type + "', 'fortran_order': False, 'shape': (" + shape + "), }";
    constexpr std::size_t kBefore = 10, kAlign = 64;
    while ((kBefore + text.size() + 1) % kAlign != 0) text += ' ';
    text += '\n';
    std::string bytes("\x93NUMPY\x01\x00", 8);
    appendAs(bytes, static_cast<std::uint16_t>(text.size()));
    return bytes + text;
}

std::string sizeText(int rows, int columns) {
    return std::to_string(rows) + ", " + std::to_string(columns);
}

void writeRange(const ZyrRangeImage& image, SafeFile& file) {
    const auto type = static_cast<std::size_t>(image.DataType());
    const std::size_t bytes = kSizes[type] * static_cast<std::size_t>(image.Width()) *
                              static_cast<std::size_t>(image.Height());
    file.put(header(kTypes[type], sizeText(image.Height(), image.Width())));
    file.put({static_cast<const char*>(image.Data()), bytes});
}

}  // namespace

void writeNpy(const Scene& scene, const WriteOptions& options, SafeFile& file) {
    if (scene.kind == Scene::Range) return writeRange(scene.range, file);
    ZyrPointCloud cloud = scene.cloud;
    const std::string shape =
        scene.isGrid() ? sizeText(scene.rows, scene.columns) : std::to_string(cloud.Length());
    file.put(header(options.isFloat ? "<f4" : "<f8", shape + ", 3"));
    Rows rows(file, {false, options.isFloat, false, ' '});
    for (int i = 0; i < cloud.Length(); ++i) {
        rows.vector(cloud.PointData()[i]);
        rows.end();
    }
}

}  // namespace zyr
