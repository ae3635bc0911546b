#pragma once

#include <cstdint>
#include <cstdio>
#include <optional>
#include <vector>

#include "fileIO/Buffer.h"
#include "fileIO/PcdHeader.h"

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
    std::vector<ReadColumn> columns;  ///< one a field
    std::uint64_t bodySize = 0;
};

/// None when the sizes do not fit 64 bits. The fields from firstFaceField on have one element a
/// face, those before it one a point.
std::optional<ReadLayout> readLayout(const PcdHeader& header, std::int32_t firstFaceField);

/// Whether the three columns from first on hold coordinates: floats or doubles, each by its own
/// size.
bool holdVectors(const ReadLayout& layout, std::int32_t first);

/// Whether the column holds colour words.
bool holdsWords(const ReadLayout& layout, std::int32_t column);

/// A decoded body. Of a file that was cut short, the first values only.
struct ReadBody {
    Buffer bytes;
    std::uint64_t present;  ///< bytes decoded
};

/// Reads and decodes a stream of the stated size. None when it is not a stream of exactly the
/// layout's bytes, or when the file is too short to back so many. A file that ends early gives what
/// it holds. elementBytes is what the caller will allocate for the values.
std::optional<ReadBody> readBody(std::FILE* file, const ReadLayout& layout,
                                 std::uint32_t streamSize, std::uint64_t elementBytes);

/// Stores the columns first, first + 1, first + 2 as x, y, z; a value that is not there, or is NaN
/// and NaN are not kept, leaves its component alone.
void readVectors(const ReadBody& body, const ReadLayout& layout, std::int32_t first, bool keepNaN,
                 ZyrVector3dArray& vectors);

/// Unpacks the column's colour words; a word that is not there leaves its colour alone.
void readColors(const ReadBody& body, const ReadLayout& layout, std::int32_t column,
                cv::Mat& colors);

}  // namespace zyr
