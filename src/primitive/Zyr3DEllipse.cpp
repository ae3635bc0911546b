#include "Zyr3DEllipse.h"

#include "primitive/Primitive.h"

Zyr3DEllipse::Zyr3DEllipse() = default;

Zyr3DEllipse::Zyr3DEllipse(const ZyrVector3d& center, const ZyrVector3d& angle, double radiusA,
                           double radiusB)
    : radiusA_(radiusA), radiusB_(radiusB), center_(center), angle_(angle) {}

double Zyr3DEllipse::RadiusA() const {
    return radiusA_;
}

double Zyr3DEllipse::RadiusB() const {
    return radiusB_;
}

ZyrVector3d Zyr3DEllipse::Center() {
    return center_;
}

ZyrVector3d Zyr3DEllipse::Angle() {
    return angle_;
}

bool Zyr3DEllipse::IsValid() {
    return zyr::resetUnless(center_.IsValid() && angle_.IsValid() && radiusA_ > 0 && radiusB_ > 0,
                            *this);
}
