#pragma once

#include <algorithm>

#include "Formats.h"

/// What is read of a file, value by value.
namespace test {

/// A list's bytes and those of one value: of a component, an index, a colour or a pixel.
struct List {
    Bytes bytes;
    std::size_t valueBytes;
    bool mayBeMissing = false;  ///< where their number of channels is
};

inline List listOf(const ZyrVector3dArray& vectors) {
    return {bytesOf(bits(vectors)), sizeof(double)};
}

inline List listOf(const cv::Mat& mat) {
    return {bytesOf(mat), mat.elemSize(), true};
}

inline std::vector<List> listsOf(const Content& c) {
    return {listOf(c.cloud.points),
            listOf(c.cloud.normals),
            listOf(c.cloud.colors),
            listOf(c.mesh.vertices),
            listOf(c.mesh.vertexNormals),
            listOf(c.mesh.vertexColors),
            {bytesOf(fuzz::indicesOf(c.mesh.triangles)), sizeof(int)},
            listOf(c.mesh.triangleNormals),
            listOf(c.mesh.triangleColors),
            listOf(c.range.values),
            listOf(c.range.colors)};
}

/// As long, and each value the whole list's or zero.
inline bool isPartOf(const List& part, const List& whole) {
    if (part.bytes.size() != whole.bytes.size()) return part.bytes.empty() && whole.mayBeMissing;
    const Bytes zero(whole.valueBytes);
    for (auto i = part.bytes.begin(), w = whole.bytes.begin(); i != part.bytes.end();) {
        const auto end = i + static_cast<std::ptrdiff_t>(whole.valueBytes);
        if (!std::equal(i, end, w) && !std::equal(i, end, zero.begin())) return false;
        w += end - i;
        i = end;
    }
    return true;
}

/// The same of each list.
inline bool arePartsOf(const std::vector<List>& parts, const std::vector<List>& wholes) {
    return std::equal(parts.begin(), parts.end(), wholes.begin(), wholes.end(), isPartOf);
}

}  // namespace test
