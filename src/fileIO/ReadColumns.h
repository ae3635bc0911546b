#pragma once

#include <array>
#include <cstdint>
#include <cstdio>
#include <functional>
#include <optional>
#include <vector>

#include "fileIO/LzfReader.h"
#include "fileIO/PcdHeader.h"

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
    bool isCut = true;
};

Preamble readPreamble(std::FILE* file, std::size_t channelWords);

/// The stream behind the preamble. Of a file without all of the preamble it is cut, and empty.
LzfReader openBody(std::FILE* file, const ReadLayout& layout, const Preamble& preamble);

/// Whether elements of this many bytes may be allocated for the body.
bool isBacked(LzfReader& body, const ReadLayout& layout, std::uint64_t elementBytes);

/// A run of a column's values: so many from element i on, the first at data, stride bytes apart.
struct ReadRun {
    const Byte* data;
    std::size_t stride;
    std::int32_t size;  ///< bytes of a value
    std::size_t i;
    std::size_t count;
};

/// Who takes a column's values. Many may take the same column.
struct ColumnTaker {
    std::int32_t column;
    std::function<void(const ReadRun&)> take;
};

/// Hands the body's columns, as they are decoded, to those who take them. Of a file that ends early
/// they get the values that are there. False when the stream is not one of exactly the layout's
/// bytes.
bool readColumns(LzfReader& body, const ReadLayout& layout, const std::vector<ColumnTaker>& takers);

}  // namespace zyr
