#include "Zyr3DRect.h"

#include "primitive/Primitive.h"

Zyr3DRect::Zyr3DRect() = default;

Zyr3DRect::Zyr3DRect(const ZyrVector3d& center, const ZyrVector3d& angle, double width,
                     double height)
    : width_(width), height_(height), center_(center), angle_(angle) {}

double Zyr3DRect::Width() const {
    return width_;
}

double Zyr3DRect::Height() const {
    return height_;
}

ZyrVector3d Zyr3DRect::Center() {
    return center_;
}

ZyrVector3d Zyr3DRect::Angle() {
    return angle_;
}

bool Zyr3DRect::IsValid() {
    return zyr::resetUnless(center_.IsValid() && angle_.IsValid() && width_ > 0 && height_ > 0,
                            *this);
}
