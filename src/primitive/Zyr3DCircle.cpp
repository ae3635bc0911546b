#include "Zyr3DCircle.h"

#include "primitive/Primitive.h"

Zyr3DCircle::Zyr3DCircle() = default;

Zyr3DCircle::Zyr3DCircle(const ZyrVector3d& center, const ZyrVector3d& normal, double radius)
    : center_(center), normal_(normal), radius_(radius) {}

ZyrVector3d Zyr3DCircle::Center() {
    return center_;
}

ZyrVector3d Zyr3DCircle::NormalVector() {
    return normal_;
}

double Zyr3DCircle::Radius() const {
    return radius_;
}

bool Zyr3DCircle::IsValid() {
    return zyr::resetUnless(radius_ > 0 && radius_ < zyr::kInvalidValue && normal_.IsValid() &&
                                normal_.Norm() > zyr::kNoDirection,
                            *this);
}
