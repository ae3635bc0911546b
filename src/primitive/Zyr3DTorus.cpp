#include "Zyr3DTorus.h"

#include "primitive/Primitive.h"

Zyr3DTorus::Zyr3DTorus() = default;

Zyr3DTorus::Zyr3DTorus(const ZyrVector3d& center, const ZyrVector3d& angle, double radiusInner,
                       double radiusOuter, double startAngle, double spanAngle, Zyr3DTorusType type)
    : radiusInner_(radiusInner),
      radiusOuter_(radiusOuter),
      startAngle_(startAngle),
      spanAngle_(spanAngle),
      type_(type),
      center_(center),
      angle_(angle) {}

ZyrVector3d Zyr3DTorus::Center() {
    return center_;
}

ZyrVector3d Zyr3DTorus::Angle() {
    return angle_;
}

double Zyr3DTorus::RadiusInner() const {
    return radiusInner_;
}

double Zyr3DTorus::RadiusOuter() const {
    return radiusOuter_;
}

double Zyr3DTorus::StartAngle() const {
    return startAngle_;
}

double Zyr3DTorus::SpanAngle() const {
    return spanAngle_;
}

Zyr3DTorusType Zyr3DTorus::Type() const {
    return type_;
}

bool Zyr3DTorus::IsValid() {
    return zyr::resetUnless(center_.IsValid() && angle_.IsValid() && radiusInner_ >= 0 &&
                                radiusOuter_ > 0 && radiusInner_ <= radiusOuter_ &&
                                startAngle_ >= 0 && startAngle_ <= 360 && spanAngle_ >= 0,
                            *this);
}
