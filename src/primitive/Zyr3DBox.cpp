#include "Zyr3DBox.h"

#include <cmath>

#include "primitive/Pose.h"
#include "primitive/Primitive.h"

namespace {

/// The corner at k times the size along each axis of the box.
ZyrVector3d corner(const ZyrMatrix4& pose, double k, const ZyrVector3d& s) {
    const auto coordinate = [&](int r) {
        return pose.Value(r, 0) * k * s.x + pose.Value(r, 1) * k * s.y +
               pose.Value(r, 2) * k * s.z + pose.Value(r, 3);
    };
    return ZyrVector3d(coordinate(0), coordinate(1), coordinate(2));
}

}  // namespace

Zyr3DBox::Zyr3DBox() = default;

Zyr3DBox::Zyr3DBox(const ZyrVector3d& center, const ZyrVector3d& angle, const ZyrVector3d& size)
    : center_(center), size_(size), angle_(angle) {}

Zyr3DBox::Zyr3DBox(const ZyrVector3d& size, const ZyrMatrix4& m) : size_(size) {
    SetAttributeMatrix(m);
}

bool Zyr3DBox::IsValid() {
    return zyr::resetUnless(zyr::isExtent(size_), *this);
}

ZyrVector3d Zyr3DBox::Center() {
    return center_;
}

ZyrVector3d Zyr3DBox::Size() {
    return size_;
}

ZyrVector3d Zyr3DBox::Angle() {
    return angle_;
}

ZyrMatrix4 Zyr3DBox::GetAttributeMatrix() {
    return zyr::poseMatrix(center_, angle_);
}

void Zyr3DBox::SetAttributeMatrix(const ZyrMatrix4& m) {
    zyr::readPose(m, &center_, &angle_);
}

ZyrVector3d Zyr3DBox::DirectionX() {
    return zyr::poseAxis(GetAttributeMatrix(), 0);
}

ZyrVector3d Zyr3DBox::DirectionY() {
    return zyr::poseAxis(GetAttributeMatrix(), 1);
}

ZyrVector3d Zyr3DBox::DirectionZ() {
    return zyr::poseAxis(GetAttributeMatrix(), 2);
}

void Zyr3DBox::FromCorner(const ZyrVector3d& a, const ZyrVector3d& b) {
    center_ = ZyrVector3d((a.x + b.x) * 0.5, (a.y + b.y) * 0.5, (a.z + b.z) * 0.5);
    angle_ = ZyrVector3d(0.0, 0.0, 0.0);
    size_ = ZyrVector3d(std::fabs(a.x - b.x), std::fabs(a.y - b.y), std::fabs(a.z - b.z));
}

ZyrVector3d Zyr3DBox::MinCorner() {
    const ZyrMatrix4 pose = GetAttributeMatrix();
    return IsValid() ? corner(pose, -0.5, size_) : ZyrVector3d();
}

ZyrVector3d Zyr3DBox::MaxCorner() {
    const ZyrMatrix4 pose = GetAttributeMatrix();
    return IsValid() ? corner(pose, 0.5, size_) : ZyrVector3d();
}

double Zyr3DBox::Volume() const {
    return zyr::isExtent(size_) ? size_.x * size_.y * size_.z : zyr::kInvalidValue;
}

bool Zyr3DBox::operator==(const Zyr3DBox& other) const {
    return size_.x == other.size_.x && size_.y == other.size_.y && size_.z == other.size_.z &&
           center_.x == other.center_.x && center_.y == other.center_.y &&
           center_.z == other.center_.z && angle_.x == other.angle_.x && angle_.y == other.angle_.y;
}
