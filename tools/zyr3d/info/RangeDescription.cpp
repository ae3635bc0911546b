#include <algorithm>
#include <array>
#include <limits>

#include "ZyrRangeImage.h"
#include "files/ImageFile.h"
#include "files/RangeFile.h"
#include "files/RegularFile.h"
#include "info/Description.h"

namespace zyr {
namespace {

/// In the order of their codes.
constexpr std::array<const char*, 7> kTypes = {"8-bit unsigned", "8-bit signed",  "16-bit unsigned",
                                               "16-bit signed",  "32-bit signed", "float",
                                               "double"};

std::string rangeText(const cv::Mat& values) {
    double low = std::numeric_limits<double>::infinity(), high = -low;
    cv::Mat row;
    for (int i = 0; i < values.rows; ++i) {
        values.row(i).convertTo(row, CV_64F);
        for (const double value : cv::Mat_<double>(row)) {
            if (value < low) low = value;
            if (value > high) high = value;
        }
    }
    return low <= high ? compact(low) + " to " + compact(high) : "no numbers";
}

/// The rows of values; without values the type is not known. Gives their bytes.
std::uint64_t addValues(Table& table, const cv::Mat& values) {
    if (values.empty()) {
        table.add({"type", "unknown, so that no values are read"});
        return 0;
    }
    table.add({"type", kTypes[static_cast<std::size_t>(values.type())]});
    table.add({"size", std::to_string(values.cols) + " x " + std::to_string(values.rows)});
    table.add({"values", rangeText(values)});
    return values.total() * values.elemSize();
}

std::string axesText(double x, double y, double z) {
    return compact(x) + ", " + compact(y) + ", " + compact(z);
}

void addCalibration(Table& table, const RangeFile& file) {
    table.add(
        {"resolution x, y, z", axesText(file.resolutionX, file.resolutionY, file.resolutionZ)});
    table.add({"offset x, y, z", axesText(file.offsetX, file.offsetY, file.offsetZ)});
}

void addBytes(Table& table, std::uint64_t raw, const std::string& path) {
    table.add({"bytes raw", grouped(raw)});
    table.add({"bytes on disk", grouped(fileSize(path))});
}

}  // namespace

Description describeRangeFile(const std::string& path) {
    const RangeFile file = loadRangeFile(path);
    const cv::Mat& colors = file.colors;
    Description description;
    const std::uint64_t valueBytes = addValues(description.table, file.values);
    addCalibration(description.table, file);
    description.table.add({"colours", colors.empty() ? "none" : channelsText(colors.channels())});
    addBytes(description.table, valueBytes + colors.total() * colors.elemSize(), path);
    return description;
}

Description describePictureFile(const std::string& path) {
    const ZyrRangeImage image = readPictureValues(path);
    const cv::Mat values(image.Height(), image.Width(), image.DataType(), image.Data());
    Description description;
    const std::uint64_t valueBytes = addValues(description.table, values);
    addBytes(description.table, valueBytes, path);
    return description;
}

}  // namespace zyr
