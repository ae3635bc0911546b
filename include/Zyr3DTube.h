#pragma once

#include "ZyrExport.h"
#include "ZyrVector3d.h"

/// A thick-walled cylinder, placed by its centre and the direction of its axis.
///
/// A plain value; nothing is checked before IsValid, and the direction stays as long as it is
/// given. A default tube is invalid: centre and direction are invalid vectors, the rest is 0.
class ZYR_EXPORT Zyr3DTube {
public:
    Zyr3DTube();
    /// Stored as given, and checked by IsValid alone.
    Zyr3DTube(const ZyrVector3d& center, const ZyrVector3d& direction, double innerRadius,
              double outerRadius, double height);

    /// As stored; the direction is not normalised.
    ZyrVector3d Center();
    ZyrVector3d Direction();
    double InnerRadius() const;
    double OuterRadius() const;
    double Height() const;

    /// Whether centre and direction are valid, 0 <= inner <= outer radius, outer radius > 0 and
    /// height > 0, and the direction's length is not 0. Otherwise the tube becomes a default one.
    /// Unlike Zyr3DCylinder it has no upper bounds and takes any length but 0; an inner radius of 0
    /// is a solid cylinder.
    bool IsValid();

private:
    ZyrVector3d center_;
    ZyrVector3d direction_;
    double innerRadius_ = 0;
    double outerRadius_ = 0;
    double height_ = 0;
};
