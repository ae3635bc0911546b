#include "fileIO/LzfEncoder.h"

#include <cstdint>

#include "fileIO/LzfChunks.h"
#include "fileIO/LzfColumns.h"
#include "fileIO/LzfGreedy.h"

namespace zyr {
namespace {

/// Whether words have no highest byte, as indices but not colours; by a sample.
bool areIndices(const Byte* in, std::size_t size) {
    const std::size_t words = size / 4;
    std::size_t looked = 0;
    std::size_t low = 0;
    for (std::size_t i = 0; i < words; i += words / 64 + 1, ++looked)
        low += std::size_t(in[4 * i + 3] == 0);
    return 2 * low >= looked;
}

}  // namespace

std::size_t lzfEncodeBlock(const Byte* in, std::size_t size, std::size_t width, Byte* out) {
    if (size < 16) return LzfChunks(in, size, out).finish();
    if (width == 8) return lzfEncodeDoubles(in, size, out);
    if (width == 4 && areIndices(in, size)) return lzfEncodeIntegers(in, size, out);
    return width == 2 ? lzfEncodeShorts(in, size, out) : lzfEncodeBytes(in, size, out);
}

}  // namespace zyr
