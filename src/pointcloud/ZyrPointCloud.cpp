#include "ZyrPointCloud.h"

#include <cstdint>
#include <cstring>
#include <memory>
#include <opencv2/core.hpp>
#include <string>
#include <vector>

#include "Zyr3DFileIO.h"
#include "Zyr3DInner.h"
#include "core/NarrowPath.h"

namespace {

template <class T>
void convert(const void* data, std::vector<double>& values) {
    const auto* bytes = static_cast<const unsigned char*>(data);
    for (double& value : values) {
        T element;  // the buffer need not be aligned
        std::memcpy(&element, bytes, sizeof element);
        value = static_cast<double>(element);
        bytes += sizeof element;
    }
}

std::vector<double> toDoubles(const void* data, int count, int depth) {
    std::vector<double> values;
    values.reserve(static_cast<std::size_t>(count));
    values.resize(static_cast<std::size_t>(count));
    switch (depth) {
        case CV_8U:
            convert<std::uint8_t>(data, values);
            break;
        case CV_16U:
            convert<std::uint16_t>(data, values);
            break;
        case CV_32F:
            convert<float>(data, values);
            break;
        case CV_64F:
            convert<double>(data, values);
            break;
        default:
            break;  // not read: all points at the origin
    }
    return values;
}

bool isPointCloudPath(const char* path) {
    if (path == nullptr) return false;
    const std::string suffix = Zyr3DInner::getSuffix(path);
    return suffix == "zpt" || suffix == "ZPT";
}

}  // namespace

ZyrPointCloud::ZyrPointCloud() = default;

ZyrPointCloud::ZyrPointCloud(const ZyrVector3dArray& points, const ZyrColorArray& colors,
                             const ZyrVector3dArray& normals)
    : points_(points), colors_(colors), normals_(normals) {}

ZyrPointCloud::ZyrPointCloud(void* data, int count, int depth, double invalidMark) {
    if (data == nullptr) return;
    const int used = count / 3 * 3;
    points_ = ZyrVector3dArray(toDoubles(data, used, depth).data(), used, invalidMark);
}

ZyrPointCloud::ZyrPointCloud(const ZyrPointCloud& other) = default;

ZyrPointCloud& ZyrPointCloud::operator=(const ZyrPointCloud& other) = default;

ZyrPointCloud::~ZyrPointCloud() = default;

void ZyrPointCloud::SetPoints(const ZyrVector3dArray& points) {
    points_ = points;
}

void ZyrPointCloud::SetColors(const ZyrColorArray& colors) {
    colors_ = colors;
}

void ZyrPointCloud::SetNormals(const ZyrVector3dArray& normals) {
    normals_ = normals;
}

ZyrVector3dArray& ZyrPointCloud::PointData() {
    return points_;
}

ZyrVector3dArray& ZyrPointCloud::NormalData() {
    return normals_;
}

ZyrColorArray& ZyrPointCloud::ColorData() {
    return colors_;
}

ZyrVector3dArray ZyrPointCloud::DeepCopyPoints() {
    return points_.DeepCopy();
}

ZyrColorArray ZyrPointCloud::DeepCopyColors() {
    return colors_.DeepCopy();
}

ZyrVector3dArray ZyrPointCloud::DeepCopyNormals() {
    return normals_.DeepCopy();
}

ZyrPointCloud ZyrPointCloud::DeepCopy() {
    return ZyrPointCloud(points_.DeepCopy(), colors_.DeepCopy(), normals_.DeepCopy());
}

int ZyrPointCloud::Length() const {
    return points_.Length();
}

int ZyrPointCloud::NumValidPoints() const {
    return points_.NumValidPoints();
}

bool ZyrPointCloud::IsValidColor() const {
    return colors_.Length() >= 1 && colors_.Length() == Length();
}

bool ZyrPointCloud::IsValidNormal() const {
    return normals_.Length() >= 1 && normals_.Length() == Length();
}

void ZyrPointCloud::InvalidatePoint(int i) {
    points_[i].InValidate();
}

ZyrVector3d ZyrPointCloud::Point(int i) const {
    return points_[i];
}

ZyrColor ZyrPointCloud::Color(int i) const {
    return colors_[i];
}

ZyrVector3d ZyrPointCloud::Normal(int i) const {
    return normals_[i];
}

ZyrVector3d& ZyrPointCloud::operator[](int i) {
    return points_[i];
}

ZyrVector3d ZyrPointCloud::operator[](int i) const {
    return points_[i];
}

void ZyrPointCloud::Append(const ZyrPointCloud& other) {
    points_.Append(other.points_);
    colors_.Append(other.colors_);
    normals_.Append(other.normals_);
}

void ZyrPointCloud::Clear() {
    points_.Clear();
    colors_.Clear();
    normals_.Clear();
}

bool ZyrPointCloud::Load(const char* path, bool withNormals, bool withColors) {
    Clear();
    return isPointCloudPath(path) && Zyr3DFileIO::LoadPointCloud(points_, normals_, *colors_.mat_,
                                                                 path, withNormals, withColors);
}

bool ZyrPointCloud::Load(const wchar_t* path, bool withNormals, bool withColors) {
    return Load(zyr::narrowPath(path).get(), withNormals, withColors);
}

bool ZyrPointCloud::Save(const char* path, bool withNormals, bool withColors) {
    return isPointCloudPath(path) && Zyr3DFileIO::SavePointCloud(points_, normals_, *colors_.mat_,
                                                                 path, withNormals, withColors);
}

bool ZyrPointCloud::Save(const wchar_t* path, bool withNormals, bool withColors) {
    return Save(zyr::narrowPath(path).get(), withNormals, withColors);
}
