#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace zyr {

/// What the text header of a point-cloud or mesh file says.
struct CloudHeader {
    std::vector<std::string> fields;
    std::vector<std::int64_t> sizes;   ///< bytes a value, one for each field
    std::vector<std::int64_t> counts;  ///< values an element; a missing word counts as 0
    std::int64_t width = 0, height = 0, points = 0;
    std::string body;             ///< "ascii", "binary" or "binary_compressed"
    std::uint64_t bodyStart = 0;  ///< offset of the first byte after the header

    bool hasField(const char* name) const;
    /// Bytes of one point as the header declares them.
    std::uint64_t recordSize() const;
};

/// Reads the header of a regular file that may hold anything. The library's reader stops the
/// process on some malformed headers, so whoever takes files from people scans them first.
/// Throws FileTrouble that names the file and the line.
CloudHeader scanHeader(const std::string& path);

}  // namespace zyr
