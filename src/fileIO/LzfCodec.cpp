#include "fileIO/LzfCodec.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>

#include "LZF.h"
#include "fileIO/LzfEqual.h"

// One pass that takes the first match found: a table holds where each three bytes were last, and
// what lies there, 1 to 8192 bytes back, is compared with the data. What does not match is passed
// byte by byte and becomes literals. No data take more than lzfWorstCase(inLen), which is inLen +
// (inLen + 31) / 32 bytes: a reference of 2 bytes, or 3, and the control byte of the run behind it
// replace 3 literals, or 9, at least.

namespace zyr {
namespace {

constexpr std::size_t kMinMatch = 3;

/// Four bytes, the first one lowest.
std::uint32_t load4(const Byte* from) {
    std::uint32_t bytes;
    std::memcpy(&bytes, from, 4);
    return lzfLittle(bytes);
}

/// The hash of the first three bytes.
std::uint32_t IDX(std::uint32_t bytes) {
    const std::uint32_t h = __builtin_bswap32(bytes) >> 8;
    return (((h ^ (h << 5)) >> (24 - HLOG)) - h * 5) & (HSIZE - 1);
}

/// Writes chunks, each only where it fits as a whole.
class ChunkWriter {
public:
    ChunkWriter(Byte* out, std::size_t outLen) : out_(out), room_(outLen) {}

    /// Literals, of which behind more can be read, and a reference.
    bool write(const Byte* first, std::size_t count, std::size_t behind, std::size_t length,
               std::size_t distance) {
        if (count > 16 || count + behind < 16 || !reserve(1 + 16 + 3))
            return literals(first, count) && reference(length, distance);
        Byte* to = out_ + written_;
        *to = static_cast<Byte>(count - 1);
        std::memcpy(to + 1, first, 16);
        written_ += count + std::size_t(count != 0);
        put(length, distance);
        return true;
    }

    bool literals(const Byte* first, std::size_t count) {
        while (count > 0) {
            const std::size_t run = std::min<std::size_t>(count, MAX_LIT);
            if (!reserve(1 + run)) return false;
            out_[written_] = static_cast<Byte>(run - 1);
            std::memcpy(out_ + written_ + 1, first, run);
            written_ += 1 + run;
            first += run;
            count -= run;
        }
        return true;
    }

    std::size_t written() const { return written_; }

private:
    bool reserve(std::size_t bytes) const { return bytes <= room_ - written_; }

    bool reference(std::size_t length, std::size_t distance) {
        if (!reserve(length < 9 ? 2 : 3)) return false;
        put(length, distance);
        return true;
    }

    void put(std::size_t length, std::size_t distance) {
        const std::size_t code = length - 2;
        const std::size_t offset = distance - 1;
        Byte* to = out_ + written_;
        if (code < 7) {
            to[0] = static_cast<Byte>(code << 5 | offset >> 8);
            to[1] = static_cast<Byte>(offset);
            written_ += 2;
        } else {
            to[0] = static_cast<Byte>(7 << 5 | offset >> 8);
            to[1] = static_cast<Byte>(code - 7);
            to[2] = static_cast<Byte>(offset);
            written_ += 3;
        }
    }

    Byte* out_;
    std::size_t room_;
    std::size_t written_ = 0;
};

/// The last position of each three-byte hash, modulo 2^16, so that the table stays in the
/// processor's first cache. An entry never set reads as position 0, which is harmless, since
/// candidates are compared with the data.
class PositionTable {
public:
    /// Positions that may pass from one call of forgetFar to the next.
    static constexpr std::size_t kPatience = 48 << 10;

    /// Distance back to the hash's last position, which becomes this one; exact up to MAX_OFF.
    std::size_t exchange(std::uint32_t bytes, std::size_t position) {
        std::uint16_t& last = last_[IDX(bytes)];
        const auto distance = static_cast<std::uint16_t>(position - last);
        last = static_cast<std::uint16_t>(position);
        return distance;
    }

    /// Keeps what is out of reach from looking near once it is 2^16 away.
    void forgetFar(std::size_t position) {
        const auto here = static_cast<std::uint16_t>(position);
        for (std::uint16_t& last : last_) {
            const auto distance = static_cast<std::uint16_t>(here - last);
            last = static_cast<std::uint16_t>(here - std::min(distance, kFar));
        }
    }

private:
    static constexpr std::uint16_t kFar = MAX_OFF + 1;
    static_assert(kFar + kPatience + MAX_REF < 1 << 16, "distances must not wrap");

    std::array<std::uint16_t, HSIZE> last_{};
};

/// Where bytes that are equal from start on stop being so, last at the most.
std::size_t matchEnd(const Byte* in, std::size_t start, std::size_t last, std::size_t distance) {
    std::size_t end = lzfExtended(in, start, last, distance);
    while (end < last && in[end] == in[end - distance]) ++end;
    return end;
}

/// Whether the three bytes are those that lie the distance before, which is within reach. One test
/// in all, since neither is easy to predict.
bool isMatch(std::uint32_t bytes, std::uint32_t before, std::size_t distance) {
    return ((bytes ^ before) << 8 | std::uint32_t(distance - 1 >= MAX_OFF)) == 0;
}

/// Bytes of the chunk that starts with the control byte.
std::size_t chunkBytes(std::size_t control) {
    if (control < MAX_LIT) return control + 2;
    return control >> 5 == 7 ? 3 : 2;
}

}  // namespace

std::size_t lzfCompress(const Byte* in, std::size_t inLen, Byte* out, std::size_t outLen) {
    PositionTable table;
    ChunkWriter writer(out, outLen);
    std::size_t literals = 0;  // where the pending literal run starts
    std::size_t ip = 0;
    // A reference is looked for while at least 4 bytes remain.
    const std::size_t last = inLen - std::min(inLen, kMinMatch);
    std::size_t pause = std::min(last, PositionTable::kPatience);
    for (;;) {
        if (ip >= pause) {
            if (ip >= last) break;
            table.forgetFar(ip);
            pause = std::min(last, ip + PositionTable::kPatience);
        }
        const std::uint32_t bytes = load4(in + ip);
        const std::size_t distance = table.exchange(bytes, ip);
        if (!isMatch(bytes, load4(in + ip - distance), distance)) {
            ++ip;
            continue;
        }
        const std::size_t end =
            matchEnd(in, ip, std::min<std::size_t>(inLen, ip + MAX_REF), distance);
        if (!writer.write(in + literals, ip - literals, inLen - ip, end - ip, distance)) return 0;
        ip = end;
        literals = ip;
        if (ip >= last) break;
        // The last two sequences inside the match are remembered; the others would cost more time
        // than they save bytes.
        table.exchange(load4(in + ip - 2), ip - 2);
        table.exchange(load4(in + ip - 1), ip - 1);
    }
    if (!writer.literals(in + literals, inLen - literals)) return 0;
    return writer.written();
}

LzfResult lzfDecompress(const Byte* in, std::size_t inLen, Byte* out, std::size_t outLen) {
    const LzfStep step = lzfDecodeStep(in, inLen, out, 0, outLen);
    return {step.end, step.produced + step.partial};
}

LzfResult lzfDecompressTrusted(const Byte* in, std::size_t inLen, Byte* out, std::size_t outLen) {
    const LzfStep step = lzfDecodeStep(in, std::max<std::size_t>(inLen, 1), out, 0, outLen);
    if (step.end != LzfEnd::Cut) return {step.end, step.produced};
    const Byte* last = in + step.consumed;
    const LzfStep end = lzfDecodeStep(last, chunkBytes(*last), out, step.produced, outLen);
    return {end.end, step.produced + end.produced};
}

}  // namespace zyr
