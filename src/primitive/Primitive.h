#pragma once

#include <cmath>

#include "ZyrVector3d.h"

/// What the primitives share.
namespace zyr {

/// Lengths up to here are too short for a direction or a normal.
constexpr double kNoDirection = 1.1e-5;

/// A primitive that fails its own test becomes a default one, which is how callers come to see it.
template <class Primitive>
bool resetUnless(bool valid, Primitive& primitive) {
    if (!valid) primitive = Primitive();
    return valid;
}

/// The plain length of any vector: Norm() has the invalid value for some of them.
inline double length(const ZyrVector3d& v) {
    return std::sqrt(v.x * v.x + v.y * v.y + v.z * v.z);
}

}  // namespace zyr
