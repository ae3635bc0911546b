#pragma once

#include <string>

#include "ZyrPointCloud.h"
#include "files/TextHeaderFile.h"

namespace zyr {

struct CloudFile {
    TextHeaderFile disk;
    ZyrPointCloud cloud;
};

/// Whether the path's suffix is one of point-cloud files.
bool isCloudPath(const std::string& path);

/// Loads a point-cloud file that may hold anything, with all it has. Throws FileTrouble.
CloudFile loadCloudFile(const std::string& path);

}  // namespace zyr
