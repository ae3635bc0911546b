#pragma once

#include <cstddef>
#include <string>

namespace zyr {

/// How the walk through a stream ended.
struct LzfWalk {
    std::string fault;         ///< "" after a whole stream
    std::size_t at = 0;        ///< offset in the stream: of the chunk at fault, else the end
    std::size_t produced = 0;  ///< bytes of output
};

/// A stream of n bytes gives at most so many times n.
constexpr std::size_t kLzfMostExpansion = 88;

/// Decodes a stream that may hold anything, strictly inside both buffers. The library's own
/// operation is for streams that are known to be whole, and tells no place.
LzfWalk decodeLzf(const unsigned char* in, std::size_t inSize, unsigned char* out,
                  std::size_t outSize);

/// Offset of the chunk that gave the byte at this position of the output of a whole stream.
std::size_t lzfChunkOf(const unsigned char* in, std::size_t inSize, std::size_t position);

}  // namespace zyr
