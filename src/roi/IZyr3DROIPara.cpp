#include "IZyr3DROIPara.h"

#include <cstdint>

#include "Zyr3DTriangle.h"
#include "roi/ParameterBlock.h"

// The rules for storing and for reading a kind stand one below the other: where they differ,
// callers rely on it.

namespace {

bool isDirection(ZyrVector3d& v) {
    return v.IsValid() && v.Norm() != 0;
}

bool isExtent(ZyrVector3d& size) {
    return size.IsValid() && size.x > 0 && size.y > 0 && size.z > 0;
}

bool areRadii(double inner, double outer) {
    return inner >= 0 && outer >= inner && outer > 0;
}

bool isStart(double angle) {
    return angle >= 0 && angle <= 360;
}

bool isType(Zyr3DTorusType type) {
    return type == Zyr3DTorusType0 || type == Zyr3DTorusType1;
}

void appendVertices(ZyrVector3dArray& vertices, const double* first, const double* last) {
    for (; first != last; first += 3) vertices.Append(ZyrVector3d(first[0], first[1], first[2]));
}

/// The numbers of vertices and of line indices; both negative where the list is not as long as they
/// ask for.
struct Counts {
    std::int64_t vertices = -1;
    std::int64_t indices = -1;
};

Counts irregularCounts(const std::vector<double>& list) {
    if (list.size() < 2) return {};
    const Counts counts{zyr::truncateToInt32(list[0]), zyr::truncateToInt32(list[1])};
    const std::int64_t size = 2 + 3 * counts.vertices + counts.indices;
    const bool fits = counts.vertices >= 0 && counts.indices >= 0 &&
                      size == static_cast<std::int64_t>(list.size());
    return fits ? counts : Counts();
}

}  // namespace

IZyr3DROIPara::IZyr3DROIPara() = default;

IZyr3DROIPara::~IZyr3DROIPara() = default;

void IZyr3DROIPara::Gen3DPoint(ZyrVector3d& point) {
    zyr::store(block_, zyr::KindPoint, point.IsValid(), point);
}

bool IZyr3DROIPara::Get3DPoint(ZyrVector3d* point) {
    return zyr::load(block_, zyr::KindPoint, point) && point->IsValid();
}

void IZyr3DROIPara::Gen3DLine(ZyrVector3d& point, ZyrVector3d& direction) {
    const bool valid = point.IsValid() && isDirection(direction);
    zyr::store(block_, zyr::KindLine, valid, point, direction);
}

bool IZyr3DROIPara::Get3DLine(ZyrVector3d* point, ZyrVector3d* direction) {
    return zyr::load(block_, zyr::KindLine, point, direction) && point->IsValid() &&
           isDirection(*direction);
}

void IZyr3DROIPara::Gen3DLineSegment(ZyrVector3d& p1, ZyrVector3d& p2) {
    const bool valid = p1.IsValid() && p2.IsValid();
    zyr::store(block_, zyr::KindLineSegment, valid, p1, p2);
}

bool IZyr3DROIPara::Get3DLineSegment(ZyrVector3d* p1, ZyrVector3d* p2) {
    return zyr::load(block_, zyr::KindLineSegment, p1, p2) && p1->IsValid() && p2->IsValid();
}

void IZyr3DROIPara::Gen3DCircle(ZyrVector3d& center, ZyrVector3d& normal, double radius) {
    const bool valid = center.IsValid() && isDirection(normal) && radius > 0;
    zyr::store(block_, zyr::KindCircle, valid, center, normal, radius);
}

bool IZyr3DROIPara::Get3DCircle(ZyrVector3d* center, ZyrVector3d* normal, double* radius) {
    return zyr::load(block_, zyr::KindCircle, center, normal, radius) && center->IsValid() &&
           isDirection(*normal);
}

void IZyr3DROIPara::Gen3DPlane(ZyrVector3d& point, ZyrVector3d& normal) {
    const bool valid = point.IsValid() && isDirection(normal);
    zyr::store(block_, zyr::KindPlane, valid, point, normal);
}

bool IZyr3DROIPara::Get3DPlane(ZyrVector3d* point, ZyrVector3d* normal) {
    return zyr::load(block_, zyr::KindPlane, point, normal) && point->IsValid() &&
           isDirection(*normal);
}

void IZyr3DROIPara::Gen3DEllipse(ZyrVector3d& center, ZyrVector3d& angle, double radiusA,
                                 double radiusB) {
    const bool valid = center.IsValid() && angle.IsValid() && radiusA > 0 && radiusB > 0;
    zyr::store(block_, zyr::KindEllipse, valid, center, angle, radiusA, radiusB);
}

bool IZyr3DROIPara::Get3DEllipse(ZyrVector3d* center, ZyrVector3d* angle, double* radiusA,
                                 double* radiusB) {
    return zyr::load(block_, zyr::KindEllipse, center, angle, radiusA, radiusB) &&
           center->IsValid() && angle->IsValid() && *radiusB > 0;
}

void IZyr3DROIPara::Gen3DRect(ZyrVector3d& center, ZyrVector3d& angle, double width,
                              double height) {
    const bool valid = center.IsValid() && angle.IsValid() && width > 0 && height > 0;
    zyr::store(block_, zyr::KindRect, valid, center, angle, width, height);
}

bool IZyr3DROIPara::Get3DRect(ZyrVector3d* center, ZyrVector3d* angle, double* width,
                              double* height) {
    return zyr::load(block_, zyr::KindRect, center, angle, width, height) && center->IsValid() &&
           angle->IsValid() && *width > 0 && *height > 0;
}

void IZyr3DROIPara::Gen3DTorus(ZyrVector3d& center, ZyrVector3d& angle, double radiusInner,
                               double radiusOuter, double startAngle, double spanAngle,
                               Zyr3DTorusType type) {
    const bool valid = center.IsValid() && angle.IsValid() && areRadii(radiusInner, radiusOuter) &&
                       spanAngle >= 0 && isType(type);
    zyr::store(block_, zyr::KindTorus, valid, center, angle, radiusInner, radiusOuter, startAngle,
               spanAngle, type);
}

bool IZyr3DROIPara::Get3DTorus(ZyrVector3d* center, ZyrVector3d* angle, double* radiusInner,
                               double* radiusOuter, double* startAngle, double* spanAngle,
                               Zyr3DTorusType* type) {
    return zyr::load(block_, zyr::KindTorus, center, angle, radiusInner, radiusOuter, startAngle,
                     spanAngle, type) &&
           center->IsValid() && angle->IsValid() && areRadii(*radiusInner, *radiusOuter) &&
           isStart(*startAngle) && isType(*type);
}

void IZyr3DROIPara::Gen3DArc(ZyrVector3d& center, ZyrVector3d& angle, double radius,
                             double startAngle, double spanAngle) {
    const bool valid = center.IsValid() && angle.IsValid() && radius > 0 && spanAngle >= 0;
    zyr::store(block_, zyr::KindArc, valid, center, angle, radius, startAngle, spanAngle);
}

bool IZyr3DROIPara::Get3DArc(ZyrVector3d* center, ZyrVector3d* angle, double* radius,
                             double* startAngle, double* spanAngle) {
    return zyr::load(block_, zyr::KindArc, center, angle, radius, startAngle, spanAngle) &&
           center->IsValid() && angle->IsValid() && *radius > 0 && isStart(*startAngle) &&
           *spanAngle >= 0;
}

void IZyr3DROIPara::Gen3DBox(ZyrVector3d& center, ZyrVector3d& angle, ZyrVector3d& size) {
    const bool valid = center.IsValid() && angle.IsValid() && isExtent(size);
    zyr::store(block_, zyr::KindBox, valid, center, angle, size);
}

bool IZyr3DROIPara::Get3DBox(ZyrVector3d* center, ZyrVector3d* angle, ZyrVector3d* size) {
    return zyr::load(block_, zyr::KindBox, center, angle, size) && center->IsValid() &&
           angle->IsValid() && size->IsValid();
}

void IZyr3DROIPara::Gen3DSphere(ZyrVector3d& center, double radius) {
    zyr::store(block_, zyr::KindSphere, center.IsValid() && radius > 0, center, radius);
}

bool IZyr3DROIPara::Get3DSphere(ZyrVector3d* center, double* radius) {
    return zyr::load(block_, zyr::KindSphere, center, radius) && center->IsValid();
}

void IZyr3DROIPara::Gen3DCylinder(ZyrVector3d& center, ZyrVector3d& direction, double radius,
                                  double height) {
    const bool valid = center.IsValid() && isDirection(direction) && radius > 0 && height > 0;
    zyr::store(block_, zyr::KindCylinder, valid, center, direction, radius, height);
}

bool IZyr3DROIPara::Get3DCylinder(ZyrVector3d* center, ZyrVector3d* direction, double* radius,
                                  double* height) {
    return zyr::load(block_, zyr::KindCylinder, center, direction, radius, height) &&
           center->IsValid() && isDirection(*direction);
}

void IZyr3DROIPara::Gen3DEllipsoid(ZyrVector3d& center, ZyrVector3d& angle, ZyrVector3d& size) {
    const bool valid = center.IsValid() && angle.IsValid() && isExtent(size);
    zyr::store(block_, zyr::KindEllipsoid, valid, center, angle, size);
}

bool IZyr3DROIPara::Get3DEllipsoid(ZyrVector3d* center, ZyrVector3d* angle, ZyrVector3d* size) {
    return zyr::load(block_, zyr::KindEllipsoid, center, angle, size) && center->IsValid() &&
           angle->IsValid() && isExtent(*size);
}

void IZyr3DROIPara::Gen3DTube(ZyrVector3d& center, ZyrVector3d& direction, double innerRadius,
                              double outerRadius, double height) {
    const bool valid = center.IsValid() && isDirection(direction) &&
                       areRadii(innerRadius, outerRadius) && height > 0;
    zyr::store(block_, zyr::KindTube, valid, center, direction, innerRadius, outerRadius, height);
}

bool IZyr3DROIPara::Get3DTube(ZyrVector3d* center, ZyrVector3d* direction, double* innerRadius,
                              double* outerRadius, double* height) {
    return zyr::load(block_, zyr::KindTube, center, direction, innerRadius, outerRadius, height) &&
           center->IsValid() && direction->IsValid() && areRadii(*innerRadius, *outerRadius) &&
           *height >= 0;
}

void IZyr3DROIPara::Gen3DTriangle(ZyrVector3d& a, ZyrVector3d& b, ZyrVector3d& c) {
    zyr::store(block_, zyr::KindTriangle, Zyr3DTriangle(a, b, c).IsValid(), a, b, c);
}

bool IZyr3DROIPara::Get3DTriangle(ZyrVector3d* a, ZyrVector3d* b, ZyrVector3d* c) {
    return zyr::load(block_, zyr::KindTriangle, a, b, c) && a->IsValid() && b->IsValid() &&
           c->IsValid();
}

void IZyr3DROIPara::Gen3DPolygon(ZyrVector3dArray& vertices) {
    const int count = vertices.Length();
    zyr::reset(block_);
    if (count < 3 || vertices.NumValidPoints() != count) return;
    block_.parameters.assign(vertices.Data(), vertices.Data() + 3 * std::ptrdiff_t{count});
    block_.type = zyr::KindPolygon;
}

bool IZyr3DROIPara::Get3DPolygon(ZyrVector3dArray* vertices) {
    vertices->Clear();
    const std::vector<double>& list = block_.parameters;
    if (block_.type != zyr::KindPolygon || list.size() % 3 != 0) return false;
    appendVertices(*vertices, list.data(), list.data() + list.size());
    return true;
}

void IZyr3DROIPara::Gen3DIrregular(Zyr3DLineSet& lines) {
    const int vertices = lines.NumVertex(), indices = 2 * lines.NumLine();
    const bool valid = lines.NumLine() >= 1;
    zyr::store(block_, zyr::KindIrregular, valid, vertices, indices);
    if (!valid) return;
    std::vector<double>& list = block_.parameters;
    const double* vertex = lines.VertexData();
    list.insert(list.end(), vertex, vertex + 3 * std::ptrdiff_t{vertices});
    list.insert(list.end(), lines.LineData(), lines.LineData() + indices);
}

bool IZyr3DROIPara::Get3DIrregular(Zyr3DLineSet* lines) {
    lines->Clear();
    const std::vector<double>& list = block_.parameters;
    const Counts counts = irregularCounts(list);
    if (block_.type != zyr::KindIrregular || counts.vertices < 0) return false;
    const double* index = list.data() + 2 + 3 * counts.vertices;
    ZyrVector3dArray vertices;
    appendVertices(vertices, list.data() + 2, index);
    Zyr3DIntArray indices;
    for (; index != list.data() + list.size(); ++index)
        indices.Append(zyr::truncateToInt32(*index));
    lines->SetVertex(vertices);
    lines->SetLine(indices);
    return true;
}

int IZyr3DROIPara::ThirdROIType() const {
    return block_.type;
}
