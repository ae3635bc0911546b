#include "Zyr3DTriangle.h"

#include "primitive/Collinear.h"
#include "primitive/Primitive.h"

Zyr3DTriangle::Zyr3DTriangle() = default;

Zyr3DTriangle::Zyr3DTriangle(const ZyrVector3d& a_, const ZyrVector3d& b_, const ZyrVector3d& c_)
    : a(a_), b(b_), c(c_) {}

bool Zyr3DTriangle::IsValid() {
    return zyr::resetUnless(a.IsValid() && b.IsValid() && c.IsValid() && !zyr::isCollinear(a, b, c),
                            *this);
}
