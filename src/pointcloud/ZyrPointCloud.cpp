#include "ZyrPointCloud.h"

#include <cstdint>
#include <opencv2/core.hpp>
#include <string_view>
#include <vector>

#include "Zyr3DFileIO.h"
#include "core/Path.h"
#include "core/RawPoints.h"
#include "core/StoreAccess.h"

namespace {

/// n points of a depth that is not read: all at the origin.
std::vector<ZyrVector3d> origins(std::size_t n, double invalidMark) {
    std::vector<ZyrVector3d> points;
    points.reserve(n);
    points.assign(n, invalidMark == 0.0 ? ZyrVector3d() : ZyrVector3d(0, 0, 0));
    return points;
}

std::vector<ZyrVector3d> pointsOf(const void* data, std::size_t n, int depth, double invalidMark) {
    switch (depth) {
        case CV_8U:
            return zyr::rawPoints<std::uint8_t>(data, n, invalidMark);
        case CV_16U:
            return zyr::rawPoints<std::uint16_t>(data, n, invalidMark);
        case CV_32F:
            return zyr::rawPoints<float>(data, n, invalidMark);
        case CV_64F:
            return zyr::rawPoints<double>(data, n, invalidMark);
        default:
            return origins(n, invalidMark);
    }
}

bool isPointCloudPath(const char* path) {
    const std::string_view suffix = zyr::suffixOf(path);
    return suffix == "zpt" || suffix == "ZPT";
}

}  // namespace

ZyrPointCloud::ZyrPointCloud() = default;

ZyrPointCloud::ZyrPointCloud(const ZyrVector3dArray& points, const ZyrColorArray& colors,
                             const ZyrVector3dArray& normals)
    : points_(points), colors_(colors), normals_(normals) {}

ZyrPointCloud::ZyrPointCloud(void* data, int count, int depth, double invalidMark) {
    if (data == nullptr) return;
    zyr::StoreAccess::elements(points_) =
        pointsOf(data, static_cast<std::size_t>(count / 3), depth, invalidMark);
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
