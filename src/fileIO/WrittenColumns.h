#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "fileIO/Buffer.h"

class Zyr3DIntArray;
class ZyrVector3dArray;

/// The columns of a point-cloud or mesh file on its way out: one list of them drives the header's
/// four field lines, the body's size and its order.
namespace zyr {

/// A field's values for all points or faces, lying anywhere in memory at a steady distance.
struct WrittenColumn {
    const char* name;
    char type;           ///< 'F' or 'U'
    std::size_t width;   ///< bytes of a value
    const Byte* first;   ///< the first value
    std::size_t stride;  ///< bytes from a value to the next
    std::size_t elements;
};

using WrittenColumns = std::vector<WrittenColumn>;

void addVectors(WrittenColumns& columns, const char* x, const char* y, const char* z,
                const ZyrVector3dArray& vectors);

/// The indices of whole triangles.
void addTriangles(WrittenColumns& columns, const Zyr3DIntArray& triangles);

/// The words must outlive the columns.
void addWords(WrittenColumns& columns, const char* name, const std::vector<std::uint32_t>& words);

/// The FIELDS, SIZE, TYPE and COUNT lines.
std::string fieldLines(const WrittenColumns& columns);

std::uint64_t bodySize(const WrittenColumns& columns);

/// Whether the file's 32-bit size words can state the body.
bool fitsSizeWords(const WrittenColumns& columns);

/// The columns one after the other, as one LZF stream.
Buffer compressBody(const WrittenColumns& columns);

}  // namespace zyr
