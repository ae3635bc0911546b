#include "Zyr3DLine.h"

#include "core/Truncation.h"
#include "primitive/Primitive.h"

namespace {

bool hasWholeComponent(const ZyrVector3d& v) {
    const double sum =
        zyr::truncatedMagnitude(v.x) + zyr::truncatedMagnitude(v.y) + zyr::truncatedMagnitude(v.z);
    return !(0.05 > sum);
}

}  // namespace

Zyr3DLine::Zyr3DLine() = default;

Zyr3DLine::Zyr3DLine(const ZyrVector3d& point_, const ZyrVector3d& direction_)
    : point(point_), direction(direction_) {}

// Not the vector's own division, which gives the invalid vector instead of 0 / 0. The points may be
// the line's own.
void Zyr3DLine::From(const ZyrVector3d& p1, const ZyrVector3d& p2) {
    const ZyrVector3d d = p2 - p1;
    const double distance = zyr::length(d);
    point = p1;
    direction = ZyrVector3d(d.x / distance, d.y / distance, d.z / distance);
}

ZyrVector3d Zyr3DLine::Direction() {
    return direction;
}

bool Zyr3DLine::IsValid() {
    return zyr::resetUnless(point.IsValid() && direction.IsValid() && hasWholeComponent(direction),
                            *this);
}
