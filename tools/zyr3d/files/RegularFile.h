#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace zyr {

/// Throws FileTrouble unless the path leads to a regular file, whose reading can't block.
void requireRegularFile(const std::string& path);

/// Throws FileTrouble.
std::uint64_t fileSize(const std::string& path);

/// All bytes of a regular file, or as many as are asked for at most. Throws FileTrouble.
std::vector<unsigned char> readWhole(const std::string& path);
std::vector<unsigned char> readStart(const std::string& path, std::uint64_t mostBytes);

/// Reads all of a regular file and keeps none of it. For files that the library reads, which takes
/// a read that fails for the end of the file. Throws FileTrouble.
void requireReadable(const std::string& path);

}  // namespace zyr
