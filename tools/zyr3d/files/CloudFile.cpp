#include "files/CloudFile.h"

#include "Outcome.h"
#include "Zyr3DInner.h"
#include "check/Check.h"

namespace zyr {

bool isCloudPath(const std::string& path) {
    const std::string suffix = Zyr3DInner::getSuffix(path.c_str());
    return suffix == "zpt" || suffix == "ZPT";
}

CloudFile loadCloudFile(const std::string& path) {
    if (!isCloudPath(path)) throw FileTrouble(path + ": not a .zpt file by its suffix");
    CloudFile file{scanCloudFile(path), {}};
    if (!file.cloud.Load(path.c_str(), true, true)) explainRefusal(path);
    return file;
}

}  // namespace zyr
