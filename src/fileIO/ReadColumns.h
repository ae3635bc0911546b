#pragma once

#include <array>
#include <cstdint>
#include <cstdio>
#include <optional>
#include <vector>

#include "fileIO/Buffer.h"
#include "fileIO/PcdHeader.h"

class Zyr3DIntArray;
class ZyrVector3dArray;

namespace cv {
class Mat;
}

/// The columns of a point-cloud or mesh file on its way in. A body's columns lie one after the
/// other where the header's FIELDS, SIZE and COUNT lines put them, whatever of them is wanted.
namespace zyr {

struct ReadColumn {
    std::uint64_t offset;  ///< of the first value in the body
    std::uint64_t stride;  ///< bytes of an element: count values of size bytes
    std::int32_t size;     ///< bytes of a value
    std::int32_t count;    ///< values of an element; the first is the one that is read
    std::uint64_t elements;
};

struct ReadLayout {
    std::vector<ReadColumn> columns;  ///< one for each field
    std::uint64_t bodySize = 0;
};

/// What a file's fields belong to: points alone, or points and faces.
enum class FieldsOf { points, pointsAndFaces };

/// None when the sizes do not fit 64 bits. Of a file with faces, the fields of faces have one
/// element a face; so has a field that is not known and follows one of them.
std::optional<ReadLayout> readLayout(const PcdHeader& header, FieldsOf kind);

/// Whether the three columns from first on hold coordinates: floats or doubles, each by its own
/// size.
bool holdVectors(const ReadLayout& layout, std::int32_t first);

/// Whether the three columns from first on hold 32-bit indices.
bool holdTriangles(const ReadLayout& layout, std::int32_t first);

/// Whether the column holds colour words.
bool holdsWords(const ReadLayout& layout, std::int32_t column);

/// The words before a body: channel counts of its colours, and the size of its stream. A word that
/// the file ends before is none; without all of them the file has no body.
struct Preamble {
    std::array<std::optional<std::uint32_t>, 2> channels;
    std::uint32_t streamSize = 0;
    bool isCut = false;
};

Preamble readPreamble(std::FILE* file, std::size_t channelWords);

/// A decoded body. Of a file that was cut short, the first values only.
struct ReadBody {
    Buffer bytes;
    std::uint64_t present;  ///< bytes decoded
};

/// Reads and decodes the stream behind the preamble. None when it is not a stream of exactly the
/// layout's bytes, or when the file is too short to back so many. A file that ends early gives what
/// it holds. elementBytes is what the caller will allocate for the values.
std::optional<ReadBody> readBody(std::FILE* file, const ReadLayout& layout,
                                 const Preamble& preamble, std::uint64_t elementBytes);

/// n vectors at the origin.
void setOrigins(ZyrVector3dArray& vectors, int n);

/// Stores the columns first, first + 1, first + 2 as x, y, z; a value that is not there, or is NaN
/// and NaN are not kept, leaves its component alone.
void readVectors(const ReadBody& body, const ReadLayout& layout, std::int32_t first, bool keepNaN,
                 ZyrVector3dArray& vectors);

/// Stores the columns first, first + 1, first + 2 as the corners of triangles.
void readTriangles(const ReadBody& body, const ReadLayout& layout, std::int32_t first,
                   Zyr3DIntArray& triangles);

/// Makes the matrix a row of black colours, and unpacks the column's words into it; a word that is
/// not there leaves its colour black. Without a channel count the matrix is left alone.
void readColors(const ReadBody& body, const ReadLayout& layout, std::int32_t column,
                std::optional<std::uint32_t> channels, cv::Mat& colors);

}  // namespace zyr
