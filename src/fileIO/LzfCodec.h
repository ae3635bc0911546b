#pragma once

#include "fileIO/LzfDecoder.h"
#include "fileIO/LzfFormat.h"

/// The LZF codec on whole buffers, with 64-bit lengths.
namespace zyr {

/// Bytes written; 0 when they do not fit.
std::size_t lzfCompress(const Byte* in, std::size_t inLen, Byte* out, std::size_t outLen);

struct LzfResult {
    LzfEnd end;
    std::size_t produced;
};

/// Decodes strictly inside both buffers, whatever the bytes.
LzfResult lzfDecompress(const Byte* in, std::size_t inLen, Byte* out, std::size_t outLen);

/// As lzfDecompress, but the input's length only ends the loop, after at least one chunk.
LzfResult lzfDecompressTrusted(const Byte* in, std::size_t inLen, Byte* out, std::size_t outLen);

}  // namespace zyr
