#include "IZyr3DShapePara.h"

namespace {

/// A block without a known kind leaves the other's doubles alone.
void convert(const zyr::ParameterBlock& from, zyr::ParameterBlock& to) {
    const bool known = from.type >= zyr::KindPoint && from.type <= zyr::KindIrregular;
    if (known) to.parameters = from.parameters;
    to.type = known ? from.type : int{zyr::KindNone};
}

}  // namespace

IZyr3DShapePara::IZyr3DShapePara() = default;

IZyr3DShapePara::~IZyr3DShapePara() = default;

void IZyr3DShapePara::Gen3DPoint(ZyrVector3d& point) {
    twin_.Gen3DPoint(point);
}

bool IZyr3DShapePara::Get3DPoint(ZyrVector3d* point) {
    return twin_.Get3DPoint(point);
}

void IZyr3DShapePara::Gen3DLine(ZyrVector3d& point, ZyrVector3d& direction) {
    twin_.Gen3DLine(point, direction);
}

bool IZyr3DShapePara::Get3DLine(ZyrVector3d* point, ZyrVector3d* direction) {
    return twin_.Get3DLine(point, direction);
}

void IZyr3DShapePara::Gen3DLineSegment(ZyrVector3d& p1, ZyrVector3d& p2) {
    twin_.Gen3DLineSegment(p1, p2);
}

bool IZyr3DShapePara::Get3DLineSegment(ZyrVector3d* p1, ZyrVector3d* p2) {
    return twin_.Get3DLineSegment(p1, p2);
}

void IZyr3DShapePara::Gen3DCircle(ZyrVector3d& center, ZyrVector3d& normal, double radius) {
    twin_.Gen3DCircle(center, normal, radius);
}

bool IZyr3DShapePara::Get3DCircle(ZyrVector3d* center, ZyrVector3d* normal, double* radius) {
    return twin_.Get3DCircle(center, normal, radius);
}

void IZyr3DShapePara::Gen3DPlane(ZyrVector3d& point, ZyrVector3d& normal) {
    twin_.Gen3DPlane(point, normal);
}

bool IZyr3DShapePara::Get3DPlane(ZyrVector3d* point, ZyrVector3d* normal) {
    return twin_.Get3DPlane(point, normal);
}

void IZyr3DShapePara::Gen3DEllipse(ZyrVector3d& center, ZyrVector3d& angle, double radiusA,
                                   double radiusB) {
    twin_.Gen3DEllipse(center, angle, radiusA, radiusB);
}

// Stricter than a region's: both radii count.
bool IZyr3DShapePara::Get3DEllipse(ZyrVector3d* center, ZyrVector3d* angle, double* radiusA,
                                   double* radiusB) {
    return twin_.Get3DEllipse(center, angle, radiusA, radiusB) && *radiusA > 0;
}

void IZyr3DShapePara::Gen3DRect(ZyrVector3d& center, ZyrVector3d& angle, double width,
                                double height) {
    twin_.Gen3DRect(center, angle, width, height);
}

bool IZyr3DShapePara::Get3DRect(ZyrVector3d* center, ZyrVector3d* angle, double* width,
                                double* height) {
    return twin_.Get3DRect(center, angle, width, height);
}

void IZyr3DShapePara::Gen3DTorus(ZyrVector3d& center, ZyrVector3d& angle, double radiusInner,
                                 double radiusOuter, double startAngle, double spanAngle,
                                 Zyr3DTorusType type) {
    twin_.Gen3DTorus(center, angle, radiusInner, radiusOuter, startAngle, spanAngle, type);
}

bool IZyr3DShapePara::Get3DTorus(ZyrVector3d* center, ZyrVector3d* angle, double* radiusInner,
                                 double* radiusOuter, double* startAngle, double* spanAngle,
                                 Zyr3DTorusType* type) {
    return twin_.Get3DTorus(center, angle, radiusInner, radiusOuter, startAngle, spanAngle, type);
}

void IZyr3DShapePara::Gen3DArc(ZyrVector3d& center, ZyrVector3d& angle, double radius,
                               double startAngle, double spanAngle) {
    twin_.Gen3DArc(center, angle, radius, startAngle, spanAngle);
}

bool IZyr3DShapePara::Get3DArc(ZyrVector3d* center, ZyrVector3d* angle, double* radius,
                               double* startAngle, double* spanAngle) {
    return twin_.Get3DArc(center, angle, radius, startAngle, spanAngle);
}

void IZyr3DShapePara::Gen3DBox(ZyrVector3d& center, ZyrVector3d& angle, ZyrVector3d& size) {
    twin_.Gen3DBox(center, angle, size);
}

bool IZyr3DShapePara::Get3DBox(ZyrVector3d* center, ZyrVector3d* angle, ZyrVector3d* size) {
    return twin_.Get3DBox(center, angle, size);
}

void IZyr3DShapePara::Gen3DSphere(ZyrVector3d& center, double radius) {
    twin_.Gen3DSphere(center, radius);
}

bool IZyr3DShapePara::Get3DSphere(ZyrVector3d* center, double* radius) {
    return twin_.Get3DSphere(center, radius);
}

void IZyr3DShapePara::Gen3DCylinder(ZyrVector3d& center, ZyrVector3d& direction, double radius,
                                    double height) {
    twin_.Gen3DCylinder(center, direction, radius, height);
}

bool IZyr3DShapePara::Get3DCylinder(ZyrVector3d* center, ZyrVector3d* direction, double* radius,
                                    double* height) {
    return twin_.Get3DCylinder(center, direction, radius, height);
}

void IZyr3DShapePara::Gen3DEllipsoid(ZyrVector3d& center, ZyrVector3d& angle, ZyrVector3d& size) {
    twin_.Gen3DEllipsoid(center, angle, size);
}

bool IZyr3DShapePara::Get3DEllipsoid(ZyrVector3d* center, ZyrVector3d* angle, ZyrVector3d* size) {
    return twin_.Get3DEllipsoid(center, angle, size);
}

void IZyr3DShapePara::Gen3DTube(ZyrVector3d& center, ZyrVector3d& direction, double innerRadius,
                                double outerRadius, double height) {
    twin_.Gen3DTube(center, direction, innerRadius, outerRadius, height);
}

bool IZyr3DShapePara::Get3DTube(ZyrVector3d* center, ZyrVector3d* direction, double* innerRadius,
                                double* outerRadius, double* height) {
    return twin_.Get3DTube(center, direction, innerRadius, outerRadius, height);
}

void IZyr3DShapePara::Gen3DTriangle(ZyrVector3d& a, ZyrVector3d& b, ZyrVector3d& c) {
    twin_.Gen3DTriangle(a, b, c);
}

bool IZyr3DShapePara::Get3DTriangle(ZyrVector3d* a, ZyrVector3d* b, ZyrVector3d* c) {
    return twin_.Get3DTriangle(a, b, c);
}

void IZyr3DShapePara::Gen3DPolygon(ZyrVector3dArray& vertices) {
    twin_.Gen3DPolygon(vertices);
}

bool IZyr3DShapePara::Get3DPolygon(ZyrVector3dArray* vertices) {
    return twin_.Get3DPolygon(vertices);
}

void IZyr3DShapePara::Gen3DAnyShape(Zyr3DLineSet& lines) {
    twin_.Gen3DIrregular(lines);
}

bool IZyr3DShapePara::Get3DAnyShape(Zyr3DLineSet* lines) {
    return twin_.Get3DIrregular(lines);
}

int IZyr3DShapePara::ThirdShapeType() const {
    return twin_.ThirdROIType();
}

void IZyr3DShapePara::From3DROI(const Zyr3DROI& roi) {
    convert(roi.para_->block_, twin_.block_);
}

void IZyr3DShapePara::To3DROI(Zyr3DROI* roi) {
    convert(twin_.block_, roi->para_->block_);
}
