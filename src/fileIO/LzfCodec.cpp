#include "fileIO/LzfCodec.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <limits>

#include "LZF.h"

namespace zyr {
namespace {

// The rolling hash of three bytes.
std::uint32_t FRST(const Byte* p, std::size_t i) {
    return static_cast<std::uint32_t>(p[i]) << 8 | p[i + 1];
}

std::uint32_t NEXT(std::uint32_t v, const Byte* p, std::size_t i) {
    return v << 8 | p[i + 2];
}

std::uint32_t IDX(std::uint32_t h) {
    return (((h ^ (h << 5)) >> (24 - HLOG)) - h * 5) & (HSIZE - 1);
}

constexpr std::size_t kMinMatch = 3;

/// Writes chunks, each only where it fits as a whole.
class ChunkWriter {
public:
    ChunkWriter(Byte* out, std::size_t outLen) : out_(out), room_(outLen) {}

    bool literals(const Byte* first, std::size_t count) {
        while (count > 0) {
            const std::size_t run = std::min<std::size_t>(count, MAX_LIT);
            if (!reserve(1 + run)) return false;
            put(run - 1);
            std::memcpy(out_ + written_, first, run);
            written_ += run;
            first += run;
            count -= run;
        }
        return true;
    }

    bool reference(std::size_t length, std::size_t distance) {
        const std::size_t code = length - 2;
        const std::size_t offset = distance - 1;
        if (!reserve(code < 7 ? 2 : 3)) return false;
        put(std::min<std::size_t>(code, 7) << 5 | offset >> 8);
        if (code >= 7) put(code - 7);
        put(offset & 0xFF);
        return true;
    }

    std::size_t written() const { return written_; }

private:
    bool reserve(std::size_t bytes) const { return bytes <= room_ - written_; }
    void put(std::size_t byte) { out_[written_++] = static_cast<Byte>(byte); }

    Byte* out_;
    std::size_t room_;
    std::size_t written_ = 0;
};

/// The last position of each three-byte hash. Positions are kept modulo 2^32; an entry never set
/// reads as position 0. Both are harmless, since candidates are compared byte by byte.
class PositionTable {
public:
    /// Distance back to the hash's last position, which becomes this one.
    std::size_t exchange(std::uint32_t hash, std::size_t position) {
        std::uint32_t& last = last_[IDX(hash)];
        const std::uint32_t distance = static_cast<std::uint32_t>(position) - last;
        last = static_cast<std::uint32_t>(position);
        return distance;
    }

private:
    std::array<std::uint32_t, HSIZE> last_{};
};

std::size_t matchLength(const Byte* candidate, const Byte* here, std::size_t limit) {
    std::size_t length = 0;
    while (length < limit && candidate[length] == here[length]) ++length;
    return length;
}

LzfResult decompress(const Byte* in, std::size_t inLen, std::size_t readable, Byte* out,
                     std::size_t outLen) {
    std::size_t ip = 0;
    std::size_t op = 0;
    while (ip < inLen) {
        const std::size_t control = in[ip++];
        if (control < MAX_LIT) {
            const std::size_t run = control + 1;
            if (run > outLen - op) return {LzfEnd::Overrun, op};
            const std::size_t there = std::min(run, readable - ip);
            std::memcpy(out + op, in + ip, there);
            ip += there;
            op += there;
            if (there < run) return {LzfEnd::Cut, op};
            continue;
        }
        std::size_t length = (control >> 5) + 2;
        const bool isLong = length == 9;
        if (readable - ip < (isLong ? 2U : 1U)) return {LzfEnd::Cut, op};
        if (isLong) length += in[ip++];
        const std::size_t distance = ((control & 31) << 8) + in[ip++] + 1;
        if (length > outLen - op) return {LzfEnd::Overrun, op};
        if (distance > op) return {LzfEnd::BadReference, op};
        for (; length > 0; --length, ++op) out[op] = out[op - distance];
    }
    return {LzfEnd::Whole, op};
}

}  // namespace

std::size_t lzfCompress(const Byte* in, std::size_t inLen, Byte* out, std::size_t outLen) {
    PositionTable table;
    ChunkWriter writer(out, outLen);
    std::size_t literals = 0;  // where the pending literal run starts
    std::size_t ip = 0;
    // A reference is looked for while at least 4 bytes remain.
    while (inLen - ip >= kMinMatch + 1) {
        const std::size_t distance = table.exchange(NEXT(FRST(in, ip), in, ip), ip);
        const bool inReach = distance >= 1 && distance <= MAX_OFF && distance <= ip;
        const std::size_t length = inReach ? matchLength(in + ip - distance, in + ip,
                                                         std::min<std::size_t>(inLen - ip, MAX_REF))
                                           : 0;
        if (length < kMinMatch) {
            ++ip;
            continue;
        }
        if (!writer.literals(in + literals, ip - literals) || !writer.reference(length, distance))
            return 0;
        ip += length;
        literals = ip;
        // The last two sequences inside the match are remembered; the others would cost more time
        // than they save bytes.
        for (std::size_t p = ip - 2; p < ip && inLen - p >= kMinMatch; ++p)
            table.exchange(NEXT(FRST(in, p), in, p), p);
    }
    if (!writer.literals(in + literals, inLen - literals)) return 0;
    return writer.written();
}

LzfResult lzfDecompress(const Byte* in, std::size_t inLen, Byte* out, std::size_t outLen) {
    return decompress(in, inLen, inLen, out, outLen);
}

LzfResult lzfDecompressTrusted(const Byte* in, std::size_t inLen, Byte* out, std::size_t outLen) {
    constexpr auto kUnbounded = std::numeric_limits<std::size_t>::max();
    return decompress(in, std::max<std::size_t>(inLen, 1), kUnbounded, out, outLen);
}

}  // namespace zyr
