#include "Zyr3DLineSegment.h"

#include "primitive/Primitive.h"

Zyr3DLineSegment::Zyr3DLineSegment() = default;

Zyr3DLineSegment::Zyr3DLineSegment(const ZyrVector3d& p1_, const ZyrVector3d& p2_)
    : p1(p1_), p2(p2_) {}

double Zyr3DLineSegment::Length() const {
    return zyr::length(p2 - p1);
}

Zyr3DLine Zyr3DLineSegment::to3DLine() {
    return Zyr3DLine(p1, (p2 - p1).Normalized());
}

bool Zyr3DLineSegment::IsValid() {
    return zyr::resetUnless(p1.IsValid() && p2.IsValid(), *this);
}
