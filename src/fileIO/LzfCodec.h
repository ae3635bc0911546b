#pragma once

#include <cstddef>

/// The LZF codec on 64-bit lengths. LZF.h describes the stream.
namespace zyr {

using Byte = unsigned char;

/// Room that any input's compressed stream fits in: all of it as literal runs of 32.
constexpr std::size_t lzfWorstCase(std::size_t inLen) {
    return inLen + (inLen + 31) / 32;
}

/// What a byte of a stream decodes to at the most: a reference of three bytes gives up to 264.
constexpr std::size_t kLzfMaxExpansion = 88;

/// Bytes written; 0 when they do not fit.
std::size_t lzfCompress(const Byte* in, std::size_t inLen, Byte* out, std::size_t outLen);

enum class LzfEnd {
    Whole,         ///< the input ended with a chunk
    Cut,           ///< the input ended inside a chunk; what it holds was decoded
    Overrun,       ///< a chunk's output does not fit
    BadReference,  ///< a back-reference starts before the output
};

struct LzfResult {
    LzfEnd end;
    std::size_t produced;
};

/// Decodes strictly inside both buffers, whatever the bytes.
LzfResult lzfDecompress(const Byte* in, std::size_t inLen, Byte* out, std::size_t outLen);

/// As lzfDecompress, but the input's length only ends the loop, after at least one chunk.
LzfResult lzfDecompressTrusted(const Byte* in, std::size_t inLen, Byte* out, std::size_t outLen);

}  // namespace zyr
