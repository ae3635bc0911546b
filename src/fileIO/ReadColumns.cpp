#include "fileIO/ReadColumns.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <opencv2/core.hpp>

#include "Zyr3DIntArray.h"
#include "ZyrVector3dArray.h"
#include "fileIO/ByteCursor.h"
#include "fileIO/ColorWords.h"
#include "fileIO/File.h"

namespace zyr {
namespace {

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
void readComponent(const ReadBody& body, const ReadColumn& column, bool keepNaN, std::size_t k,
                   ZyrVector3dArray& vectors) {
    // A list that shares the store may have given it another length.
    const std::uint64_t present =
        std::min(valuesPresent(column, body.present), static_cast<std::uint64_t>(vectors.Length()));
    double* components = vectors.Data();
    for (std::uint64_t i = 0; i < present; ++i) {
        const auto value = static_cast<double>(valueAt<T>(body, column, i));
        if (keepNaN || !std::isnan(value)) components[3 * i + k] = value;
    }
}

bool isInGroup(std::int32_t first, std::int32_t columns, std::int32_t i) {
    return first >= 0 && i >= first && i < first + columns;
}

bool isFaceField(const PcdHeader& h, std::int32_t i) {
    if (isInGroup(h.x, 3, i) || isInGroup(h.nx, 3, i) || isInGroup(h.rgb, 1, i)) return false;
    return (h.fa >= 0 && i >= h.fa) || (h.fnx >= 0 && i >= h.fnx) || (h.frgb >= 0 && i >= h.frgb);
}

}  // namespace

std::optional<ReadLayout> readLayout(const PcdHeader& header, FieldsOf kind) {
    ReadLayout layout;
    for (std::int32_t i = 0; i < header.numFields; ++i) {
        const PcdField& field = header.fields[i];
        const bool isFace = kind == FieldsOf::pointsAndFaces && isFaceField(header, i);
        ReadColumn column{layout.bodySize, 0, field.size, field.count, 0};
        column.elements = static_cast<std::uint64_t>(isFace ? header.faces : header.points);
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

bool holdTriangles(const ReadLayout& layout, std::int32_t first) {
    return holdsWords(layout, first) && holdsWords(layout, first + 1) &&
           holdsWords(layout, first + 2);
}

bool holdsWords(const ReadLayout& layout, std::int32_t column) {
    return columnAt(layout, column).size == 4 && columnAt(layout, column).count >= 1;
}

Preamble readPreamble(std::FILE* file, std::size_t channelWords) {
    const std::vector<Byte> bytes = readUpTo(file, (channelWords + 2) * sizeof(std::uint32_t));
    ByteCursor cursor(bytes.data(), bytes.size());
    Preamble preamble;
    std::uint32_t word;
    for (std::size_t i = 0; i < channelWords; ++i)
        if (cursor.take(word)) preamble.channels[i] = word;
    // The last word, the body's size, is not consulted: the columns tell it.
    preamble.isCut = !cursor.take(preamble.streamSize) || !cursor.take(word);
    return preamble;
}

std::optional<ReadBody> readBody(std::FILE* file, const ReadLayout& layout,
                                 const Preamble& preamble, std::uint64_t elementBytes) {
    const std::vector<Byte> stream =
        preamble.isCut ? std::vector<Byte>() : readUpTo(file, preamble.streamSize);
    const bool isCut = preamble.isCut || stream.size() < preamble.streamSize;
    const std::uint64_t allocated = std::max(layout.bodySize, elementBytes);
    if (!isBacked(allocated, layout.bodySize, stream.size() * kLzfMaxExpansion)) return {};
    Buffer bytes(layout.bodySize);
    const LzfResult result =
        lzfDecompress(stream.data(), stream.size(), bytes.data(), bytes.size());
    const bool isExact = result.end == LzfEnd::Whole && result.produced == layout.bodySize;
    const bool isPart = result.end == LzfEnd::Whole || result.end == LzfEnd::Cut;
    if (!(isCut ? isPart : isExact)) return {};
    return ReadBody{std::move(bytes), result.produced};
}

void setOrigins(ZyrVector3dArray& vectors, int n) {
    vectors.SetSize(n);
    std::fill_n(vectors.Data(), static_cast<std::size_t>(n) * 3, 0.0);
}

void readVectors(const ReadBody& body, const ReadLayout& layout, std::int32_t first, bool keepNaN,
                 ZyrVector3dArray& vectors) {
    for (std::size_t k = 0; k < 3; ++k) {
        const ReadColumn& column = columnAt(layout, first + static_cast<std::int32_t>(k));
        column.size == 8 ? readComponent<double>(body, column, keepNaN, k, vectors)
                         : readComponent<float>(body, column, keepNaN, k, vectors);
    }
}

void readTriangles(const ReadBody& body, const ReadLayout& layout, std::int32_t first,
                   Zyr3DIntArray& triangles) {
    int* corners = triangles.Data();
    for (std::size_t k = 0; k < 3; ++k) {
        const ReadColumn& column = columnAt(layout, first + static_cast<std::int32_t>(k));
        const std::uint64_t present = valuesPresent(column, body.present);
        for (std::uint64_t i = 0; i < present; ++i)
            corners[3 * i + k] = valueAt<int>(body, column, i);
    }
}

void readColors(const ReadBody& body, const ReadLayout& layout, std::int32_t column,
                std::optional<std::uint32_t> channels, cv::Mat& colors) {
    if (!channels) return;
    const ReadColumn& words = columnAt(layout, column);
    setBlack(colors, static_cast<int>(words.elements), static_cast<int>(*channels));
    const std::uint64_t present = valuesPresent(words, body.present);
    for (std::uint64_t i = 0; i < present; ++i)
        unpackColor(valueAt<std::uint32_t>(body, words, i), colors, i);
}

}  // namespace zyr
