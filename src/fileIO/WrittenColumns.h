#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "fileIO/StreamWriter.h"

class Zyr3DIntArray;
class ZyrVector3dArray;

namespace cv {
class Mat;
}

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
    int channels = 0;  ///< of colours, which are written as words; else 0
};

using WrittenColumns = std::vector<WrittenColumn>;

void addVectors(WrittenColumns& columns, const char* x, const char* y, const char* z,
                const ZyrVector3dArray& vectors);

/// The indices of whole triangles.
void addTriangles(WrittenColumns& columns, const Zyr3DIntArray& triangles);

/// The colours of the first row, which must outlive the columns.
void addColors(WrittenColumns& columns, const char* name, const cv::Mat& colors);

/// The FIELDS, SIZE, TYPE and COUNT lines.
std::string fieldLines(const WrittenColumns& columns);

std::uint64_t bodySize(const WrittenColumns& columns);

/// Whether the file's 32-bit size words can state the body.
bool fitsSizeWords(const WrittenColumns& columns);

/// The columns' values one after the other.
BlockSource blocksOf(const WrittenColumns& columns);

/// Writes the header, the words that precede a body and the body itself. Refused, before the file
/// is created, when the 32-bit size words can't state the body or its stream.
enum class FileWritten { refused, partly, whole };
FileWritten writeFile(const char* path, const std::string& header,
                      const std::vector<std::uint32_t>& channels, const WrittenColumns& columns);

}  // namespace zyr
