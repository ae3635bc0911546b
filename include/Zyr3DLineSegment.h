#pragma once

#include "Zyr3DLine.h"
#include "ZyrExport.h"
#include "ZyrVector3d.h"

/// A straight piece between two end points, which callers read and write directly.
///
/// A plain value. A default segment is invalid: its ends are invalid vectors.
class ZYR_EXPORT Zyr3DLineSegment {
public:
    /// The two ends.
    ZyrVector3d p1;
    ZyrVector3d p2;

    Zyr3DLineSegment();
    /// Stored as given, and checked by IsValid alone.
    Zyr3DLineSegment(const ZyrVector3d& p1, const ZyrVector3d& p2);

    /// The distance between the ends, valid or not: 0 for a default segment.
    double Length() const;
    /// The line through p1 with the normalised direction from p1 to p2: NaNs when they are equal,
    /// the invalid vector when p2 - p1 is invalid or its length reaches the invalid value. Mind
    /// that Zyr3DLine's test refuses most unit directions.
    Zyr3DLine to3DLine();

    /// Whether both ends are valid; a length of 0 is valid. Otherwise the segment becomes a default
    /// one.
    bool IsValid();
};
