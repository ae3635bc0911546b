#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>

/// The text header that point-cloud and mesh files share: keyword lines up to a DATA line.
namespace zyr {

/// One header line, split at its spaces.
struct PcdLine {
    static constexpr int maxWordSize = 32;
    static constexpr int maxNumWords = 60;

    // The last word of a line is not held against the limit.
    char words[maxNumWords + 1][maxWordSize + 1];
    int numWords;
    std::size_t numBytes;  ///< with the byte that ends the line

    /// Word i; empty when the line has no such word.
    const char* word(int i) const { return i < numWords ? words[i] : ""; }
    bool is(const char* keyword) const;
};

struct PcdField {
    char name[8];
    char type;           ///< first letter of the TYPE word
    std::int32_t size;   ///< bytes a value
    std::int32_t count;  ///< values an element
};

struct PcdHeader {
    static constexpr int maxNumFields = 14;
    /// Comments may have any length, but a device that never ends must not be read for ever.
    static constexpr std::size_t maxNumBytes = std::size_t(1) << 20;

    bool hasFields;  ///< a field named "x" exists
    bool hasSize, hasType, hasCount, hasWidth, hasHeight, hasViewpoint, hasPoints, hasFaces;
    bool hasData;
    PcdField fields[maxNumFields];
    std::int32_t numFields;
    std::int32_t width, height, points, faces;
    /// Field indices, -1 when absent.
    std::int32_t x = -1, nx = -1, rgb = -1, fa = -1, fnx = -1, frgb = -1;
    bool binary, compressed;
    /// Some number is negative or does not fit 32 bits.
    bool hasBadNumber;
};

/// Reads one line. A word of 33 characters or a line of 62 words stops the process. At the end of
/// the file, and of a header that goes beyond its limit, the line is incomplete and must not be
/// used.
void pcdReadLine(std::FILE* file, PcdLine& line);

/// Takes the names from a FIELDS line; does nothing for any other.
void pcdReadFields(const PcdLine& line, PcdHeader& header);

/// Takes the sizes from a SIZE line, which must have one word a field: else the process stops.
void pcdReadSize(const PcdLine& line, PcdHeader& header);

/// Reads lines up to and with the DATA line, after which the body starts. False when the file ends
/// before it, when the lines take more bytes than a header may have, or when no file of ours could
/// have such fields: more than 14, a group of columns that lacks some, a negative number or one
/// beyond 32 bits.
bool pcdReadHeader(std::FILE* file, PcdHeader& header);

}  // namespace zyr
