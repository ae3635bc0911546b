#include "fileIO/WrittenColumns.h"

#include <array>
#include <cstring>
#include <limits>

#include "Zyr3DIntArray.h"
#include "ZyrVector3dArray.h"

namespace zyr {
namespace {

template <std::size_t width>
void copyColumn(const WrittenColumn& column, Byte* target) {
    for (std::size_t i = 0; i < column.elements; ++i)
        std::memcpy(target + i * width, column.first + i * column.stride, width);
}

Buffer joinColumns(const WrittenColumns& columns) {
    Buffer body(bodySize(columns));
    Byte* target = body.data();
    for (const WrittenColumn& column : columns) {
        column.width == 8 ? copyColumn<8>(column, target) : copyColumn<4>(column, target);
        target += column.elements * column.width;
    }
    return body;
}

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

void addWords(WrittenColumns& columns, const char* name, const std::vector<std::uint32_t>& words) {
    columns.push_back({name, 'U', sizeof(std::uint32_t),
                       reinterpret_cast<const Byte*>(words.data()), sizeof(std::uint32_t),
                       words.size()});
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

Buffer compressBody(const WrittenColumns& columns) {
    const Buffer body = joinColumns(columns);
    Buffer stream(lzfWorstCase(body.size()));
    stream.shrink(lzfCompress(body.data(), body.size(), stream.data(), stream.size()));
    return stream;
}

}  // namespace zyr
