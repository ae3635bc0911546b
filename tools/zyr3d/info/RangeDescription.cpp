#include <algorithm>
#include <array>
#include <limits>

#include "Outcome.h"
#include "ZyrRangeImage.h"
#include "files/ImageFile.h"
#include "files/RegularFile.h"
#include "info/Description.h"

namespace zyr {
namespace {

/// A type and the bytes of a value.
struct ValueType {
    const char* name;
    std::uint64_t bytes;
};

/// In the order of their codes.
constexpr std::array<ValueType, 7> kTypes = {{{"8-bit unsigned", 1},
                                              {"8-bit signed", 1},
                                              {"16-bit unsigned", 2},
                                              {"16-bit signed", 2},
                                              {"32-bit signed", 4},
                                              {"float", 4},
                                              {"double", 8}}};

std::uint64_t pixels(const ZyrRangeImage& image) {
    return static_cast<std::uint64_t>(image.Width()) * static_cast<std::uint64_t>(image.Height());
}

std::string rangeText(const ZyrRangeImage& image) {
    double low = std::numeric_limits<double>::infinity(), high = -low;
    for (int row = 0; row < image.Height(); ++row)
        for (int column = 0; column < image.Width(); ++column) {
            const double value = image.GetValue(row, column);
            if (value < low) low = value;
            if (value > high) high = value;
        }
    return low <= high ? compact(low) + " to " + compact(high) : "no numbers";
}

/// The rows of values; without values the type is not known. Gives their bytes.
std::uint64_t addValues(Table& table, const ZyrRangeImage& image) {
    const auto type = static_cast<std::size_t>(image.DataType());
    if (pixels(image) == 0 || type >= kTypes.size()) {
        table.add({"type", "unknown, so that no values are read"});
        return 0;
    }
    table.add({"type", kTypes[type].name});
    table.add({"size", std::to_string(image.Width()) + " x " + std::to_string(image.Height())});
    table.add({"values", rangeText(image)});
    return pixels(image) * kTypes[type].bytes;
}

std::string axesText(double x, double y, double z) {
    return compact(x) + ", " + compact(y) + ", " + compact(z);
}

void addCalibration(Table& table, const ZyrRangeImage& image) {
    table.add({"resolution x, y, z",
               axesText(image.ResolutionX(), image.ResolutionY(), image.ResolutionZ())});
    table.add({"offset x, y, z", axesText(image.OffsetX(), image.OffsetY(), image.OffsetZ())});
}

void addBytes(Table& table, std::uint64_t raw, const std::string& path) {
    table.add({"bytes raw", grouped(raw)});
    table.add({"bytes on disk", grouped(fileSize(path))});
}

}  // namespace

Description describeRangeFile(const std::string& path) {
    requireRegularFile(path);
    ZyrRangeImage image;
    if (!image.Load(path.c_str(), true))
        throw FileTrouble(path + ": refused: cut short, or its blocks do not fit its head");
    const ZyrColorArray colors = image.DeepCopyColors();
    const auto colorBytes =
        static_cast<std::uint64_t>(colors.Length()) * static_cast<std::uint64_t>(colors.Channel());
    Description description;
    const std::uint64_t valueBytes = addValues(description.table, image);
    addCalibration(description.table, image);
    description.table.add({"colours", colors.Length() > 0 ? channelsText(colors) : "none"});
    addBytes(description.table, valueBytes + colorBytes, path);
    return description;
}

Description describePictureFile(const std::string& path) {
    const ZyrRangeImage image = readPictureValues(path);
    Description description;
    const std::uint64_t valueBytes = addValues(description.table, image);
    addBytes(description.table, valueBytes, path);
    return description;
}

}  // namespace zyr
