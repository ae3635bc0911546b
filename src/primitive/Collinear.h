#pragma once

#include <cmath>

#include "ZyrVector3d.h"
#include "primitive/Primitive.h"

namespace zyr {

/// Whether |1 / cos| of the angle at b, from lengths and dot product, exceeds 1 by no more than
/// 1.1e-5. A right angle at b gives an infinite ratio; two vertices in one place give NaN, which
/// counts as collinear.
inline bool isCollinear(const ZyrVector3d& a, const ZyrVector3d& b, const ZyrVector3d& c) {
    constexpr double kFlatness = 1.1e-5;
    const ZyrVector3d u = b - a;
    const ZyrVector3d w = b - c;
    const double uu = u.x * u.x + u.y * u.y + u.z * u.z;
    const double ww = w.x * w.x + w.y * w.y + w.z * w.z;
    const double dot = u.x * w.x + u.y * w.y + u.z * w.z;
    // The square of the ratio tells most triangles without a root or a division. It is far from the
    // bound here, and large enough for its rounding errors not to matter.
    const double product = uu * ww;
    if (product > 1e-290 && product > dot * dot * 1.0001) return false;
    const double reciprocalCosine = std::sqrt(uu) * std::sqrt(ww) / dot;
    return !(std::fabs(reciprocalCosine) - 1 > kFlatness);
}

}  // namespace zyr
