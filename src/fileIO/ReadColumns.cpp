#include "fileIO/ReadColumns.h"

#include <algorithm>

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

/// A run is short enough that what is made of it stays in the nearest cache.
constexpr std::size_t kMostInRun = 1024;

/// Takes a column off the body. False when the body ended before it.
template <class Take>
bool readColumn(LzfReader& body, const ReadColumn& column, Take take) {
    const std::uint64_t mostBytes =
        column.stride * std::min<std::uint64_t>(kMostInRun, column.elements);
    const auto wanted =
        static_cast<std::size_t>(std::min<std::uint64_t>(mostBytes, LzfReader::kMostPeeked));
    for (std::uint64_t i = 0; i < column.elements;) {
        const std::size_t waiting = body.peek(wanted);
        // Of an element that does not wait as a whole, the value may.
        const std::uint64_t count =
            std::min({waiting / column.stride, column.elements - i, std::uint64_t(kMostInRun)});
        const bool hasValue = count > 0 || waiting >= static_cast<std::size_t>(column.size);
        if (!hasValue) return false;
        const auto taken = static_cast<std::size_t>(std::max<std::uint64_t>(count, 1));
        take(ReadRun{body.data(), column.stride, column.size, i, taken});
        body.skip(taken * column.stride);
        i += taken;
    }
    return true;
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
    std::array<std::uint32_t, 4> words;
    const std::size_t number = channelWords + 2;
    const std::size_t read = std::fread(words.data(), sizeof words[0], number, file);
    Preamble preamble;
    for (std::size_t i = 0; i < std::min(read, channelWords); ++i) preamble.channels[i] = words[i];
    // The last word, the body's size, is not consulted: the columns tell it.
    preamble.isCut = read < number;
    if (!preamble.isCut) preamble.streamSize = words[channelWords];
    // Behind a read that failed the file is over, even if the disk would answer again.
    if (preamble.isCut) fseeko(file, 0, SEEK_END);
    return preamble;
}

LzfReader openBody(std::FILE* file, const ReadLayout& layout, const Preamble& preamble) {
    constexpr std::uint32_t kAny = 1;
    return LzfReader(file, preamble.isCut ? kAny : preamble.streamSize, layout.bodySize);
}

bool isBacked(LzfReader& body, const ReadLayout& layout, std::uint64_t elementBytes) {
    return isAlwaysAllowed(std::max(layout.bodySize, elementBytes)) || body.isBacked();
}

bool readColumns(LzfReader& body, const ReadLayout& layout,
                 const std::vector<ColumnTaker>& takers) {
    bool isThere = true;
    for (std::size_t i = 0; i < layout.columns.size() && isThere; ++i) {
        const ReadColumn& column = layout.columns[i];
        const auto takes = [i](const ColumnTaker& taker) {
            return static_cast<std::size_t>(taker.column) == i;
        };
        if (std::none_of(takers.begin(), takers.end(), takes)) {
            body.skip(column.elements * column.stride);
            continue;
        }
        isThere = readColumn(body, column, [&](const ReadRun& run) {
            for (const ColumnTaker& taker : takers)
                if (takes(taker)) taker.take(run);
        });
    }
    return body.finish();
}

}  // namespace zyr
