#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace zyr {

struct HeaderLine {
    std::vector<std::string> words;
    std::uint64_t offset;  ///< of its first byte in the file
    int number;            ///< from 1
};

/// What the text header of a point-cloud or mesh file says.
struct CloudHeader {
    std::vector<std::string> fields;
    std::vector<std::int64_t> sizes;   ///< bytes a value, one for each field
    std::vector<std::int64_t> counts;  ///< values an element; a missing word counts as 0
    std::int64_t width = 0, height = 0, points = 0, faces = 0;
    std::string body;               ///< "ascii", "binary" or "binary_compressed"
    std::uint64_t bodyStart = 0;    ///< offset of the first byte after the header
    std::vector<HeaderLine> lines;  ///< all but comments and empty ones; the last is the DATA line

    bool hasField(const char* name) const;
    /// Bytes of one point as the header declares them.
    std::uint64_t recordSize() const;
};

/// A header is read from so many bytes at the most.
constexpr std::size_t kMostHeader = 1 << 20;

/// Reads the header that a file's bytes start with, which may be anything. The library's reader
/// stops the process on some malformed headers, so whoever takes files from people scans them
/// first. Throws a Fault that names the file and the line.
CloudHeader scanHeader(const std::string& path, const std::vector<unsigned char>& bytes);

}  // namespace zyr
