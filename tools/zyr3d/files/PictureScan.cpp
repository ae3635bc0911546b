#include "files/PictureScan.h"

#include <algorithm>
#include <cstdlib>
#include <string_view>

#include "Table.h"

namespace zyr {
namespace {

using Bytes = std::vector<unsigned char>;
using Found = std::optional<PictureFault>;

std::uint64_t bigEndian(const Bytes& bytes, std::size_t at, std::size_t size) {
    std::uint64_t value = 0;
    for (std::size_t i = 0; i < size; ++i) value = value << 8 | bytes[at + i];
    return value;
}

std::uint64_t littleEndian(const Bytes& bytes, std::size_t at, std::size_t size) {
    std::uint64_t value = 0;
    for (std::size_t i = size; i-- > 0;) value = value << 8 | bytes[at + i];
    return value;
}

bool startsWith(const Bytes& bytes, std::string_view start) {
    if (bytes.size() < start.size()) return false;
    for (std::size_t i = 0; i < start.size(); ++i)
        if (bytes[i] != static_cast<unsigned char>(start[i])) return false;
    return true;
}

bool isPng(const Bytes& bytes) {
    return startsWith(bytes, "\x89PNG\r\n\x1A\n");
}

bool isJpeg(const Bytes& bytes) {
    return startsWith(bytes, "\xFF\xD8");
}

bool isBmp(const Bytes& bytes) {
    return startsWith(bytes, "BM");
}

/// With directories of 32 or, in a file with '+', of 64 bits.
bool isTiff(const Bytes& bytes) {
    using std::string_view_literals::operator""sv;
    return startsWith(bytes, "II*\0"sv) || startsWith(bytes, "MM\0*"sv) ||
           startsWith(bytes, "II+\0"sv) || startsWith(bytes, "MM\0+"sv);
}

PictureFault cutShort(const Bytes& bytes, const std::string& why) {
    return {bytes.size(), "cut short: " + why};
}

Found behindEnd(const Bytes& bytes, std::uint64_t end) {
    if (bytes.size() <= end) return {};
    return PictureFault{end, counted(bytes.size() - end, "byte", "bytes") + " behind the end"};
}

/// The checksum of a PNG's chunks.
std::uint32_t crc(const Bytes& bytes, std::size_t at, std::size_t size) {
    std::uint32_t sum = 0xFFFFFFFF;
    for (std::size_t i = 0; i < size; ++i) {
        sum ^= bytes[at + i];
        for (int bit = 0; bit < 8; ++bit) sum = sum >> 1 ^ ((sum & 1) != 0 ? 0xEDB88320 : 0);
    }
    return ~sum;
}

Found scanPng(const Bytes& bytes) {
    for (std::size_t at = 8;;) {
        const std::size_t left = bytes.size() - at;
        if (left < 12) return cutShort(bytes, "no chunk IEND");
        const std::uint64_t size = bigEndian(bytes, at, 4);
        if (size > left - 12) return cutShort(bytes, "inside a chunk");
        if (crc(bytes, at + 4, size + 4) != bigEndian(bytes, at + 8 + size, 4))
            return PictureFault{at, "a chunk whose checksum is wrong"};
        const bool isLast = bigEndian(bytes, at + 4, 4) == 0x49454E44;  // IEND
        at += 12 + size;
        if (isLast) return behindEnd(bytes, at);
    }
}

/// Behind the end mark. Segments are stepped over, as pictures inside them have marks of their own.
std::optional<std::uint64_t> endOfJpeg(const Bytes& bytes) {
    for (std::uint64_t at = 2; at + 1 < bytes.size();) {
        const unsigned mark = bytes[at + 1];
        const bool isFill = bytes[at] != 0xFF || mark == 0xFF;
        const bool isAlone = mark <= 0x01 || (mark >= 0xD0 && mark <= 0xD7);
        if (isFill)
            ++at;
        else if (mark == 0xD9)
            return at + 2;
        else if (isAlone)
            at += 2;
        else if (at + 4 > bytes.size())
            return {};
        else
            at += 2 + bigEndian(bytes, at + 2, 2);
    }
    return {};
}

Found scanJpeg(const Bytes& bytes) {
    const auto end = endOfJpeg(bytes);
    return end ? behindEnd(bytes, *end) : cutShort(bytes, "no end mark");
}

/// The end is where the header says, or the pixels do: some writers leave the size out.
Found scanBmp(const Bytes& bytes) {
    if (bytes.size() < 54) return cutShort(bytes, "no whole header");
    const std::uint64_t said = littleEndian(bytes, 2, 4), pixels = littleEndian(bytes, 10, 4);
    const auto width = static_cast<std::int32_t>(littleEndian(bytes, 18, 4));
    const auto height = static_cast<std::int32_t>(littleEndian(bytes, 22, 4));
    const std::uint64_t bits = littleEndian(bytes, 28, 2), packing = littleEndian(bytes, 30, 4);
    const bool isPlain = packing == 0 || packing == 3;
    const std::uint64_t row =
        (static_cast<std::uint64_t>(std::abs(std::int64_t{width})) * bits + 31) / 32 * 4;
    const std::uint64_t end =
        isPlain ? pixels + row * static_cast<std::uint64_t>(std::abs(std::int64_t{height})) : said;
    if (bytes.size() < end) return cutShort(bytes, "its pixels end at byte " + std::to_string(end));
    return behindEnd(bytes, std::max(said, end));
}

Found scanTiff(const Bytes& bytes) {
    const bool isBigEndian = bytes[0] == 'M', isWide = bytes[isBigEndian ? 3 : 2] == '+';
    const std::size_t size = isWide ? 8 : 4;
    if (bytes.size() < 2 * size) return cutShort(bytes, "no whole header");
    const std::uint64_t at =
        isBigEndian ? bigEndian(bytes, size, size) : littleEndian(bytes, size, size);
    if (at >= bytes.size())
        return cutShort(bytes, "its directory is at byte " + std::to_string(at));
    return {};
}

}  // namespace

std::optional<PictureFault> scanPicture(const Bytes& bytes) {
    if (isPng(bytes)) return scanPng(bytes);
    if (isJpeg(bytes)) return scanJpeg(bytes);
    if (isBmp(bytes)) return scanBmp(bytes);
    if (isTiff(bytes)) return scanTiff(bytes);
    return PictureFault{0, "not a picture that can be read"};
}

std::optional<PictureFault> scanUntold(const Bytes& bytes) {
    const bool isTold = isPng(bytes) || isBmp(bytes) || isTiff(bytes);
    return isTold || (isJpeg(bytes) && endOfJpeg(bytes)) ? Found() : scanPicture(bytes);
}

}  // namespace zyr
