#pragma once

#include "ZyrExport.h"
#include "ZyrVector3d.h"

/// The kind of a torus. The library only tells the two apart; what they mean is the callers'.
enum Zyr3DTorusType : int {
    Zyr3DTorusType0 = 0,
    Zyr3DTorusType1 = 1,
};

/// A ring or a segment of one, placed by its centre and three orientation angles.
///
/// All angles are in degrees. The orientation angles turn the torus about x, then y, then z. A
/// plain value; nothing is checked before IsValid. A default torus is invalid: centre and angle are
/// invalid vectors, the rest is 0.
class ZYR_EXPORT Zyr3DTorus {
public:
    Zyr3DTorus();
    /// Stored as given, and checked by IsValid alone.
    Zyr3DTorus(const ZyrVector3d& center, const ZyrVector3d& angle, double radiusInner,
               double radiusOuter, double startAngle, double spanAngle, Zyr3DTorusType type);

    /// As stored, angles in degrees.
    ZyrVector3d Center();
    ZyrVector3d Angle();
    double RadiusInner() const;
    double RadiusOuter() const;
    double StartAngle() const;
    double SpanAngle() const;
    Zyr3DTorusType Type() const;

    /// Whether centre and angle are valid, 0 <= inner <= outer radius, outer radius > 0,
    /// 0 <= start <= 360 and span >= 0. Otherwise the torus becomes a default one. The radii
    /// and the span have no upper bound and the type no say: any number passes here, while regions
    /// and shapes take the types 0 and 1 only.
    bool IsValid();

private:
    double radiusInner_ = 0;
    double radiusOuter_ = 0;
    double startAngle_ = 0;
    double spanAngle_ = 0;
    Zyr3DTorusType type_ = Zyr3DTorusType0;
    ZyrVector3d center_;
    ZyrVector3d angle_;
};
