#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace zyr {

/// Throws FileTrouble unless the path leads to a regular file, whose reading can't block.
void requireRegularFile(const std::string& path);

/// Throws FileTrouble.
std::uint64_t fileSize(const std::string& path);

/// A path that leads to an open file, whatever became of its name. The other path is for what is
/// told where there is none. Throws FileTrouble.
std::string descriptorPath(int file, const std::string& path);

/// All bytes of a regular file, and the same piece by piece, but no more than the computer's
/// memory: what of it no limit of the process holds for would end other programs. Throw FileTrouble
/// and std::bad_alloc.
std::vector<unsigned char> readWhole(const std::string& path);
void readPieces(const std::string& path, const std::function<void(std::string_view)>& take);

}  // namespace zyr
