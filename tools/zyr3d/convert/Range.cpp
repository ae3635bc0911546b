#include "convert/Range.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <opencv2/core.hpp>

#include "Outcome.h"
#include "Table.h"
#include "files/ImageFile.h"
#include "files/ValueType.h"
#include "formats/PointColumns.h"

namespace zyr {
namespace {

/// A value that is named stands for nothing in place of 0.
bool isHole(double value, int type, const std::optional<double>& named) {
    if (!named) return isHoleValue(value, type);
    return !(value < kInvalidValue) || value == *named;
}

ZyrColorArray readColors(const std::string& path, const ZyrRangeImage& image) {
    const cv::Mat picture = readImage(path);
    if (picture.cols != image.Width() || picture.rows != image.Height())
        throw FileTrouble(path + ": not of the range image's size");
    const int channels = picture.channels();
    if (picture.depth() != CV_8U || channels == 2)
        throw FileTrouble(path + ": not a picture of 8-bit channels");
    ZyrColorArray colors;
    colors.Create(static_cast<int>(picture.total()), channels);
    std::memcpy(colors.Data(), picture.data, picture.total() * picture.elemSize());
    return colors;
}

}  // namespace

void calibrate(Scene& scene, const ConvertSettings& settings) {
    ZyrRangeImage& image = scene.range;
    std::array<double, 3> resolution = {image.ResolutionX(), image.ResolutionY(),
                                        image.ResolutionZ()};
    std::array<double, 3> offset = {image.OffsetX(), image.OffsetY(), image.OffsetZ()};
    resolution = settings.resolution.value_or(resolution);
    offset = settings.offset.value_or(offset);
    resolution[2] = settings.depthScale.value_or(resolution[2]);
    image.SetInfo(resolution[2], offset[2], resolution[0], offset[0], resolution[1], offset[1]);
}

Scene cloudOfRange(const Scene& scene, const ConvertSettings& settings) {
    const ZyrRangeImage& image = scene.range;
    Scene cloud;
    cloud.leftOut = scene.leftOut;
    cloud.columns = image.Width();
    cloud.rows = image.Height();
    ZyrVector3dArray points;
    points.SetSize(cloud.columns * cloud.rows);
    for (int row = 0; row < cloud.rows; ++row)
        for (int column = 0; column < cloud.columns; ++column) {
            const double value = image.GetValue(row, column);
            if (isHole(value, image.DataType(), settings.hole)) continue;
            const double z = image.ResolutionZ() * value + image.OffsetZ();
            double x = image.ResolutionX() * column + image.OffsetX();
            double y = image.ResolutionY() * row + image.OffsetY();
            if (settings.camera) {
                const auto [fx, fy, cx, cy] = *settings.camera;
                x = (column - cx) / fx * z;
                y = (row - cy) / fy * z;
            }
            points[row * cloud.columns + column] = validOrHole(x, y, z);
        }
    cloud.cloud.SetPoints(points);
    cloud.cloud.SetColors(settings.colorFile.empty() ? scene.pixelColors
                                                     : readColors(settings.colorFile, image));
    return cloud;
}

void fitPicture(Scene& scene) {
    const ZyrRangeImage& image = scene.range;
    if (image.DataType() == CV_8U || image.DataType() == CV_16U) return;
    cv::Mat values(image.Height(), image.Width(), CV_16U);
    double largest = 0.0;
    std::uint64_t clipped = 0;
    for (int row = 0; row < values.rows; ++row)
        for (int column = 0; column < values.cols; ++column) {
            const double value = image.GetValue(row, column);
            const bool isNumber = value < kInvalidValue;
            const double count = isNumber ? std::clamp(std::round(value), 0.0, 65535.0) : 0.0;
            values.at<std::uint16_t>(row, column) = static_cast<std::uint16_t>(count);
            if (value < 0.0 || (isNumber && value > 65535.0))
                ++clipped;
            else if (isNumber)
                largest = std::max(largest, std::abs(value - count));
        }
    scene.range = ZyrRangeImage(values.data, values.cols, values.rows, 0, CV_16U, 0.0, 0.0,
                                image.ResolutionZ(), image.OffsetZ(), image.ResolutionX(),
                                image.OffsetX(), image.ResolutionY(), image.OffsetY());
    if (clipped > 0)
        scene.leftOut.push_back(grouped(clipped) + " values beyond 0 to 65535: clipped");
    if (largest > 0.0)
        scene.leftOut.push_back("fractions of the values: rounded by " + compact(largest) +
                                " at most");
}

}  // namespace zyr
