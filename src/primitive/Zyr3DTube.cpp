#include "Zyr3DTube.h"

#include "primitive/Primitive.h"

Zyr3DTube::Zyr3DTube() = default;

Zyr3DTube::Zyr3DTube(const ZyrVector3d& center, const ZyrVector3d& direction, double innerRadius,
                     double outerRadius, double height)
    : center_(center),
      direction_(direction),
      innerRadius_(innerRadius),
      outerRadius_(outerRadius),
      height_(height) {}

ZyrVector3d Zyr3DTube::Center() {
    return center_;
}

ZyrVector3d Zyr3DTube::Direction() {
    return direction_;
}

double Zyr3DTube::InnerRadius() const {
    return innerRadius_;
}

double Zyr3DTube::OuterRadius() const {
    return outerRadius_;
}

double Zyr3DTube::Height() const {
    return height_;
}

bool Zyr3DTube::IsValid() {
    return zyr::resetUnless(center_.IsValid() && direction_.IsValid() && direction_.Norm() != 0 &&
                                innerRadius_ >= 0 && innerRadius_ <= outerRadius_ &&
                                outerRadius_ > 0 && height_ > 0,
                            *this);
}
