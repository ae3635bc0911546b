#pragma once

#include <cstdint>
#include <string>

namespace zyr {

/// Throws FileTrouble unless the path leads to a regular file, whose reading can't block.
void requireRegularFile(const std::string& path);

/// Throws FileTrouble.
std::uint64_t fileSize(const std::string& path);

}  // namespace zyr
