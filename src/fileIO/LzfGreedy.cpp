#include "fileIO/LzfGreedy.h"

#include <algorithm>
#include <array>
#include <cstdint>

#include "fileIO/LzfChunks.h"
#include "fileIO/LzfEqual.h"

// The first match that is found is taken: a table holds where each key, the next few bytes, was
// last. The load of the candidate waits for nothing but the table, and one test tells whether it
// matches and is in reach. Matches also grow backward over literals. Where nothing is found for
// long the stride grows. No data take more than lzfWorstCase: a reference replaces 3 literals or
// more by 2 bytes and the control byte of the next run.

namespace zyr {
namespace {

/// The last position of each key, modulo 2^16, which no reach comes near to.
template <unsigned bits, unsigned keyBytes>
class Positions {
public:
    /// The distance to the last position of the bytes, which becomes this one.
    std::size_t exchange(std::uint64_t bytes, std::size_t position) {
        std::uint16_t& last =
            last_[(bytes << (64 - 8 * keyBytes)) * 0x9E3779B97F4A7C15 >> (64 - bits)];
        const std::size_t distance = static_cast<std::uint16_t>(position - last);
        last = static_cast<std::uint16_t>(position);
        return distance;
    }

private:
    std::array<std::uint16_t, 1 << bits> last_{};
};

/// Literals before the match that are equal too, up to 8.
std::size_t equalBefore(const Byte* in, std::size_t ip, std::size_t distance,
                        std::size_t literals) {
    if (ip < 8 + distance) return 0;
    const std::uint64_t x = lzfLoad8(in + ip - 8) ^ lzfLoad8(in + ip - 8 - distance);
    return std::min(lzfEqualLast(x), literals);
}

/// Looks at every position that is a multiple of step.
template <std::size_t step, unsigned bits, unsigned keyBytes, unsigned shortest>
std::size_t encode(const Byte* in, std::size_t size, Byte* out) {
    LzfChunks chunks(in, size, out);
    Positions<bits, keyBytes> positions;
    const std::size_t last = size - 8;
    std::size_t ip = step;
    std::size_t misses = 0;
    while (ip <= last) {
        const std::uint64_t here = lzfLoad8(in + ip);
        const std::size_t distance = positions.exchange(here, ip);
        const std::uint64_t x = here ^ lzfLoad8(in + ip - distance);
        const bool isFar = distance - 1 >= 8192;  // 8192 itself is in reach
        if ((x << (64 - 8 * shortest) | std::uint64_t(isFar)) != 0) {
            ip += step + (misses++ >> 5) * step;
            continue;
        }
        misses = 0;
        const std::size_t length = lzfEqualFirst(x);
        std::size_t end = ip + length;
        // With what lies before it, 264 at the most.
        if (length == 8) end = lzfExtended(in, end, std::min(size, ip + 256), distance);
        chunks.reference(ip - equalBefore(in, ip, distance, ip - chunks.place()), end, distance);
        if (end > last) break;
        const std::size_t tail = (end - 1) / step * step;
        // Inside a reference the last two places are remembered, of a long one three.
        if (step == 1 && length == 8) positions.exchange(lzfLoad8(in + tail - 2), tail - 2);
        positions.exchange(lzfLoad8(in + tail - step), tail - step);
        positions.exchange(lzfLoad8(in + tail), tail);
        ip = tail + step;
    }
    return chunks.finish();
}

}  // namespace

std::size_t lzfEncodeBytes(const Byte* in, std::size_t size, Byte* out) {
    return encode<1, 14, 3, 3>(in, size, out);
}

std::size_t lzfEncodeShorts(const Byte* in, std::size_t size, Byte* out) {
    return encode<2, 13, 6, 4>(in, size, out);
}

std::size_t lzfEncodeNoisyShorts(const Byte* in, std::size_t size, Byte* out) {
    return encode<1, 14, 4, 3>(in, size, out);
}

}  // namespace zyr
