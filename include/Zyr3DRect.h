#pragma once

#include "ZyrExport.h"
#include "ZyrVector3d.h"

/// A rectangle, placed by its centre and three orientation angles.
///
/// The angles are in degrees and turn the rectangle's own plane about x, then y, then z. A plain
/// value; nothing is checked before IsValid. A default rectangle is invalid: centre and angle are
/// invalid vectors, width and height 0.
class ZYR_EXPORT Zyr3DRect {
public:
    Zyr3DRect();
    /// Stored as given, and checked by IsValid alone.
    Zyr3DRect(const ZyrVector3d& center, const ZyrVector3d& angle, double width, double height);

    /// As stored, angles in degrees.
    double Width() const;
    double Height() const;
    ZyrVector3d Center();
    ZyrVector3d Angle();

    /// Whether centre and angle are valid and width and height > 0. Otherwise the rectangle becomes
    /// a default one.
    bool IsValid();

private:
    double width_ = 0;
    double height_ = 0;
    ZyrVector3d center_;
    ZyrVector3d angle_;
};
