#include "formats/Format.h"

#include <array>

#include "Outcome.h"
#include "Zyr3DInner.h"
#include "formats/Fault.h"
#include "formats/Readers.h"
#include "formats/Text.h"
#include "formats/Writers.h"

namespace zyr {
namespace {

constexpr unsigned kPlyAbilities = kClouds | kMeshes | kNormals | kColors | kAlpha |
                                   kTriangleNormals | kTriangleColors | kNanMarks | kAscii |
                                   kBinary | kBigEndian | kBothWidths;
constexpr unsigned kPcdAbilities = kClouds | kNormals | kColors | kAlpha | kGrid | kNanMarks |
                                   kAscii | kBinary | kCompressed | kBothWidths;
constexpr unsigned kStlAbilities = kMeshes | kTriangleNormals | kNanMarks | kAscii | kBinary;
constexpr unsigned kObjAbilities =
    kClouds | kMeshes | kNormals | kColors | kNanMarks | kAscii | kBothWidths;
constexpr unsigned kTableAbilities =
    kClouds | kNormals | kColors | kAlpha | kNanMarks | kAscii | kBothWidths;
constexpr unsigned kNpyAbilities = kClouds | kRanges | kGrid | kNanMarks | kBinary | kBothWidths;
// A .zpt file gives NaN back as 0.
constexpr unsigned kZptAbilities = kClouds | kNormals | kColors | kAlpha | kBinary;
constexpr unsigned kZtmtAbilities = kMeshes | kNormals | kColors | kAlpha | kTriangleNormals |
                                    kTriangleColors | kNanMarks | kBinary;
constexpr unsigned kZrtAbilities = kRanges | kColors | kAlpha | kCalibration | kBinary;

constexpr Holes kDrop = Holes::Drop, kKeep = Holes::Keep, kNan = Holes::Nan;

constexpr std::array<Format, 17> kFormats = {
    {{"zpt", ".zpt", nullptr, readZpt, writeZpt, kZptAbilities, kKeep, false},
     {"ztmt", ".ztmt", nullptr, readZtmt, writeZtmt, kZtmtAbilities, kKeep, false},
     {"zrt", ".zrt", nullptr, readZrt, writeZrt, kZrtAbilities, kKeep, false},
     {"png", "PNG", nullptr, readPicture, writePng, kRanges | kBinary, kKeep, false},
     {"tif", "TIFF", nullptr, readPicture, writeTiff, kRanges | kBinary, kKeep, false},
     {"tiff", "TIFF", nullptr, readPicture, writeTiff, kRanges | kBinary, kKeep, false},
     {"jpg", "JPEG", nullptr, readPicture, nullptr, kRanges, kKeep, false},
     {"jpeg", "JPEG", nullptr, readPicture, nullptr, kRanges, kKeep, false},
     {"bmp", "BMP", nullptr, readPicture, nullptr, kRanges, kKeep, false},
     {"ply", "PLY", readPly, nullptr, writePly, kPlyAbilities, kDrop, false},
     {"stl", "STL", readStl, nullptr, writeStl, kStlAbilities, kDrop, true},
     {"obj", "OBJ", readObj, nullptr, writeObj, kObjAbilities, kDrop, false},
     {"pcd", "PCD", readPcd, nullptr, writePcd, kPcdAbilities, kNan, true},
     {"xyz", "XYZ", readXyz, nullptr, writeXyz, kTableAbilities, kDrop, false},
     {"txt", "TXT", readXyz, nullptr, writeXyz, kTableAbilities, kDrop, false},
     {"csv", "CSV", readXyz, nullptr, writeCsv, kTableAbilities, kDrop, false},
     {"npy", "NPY", readNpy, nullptr, writeNpy, kNpyAbilities, kNan, false}}};

/// The library takes its clouds and meshes by suffixes of small or of large letters alone.
bool isMixed(const std::string& suffix, const std::string& lower) {
    return (lower == "zpt" || lower == "ztmt") && suffix != lower &&
           suffix != (lower == "zpt" ? "ZPT" : "ZTMT");
}

}  // namespace

const Format* formatOf(const std::string& path) {
    const std::string suffix = Zyr3DInner::getSuffix(path.c_str());
    const std::string lower = lowered(suffix);
    if (isMixed(suffix, lower)) return nullptr;
    for (const Format& format : kFormats)
        if (lower == format.suffix) return &format;
    return nullptr;
}

std::string suffixFault(const std::string& path, const char* verb) {
    const std::string suffix = Zyr3DInner::getSuffix(path.c_str()), lower = lowered(suffix);
    if (isMixed(suffix, lower))
        return path + ": not a ." + lower + " file by its suffix, which is all small or all large";
    return path + ": not a format that is " + verb + ", by its suffix";
}

void writeScene(const Scene& scene, const std::string& path, const WriteOptions& options) {
    const Format* format = formatOf(path);
    if (format == nullptr || format->write == nullptr)
        throw FileTrouble(suffixFault(path, "written"));
    SafeFile file(path);
    try {
        format->write(scene, options, file);
    } catch (const FormatFault& fault) {
        throw FileTrouble(path + ": " + fault.what());
    }
    file.finish();
    file.commit();
}

}  // namespace zyr
