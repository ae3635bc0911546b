#include "fileIO/ReadColumns.h"

#include <cmath>
#include <cstring>
#include <opencv2/core.hpp>

#include "ZyrVector3dArray.h"
#include "fileIO/ColorWords.h"
#include "fileIO/File.h"

namespace zyr {
namespace {

/// The longest back-reference gives 264 bytes for 3.
constexpr std::uint64_t kMaxExpansion = 88;

const ReadColumn& columnAt(const ReadLayout& layout, std::int32_t i) {
    return layout.columns[static_cast<std::size_t>(i)];
}

bool addProduct(std::uint64_t a, std::uint64_t b, std::uint64_t& sum) {
    std::uint64_t product;
    return !__builtin_mul_overflow(a, b, &product) && !__builtin_add_overflow(sum, product, &sum);
}

/// The column's values whose bytes are all there.
std::uint64_t valuesPresent(const ReadColumn& column, std::uint64_t present) {
    const std::uint64_t firstEnd = column.offset + static_cast<std::uint64_t>(column.size);
    if (column.elements == 0 || present < firstEnd) return 0;
    return std::min(column.elements, (present - firstEnd) / column.stride + 1);
}

template <class T>
T valueAt(const ReadBody& body, const ReadColumn& column, std::uint64_t i) {
    T value;
    std::memcpy(&value, body.bytes.data() + column.offset + i * column.stride, sizeof(T));
    return value;
}

template <class T>
void readComponent(const ReadBody& body, const ReadColumn& column, bool keepNaN,
                   double* component) {
    const std::uint64_t present = valuesPresent(column, body.present);
    for (std::uint64_t i = 0; i < present; ++i, component += 3) {
        const auto value = static_cast<double>(valueAt<T>(body, column, i));
        if (keepNaN || !std::isnan(value)) *component = value;
    }
}

}  // namespace

std::optional<ReadLayout> readLayout(const PcdHeader& header, std::int32_t firstFaceField) {
    ReadLayout layout;
    for (std::int32_t i = 0; i < header.numFields; ++i) {
        const PcdField& field = header.fields[i];
        ReadColumn column{layout.bodySize, 0, field.size, field.count, 0};
        column.elements =
            static_cast<std::uint64_t>(i < firstFaceField ? header.points : header.faces);
        column.stride =
            static_cast<std::uint64_t>(field.size) * static_cast<std::uint64_t>(field.count);
        if (!addProduct(column.stride, column.elements, layout.bodySize)) return {};
        layout.columns.push_back(column);
    }
    return layout;
}

bool holdVectors(const ReadLayout& layout, std::int32_t first) {
    for (std::int32_t i = first; i < first + 3; ++i) {
        const ReadColumn& column = columnAt(layout, i);
        if ((column.size != 4 && column.size != 8) || column.count < 1) return false;
    }
    return true;
}

bool holdsWords(const ReadLayout& layout, std::int32_t column) {
    return columnAt(layout, column).size == 4 && columnAt(layout, column).count >= 1;
}

std::optional<ReadBody> readBody(std::FILE* file, const ReadLayout& layout,
                                 std::uint32_t streamSize, std::uint64_t elementBytes) {
    const std::vector<Byte> stream = readUpTo(file, streamSize);
    const bool isCut = stream.size() < streamSize;
    const std::uint64_t allocated = std::max(layout.bodySize, elementBytes);
    if (!isBacked(allocated, layout.bodySize, stream.size() * kMaxExpansion)) return {};
    Buffer bytes(layout.bodySize);
    const LzfResult result =
        lzfDecompress(stream.data(), stream.size(), bytes.data(), bytes.size());
    const bool isExact = result.end == LzfEnd::Whole && result.produced == layout.bodySize;
    const bool isPart = result.end == LzfEnd::Whole || result.end == LzfEnd::Cut;
    if (!(isCut ? isPart : isExact)) return {};
    return ReadBody{std::move(bytes), result.produced};
}

void readVectors(const ReadBody& body, const ReadLayout& layout, std::int32_t first, bool keepNaN,
                 ZyrVector3dArray& vectors) {
    for (std::int32_t i = 0; i < 3; ++i) {
        const ReadColumn& column = columnAt(layout, first + i);
        if (column.elements == 0) continue;
        double* component = vectors.Data() + i;
        column.size == 8 ? readComponent<double>(body, column, keepNaN, component)
                         : readComponent<float>(body, column, keepNaN, component);
    }
}

void readColors(const ReadBody& body, const ReadLayout& layout, std::int32_t column,
                cv::Mat& colors) {
    const ReadColumn& words = columnAt(layout, column);
    const std::uint64_t present = valuesPresent(words, body.present);
    for (std::uint64_t i = 0; i < present; ++i)
        unpackColor(valueAt<std::uint32_t>(body, words, i), colors, i);
}

}  // namespace zyr
