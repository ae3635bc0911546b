#pragma once

#include "ZyrExport.h"
#include "ZyrVector3d.h"

/// A circle's line, placed by its centre and its plane's normal.
///
/// A plain value; nothing is checked before IsValid, and the normal stays as long as it is given. A
/// default circle is invalid: centre and normal are invalid vectors, and the radius, unlike that of
/// the other figures, is the invalid value.
class ZYR_EXPORT Zyr3DCircle {
public:
    Zyr3DCircle();
    /// Stored as given, and checked by IsValid alone.
    Zyr3DCircle(const ZyrVector3d& center, const ZyrVector3d& normal, double radius);

    /// As stored; the normal is not normalised.
    ZyrVector3d Center();
    ZyrVector3d NormalVector();
    double Radius() const;

    /// Whether the radius lies strictly between 0 and the invalid value and the normal is valid and
    /// longer than 1.1e-5. Otherwise the circle becomes a default one. The centre has no say: a
    /// circle at an invalid centre is valid.
    bool IsValid();

private:
    ZyrVector3d center_;
    ZyrVector3d normal_;
    double radius_ = zyr::kInvalidValue;
};
