#pragma once

#include "ZyrExport.h"
#include "ZyrVector3d.h"

/// An ellipse's line, placed by its centre and three orientation angles.
///
/// The angles are in degrees and turn the ellipse's own plane about x, then y, then z. A plain
/// value; nothing is checked before IsValid. A default ellipse is invalid: centre and angle are
/// invalid vectors, the radii 0.
class ZYR_EXPORT Zyr3DEllipse {
public:
    Zyr3DEllipse();
    /// Stored as given, and checked by IsValid alone.
    Zyr3DEllipse(const ZyrVector3d& center, const ZyrVector3d& angle, double radiusA,
                 double radiusB);

    /// As stored, angles in degrees.
    double RadiusA() const;
    double RadiusB() const;
    ZyrVector3d Center();
    ZyrVector3d Angle();

    /// Whether centre and angle are valid and both radii > 0. Otherwise the ellipse becomes a
    /// default one.
    bool IsValid();

private:
    double radiusA_ = 0;
    double radiusB_ = 0;
    ZyrVector3d center_;
    ZyrVector3d angle_;
};
