#include <limits>

#include "Table.h"
#include "files/ImageFile.h"
#include "files/RangeFile.h"
#include "files/RegularFile.h"
#include "files/ValueType.h"
#include "info/Description.h"

namespace zyr {
namespace {

struct Values {
    double low = std::numeric_limits<double>::infinity(), high = -low;
    std::uint64_t zeros = 0, numbers = 0, valid = 0;

    void take(double value, int depth) {
        if (!isHoleValue(value, depth)) ++valid;
        if (!(value >= -std::numeric_limits<double>::infinity())) return;
        ++numbers;
        if (value < low) low = value;
        if (value > high) high = value;
        if (value == 0.0) ++zeros;
    }
};

Values valuesOf(const cv::Mat& grid) {
    Values values;
    cv::Mat row;
    for (int i = 0; i < grid.rows; ++i) {
        grid.row(i).convertTo(row, CV_64F);
        for (const double value : cv::Mat_<double>(row)) values.take(value, grid.depth());
    }
    return values;
}

void addAxes(Facts& facts, const std::string& key, double x, double y, double z) {
    facts.add(key + " x, y, z", key, compact(x) + ", " + compact(y) + ", " + compact(z),
              std::vector<double>{x, y, z});
}

/// Of the points that the calibration makes of the values.
PointBounds boundsOf(const RangeFile& file) {
    PointBounds bounds;
    cv::Mat values;
    for (int row = 0; row < file.values.rows; ++row) {
        file.values.row(row).convertTo(values, CV_64F);
        for (int column = 0; column < values.cols; ++column) {
            const double value = values.at<double>(column);
            if (isHoleValue(value, file.values.depth())) continue;
            ZyrVector3d point(file.resolutionX * column + file.offsetX,
                              file.resolutionY * row + file.offsetY,
                              file.resolutionZ * value + file.offsetZ);
            bounds.take(point);
        }
    }
    return bounds;
}

void addBytes(Facts& facts, std::uint64_t raw, const std::string& path) {
    addDiskBytes(facts, raw, fileSize(path));
}

}  // namespace

void addGrid(Facts& facts, const cv::Mat& grid) {
    if (grid.empty()) {
        facts.add("type", "unknown, so that no values are read", "unknown");
        return;
    }
    facts.word("type", valueTypeName(grid.depth()));
    facts.size("size", static_cast<std::uint64_t>(grid.cols),
               static_cast<std::uint64_t>(grid.rows));
    const Values values = valuesOf(grid);
    if (values.numbers == 0)
        facts.add("values", "no numbers", std::vector<double>());
    else
        facts.interval("values", values.low, values.high);
    if (values.numbers < grid.total()) facts.share("numbers", values.numbers, grid.total());
    facts.share("zeros", values.zeros, grid.total());
    facts.share("valid values", values.valid, grid.total());
}

Description describeRangeFile(const std::string& path) {
    const RangeFile file = loadRangeFile(path);
    Description description;
    Facts& facts = description.facts;
    facts.word("kind", "range image");
    addGrid(facts, file.values);
    boundsOf(file).addTo(facts);
    addAxes(facts, "resolution", file.resolutionX, file.resolutionY, file.resolutionZ);
    addAxes(facts, "offset", file.offsetX, file.offsetY, file.offsetZ);
    addColors(facts, "colours", file.colors.empty() ? 0 : file.colors.channels());
    addBytes(
        facts,
        file.values.total() * file.values.elemSize() + file.colors.total() * file.colors.elemSize(),
        path);
    return description;
}

Description describePictureFile(const std::string& path) {
    const ImageFile file = loadImageFile(path);
    const cv::Mat& picture = file.image;
    const int channels = picture.channels();
    Description description;
    description.facts.word("kind", "picture, as a range image");
    addGrid(description.facts, greyOf(file));
    addColors(description.facts, "colours", channels > 1 ? channels : 0);
    addBytes(description.facts, picture.total() * picture.elemSize(), path);
    return description;
}

}  // namespace zyr
