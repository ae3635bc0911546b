#include "fileIO/LzfEncoder.h"

#include <cstdint>

#include "fileIO/LzfChunks.h"
#include "fileIO/LzfColumns.h"
#include "fileIO/LzfEqual.h"
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

/// Whether doubles keep just the 23 of their 52 bits that come from a float; by a sample.
bool areFloatBorn(const Byte* in, std::size_t size) {
    const std::size_t count = size / 8;
    std::size_t looked = 0;
    std::size_t born = 0;
    for (std::size_t i = 0; i < count; i += count / 64 + 1, ++looked)
        born += std::size_t((lzfLoad8(in + 8 * i) & 0x1FFFFFFF) == 0);
    return 8 * born >= 7 * looked;
}

/// Whether three values seldom return in what has been encoded.
bool isNoisy(std::size_t size, std::size_t encoded) {
    return 10 * encoded >= 9 * size;
}

/// Noise hides that values return, but seldom that bytes do; by a sample, and by the result.
std::size_t encodeShorts(const Byte* in, std::size_t size, Byte* out) {
    const std::size_t sample = size / 64 * 2;
    if (sample >= 1024 && isNoisy(sample, lzfEncodeShorts(in + size / 4 * 2, sample, out)))
        return lzfEncodeNoisyShorts(in, size, out);
    const std::size_t values = lzfEncodeShorts(in, size, out);
    if (!isNoisy(size, values)) return values;
    const std::size_t bytes = lzfEncodeNoisyShorts(in, size, out);
    return bytes <= values ? bytes : lzfEncodeShorts(in, size, out);
}

}  // namespace

std::size_t lzfEncodeBlock(const Byte* in, std::size_t size, std::size_t width, Byte* out) {
    if (size < 16) return LzfChunks(in, size, out).finish();
    if (width == 8)
        return (areFloatBorn(in, size) ? lzfEncodeFloatBorn : lzfEncodeDoubles)(in, size, out);
    if (width == 4 && areIndices(in, size)) return lzfEncodeIntegers(in, size, out);
    return width == 2 ? encodeShorts(in, size, out) : lzfEncodeBytes(in, size, out);
}

}  // namespace zyr
