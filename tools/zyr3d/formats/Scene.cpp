#include "formats/Scene.h"

#include "Outcome.h"
#include "files/RegularFile.h"
#include "formats/Fault.h"
#include "formats/Format.h"

namespace zyr {
namespace {

std::string readBytes(const std::string& path) {
    requireRegularFile(path);
    std::string bytes;
    bytes.reserve(fileSize(path));
    readPieces(path, [&](std::string_view piece) { bytes += piece; });
    return bytes;
}

}  // namespace

ZyrTriangleMesh Scene::mesh() const {
    ZyrPointCloud shared = cloud;
    return ZyrTriangleMesh(shared.PointData(), triangles, shared.ColorData(), triangleColors,
                           shared.NormalData(), triangleNormals);
}

bool isScenePath(const std::string& path) {
    return formatOf(path) != nullptr;
}

Scene readScene(const std::string& path) try {
    const Format* format = formatOf(path);
    if (format == nullptr) {
        requireRegularFile(path);
        throw FileTrouble(suffixFault(path, "read"));
    }
    return format->fromPath != nullptr ? format->fromPath(path)
                                       : format->fromBytes(readBytes(path));
} catch (const FormatFault& fault) {
    throw Fault(path, fault.what(), fault.offset ? *fault.offset : fileSize(path), fault.why);
} catch (const std::bad_alloc&) {
    throw FileTrouble(path + ": needs more memory than there is");
}

}  // namespace zyr
