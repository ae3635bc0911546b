#pragma once

#include <cstdint>
#include <string>

#include "files/HeaderScan.h"
#include "files/Snapshot.h"

namespace zyr {

/// What a file with a text header has on disk, before the library reads it.
struct TextHeaderFile {
    CloudHeader header;
    std::uint64_t bytes = 0;     ///< of the whole file
    std::uint64_t bodyHeld = 0;  ///< bytes of the body that are there
    std::uint64_t bodySize = 0;  ///< bytes that the body should have; 0 for an "ascii" one

    /// A body that is cut short loads with zeros in place of what is missing.
    bool isCut() const { return bodyHeld < bodySize; }
};

/// These take a file that may hold anything and throw FileTrouble where its header would stop the
/// library's reader.
TextHeaderFile scanCloudFile(const Snapshot& whole);
TextHeaderFile scanMeshFile(const Snapshot& whole);

}  // namespace zyr
