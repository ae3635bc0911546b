#pragma once

#include "ZyrExport.h"
#include "ZyrVector3d.h"

/// A ball, placed by its centre.
///
/// A plain value; nothing is checked before IsValid. A default sphere is invalid: its centre is the
/// invalid vector and its radius 0.
class ZYR_EXPORT Zyr3DSphere {
public:
    Zyr3DSphere();
    /// Stored as given, and checked by IsValid alone.
    Zyr3DSphere(const ZyrVector3d& center, double radius);

    /// As stored.
    ZyrVector3d Center();
    double Radius() const;
    /// 4.186666791439056 times the cubed radius, a constant slightly below 4/3 pi; 0 for a radius
    /// of 0 or less.
    double Volumn() const;

    /// Whether the magnitudes of the centre's x and y lie below the invalid value and the radius
    /// > 0. Otherwise the sphere becomes a default one. The centre's z has no say, and -infinity in
    /// x or y fails, unlike in a vector's own test.
    bool IsValid();

    /// Exact: a NaN equals nothing.
    bool operator==(const Zyr3DSphere& other) const;

private:
    ZyrVector3d center_;
    double radius_ = 0;
};
