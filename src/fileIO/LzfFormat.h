#pragma once

#include <cstddef>

/// What the LZF stream format allows. LZF.h describes the stream.
namespace zyr {

using Byte = unsigned char;

/// Room that any input's compressed stream fits in: all of it as literal runs of 32.
constexpr std::size_t lzfWorstCase(std::size_t inLen) {
    return inLen + (inLen + 31) / 32;
}

/// What a byte of a stream decodes to at the most: a reference of three bytes gives up to 264.
constexpr std::size_t kLzfMaxExpansion = 88;

/// Bytes that a reference gives at the most.
constexpr std::size_t kLzfMaxReference = 264;

}  // namespace zyr
