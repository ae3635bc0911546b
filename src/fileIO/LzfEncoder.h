#pragma once

#include "fileIO/LzfFormat.h"

/// Encoding the bodies of files, a block of values at a time.
namespace zyr {

/// Bytes of a block at the most.
constexpr std::size_t kLzfBlock = std::size_t(128) * 1024;

/// Room for a block's chunks; they take lzfWorstCase(size) at the most, and the stores that write
/// them are wider than what they store.
constexpr std::size_t lzfBlockRoom(std::size_t size) {
    return lzfWorstCase(size) + 64;
}

/// Encodes up to kLzfBlock bytes, values of width 8, 4, 2 or 1, as whole chunks that refer only
/// inside the block, so that blocks one after the other are one stream. Gives the bytes written.
std::size_t lzfEncodeBlock(const Byte* in, std::size_t size, std::size_t width, Byte* out);

}  // namespace zyr
