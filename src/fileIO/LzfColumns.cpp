#include "fileIO/LzfColumns.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>

#include "fileIO/LzfChunks.h"
#include "fileIO/LzfEqual.h"

// Neighbouring values of a column share their upper bytes, doubles born as floats their lower ones
// too, and decimals their lower ones with a value somewhere before. So a reference runs from the
// upper bytes of a value into the lower bytes of the next, and is looked for once a value. First,
// for a part of the block, each value's distance: tables hold where the value's upper bits, its
// lower half, all of it, or it and the next value were last; what returns whole goes before the
// candidate that differs least, all without a branch. All values of such a part are remembered,
// those inside references too, and taken from up to 8192 bytes back, 8192 included. Then the
// references are written. What tables hold may be stale; candidates are compared with the data, so
// that this costs bytes only. No data take more than lzfWorstCase: a reference replaces 3 literals
// or more by 2 bytes and the control byte of the next run.

namespace zyr {
namespace {

constexpr std::size_t kPart = 256;

template <class T>
class ColumnEncoder {
public:
    ColumnEncoder(const Byte* in, std::size_t size, Byte* out)
        : in_(in), size_(size), count_(size / sizeof(T)), chunks_(in, size, out) {}

    std::size_t encode(bool isFloat) {
        const bool isRepeating = isFloat && repeatsInPairs();
        std::size_t barren = 0;  // values in a row without a reference
        for (std::size_t first = 1; first < count_; first += kPart + passed(barren)) {
            const std::size_t last = std::min(count_, first + kPart);
            const std::size_t place = chunks_.place();
            if (!encodeConstant(first, last)) {
                if (isFloat)
                    isRepeating ? findByUpper<true>(first, last) : findByUpper<false>(first, last);
                else
                    kWidth == 4 ? findWhole(first, last) : findByLower(first, last);
                encodePart(first, last, isFloat);
            }
            barren = place == chunks_.place() ? barren + kPart : 0;
        }
        return chunks_.finish();
    }

private:
    static constexpr std::size_t kWidth = sizeof(T);
    static constexpr unsigned kAll = 8 * sizeof(T);
    static constexpr std::size_t kReach = 8192 / sizeof(T);
    static constexpr unsigned kBits = 12;
    static constexpr std::uint64_t kMix = 0x9E3779B97F4A7C15;
    using Places = std::array<std::uint16_t, 1 << kBits>;

    /// Values to pass unseen: none before nothing was found in all that is in reach.
    static std::size_t passed(std::size_t barren) { return barren / kReach * kPart; }

    T value(std::size_t i) const {
        T result;
        std::memcpy(&result, in_ + i * kWidth, kWidth);
        return lzfLittle(result);
    }

    static std::size_t key(std::uint64_t bits) { return (bits * kMix) >> (64 - kBits); }

    /// The distance to the key's last value, which becomes value i.
    static std::size_t exchange(Places& places, std::uint64_t bits, std::size_t i) {
        std::uint16_t& place = places[key(bits)];
        const std::size_t distance = i - place;
        place = static_cast<std::uint16_t>(i);
        return distance;
    }

    /// All bits where a distance is out of reach.
    static std::uint64_t isFar(std::size_t distance) {
        return -std::uint64_t(distance - 1 >= kReach);
    }

    /// How far back the value and the one behind it were last, both; 0 if they were not.
    std::size_t pairDistance(std::size_t i) {
        const std::size_t j = std::min(i + 1, count_ - 1);
        const std::size_t distance = exchange(pairs_, value(i) * kMix + value(j), i);
        const std::uint64_t differs =
            (value(i) ^ value(i - distance)) | (value(j) ^ value(j - distance));
        return (differs | isFar(distance)) == 0 ? distance : 0;
    }

    /// By a sample: whether values return two at a time that are not just those before.
    bool repeatsInPairs() {
        const std::size_t first = count_ / 2;
        const std::size_t last = std::min(count_ - 1, first + 1024);
        std::size_t often = 0;
        for (std::size_t i = first + 1; i < last; ++i)
            often += std::size_t(pairDistance(i) > 0 && value(i) != value(i - 1));
        return often * 16 > last - first;
    }

    /// A part whose values are all the one before takes a few references.
    bool encodeConstant(std::size_t first, std::size_t last) {
        const Byte* from = in_ + first * kWidth;
        if (std::memcmp(from, from - kWidth, (last - first) * kWidth) != 0) return false;
        std::size_t start = std::max(first * kWidth, chunks_.place());
        for (const std::size_t end = last * kWidth; start + 3 <= end; start = chunks_.place())
            chunks_.reference(start, std::min(end, start + kLzfMaxReference), kWidth);
        return true;
    }

    /// Orders candidates by how much they differ; the lowest bits are the distance. What is out of
    /// reach comes last.
    std::uint64_t rank(std::size_t i, std::size_t distance) const {
        constexpr std::uint64_t kDistance = 2047;
        return ((value(i) ^ value(i - distance)) & ~kDistance) | distance | isFar(distance);
    }

    template <bool isRepeating>
    void findByUpper(std::size_t first, std::size_t last) {
        for (std::size_t i = first; i < last; ++i) {
            const std::uint64_t bits = value(i);
            std::uint64_t best = rank(i, 1);
            best = std::min(best, rank(i, exchange(coarse_, bits >> 48, i)));
            best = std::min(best, rank(i, exchange(fine_, bits >> 40, i)));
            const std::size_t pair = isRepeating ? pairDistance(i) : 0;
            best = pair > 0 ? pair : best;
            distances_[i - first] = static_cast<std::uint16_t>(best & 2047);
        }
    }

    /// The next value's distance, for its lower half or for all of it.
    void findByLower(std::size_t first, std::size_t last) {
        for (std::size_t k = first; k < last; ++k) {
            const std::size_t i = std::min(k + 1, count_ - 1);
            const std::uint64_t bits = value(i);
            const std::size_t lower = exchange(coarse_, bits << 32, i);
            const std::size_t whole = exchange(fine_, bits, i);
            const std::uint64_t differs = value(i - whole) ^ bits;
            keep(first, k, (differs | isFar(whole)) == 0 ? whole : lower);
        }
    }

    /// The next value's distance for all of it.
    void findWhole(std::size_t first, std::size_t last) {
        for (std::size_t k = first; k < last; ++k) {
            const std::size_t i = std::min(k + 1, count_ - 1);
            keep(first, k, exchange(fine_, value(i), i));
        }
    }

    /// Value k's distance: the next value's, or 1 where that does not lie behind the start.
    void keep(std::size_t first, std::size_t k, std::size_t distance) {
        const bool isNear = distance - 1 < std::min(kReach, k);
        distances_[k - first] = static_cast<std::uint16_t>(isNear ? distance : 1);
    }

    /// References from the upper bytes of values on. A double's next index hangs on a reference's
    /// end only where that covers whole values, so that the processor need not wait for it.
    void encodePart(std::size_t first, std::size_t last, bool isFloat) {
        LzfChunks chunks = chunks_;
        std::size_t i = std::max(first, chunks.place() / kWidth);
        // Behind the last value nothing is left to compare 8 bytes with.
        last = std::min(last, (size_ - 8) / kWidth);
        while (i < last) {
            const std::size_t d = distances_[i - first];
            const std::size_t middle = (i + 1) * kWidth;
            const Byte* const lower = in_ + middle;
            const std::size_t distance = d * kWidth;
            const std::size_t upper =
                lzfEqualLast(std::uint64_t(value(i) ^ value(i - d)) << (64 - kAll));
            const std::size_t start = std::max(middle - std::min(upper, kWidth), chunks.place());
            std::size_t end = middle + lzfEqualFirst(lower, distance);
            std::size_t next = kWidth == 4 ? end / kWidth : i + 1;
            if (end == middle + 8) {
                end = lzfExtended(in_, end, std::min(size_, start + 256), distance);
                // Behind a reference that ends with a value the next may start with one.
                next = (isFloat || kWidth == 4 ? end : end - 1) / kWidth;
            }
            const std::size_t length = end - start;
            const bool isTaken = length + std::size_t(start == chunks.place()) >= 4;
            if (kWidth == 4)
                chunks.referenceIf(isTaken, start, end, distance);
            else if (isTaken)
                chunks.reference(start, end, distance);
            i = next;
        }
        chunks_ = chunks;
    }

    const Byte* in_;
    std::size_t size_;
    std::size_t count_;
    LzfChunks chunks_;
    Places coarse_{};  ///< by a few upper bits, or by the lower half
    Places fine_{};    ///< by more upper bits, or by all
    Places pairs_{};   ///< by a value and the next
    std::array<std::uint16_t, kPart> distances_;
};

}  // namespace

std::size_t lzfEncodeFloatBorn(const Byte* in, std::size_t size, Byte* out) {
    return ColumnEncoder<std::uint64_t>(in, size, out).encode(true);
}

std::size_t lzfEncodeDoubles(const Byte* in, std::size_t size, Byte* out) {
    return ColumnEncoder<std::uint64_t>(in, size, out).encode(false);
}

std::size_t lzfEncodeIntegers(const Byte* in, std::size_t size, Byte* out) {
    return ColumnEncoder<std::uint32_t>(in, size, out).encode(false);
}

}  // namespace zyr
