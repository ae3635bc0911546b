#include "fileIO/LzfDecoder.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>

// Two loops. The first takes a literal run and the reference behind it in one turn and moves 8 or
// 16 bytes at once, wherever neither can reach an end of the buffers; it leaves what it does not
// like to the second, which takes a chunk a turn, looks at every bound and names what is wrong. A
// chunk gives 264 bytes at the most and takes 33, so that the second loop has the last 312 bytes of
// the output and the last 36 of the input to do.

namespace zyr {
namespace {

/// How far both buffers have been used.
struct Place {
    std::size_t in;
    std::size_t out;
};

void move8(Byte* to, const Byte* from) {
    std::memcpy(to, from, 8);
}

void move16(Byte* to, const Byte* from) {
    std::array<Byte, 16> bytes;
    std::memcpy(bytes.data(), from, 16);
    std::memcpy(to, bytes.data(), 16);
}

void move4(Byte* to, const Byte* from) {
    std::memcpy(to, from, 4);
}

template <class T>
std::uint64_t load(const Byte* from) {
    T value;
    std::memcpy(&value, from, sizeof(T));
    return value;
}

/// Eight bytes that repeat the distance bytes before to, of which there are up to 8. Each width
/// reads no more than it needs: what lies behind may still be on its way to memory.
std::uint64_t pattern(const Byte* to, std::size_t distance) {
    const Byte* from = to - distance;
    switch (distance) {
        case 1:
            return load<std::uint8_t>(from) * 0x0101010101010101;
        case 2:
            return load<std::uint16_t>(from) * 0x0001000100010001;
        case 4:
            return load<std::uint32_t>(from) * 0x0000000100000001;
        case 8:
            return load<std::uint64_t>(from);
        default:
            break;
    }
    std::array<Byte, 8> bytes;
    for (std::size_t k = 0; k < 8; ++k) bytes[k] = k < distance ? from[k] : bytes[k - distance];
    return load<std::uint64_t>(bytes.data());
}

/// Up to 8 bytes in moves of 8 in all.
void copyShort(Byte* to, std::size_t distance) {
    if (distance >= 8) {
        move8(to, to - distance);
    } else if (distance >= 4) {
        move4(to, to - distance);
        move4(to + 4, to + 4 - distance);
    } else {
        const std::uint64_t bytes = pattern(to, distance);
        std::memcpy(to, &bytes, 8);
    }
}

/// Up to 264 bytes in moves that may go 16 bytes beyond.
void copyLong(Byte* to, std::size_t distance, std::size_t length) {
    const Byte* const end = to + length;
    if (distance >= 16) {
        for (; to < end; to += 16) move16(to, to - distance);
        return;
    }
    if (distance > 8) {
        for (; to < end; to += 8) move8(to, to - distance);
        return;
    }
    const std::uint64_t bytes = pattern(to, distance);
    const std::size_t step = 8 / distance * distance;
    if (step == 8) {
        const std::array<std::uint64_t, 2> both = {bytes, bytes};
        for (; to < end; to += 16) std::memcpy(to, both.data(), 16);
        return;
    }
    for (; to < end; to += step) std::memcpy(to, &bytes, 8);
}

constexpr std::size_t kInMargin = 1 + 32 + 3;
constexpr std::size_t kOutMargin = 32 + 264 + 16;

/// Turns of a literal run, if there is one, and the reference behind it, while neither can reach
/// the buffers' ends, however wide the moves.
Place decodeInside(const Byte* const in, std::size_t inLen, Byte* const out, std::size_t from,
                   std::size_t outLen) {
    if (inLen < kInMargin || outLen < kOutMargin) return {0, from};
    const Byte* ip = in;
    Byte* op = out + from;
    const Byte* const inLast = in + (inLen - kInMargin);
    const Byte* const outLast = out + (outLen - kOutMargin);
    while (ip <= inLast && op <= outLast) {
        std::size_t control = *ip;
        if (control < 32) {
            move16(op, ip + 1);
            if (control >= 16) move16(op + 16, ip + 17);
            ip += control + 2;
            op += control + 1;
            control = *ip;
            if (control < 32) continue;
        }
        std::size_t length = (control >> 5) + 2;
        if (length < 9) {
            const std::size_t distance = ((control & 31) << 8) + ip[1] + 1;
            if (distance > static_cast<std::size_t>(op - out)) break;
            copyShort(op, distance);
            ip += 2;
        } else {
            length += ip[1];
            const std::size_t distance = ((control & 31) << 8) + ip[2] + 1;
            if (distance > static_cast<std::size_t>(op - out)) break;
            copyLong(op, distance, length);
            ip += 3;
        }
        op += length;
    }
    return {static_cast<std::size_t>(ip - in), static_cast<std::size_t>(op - out)};
}

}  // namespace

LzfStep lzfDecodeStep(const Byte* in, std::size_t inLen, Byte* out, std::size_t from,
                      std::size_t outLen) {
    auto [ip, op] = decodeInside(in, inLen, out, from, outLen);
    while (ip < inLen) {
        const std::size_t control = in[ip];
        if (control < 32) {
            const std::size_t run = control + 1;
            if (run > outLen - op) return {LzfEnd::Overrun, ip, op - from, 0};
            const std::size_t there = std::min(run, inLen - ip - 1);
            std::memcpy(out + op, in + ip + 1, there);
            if (there < run) return {LzfEnd::Cut, ip, op - from, there};
            ip += 1 + run;
            op += run;
            continue;
        }
        std::size_t length = (control >> 5) + 2;
        const std::size_t bytes = length == 9 ? 3 : 2;
        if (inLen - ip < bytes) return {LzfEnd::Cut, ip, op - from, 0};
        if (length == 9) length += in[ip + 1];
        const std::size_t distance = ((control & 31) << 8) + in[ip + bytes - 1] + 1;
        if (length > outLen - op) return {LzfEnd::Overrun, ip, op - from, 0};
        if (distance > op) return {LzfEnd::BadReference, ip, op - from, 0};
        for (; length > 0; --length, ++op) out[op] = out[op - distance];
        ip += bytes;
    }
    return {LzfEnd::Whole, ip, op - from, 0};
}

}  // namespace zyr
