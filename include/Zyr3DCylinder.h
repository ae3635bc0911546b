#pragma once

#include "ZyrExport.h"
#include "ZyrVector3d.h"

/// A solid cylinder, placed by its centre and the direction of its axis.
///
/// A plain value; nothing is checked before IsValid, and the direction stays as long as it is
/// given. A default cylinder is invalid: centre and direction are invalid vectors, radius and
/// height 0.
class ZYR_EXPORT Zyr3DCylinder {
public:
    Zyr3DCylinder();
    /// Stored as given, and checked by IsValid alone.
    Zyr3DCylinder(const ZyrVector3d& center, const ZyrVector3d& direction, double radius,
                  double height);

    /// As stored; the direction is not normalised.
    ZyrVector3d Center();
    ZyrVector3d Direction();
    double Radius() const;
    double Height() const;

    /// Whether centre and direction are valid, height and radius lie strictly between 0 and the
    /// invalid value, and the direction is longer than 1.1e-5. Otherwise the cylinder becomes a
    /// default one. Zyr3DTube has no such upper bounds.
    bool IsValid();

private:
    ZyrVector3d center_;
    ZyrVector3d direction_;
    double radius_ = 0;
    double height_ = 0;
};
