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
// for a part of the block, each value's distance: tables hold where the value's upper bits (lower
// bits) were last, and the candidate that differs least wins, without a branch. Then the references
// are written. What tables hold may be stale; candidates are compared with the data, so that this
// costs bytes only. No data take more than lzfWorstCase: a reference replaces 3 literals or more by
// 2 bytes and the control byte of the next run.

namespace zyr {
namespace {

constexpr std::size_t kPart = 256;

template <class T>
class ColumnEncoder {
public:
    ColumnEncoder(const Byte* in, std::size_t size, Byte* out)
        : in_(in), size_(size), count_(size / sizeof(T)), chunks_(in, size, out) {}

    std::size_t encode(bool isFloat) {
        const bool isRepeating = isFloat && repeatsOften();
        for (std::size_t first = 1; first < count_; first += kPart) {
            const std::size_t last = std::min(count_, first + kPart);
            if (encodeConstant(first, last)) continue;
            if (!isFloat)
                findByLower(first, last);
            else
                isRepeating ? findByUpper<true>(first, last) : findByUpper<false>(first, last);
            encodePart(first, last, isFloat);
        }
        return chunks_.finish();
    }

private:
    static constexpr std::size_t kWidth = sizeof(T);
    static constexpr unsigned kAll = 8 * sizeof(T);
    static constexpr std::size_t kReach = 8192 / sizeof(T);
    static constexpr unsigned kBits = 11;
    using Places = std::array<std::uint16_t, 1 << kBits>;

    T value(std::size_t i) const {
        T result;
        std::memcpy(&result, in_ + i * kWidth, kWidth);
        return lzfLittle(result);
    }

    static std::size_t key(std::uint64_t bits) {
        return (bits * 0x9E3779B97F4A7C15) >> (64 - kBits);
    }

    /// The distance to the key's last value, which becomes value i.
    static std::size_t exchange(Places& places, std::uint64_t bits, std::size_t i) {
        std::uint16_t& place = places[key(bits)];
        const std::size_t distance = i - place;
        place = static_cast<std::uint16_t>(i);
        return distance;
    }

    /// By a sample: whether values return that are not just those before.
    bool repeatsOften() {
        const std::size_t first = count_ / 2;
        const std::size_t last = std::min(count_, first + 1024);
        std::size_t often = 0;
        for (std::size_t i = first + 1; i < last; ++i) {
            const std::size_t distance = exchange(whole_, value(i) >> (kAll - 32), i);
            often += std::size_t(value(i - distance) == value(i) && value(i - 1) != value(i));
        }
        return often * 16 >= last - first;
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
        const std::uint64_t isFar = -std::uint64_t(distance - 1 >= kReach);
        return ((value(i) ^ value(i - distance)) & ~kDistance) | distance | isFar;
    }

    template <bool isRepeating>
    void findByUpper(std::size_t first, std::size_t last) {
        for (std::size_t i = first; i < last; ++i) {
            const std::uint64_t bits = value(i);
            std::uint64_t best = rank(i, 1);
            best = std::min(best, rank(i, exchange(coarse_, bits >> 48, i)));
            best = std::min(best, rank(i, exchange(fine_, bits >> 40, i)));
            if (isRepeating) best = std::min(best, rank(i, exchange(whole_, bits >> 32, i)));
            distances_[i - first] = static_cast<std::uint16_t>(best & 2047);
        }
    }

    /// The next value's distance, for its lower half or for all of it.
    void findByLower(std::size_t first, std::size_t last) {
        for (std::size_t k = first; k < last; ++k) {
            const std::size_t i = std::min(k + 1, count_ - 1);
            const std::uint64_t bits = value(i);
            const std::size_t lower = exchange(coarse_, bits << (64 - kAll / 2), i);
            const std::size_t whole = exchange(whole_, bits, i);
            const std::size_t best = value(i - whole) == bits && whole - 1 < kReach ? whole : lower;
            const bool isNear = best - 1 < std::min(kReach, k);
            distances_[k - first] = static_cast<std::uint16_t>(isNear ? best : 1);
        }
    }

    /// References from the upper bytes of values on. The next index hangs on a reference's end only
    /// where it covers whole values.
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
            if (end == middle + 8)
                end = lzfExtended(in_, end, std::min(size_, start + 256), distance);
            const std::size_t length = end - start;
            const bool isTaken = length + std::size_t(start == chunks.place()) >= 4;
            if (kWidth == 4)
                chunks.referenceIf(isTaken, start, end, distance);
            else if (isTaken)
                chunks.reference(start, end, distance);
            // Behind a reference that ends with a value the next may start with one.
            i = isFloat || kWidth == 4 ? end / kWidth : std::max(i + 1, (end - 1) / kWidth);
        }
        chunks_ = chunks;
    }

    const Byte* in_;
    std::size_t size_;
    std::size_t count_;
    LzfChunks chunks_;
    Places coarse_{};
    Places fine_{};
    Places whole_{};
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
