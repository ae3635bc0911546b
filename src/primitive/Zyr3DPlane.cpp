#include "Zyr3DPlane.h"

#include "primitive/Primitive.h"

namespace {

bool isTooLong(const ZyrVector3d& v) {
    return v.Norm() >= zyr::kInvalidValue;
}

}  // namespace

Zyr3DPlane::Zyr3DPlane() = default;

Zyr3DPlane::Zyr3DPlane(const ZyrVector3d& point_, const ZyrVector3d& normal_)
    : point(point_), normal(normal_) {
    if (zyr::resetUnless(point.IsValid() && normal.IsValid(), *this)) normal = normal.Normalized();
}

Zyr3DPlane::Zyr3DPlane(const ZyrVector3d& p1, const ZyrVector3d& p2, const ZyrVector3d& p3) {
    ZyrVector3d u = p1 - p2;
    const ZyrVector3d w = p3 - p2;
    if (isTooLong(u) || isTooLong(w)) return;
    ZyrVector3d cross = u.Cross(w);
    if (isTooLong(cross)) return;
    normal = cross.Normalized();
    point = p2;
}

ZyrVector3d Zyr3DPlane::NormalVector() {
    ZyrVector3d copy = normal;
    return copy.IsNormalized() ? copy : copy.Normalized();
}

bool Zyr3DPlane::IsValid() {
    return zyr::resetUnless(
        normal.IsValid() && point.IsValid() && normal.Norm() > zyr::kNoDirection, *this);
}
