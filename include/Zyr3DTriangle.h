#pragma once

#include "ZyrExport.h"
#include "ZyrVector3d.h"

/// Three vertices, which callers read and write directly.
///
/// A plain value. A default triangle is invalid: its vertices are invalid vectors.
class ZYR_EXPORT Zyr3DTriangle {
public:
    /// The corners, in the order in which they were given.
    ZyrVector3d a;
    ZyrVector3d b;
    ZyrVector3d c;

    Zyr3DTriangle();
    /// Stored as given, and checked by IsValid alone.
    Zyr3DTriangle(const ZyrVector3d& a, const ZyrVector3d& b, const ZyrVector3d& c);

    /// Whether the vertices are valid and do not lie on one line. Otherwise the triangle becomes a
    /// default one. The line is told from the angle at b: 1 / |cos| must exceed 1 by more than
    /// 1.1e-5, so that a thin triangle is refused when its thin corner, or its flat one, is b.
    bool IsValid();
};
