#include "Zyr3DCylinder.h"

#include "primitive/Primitive.h"

Zyr3DCylinder::Zyr3DCylinder() = default;

Zyr3DCylinder::Zyr3DCylinder(const ZyrVector3d& center, const ZyrVector3d& direction, double radius,
                             double height)
    : center_(center), direction_(direction), radius_(radius), height_(height) {}

ZyrVector3d Zyr3DCylinder::Center() {
    return center_;
}

ZyrVector3d Zyr3DCylinder::Direction() {
    return direction_;
}

double Zyr3DCylinder::Radius() const {
    return radius_;
}

double Zyr3DCylinder::Height() const {
    return height_;
}

bool Zyr3DCylinder::IsValid() {
    return zyr::resetUnless(center_.IsValid() && height_ > 0 && height_ < zyr::kInvalidValue &&
                                radius_ > 0 && radius_ < zyr::kInvalidValue &&
                                direction_.IsValid() && direction_.Norm() > zyr::kNoDirection,
                            *this);
}
