#include "fileIO/PcdHeader.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <limits>

#include "core/Stop.h"

namespace zyr {
namespace {

constexpr char kReadLine[] = "void pcdReadLine(FILE*, PcdLine&)";

void checkWordLength(int wordLength) {
    if (wordLength > PcdLine::maxWordSize)
        assertionFailure("wordLength <= line.maxWordSize", "fileIO.cpp", 181, kReadLine);
}

void checkNumWords(int numWords) {
    if (numWords > PcdLine::maxNumWords)
        assertionFailure("line.numWords <= line.maxNumWords", "fileIO.cpp", 182, kReadLine);
}

bool endsLine(int c) {
    return c == '\n' || c == '\0';
}

std::int32_t readNumber(const char* word, PcdHeader& header) {
    const long value = std::strtol(word, nullptr, 10);
    if (value < 0 || value > std::numeric_limits<std::int32_t>::max()) {
        header.hasBadNumber = true;
        return 0;
    }
    return static_cast<std::int32_t>(value);
}

int numEntries(const PcdHeader& header) {
    return std::min(header.numFields, PcdHeader::maxNumFields);
}

void readTypes(const PcdLine& line, PcdHeader& header) {
    for (int i = 0; i < numEntries(header); ++i) header.fields[i].type = line.word(i + 1)[0];
    header.hasType = true;
}

void readCounts(const PcdLine& line, PcdHeader& header) {
    for (int i = 0; i < numEntries(header); ++i)
        header.fields[i].count = readNumber(line.word(i + 1), header);
    header.hasCount = true;
}

void readSecondWord(const PcdLine& line, PcdHeader& header, std::int32_t& value, bool& seen) {
    value = readNumber(line.word(1), header);
    seen = true;
}

void readData(const PcdLine& line, PcdHeader& header) {
    const char* kind = line.word(1);
    const bool isAscii = std::strcmp(kind, "ascii") == 0;
    const bool isBinary = std::strcmp(kind, "binary") == 0;
    const bool isCompressed = std::strcmp(kind, "binary_compressed") == 0;
    if (!isAscii && !isBinary && !isCompressed) return;
    header.binary = !isAscii;
    header.compressed = isCompressed;
    header.hasData = true;
}

void readKeyword(const PcdLine& line, PcdHeader& header) {
    if (line.is("SIZE")) pcdReadSize(line, header);
    if (line.is("TYPE")) readTypes(line, header);
    if (line.is("COUNT")) readCounts(line, header);
    if (line.is("WIDTH")) readSecondWord(line, header, header.width, header.hasWidth);
    if (line.is("HEIGHT")) readSecondWord(line, header, header.height, header.hasHeight);
    if (line.is("POINTS")) readSecondWord(line, header, header.points, header.hasPoints);
    if (line.is("FACES")) readSecondWord(line, header, header.faces, header.hasFaces);
    if (line.is("VIEWPOINT")) header.hasViewpoint = true;
    if (line.is("DATA")) readData(line, header);
}

/// Whether a known group of columns, where it is present, has all of them.
bool hasColumns(const PcdHeader& header, std::int32_t first, int columns) {
    return first < 0 || first + columns <= header.numFields;
}

bool hasUsableFields(const PcdHeader& h) {
    return h.numFields <= PcdHeader::maxNumFields && hasColumns(h, h.x, 3) &&
           hasColumns(h, h.nx, 3) && hasColumns(h, h.rgb, 1) && hasColumns(h, h.fa, 3) &&
           hasColumns(h, h.fnx, 3) && hasColumns(h, h.frgb, 1);
}

}  // namespace

bool PcdLine::is(const char* keyword) const {
    return std::strcmp(words[0], keyword) == 0;
}

void pcdReadLine(std::FILE* file, PcdLine& line) {
    line.numWords = 0;
    line.words[0][0] = '\0';
    int wordLength = 0;
    bool isComment = false;
    line.numBytes = 0;
    for (int c = getc_unlocked(file); c != EOF; c = getc_unlocked(file)) {
        if (++line.numBytes > PcdHeader::maxNumBytes) return;
        if (endsLine(c)) {
            line.words[line.numWords++][wordLength] = '\0';
            return;
        }
        if (c == '\r' || isComment) continue;
        if (c == '#' && line.numWords == 0 && wordLength == 0) {
            isComment = true;
            continue;
        }
        if (c == ' ') {
            line.words[line.numWords++][wordLength] = '\0';
            wordLength = 0;
        } else {
            // The word that is one character too long stops before its last is stored.
            checkWordLength(wordLength + 1);
            line.words[line.numWords][wordLength++] = static_cast<char>(c);
        }
        checkNumWords(line.numWords);
    }
}

void pcdReadFields(const PcdLine& line, PcdHeader& header) {
    if (!line.is("FIELDS")) return;
    header.numFields = line.numWords - 1;
    for (int i = 0; i < header.numFields; ++i) {
        const char* name = line.word(i + 1);
        if (std::strcmp(name, "x") == 0) header.x = i;
        if (std::strcmp(name, "nx") == 0) header.nx = i;
        if (std::strcmp(name, "rgb") == 0) header.rgb = i;
        if (std::strcmp(name, "fa") == 0) header.fa = i;
        if (std::strcmp(name, "fnx") == 0) header.fnx = i;
        if (std::strcmp(name, "frgb") == 0) header.frgb = i;
        if (i < PcdHeader::maxNumFields)
            std::strncpy(header.fields[i].name, name, sizeof header.fields[i].name - 1);
    }
    header.hasFields = header.x >= 0;
}

void pcdReadSize(const PcdLine& line, PcdHeader& header) {
    if (line.numWords != header.numFields + 1)
        assertionFailure("line.numWords == header.numFields + 1", "fileIO.cpp", 219,
                         "void pcdReadSize(PcdLine&, PcdHeader&)");
    for (int i = 0; i < numEntries(header); ++i)
        header.fields[i].size = readNumber(line.word(i + 1), header);
    header.hasSize = true;
}

bool pcdReadHeader(std::FILE* file, PcdHeader& header) {
    header = {};
    PcdLine line;
    std::size_t numBytes = 0;
    while (!header.hasData) {
        pcdReadLine(file, line);
        numBytes += line.numBytes;
        if (std::feof(file) || std::ferror(file) || numBytes > PcdHeader::maxNumBytes) return false;
        pcdReadFields(line, header);
        readKeyword(line, header);
    }
    return !header.hasBadNumber && hasUsableFields(header);
}

}  // namespace zyr
