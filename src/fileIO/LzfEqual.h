#pragma once

#include <cstdint>
#include <cstring>

#include "fileIO/LzfFormat.h"

/// How far bytes are equal, eight at a time and without branches.
namespace zyr {

/// The value of bytes whose lowest comes first, from how it lies in memory.
inline std::uint64_t lzfLittle(std::uint64_t value) {
    return __BYTE_ORDER__ == __ORDER_BIG_ENDIAN__ ? __builtin_bswap64(value) : value;
}

inline std::uint32_t lzfLittle(std::uint32_t value) {
    return __BYTE_ORDER__ == __ORDER_BIG_ENDIAN__ ? __builtin_bswap32(value) : value;
}

inline std::uint64_t lzfLoad8(const Byte* from) {
    std::uint64_t bytes;
    std::memcpy(&bytes, from, 8);
    return lzfLittle(bytes);
}

/// Of eight bytes' exclusive or, how many are zero from the lowest on.
inline std::size_t lzfEqualFirst(std::uint64_t x) {
    return (static_cast<std::size_t>(__builtin_ctzll(x | std::uint64_t(1) << 63)) + (x == 0)) / 8;
}

/// The same from the highest on. Counting from the other end takes many processors longer.
inline std::size_t lzfEqualLast(std::uint64_t x) {
    return lzfEqualFirst(__builtin_bswap64(x));
}

/// Of the eight bytes from here on, how many are those that lie the distance before.
inline std::size_t lzfEqualFirst(const Byte* here, std::size_t distance) {
    return lzfEqualFirst(lzfLoad8(here) ^ lzfLoad8(here - distance));
}

/// Where bytes that are equal up to end stop being so. Compares eight bytes at once and none
/// behind last.
inline std::size_t lzfExtended(const Byte* in, std::size_t end, std::size_t last,
                               std::size_t distance) {
    for (; end + 8 <= last; end += 8) {
        const std::uint64_t x = lzfLoad8(in + end) ^ lzfLoad8(in + end - distance);
        if (x != 0) return end + lzfEqualFirst(x);
    }
    return end;
}

}  // namespace zyr
