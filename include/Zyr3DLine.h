#pragma once

#include "ZyrExport.h"
#include "ZyrVector3d.h"

/// An unbounded line: a point on it and its direction, which callers read and write directly.
///
/// A plain value; nothing is checked or normalised before IsValid. A default line is invalid: point
/// and direction are invalid vectors.
class ZYR_EXPORT Zyr3DLine {
public:
    /// A point on the line, and where it runs, at any length.
    ZyrVector3d point;
    ZyrVector3d direction;

    Zyr3DLine();
    /// Stored as given, and checked by IsValid alone.
    Zyr3DLine(const ZyrVector3d& point, const ZyrVector3d& direction);

    /// The line from p1 towards p2, with a direction of length 1. Equal points give a direction of
    /// NaNs, which IsValid refuses.
    void From(const ZyrVector3d& p1, const ZyrVector3d& p2);

    /// As stored, not normalised.
    ZyrVector3d Direction();

    /// Whether point and direction are valid and the direction has a component of magnitude 1 or
    /// more: components count truncated to integers, so that the unit vector (0.6, 0.8, 0) is
    /// refused, and a line made by From or to3DLine passes only along an axis. Otherwise the line
    /// becomes a default one.
    bool IsValid();
};
