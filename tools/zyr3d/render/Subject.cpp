#include "render/Subject.h"

#include <algorithm>
#include <cmath>

#include "render/GridSurface.h"

namespace zyr {
namespace {

cv::Vec3d toVec(const ZyrVector3d& v) {
    return {v.x, v.y, v.z};
}

std::vector<cv::Vec3d> pointsOf(ZyrVector3dArray& array) {
    std::vector<cv::Vec3d> points(static_cast<std::size_t>(array.Length()));
    for (std::size_t i = 0; i < points.size(); ++i) points[i] = toVec(array[static_cast<int>(i)]);
    return points;
}

std::vector<cv::Vec3b> colorsOf(const ZyrColorArray& array, std::size_t count) {
    const auto channels = static_cast<std::size_t>(array.Channel());
    const auto length = static_cast<std::size_t>(array.Width()) * array.Height();
    if (count == 0 || length != count || array.Data() == nullptr) return {};
    std::vector<cv::Vec3b> colors(count);
    for (std::size_t i = 0; i < count; ++i) {
        const unsigned char* color = array.Data() + i * channels;
        colors[i] =
            channels < 3 ? cv::Vec3b::all(color[0]) : cv::Vec3b(color[0], color[1], color[2]);
    }
    return colors;
}

std::size_t at(int index) {
    return static_cast<std::size_t>(index);
}

/// Pixels in steps that keep a large grid to some millions, which no picture shows more of.
int strideFor(const ZyrRangeImage& image) {
    constexpr double kMost = 4e6;
    return static_cast<int>(std::ceil(std::sqrt(image.Width() * 1.0 * image.Height() / kMost)));
}

struct Calibration {
    double resolution, offset;

    Calibration(double r, double o) : resolution(r), offset(o) {
        const bool isUsable = std::isnormal(r) && isDrawable({r, o, 0.0});
        if (!isUsable) resolution = 1.0, offset = 0.0;
    }
    double value(double position) const { return resolution * position + offset; }
    double sign() const { return resolution < 0.0 ? -1.0 : 1.0; }
};

void addPixels(Subject& subject, const ZyrRangeImage& image, const ZyrColorArray& pixels,
               int stride) {
    const Calibration x(image.ResolutionX(), image.OffsetX());
    const Calibration y(image.ResolutionY(), image.OffsetY());
    const Calibration z(image.ResolutionZ(), image.OffsetZ());
    const bool isZeroMissing = image.DataType() == CV_16U;
    const std::vector<cv::Vec3b> colors = colorsOf(pixels, at(image.Width()) * at(image.Height()));
    for (int row = 0; row < image.Height(); row += stride)
        for (int column = 0; column < image.Width(); column += stride) {
            const double value = image.GetValue(row, column);
            const bool isHole = isZeroMissing && value == 0.0;
            subject.points.emplace_back(x.value(column), y.value(row),
                                        isHole ? NAN : z.value(value));
            if (!colors.empty())
                subject.colors.push_back(colors[at(row) * at(image.Width()) + at(column)]);
        }
    subject.stretch = {x.sign(), -y.sign(), 1.0};  // columns to the right, rows down
}

/// Keeps heights readable that are given in another unit than the pixels.
double stretchOfHeights(const Subject& subject) {
    const Bounds bounds = boundsOf(subject);
    const cv::Vec3d extent = bounds.high - bounds.low;
    const double across = std::max(extent[0], extent[1]);
    const double steepness = extent[2] / across;
    if (!(extent[2] > 0.0 && across > 0.0) || (steepness > 0.05 && steepness < 0.7)) return 1.0;
    return 0.2 / steepness;
}

}  // namespace

bool isDrawable(const cv::Vec3d& point) {
    return std::abs(point[0]) < kInvalidValue && std::abs(point[1]) < kInvalidValue &&
           std::abs(point[2]) < kInvalidValue;
}

Subject subjectOf(ZyrPointCloud& cloud, int columns) {
    Subject subject;
    subject.points = pointsOf(cloud.PointData());
    subject.colors = colorsOf(cloud.ColorData(), subject.points.size());
    subject.normals = normalsOf(cloud.NormalData(), subject.points.size());
    dropStrays(subject);
    if (columns > 1 && cloud.Length() >= 2 * columns && cloud.Length() % columns == 0)
        addGridSurface(subject, subject.points, columns);
    else
        addSplats(subject, 1);
    return subject;
}

Subject subjectOf(ZyrTriangleMesh& mesh) {
    Subject subject;
    ZyrVector3dArray vertices = mesh.DeepCopyVertex(), normals = mesh.DeepCopyVertexNormal();
    subject.points = pointsOf(vertices);
    subject.colors = colorsOf(mesh.DeepCopyVertexColor(), subject.points.size());
    subject.normals = normalsOf(normals, subject.points.size());
    dropStrays(subject);
    addTriangles(subject, mesh.TriangleData(), at(mesh.NumTriangles()),
                 colorsOf(mesh.DeepCopyTriangleColor(), at(mesh.NumTriangles())));
    if (subject.triangles.empty()) addSplats(subject, 1);
    return subject;
}

Subject subjectOf(const ZyrRangeImage& image) {
    return subjectOf(image, image.DeepCopyColors());
}

Subject subjectOf(const ZyrRangeImage& image, const ZyrColorArray& colors) {
    Subject subject;
    subject.isHeightMap = true;
    if (image.Width() < 1 || image.Height() < 1) return subject;
    const int stride = strideFor(image);
    addPixels(subject, image, colors, stride);
    dropStrays(subject);
    subject.stretch[2] = stretchOfHeights(subject);
    std::vector<cv::Vec3d> seen = subject.points;
    for (cv::Vec3d& point : seen) point = point.mul(subject.stretch);
    const int columns = (image.Width() + stride - 1) / stride;
    if (columns > 1 && image.Height() > stride)
        addGridSurface(subject, seen, columns);
    else
        addSplats(subject, 1);
    for (cv::Vec3f& normal : subject.normals) normal = cv::Vec3d(normal).mul(subject.stretch);
    return subject;
}

Bounds boundsOf(const Subject& subject) {
    Bounds bounds{cv::Vec3d::all(kInvalidValue), cv::Vec3d::all(-kInvalidValue)};
    for (const cv::Vec3d& point : subject.points) {
        if (!isDrawable(point)) continue;
        for (int k = 0; k < 3; ++k) {
            bounds.low[k] = std::min(bounds.low[k], point[k]);
            bounds.high[k] = std::max(bounds.high[k], point[k]);
        }
    }
    return bounds.low[0] <= bounds.high[0] ? bounds : Bounds();
}

}  // namespace zyr
