#pragma once

#include "support/TransformValues.h"

/// Motions to test with.
namespace test {

/// The rotation, then the translation.
inline ZyrDualQuaternion motion(ZyrQuaternion rotation, double x, double y, double z) {
    ZyrVector3d t(x, y, z);
    ZyrDualQuaternion q;
    q.GenDualQuaternion(rotation, t);
    return q;
}

inline ZyrDualQuaternion identity() {
    return ZyrDualQuaternion(quaternion(1, 0, 0, 0), quaternion(0, 0, 0, 0));
}

/// Ones that no getter takes.
inline const ZyrDualQuaternion kUnusable[] = {
    ZyrDualQuaternion(), ZyrDualQuaternion(quaternion(0, 0, 0, 0), quaternion(0, 1, 2, 3)),
    ZyrDualQuaternion(quaternion(1, 0, 0, 0), ZyrQuaternion())};

}  // namespace test
