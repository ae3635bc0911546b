#include "demo/RoundTrip.h"

#include "files/FileKind.h"
#include "files/PictureScan.h"
#include "files/RangeFile.h"
#include "files/TextHeaderFile.h"

namespace zyr {

bool isTorn(const std::string& path) try {
    switch (fileKind(path)) {
        case FileKind::Cloud:
            return scanCloudFile(Snapshot(path)).isCut();
        case FileKind::Mesh:
            return scanMeshFile(Snapshot(path)).isCut();
        case FileKind::Picture:
            return scanPicture(readWhole(path)).has_value();
        default:
            loadRangeFile(path);
            return false;
    }
} catch (const Fault&) {
    return true;
}

}  // namespace zyr
