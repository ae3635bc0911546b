#include "demo/RoundTrip.h"

#include "files/FileKind.h"
#include "files/PictureScan.h"
#include "files/RangeFile.h"
#include "files/TextHeaderFile.h"

namespace zyr {

namespace {

/// Throws FileTrouble unless the file has its end, whatever of it can be loaded.
void requireWhole(const std::string& path) {
    const std::string cut = path + ": cut short";
    switch (fileKind(path)) {
        case FileKind::Cloud:
            if (scanCloudFile(Snapshot(path)).isCut()) throw FileTrouble(cut);
            break;
        case FileKind::Mesh:
            if (scanMeshFile(Snapshot(path)).isCut()) throw FileTrouble(cut);
            break;
        case FileKind::Picture:
            if (scanPicture(readWhole(path))) throw FileTrouble(cut);
            break;
        default:
            loadRangeFile(path);
    }
}

}  // namespace

void checkWritten(bool isSaved, int error, SafeFile& file) {
    if (!isSaved) file.failWritten(error, "cannot be written");
    try {
        requireWhole(file.temporary());
    } catch (const FileTrouble& trouble) {
        file.failWritten(error, trouble.what());
    }
}

}  // namespace zyr
