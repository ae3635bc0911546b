#pragma once

#include "ZyrExport.h"
#include "ZyrVector3d.h"

/// An unbounded plane: a point on it and its normal, which callers read and write directly.
///
/// The constructors normalise the normal; one that is written directly stays as it is. A plain
/// value. A default plane is invalid: point and normal are invalid vectors.
class ZYR_EXPORT Zyr3DPlane {
public:
    /// A point in the plane, and its normal: the constructors store it at length 1.
    ZyrVector3d point;
    ZyrVector3d normal;

    Zyr3DPlane();
    /// A default plane unless both vectors are valid. A zero normal becomes NaNs, and one whose
    /// length reaches the invalid value becomes the invalid vector: IsValid refuses both.
    Zyr3DPlane(const ZyrVector3d& point, const ZyrVector3d& normal);
    /// The plane through three points, at p2, with the direction of (p1 - p2) x (p3 - p2) as its
    /// normal. A default plane when either difference, or their product, is invalid or as long as
    /// the invalid value. Points on one line give a normal of NaNs, which IsValid refuses.
    Zyr3DPlane(const ZyrVector3d& p1, const ZyrVector3d& p2, const ZyrVector3d& p3);

    /// The normal at length 1: as stored when its squared length lies in [0.995, 1.05] or it holds
    /// a NaN, else normalised. A zero normal gives NaNs, one that is otherwise invalid or whose
    /// length reaches the invalid value the invalid vector. The stored normal stays as it is.
    ZyrVector3d NormalVector();

    /// Whether point and normal are valid and the normal is longer than 1.1e-5. Otherwise the plane
    /// becomes a default one.
    bool IsValid();
};
