#include "files/CloudFile.h"

#include "Outcome.h"
#include "Zyr3DFileIO.h"
#include "Zyr3DInner.h"
#include "files/Loading.h"

namespace zyr {

bool isCloudPath(const std::string& path) {
    const std::string suffix = Zyr3DInner::getSuffix(path.c_str());
    return suffix == "zpt" || suffix == "ZPT";
}

CloudFile loadCloudFile(const std::string& path) {
    if (!isCloudPath(path)) throw FileTrouble(path + ": not a .zpt file by its suffix");
    const Snapshot whole(path);
    const TextHeaderFile disk = scanCloudFile(whole);
    ZyrVector3dArray points, normals;
    cv::Mat colors;
    loadScanned(whole, [&](const char* name) {
        return Zyr3DFileIO::LoadPointCloud(points, normals, colors, name, true, true);
    });
    return {disk, ZyrPointCloud(points, colorsOf(colors), normals)};
}

}  // namespace zyr
