#include "Zyr3DArc.h"

#include "primitive/Primitive.h"

Zyr3DArc::Zyr3DArc() = default;

Zyr3DArc::Zyr3DArc(const ZyrVector3d& center, const ZyrVector3d& angle, double radius,
                   double startAngle, double spanAngle)
    : radius_(radius),
      startAngle_(startAngle),
      spanAngle_(spanAngle),
      center_(center),
      angle_(angle) {}

double Zyr3DArc::Radius() const {
    return radius_;
}

double Zyr3DArc::StartAngle() const {
    return startAngle_;
}

double Zyr3DArc::SpanAngle() const {
    return spanAngle_;
}

ZyrVector3d Zyr3DArc::Center() {
    return center_;
}

ZyrVector3d Zyr3DArc::Angle() {
    return angle_;
}

bool Zyr3DArc::IsValid() {
    return zyr::resetUnless(center_.IsValid() && angle_.IsValid() && radius_ > 0 &&
                                startAngle_ >= 0 && startAngle_ <= 360 && spanAngle_ >= 0,
                            *this);
}
