#pragma once

#include "ZyrExport.h"
#include "ZyrMatrix4.h"
#include "ZyrVector3d.h"

/// An oriented ellipsoid: its centre, its full axis lengths (diameters), and its rotation.
///
/// A plain value. The angles are in degrees about x, y and z and turn it as Rz * Ry * Rx: about the
/// fixed x axis first, then y, then z. An ellipsoid is valid when centre and angles are valid
/// vectors and each axis length lies strictly between 0 and the invalid value
/// 3.4028234663852886e+38. A default ellipsoid is invalid.
class ZYR_EXPORT Zyr3DEllipsoid {
public:
    /// Centre, size and angle are the invalid vector.
    Zyr3DEllipsoid();
    /// Mind the order: the angles come before the size.
    Zyr3DEllipsoid(const ZyrVector3d& center, const ZyrVector3d& angle, const ZyrVector3d& size);
    /// Centre and angles as SetAttributeMatrix sets them; a default ellipsoid when it refuses m.
    Zyr3DEllipsoid(const ZyrVector3d& size, const ZyrMatrix4& m);

    /// An invalid ellipsoid becomes a default one.
    bool IsValid();
    /// As stored: full axis lengths, and degrees about x, y and z.
    ZyrVector3d Center();
    ZyrVector3d Size();
    ZyrVector3d Angle();

    /// Rotation and centre as a homogeneous matrix; the size is no part of it.
    ZyrMatrix4 GetAttributeMatrix();
    /// Centre and angles from a homogeneous matrix; the size stays. The z angle read back is always
    /// 0: a turn about z goes into x and y, or is lost. The angles carry single precision. The
    /// ellipsoid becomes a default one when Zyr3DInner::isRotationMatrix refuses the upper left 3x3
    /// block (a refused Zyr3DBox stays as it is).
    void SetAttributeMatrix(const ZyrMatrix4& m);
    /// The ellipsoid's own axes in world coordinates, of unit length.
    ZyrVector3d DirectionX();
    ZyrVector3d DirectionY();
    ZyrVector3d DirectionZ();

private:
    ZyrVector3d center_;
    ZyrVector3d size_;
    ZyrVector3d angle_;
};
