#include "formats/Scene.h"

#include <sys/stat.h>

#include <array>
#include <cerrno>
#include <cstring>
#include <fstream>

#include "Outcome.h"
#include "Zyr3DInner.h"
#include "files/RegularFile.h"
#include "formats/Fault.h"
#include "formats/Readers.h"
#include "formats/Text.h"

namespace zyr {
namespace {

/// A format is read from its bytes or by its path.
struct Format {
    const char* suffix;
    Scene (*fromBytes)(std::string_view);
    Scene (*fromPath)(const std::string&);
};

constexpr std::array<Format, 14> kFormats = {{{"zpt", nullptr, readZpt},
                                              {"ztmt", nullptr, readZtmt},
                                              {"zrt", nullptr, readZrt},
                                              {"png", nullptr, readPicture},
                                              {"tif", nullptr, readPicture},
                                              {"tiff", nullptr, readPicture},
                                              {"ply", readPly, nullptr},
                                              {"stl", readStl, nullptr},
                                              {"obj", readObj, nullptr},
                                              {"pcd", readPcd, nullptr},
                                              {"xyz", readXyz, nullptr},
                                              {"txt", readXyz, nullptr},
                                              {"csv", readXyz, nullptr},
                                              {"npy", readNpy, nullptr}}};

const Format* formatOf(const std::string& path) {
    const std::string suffix = lowered(Zyr3DInner::getSuffix(path.c_str()));
    for (const Format& format : kFormats)
        if (suffix == format.suffix) return &format;
    return nullptr;
}

std::string readBytes(const std::string& path) {
    requireRegularFile(path);
    std::ifstream file(path, std::ios::binary);
    std::string bytes(fileSize(path), '\0');
    file.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    if (!file) throw FileTrouble(path + ": " + std::strerror(errno));
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
    if (format == nullptr) throw FileTrouble(path + ": not a format that is read, by its suffix");
    return format->fromPath != nullptr ? format->fromPath(path)
                                       : format->fromBytes(readBytes(path));
} catch (const FormatFault& fault) {
    throw Fault(path, fault.what());
} catch (const std::bad_alloc&) {
    throw FileTrouble(path + ": needs more memory than there is");
}

}  // namespace zyr
