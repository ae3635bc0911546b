#include "fileIO/WrittenColumns.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <limits>
#include <opencv2/core.hpp>

#include "Zyr3DIntArray.h"
#include "ZyrVector3dArray.h"
#include "fileIO/ColorWords.h"
#include "fileIO/File.h"

namespace zyr {
namespace {

template <std::size_t width>
void copyValues(const Byte* source, std::size_t stride, std::size_t count, Byte* target) {
    for (; count > 0; --count, source += stride, target += width)
        std::memcpy(target, source, width);
}

void copyColors(const Byte* source, int channels, std::size_t count, Byte* target) {
    for (; count > 0; --count, source += channels, target += sizeof(std::uint32_t)) {
        const std::uint32_t word = packColor(source, channels);
        std::memcpy(target, &word, sizeof word);
    }
}

void copyValues(const WrittenColumn& column, std::size_t i, std::size_t count, Byte* target) {
    const Byte* source = column.first + i * column.stride;
    if (column.channels > 0)
        copyColors(source, column.channels, count, target);
    else if (column.width == 8)
        copyValues<8>(source, column.stride, count, target);
    else
        copyValues<4>(source, column.stride, count, target);
}

/// Where in the columns a body's next block starts.
class ColumnCursor {
public:
    explicit ColumnCursor(const WrittenColumns& columns) : columns_(&columns) {}

    /// As many values of one width as there is room for, of as many columns as it takes.
    BlockValues next(Byte* target, std::size_t room) {
        BlockValues block{0, 0};
        for (; column_ < columns_->size(); ++column_, i_ = 0) {
            const WrittenColumn& column = (*columns_)[column_];
            if (block.size > 0 && column.width != block.width) break;
            block.width = column.width;
            const std::size_t count =
                std::min(column.elements - i_, (room - block.size) / column.width);
            copyValues(column, i_, count, target + block.size);
            block.size += count * column.width;
            i_ += count;
            if (i_ < column.elements) break;
        }
        return block;
    }

private:
    const WrittenColumns* columns_;
    std::size_t column_ = 0;
    std::size_t i_ = 0;
};

template <class Text>
std::string line(const char* keyword, const WrittenColumns& columns, Text text) {
    std::string result = keyword;
    for (const WrittenColumn& column : columns) result.append(" ").append(text(column));
    return result + "\n";
}

/// Three columns of values that lie x0 y0 z0 x1 ...
template <class T>
void addTriples(WrittenColumns& columns, const std::array<const char*, 3>& names, char type,
                const T* data, int elements) {
    const auto* first = reinterpret_cast<const Byte*>(data);
    // An empty list has no buffer to step into.
    const std::size_t step = elements > 0 ? sizeof(T) : 0;
    for (std::size_t i = 0; i < 3; ++i)
        columns.push_back({names[i], type, sizeof(T), first + i * step, 3 * sizeof(T),
                           static_cast<std::size_t>(elements)});
}

}  // namespace

void addVectors(WrittenColumns& columns, const char* x, const char* y, const char* z,
                const ZyrVector3dArray& vectors) {
    addTriples(columns, {x, y, z}, 'F', vectors.Data(), vectors.Length());
}

void addTriangles(WrittenColumns& columns, const Zyr3DIntArray& triangles) {
    addTriples(columns, {"fa", "fb", "fc"}, 'U', triangles.Data(), triangles.Length() / 3);
}

void addColors(WrittenColumns& columns, const char* name, const cv::Mat& colors) {
    columns.push_back({name, 'U', sizeof(std::uint32_t), colors.ptr(), colors.elemSize(),
                       static_cast<std::size_t>(colors.cols), colors.channels()});
}

std::string fieldLines(const WrittenColumns& columns) {
    return line("FIELDS", columns, [](const WrittenColumn& c) { return std::string(c.name); }) +
           line("SIZE", columns, [](const WrittenColumn& c) { return std::to_string(c.width); }) +
           line("TYPE", columns, [](const WrittenColumn& c) { return std::string(1, c.type); }) +
           line("COUNT", columns, [](const WrittenColumn&) { return std::string("1"); });
}

std::uint64_t bodySize(const WrittenColumns& columns) {
    std::uint64_t size = 0;
    for (const WrittenColumn& column : columns) size += column.elements * column.width;
    return size;
}

bool fitsSizeWords(const WrittenColumns& columns) {
    return bodySize(columns) <= std::numeric_limits<std::uint32_t>::max();
}

BlockSource blocksOf(const WrittenColumns& columns) {
    return [cursor = ColumnCursor(columns)](Byte* target, std::size_t room) mutable {
        return cursor.next(target, room);
    };
}

FileWritten writeFile(const char* path, const std::string& header,
                      const std::vector<std::uint32_t>& channels, const WrittenColumns& columns) {
    if (!fitsSizeWords(columns)) return FileWritten::refused;
    const std::uint64_t size = bodySize(columns);
    StreamWriter body(blocksOf(columns), size, std::numeric_limits<std::uint32_t>::max());
    if (!body.fits()) return FileWritten::refused;
    File file = openFile(path, "wb");
    if (file == nullptr) return FileWritten::refused;
    body.prepareFor(file.get());
    std::vector<std::uint32_t> words = channels;
    words.push_back(body.sizeWord());
    words.push_back(static_cast<std::uint32_t>(size));
    const auto sizeWordAt =
        static_cast<off_t>(header.size() + channels.size() * sizeof(std::uint32_t));
    const bool isWritten = writeAll(file.get(), header.data(), header.size()) &&
                           writeAll(file.get(), words.data(), words.size() * sizeof words[0]) &&
                           body.write(file.get(), sizeWordAt);
    return closeFile(file) && isWritten ? FileWritten::whole : FileWritten::partly;
}

}  // namespace zyr
