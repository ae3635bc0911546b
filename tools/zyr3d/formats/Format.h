#pragma once

#include <string>
#include <string_view>

#include "files/SafeFile.h"
#include "formats/Scene.h"

namespace zyr {

/// What becomes of points that are missing: the invalid value, NaN, or nothing at all.
enum class Holes { Keep, Nan, Drop };

struct WriteOptions {
    enum Body { Plain, Ascii, Binary, BigEndian, Compressed };

    Body body = Plain;  ///< Plain: what is usual for the format
    bool isFloat = false;
};

/// What a format has a place for, and in which ways it is written.
enum Ability : unsigned {
    kClouds = 1 << 0,
    kMeshes = 1 << 1,
    kRanges = 1 << 2,
    kNormals = 1 << 3,
    kColors = 1 << 4,
    kAlpha = 1 << 5,
    kTriangleNormals = 1 << 6,
    kTriangleColors = 1 << 7,
    kGrid = 1 << 8,
    kCalibration = 1 << 9,
    kNanMarks = 1 << 10,
    kAscii = 1 << 11,
    kBinary = 1 << 12,
    kBigEndian = 1 << 13,
    kCompressed = 1 << 14,
    kBothWidths = 1 << 15  ///< floats and doubles; else floats where they are usual
};

struct Format {
    const char* suffix;
    const char* name;
    Scene (*fromBytes)(std::string_view);   ///< a format is read from its bytes,
    Scene (*fromPath)(const std::string&);  ///< or by its path
    void (*write)(const Scene&, const WriteOptions&, SafeFile&);  ///< null: it is read alone
    unsigned abilities;
    Holes holes;   ///< as users of the format expect
    bool isFloat;  ///< whether floats are usual, else doubles

    bool can(unsigned wanted) const { return (abilities & wanted) == wanted; }
};

/// By the path's suffix in any letter case, but .zpt and .ztmt in small or large letters alone;
/// null when there is none.
const Format* formatOf(const std::string& path);
/// Why there is none; the verb says what is to be done, such as "read".
std::string suffixFault(const std::string& path, const char* verb);

/// Writes what the format has a place for, through a temporary file. What the library writes is
/// read back and compared. Throws FileTrouble.
void writeScene(const Scene& scene, const std::string& path, const WriteOptions& options);

}  // namespace zyr
