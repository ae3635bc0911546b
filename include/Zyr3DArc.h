#pragma once

#include "ZyrExport.h"
#include "ZyrVector3d.h"

/// A part of a circle's line, placed by its centre and three orientation angles.
///
/// All angles are in degrees. The orientation angles turn the arc's own plane about x, then y, then
/// z; the start angle is measured in that plane, and the span goes on from there. A plain value;
/// nothing is checked before IsValid. A default arc is invalid: centre and angle are invalid
/// vectors, the rest is 0.
class ZYR_EXPORT Zyr3DArc {
public:
    Zyr3DArc();
    /// Stored as given, and checked by IsValid alone.
    Zyr3DArc(const ZyrVector3d& center, const ZyrVector3d& angle, double radius, double startAngle,
             double spanAngle);

    /// As stored, angles in degrees.
    double Radius() const;
    double StartAngle() const;
    double SpanAngle() const;
    ZyrVector3d Center();
    ZyrVector3d Angle();

    /// Whether centre and angle are valid, radius > 0, 0 <= start <= 360 and span >= 0: a span has
    /// no upper bound, and may be 0. Otherwise the arc becomes a default one.
    bool IsValid();

private:
    double radius_ = 0;
    double startAngle_ = 0;
    double spanAngle_ = 0;
    ZyrVector3d center_;
    ZyrVector3d angle_;
};
