#include "demo/HeightImage.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>

#include "Zyr3DFileIO.h"

namespace zyr {
namespace {

constexpr int kMostCounts = 65535;

/// Spreads the counts from 1 on over the heights.
void calibrate(HeightImage& image, ZyrVector3dArray& points) {
    double low = kInvalidValue, high = -kInvalidValue;
    for (int i = 0; i < points.Length(); ++i) {
        if (!points[i].IsValid()) continue;
        low = std::min(low, points[i].z);
        high = std::max(high, points[i].z);
    }
    const double resolution = (high - low) / (kMostCounts - 1);
    if (std::isnormal(resolution) && resolution > 0.0) image.resolution = resolution;
    if (low <= high) image.offset = low - image.resolution;
}

std::uint16_t countOf(const HeightImage& image, ZyrVector3d point) {
    if (!point.IsValid()) return 0;
    const double count = std::round((point.z - image.offset) / image.resolution);
    return static_cast<std::uint16_t>(std::clamp(count, 1.0, 1.0 * kMostCounts));
}

bool sameBytes(const cv::Mat& a, const void* b) {
    return std::memcmp(a.data, b, a.total() * a.elemSize()) == 0;
}

bool sameValues(const cv::Mat& a, const ZyrRangeImage& b) {
    return a.type() == b.DataType() && a.cols == b.Width() && a.rows == b.Height() &&
           sameBytes(a, b.Data());
}

bool sameColors(const cv::Mat& a, const ZyrRangeImage& b) {
    if (a.empty() || !b.IsValidColor()) return a.empty() && b.ColorData() == nullptr;
    return a.channels() == b.DeepCopyColors().Channel() && sameBytes(a, b.ColorData());
}

bool sameCalibration(const HeightImage& a, const ZyrRangeImage& b) {
    return b.ResolutionZ() == a.resolution && b.OffsetZ() == a.offset && b.ResolutionX() == 1.0 &&
           b.OffsetX() == 0.0 && b.ResolutionY() == 1.0 && b.OffsetY() == 0.0;
}

}  // namespace

ZyrRangeImage HeightImage::rangeImage() const {
    return ZyrRangeImage(values.data, values.cols, values.rows, 0, values.type(), 0.0, 0.0,
                         resolution, offset, 1.0, 0.0, 1.0, 0.0);
}

bool HeightImage::save(const char* path) const {
    cv::Mat valueMatrix = values, colorMatrix = colors;
    double lowest = 0.0, highest = 0.0;
    double resolutionX = 1.0, resolutionY = 1.0, offsetX = 0.0, offsetY = 0.0;
    double resolutionZ = resolution, offsetZ = offset;
    return Zyr3DFileIO::SaveRangeImage(valueMatrix, colorMatrix, path, lowest, highest, resolutionX,
                                       resolutionY, resolutionZ, offsetX, offsetY, offsetZ, true);
}

HeightImage heightsOf(ZyrPointCloud& cloud, const Frame& frame) {
    HeightImage image;
    image.values.create(frame.coordinates.size(), CV_16UC1);
    image.colors = frame.colors;
    ZyrVector3dArray& points = cloud.PointData();
    calibrate(image, points);
    auto* counts = image.values.ptr<std::uint16_t>();
    for (int i = 0; i < points.Length(); ++i) counts[i] = countOf(image, points[i]);
    return image;
}

std::string difference(const HeightImage& a, const ZyrRangeImage& b) {
    if (!sameValues(a.values, b)) return "values";
    if (!sameColors(a.colors, b)) return "colours";
    if (!sameCalibration(a, b)) return "calibration";
    return "";
}

}  // namespace zyr
