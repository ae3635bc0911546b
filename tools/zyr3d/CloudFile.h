#pragma once

#include <cstdint>
#include <string>

#include "HeaderScan.h"
#include "ZyrPointCloud.h"

namespace zyr {

struct CloudFile {
    CloudHeader header;
    ZyrPointCloud cloud;
    std::uint64_t bytes = 0;     ///< of the whole file
    std::uint64_t bodyHeld = 0;  ///< bytes of the body that are there
    std::uint64_t bodySize = 0;  ///< bytes that the body should have; 0 for an "ascii" one

    /// A body that is cut short loads with zeros in place of what is missing.
    bool isCut() const { return bodyHeld < bodySize; }
};

/// Whether the path's suffix is one of point-cloud files.
bool isCloudPath(const std::string& path);

std::uint64_t fileSize(const std::string& path);

/// Loads a point-cloud file that may hold anything, with all it has. Throws FileTrouble.
CloudFile loadCloudFile(const std::string& path);

}  // namespace zyr
