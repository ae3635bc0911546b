#include "Zyr3DTriangle.h"

#include "primitive/Primitive.h"

namespace {

constexpr double kFlatness = 1.1e-5;

/// A right angle at b gives an infinite ratio; two vertices in one place give NaN, which fails.
bool isCollinear(const ZyrVector3d& a, const ZyrVector3d& b, const ZyrVector3d& c) {
    ZyrVector3d u = b - a;
    const ZyrVector3d w = b - c;
    const double dot = u.Dot(w);
    const double lengths = zyr::length(u) * zyr::length(w);
    const double reciprocalCosine = lengths / dot;
    return !(std::fabs(reciprocalCosine) - 1 > kFlatness);
}

}  // namespace

Zyr3DTriangle::Zyr3DTriangle() = default;

Zyr3DTriangle::Zyr3DTriangle(const ZyrVector3d& a_, const ZyrVector3d& b_, const ZyrVector3d& c_)
    : a(a_), b(b_), c(c_) {}

bool Zyr3DTriangle::IsValid() {
    return zyr::resetUnless(a.IsValid() && b.IsValid() && c.IsValid() && !isCollinear(a, b, c),
                            *this);
}
