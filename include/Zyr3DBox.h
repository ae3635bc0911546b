#pragma once

#include "ZyrExport.h"
#include "ZyrMatrix4.h"
#include "ZyrVector3d.h"

/// An oriented cuboid: its centre, its full edge lengths along its own axes, and its rotation.
///
/// A plain value. The angles are in degrees about x, y and z and turn it as Rz * Ry * Rx: about the
/// fixed x axis first, then y, then z. A box is valid when each edge length lies strictly between 0
/// and the invalid value 3.4028234663852886e+38; centre and angles do not matter (for a
/// Zyr3DEllipsoid they do). A default box is invalid.
class ZYR_EXPORT Zyr3DBox {
public:
    /// Centre, size and angle are the invalid vector.
    Zyr3DBox();
    /// Mind the order: the angles come before the size.
    Zyr3DBox(const ZyrVector3d& center, const ZyrVector3d& angle, const ZyrVector3d& size);
    /// Centre and angles as SetAttributeMatrix sets them; invalid vectors when it refuses m.
    Zyr3DBox(const ZyrVector3d& size, const ZyrMatrix4& m);

    /// An invalid box becomes a default one, with centre and angles invalid too.
    bool IsValid();
    /// As stored: full edge lengths, and degrees about x, y and z.
    ZyrVector3d Center();
    ZyrVector3d Size();
    ZyrVector3d Angle();

    /// Rotation and centre as a homogeneous matrix; the size is no part of it.
    ZyrMatrix4 GetAttributeMatrix();
    /// Centre and angles from a homogeneous matrix; the size stays. The z angle read back is always
    /// 0: a turn about z goes into x and y, or is lost. The angles carry single precision. Does
    /// nothing when Zyr3DInner::isRotationMatrix refuses the upper left 3x3 block (a refused
    /// Zyr3DEllipsoid becomes invalid).
    void SetAttributeMatrix(const ZyrMatrix4& m);
    /// The box's own axes in world coordinates, of unit length.
    ZyrVector3d DirectionX();
    ZyrVector3d DirectionY();
    ZyrVector3d DirectionZ();

    /// The unrotated box between two opposite corners, valid or not.
    void FromCorner(const ZyrVector3d& a, const ZyrVector3d& b);
    /// The corner at half the size against each of the box's own axes. It is no minimum: on a
    /// rotated box other corners may be less. The invalid vector for an invalid box, which becomes
    /// a default one.
    ZyrVector3d MinCorner();
    /// The corner opposite to MinCorner.
    ZyrVector3d MaxCorner();
    /// The invalid value for an invalid box, which stays as it is.
    double Volume() const;
    /// Exact, but the angle about z is not compared: boxes that differ only there are equal.
    bool operator==(const Zyr3DBox& other) const;

private:
    ZyrVector3d center_;
    ZyrVector3d size_;
    ZyrVector3d angle_;
};
