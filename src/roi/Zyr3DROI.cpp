#include "Zyr3DROI.h"

Zyr3DROI::Zyr3DROI() : para_(new IZyr3DROIPara) {}

Zyr3DROI::Zyr3DROI(const Zyr3DROI& other) : Zyr3DROI() {
    *this = other;
}

Zyr3DROI& Zyr3DROI::operator=(const Zyr3DROI& other) {
    para_->block_ = other.para_->block_;
    return *this;
}

Zyr3DROI::~Zyr3DROI() {
    delete para_;
}

void Zyr3DROI::Gen3DPoint(ZyrVector3d& point) {
    para_->Gen3DPoint(point);
}

bool Zyr3DROI::Get3DPoint(ZyrVector3d* point) {
    return para_->Get3DPoint(point);
}

void Zyr3DROI::Gen3DLine(ZyrVector3d& point, ZyrVector3d& direction) {
    para_->Gen3DLine(point, direction);
}

bool Zyr3DROI::Get3DLine(ZyrVector3d* point, ZyrVector3d* direction) {
    return para_->Get3DLine(point, direction);
}

void Zyr3DROI::Gen3DLineSegment(ZyrVector3d& p1, ZyrVector3d& p2) {
    para_->Gen3DLineSegment(p1, p2);
}

bool Zyr3DROI::Get3DLineSegment(ZyrVector3d* p1, ZyrVector3d* p2) {
    return para_->Get3DLineSegment(p1, p2);
}

void Zyr3DROI::Gen3DCircle(ZyrVector3d& center, ZyrVector3d& normal, double radius) {
    para_->Gen3DCircle(center, normal, radius);
}

bool Zyr3DROI::Get3DCircle(ZyrVector3d* center, ZyrVector3d* normal, double* radius) {
    return para_->Get3DCircle(center, normal, radius);
}

void Zyr3DROI::Gen3DPlane(ZyrVector3d& point, ZyrVector3d& normal) {
    para_->Gen3DPlane(point, normal);
}

bool Zyr3DROI::Get3DPlane(ZyrVector3d* point, ZyrVector3d* normal) {
    return para_->Get3DPlane(point, normal);
}

void Zyr3DROI::Gen3DEllipse(ZyrVector3d& center, ZyrVector3d& angle, double radiusA,
                            double radiusB) {
    para_->Gen3DEllipse(center, angle, radiusA, radiusB);
}

bool Zyr3DROI::Get3DEllipse(ZyrVector3d* center, ZyrVector3d* angle, double* radiusA,
                            double* radiusB) {
    return para_->Get3DEllipse(center, angle, radiusA, radiusB);
}

void Zyr3DROI::Gen3DRect(ZyrVector3d& center, ZyrVector3d& angle, double width, double height) {
    para_->Gen3DRect(center, angle, width, height);
}

bool Zyr3DROI::Get3DRect(ZyrVector3d* center, ZyrVector3d* angle, double* width, double* height) {
    return para_->Get3DRect(center, angle, width, height);
}

void Zyr3DROI::Gen3DTorus(ZyrVector3d& center, ZyrVector3d& angle, double radiusInner,
                          double radiusOuter, double startAngle, double spanAngle,
                          Zyr3DTorusType type) {
    para_->Gen3DTorus(center, angle, radiusInner, radiusOuter, startAngle, spanAngle, type);
}

bool Zyr3DROI::Get3DTorus(ZyrVector3d* center, ZyrVector3d* angle, double* radiusInner,
                          double* radiusOuter, double* startAngle, double* spanAngle,
                          Zyr3DTorusType* type) {
    return para_->Get3DTorus(center, angle, radiusInner, radiusOuter, startAngle, spanAngle, type);
}

void Zyr3DROI::Gen3DArc(ZyrVector3d& center, ZyrVector3d& angle, double radius, double startAngle,
                        double spanAngle) {
    para_->Gen3DArc(center, angle, radius, startAngle, spanAngle);
}

bool Zyr3DROI::Get3DArc(ZyrVector3d* center, ZyrVector3d* angle, double* radius, double* startAngle,
                        double* spanAngle) {
    return para_->Get3DArc(center, angle, radius, startAngle, spanAngle);
}

void Zyr3DROI::Gen3DBox(ZyrVector3d& center, ZyrVector3d& angle, ZyrVector3d& size) {
    para_->Gen3DBox(center, angle, size);
}

bool Zyr3DROI::Get3DBox(ZyrVector3d* center, ZyrVector3d* angle, ZyrVector3d* size) {
    return para_->Get3DBox(center, angle, size);
}

void Zyr3DROI::Gen3DSphere(ZyrVector3d& center, double radius) {
    para_->Gen3DSphere(center, radius);
}

bool Zyr3DROI::Get3DSphere(ZyrVector3d* center, double* radius) {
    return para_->Get3DSphere(center, radius);
}

void Zyr3DROI::Gen3DCylinder(ZyrVector3d& center, ZyrVector3d& direction, double radius,
                             double height) {
    para_->Gen3DCylinder(center, direction, radius, height);
}

bool Zyr3DROI::Get3DCylinder(ZyrVector3d* center, ZyrVector3d* direction, double* radius,
                             double* height) {
    return para_->Get3DCylinder(center, direction, radius, height);
}

void Zyr3DROI::Gen3DEllipsoid(ZyrVector3d& center, ZyrVector3d& angle, ZyrVector3d& size) {
    para_->Gen3DEllipsoid(center, angle, size);
}

bool Zyr3DROI::Get3DEllipsoid(ZyrVector3d* center, ZyrVector3d* angle, ZyrVector3d* size) {
    return para_->Get3DEllipsoid(center, angle, size);
}

void Zyr3DROI::Gen3DTube(ZyrVector3d& center, ZyrVector3d& direction, double innerRadius,
                         double outerRadius, double height) {
    para_->Gen3DTube(center, direction, innerRadius, outerRadius, height);
}

bool Zyr3DROI::Get3DTube(ZyrVector3d* center, ZyrVector3d* direction, double* innerRadius,
                         double* outerRadius, double* height) {
    return para_->Get3DTube(center, direction, innerRadius, outerRadius, height);
}

void Zyr3DROI::Gen3DTriangle(ZyrVector3d& a, ZyrVector3d& b, ZyrVector3d& c) {
    para_->Gen3DTriangle(a, b, c);
}

bool Zyr3DROI::Get3DTriangle(ZyrVector3d* a, ZyrVector3d* b, ZyrVector3d* c) {
    return para_->Get3DTriangle(a, b, c);
}

void Zyr3DROI::Gen3DPolygon(ZyrVector3dArray& vertices) {
    para_->Gen3DPolygon(vertices);
}

bool Zyr3DROI::Get3DPolygon(ZyrVector3dArray* vertices) {
    return para_->Get3DPolygon(vertices);
}

void Zyr3DROI::Gen3DIrregular(Zyr3DLineSet& lines) {
    para_->Gen3DIrregular(lines);
}

bool Zyr3DROI::Get3DIrregular(Zyr3DLineSet* lines) {
    return para_->Get3DIrregular(lines);
}

int Zyr3DROI::ROIType3D() const {
    return para_->ThirdROIType();
}
