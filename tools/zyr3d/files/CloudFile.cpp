#include "files/CloudFile.h"

#include "Outcome.h"
#include "Zyr3DInner.h"
#include "files/Loading.h"

namespace zyr {

bool isCloudPath(const std::string& path) {
    const std::string suffix = Zyr3DInner::getSuffix(path.c_str());
    return suffix == "zpt" || suffix == "ZPT";
}

CloudFile loadCloudFile(const std::string& path) {
    if (!isCloudPath(path)) throw FileTrouble(path + ": not a .zpt file by its suffix");
    const TextHeaderFile disk = scanCloudFile(path);
    return {disk, loadScanned<ZyrPointCloud>(path)};
}

}  // namespace zyr
