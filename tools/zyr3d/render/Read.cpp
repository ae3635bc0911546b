#include "render/Read.h"

#include "Outcome.h"
#include "Zyr3DInner.h"
#include "files/CloudFile.h"
#include "files/ImageFile.h"

namespace zyr {

Subject readSubject(const std::string& path, bool isPoints) {
    const std::string suffix = Zyr3DInner::getSuffix(path.c_str());
    if (isCloudPath(path)) {
        CloudFile file = loadCloudFile(path);
        const bool isGrid = !isPoints && file.disk.header.height > 1;
        return subjectOf(file.cloud, isGrid ? static_cast<int>(file.disk.header.width) : 0);
    }
    if (suffix == "ztmt") {
        ZyrTriangleMesh mesh;
        mesh.Load(path.c_str(), true, true);
        return subjectOf(mesh);
    }
    if (suffix == "zrt") {
        ZyrRangeImage image;
        image.Load(path.c_str(), true);
        return subjectOf(image);
    }
    return subjectOf(readPictureValues(path));
}

}  // namespace zyr
