#include "fileIO/WrittenColumns.h"

#include <cstring>
#include <limits>

#include "ZyrVector3dArray.h"

namespace zyr {
namespace {

template <std::size_t width>
void copyColumn(const WrittenColumn& column, Byte* target) {
    const Byte* value = column.first;
    for (std::size_t i = 0; i < column.elements; ++i, value += column.stride, target += width)
        std::memcpy(target, value, width);
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

}  // namespace

void addVectors(WrittenColumns& columns, const char* x, const char* y, const char* z,
                const ZyrVector3dArray& vectors) {
    const auto* data = reinterpret_cast<const Byte*>(vectors.Data());
    const auto length = static_cast<std::size_t>(vectors.Length());
    const char* names[] = {x, y, z};
    for (std::size_t i = 0; i < 3; ++i)
        columns.push_back(
            {names[i], 'F', sizeof(double), data + i * sizeof(double), 3 * sizeof(double), length});
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
