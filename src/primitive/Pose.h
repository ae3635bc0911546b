#pragma once

#include "ZyrMatrix4.h"
#include "ZyrVector3d.h"

/// What the two oriented solids share.
namespace zyr {

/// Rz * Ry * Rx of angles in degrees, with the centre as fourth column.
ZyrMatrix4 poseMatrix(const ZyrVector3d& center, const ZyrVector3d& angle);

/// Centre and angles of a pose, the angle about z always 0. False, with both untouched, when the
/// upper left 3x3 block is refused as a rotation.
bool readPose(const ZyrMatrix4& m, ZyrVector3d* center, ZyrVector3d* angle);

/// A column of the rotation.
ZyrVector3d poseAxis(const ZyrMatrix4& m, int column);

/// Whether each component lies strictly between 0 and the invalid value.
bool isExtent(const ZyrVector3d& size);

}  // namespace zyr
