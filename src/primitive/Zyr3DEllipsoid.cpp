#include "Zyr3DEllipsoid.h"

#include "primitive/Pose.h"
#include "primitive/Primitive.h"

Zyr3DEllipsoid::Zyr3DEllipsoid() = default;

Zyr3DEllipsoid::Zyr3DEllipsoid(const ZyrVector3d& center, const ZyrVector3d& angle,
                               const ZyrVector3d& size)
    : center_(center), size_(size), angle_(angle) {}

Zyr3DEllipsoid::Zyr3DEllipsoid(const ZyrVector3d& size, const ZyrMatrix4& m) : size_(size) {
    SetAttributeMatrix(m);
}

bool Zyr3DEllipsoid::IsValid() {
    return zyr::resetUnless(center_.IsValid() && angle_.IsValid() && zyr::isExtent(size_), *this);
}

ZyrVector3d Zyr3DEllipsoid::Center() {
    return center_;
}

ZyrVector3d Zyr3DEllipsoid::Size() {
    return size_;
}

ZyrVector3d Zyr3DEllipsoid::Angle() {
    return angle_;
}

ZyrMatrix4 Zyr3DEllipsoid::GetAttributeMatrix() {
    return zyr::poseMatrix(center_, angle_);
}

void Zyr3DEllipsoid::SetAttributeMatrix(const ZyrMatrix4& m) {
    if (!zyr::readPose(m, &center_, &angle_)) *this = Zyr3DEllipsoid();
}

ZyrVector3d Zyr3DEllipsoid::DirectionX() {
    return zyr::poseAxis(GetAttributeMatrix(), 0);
}

ZyrVector3d Zyr3DEllipsoid::DirectionY() {
    return zyr::poseAxis(GetAttributeMatrix(), 1);
}

ZyrVector3d Zyr3DEllipsoid::DirectionZ() {
    return zyr::poseAxis(GetAttributeMatrix(), 2);
}
