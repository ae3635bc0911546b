#include "fileIO/LzfCodec.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>

#include "LZF.h"
#include "fileIO/LzfEqual.h"

namespace zyr {
namespace {

// The rolling hash of three bytes; those that have left it do not reach IDX's bits.
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

    /// The bytes of which behind more can be read.
    bool literals(const Byte* first, std::size_t count, std::size_t behind) {
        if (count <= 16 && count + behind >= 16 && reserve(17)) {
            out_[written_] = static_cast<Byte>(count - 1);
            std::memcpy(out_ + written_ + 1, first, 16);
            written_ += count + std::size_t(count != 0);
            return true;
        }
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
/// reads as position 0. Both are harmless, since candidates are compared byte by byte and lie in
/// the input.
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

/// The first three bytes are equal.
std::size_t matchLength(const Byte* here, std::size_t distance, std::size_t limit) {
    std::size_t length = 3;
    while (length + 8 <= limit) {
        const std::size_t more = lzfEqualFirst(here + length, distance);
        length += more;
        if (more < 8) return length;
    }
    while (length < limit && here[length] == (here - distance)[length]) ++length;
    return length;
}

/// Whether the three bytes are those that lie the distance before, which is within reach. One test
/// in all, since neither is easy to predict; four bytes can be read.
bool isMatch(const Byte* here, std::size_t distance) {
    std::uint32_t a;
    std::uint32_t b;
    std::memcpy(&a, here, 4);
    std::memcpy(&b, here - distance, 4);
    return (lzfLittle(a ^ b) << 8 | std::uint32_t(distance - 1 >= MAX_OFF)) == 0;
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
    std::uint32_t hash = inLen > kMinMatch ? FRST(in, 0) : 0;
    while (inLen - ip >= kMinMatch + 1) {
        hash = NEXT(hash, in, ip);
        const std::size_t distance = table.exchange(hash, ip);
        if (!isMatch(in + ip, distance)) {
            ++ip;
            continue;
        }
        const std::size_t limit = std::min<std::size_t>(inLen - ip, MAX_REF);
        const std::size_t length = matchLength(in + ip, distance, limit);
        if (!writer.literals(in + literals, ip - literals, inLen - ip) ||
            !writer.reference(length, distance))
            return 0;
        ip += length;
        literals = ip;
        // The last two sequences inside the match are remembered; the others would cost more time
        // than they save bytes.
        for (std::size_t p = ip - 2; p < ip && inLen - p >= kMinMatch; ++p)
            table.exchange(NEXT(FRST(in, p), in, p), p);
        if (inLen - ip >= kMinMatch) hash = FRST(in, ip);
    }
    if (!writer.literals(in + literals, inLen - literals, 0)) return 0;
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
