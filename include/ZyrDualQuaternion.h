#pragma once

#include "ZyrExport.h"
#include "ZyrMatrix4.h"
#include "ZyrQuaternion.h"
#include "ZyrVector3d.h"

/// A rigid motion: a rotation, then a translation t. The real part is the rotation r, the dual part
/// 0.5 * (0, t) * r.
///
/// A plain value. All angles are in degrees. Rotations go through ZyrQuaternion throughout, with
/// its single-precision lengths and its own rotation matrix. It is valid when the real part is
/// valid and the dual part's vector is; the dual part's scalar is never looked at. A default one is
/// invalid. Nothing is reported: getters and interpolations of an invalid one write nothing.
/// Outputs may be the object itself, its parts or an input.
class ZYR_EXPORT ZyrDualQuaternion {
public:
    /// The rotation r, and 0.5 * (0, t) * r.
    ZyrQuaternion real;
    ZyrQuaternion dual;

    /// Both parts are invalid.
    ZyrDualQuaternion();
    /// Stored as given.
    ZyrDualQuaternion(const ZyrQuaternion& real, const ZyrQuaternion& dual);

    /// A screw: rotation about an axis of any length with the given moment, and a shift by distance
    /// along it. The real part reduces the angle to [0, 360) and the dual part does not, so that
    /// outside that range their half angles differ. Both parts become invalid when the rotation or
    /// the moment is.
    void GenDualQuaternion(ZyrVector3d& axis, double angle, ZyrVector3d& moment, double distance);
    /// The rotation is taken as it is, not normalised. Both parts become invalid when either input
    /// is.
    void GenDualQuaternion(ZyrQuaternion& rotation, ZyrVector3d& translation);
    /// From a homogeneous matrix, whose last row is not looked at. Does nothing when
    /// IsValidTransformMatrix refuses it.
    void GenDualQuaternion(const ZyrMatrix4& m);

    /// Part by part, valid or not.
    ZyrDualQuaternion operator+(ZyrDualQuaternion& p);
    ZyrDualQuaternion operator-(ZyrDualQuaternion& p);
    /// First p's motion, then this one.
    ZyrDualQuaternion operator*(ZyrDualQuaternion& p);
    /// Both parts times the factor.
    ZyrDualQuaternion operator*(double factor);
    /// Both parts are invalid when the divisor's magnitude is below 1e-5 or NaN.
    ZyrDualQuaternion operator/(double divisor);

    /// Both parts conjugated, the dual part negated besides: (w, -v) and (-w, v).
    ZyrDualQuaternion Conjugate();
    /// The same motion with a real part of unit length.
    ZyrDualQuaternion Normalized();
    /// The real part's length, in single precision.
    double Norm() const;
    /// Of the real parts only.
    double Dot(ZyrDualQuaternion& p);
    /// Whether the real part and the dual part's vector are valid.
    bool IsValid();

    /// Normalises the real part in place, then writes the rotation as ZyrQuaternion::GetTransMatrix
    /// does, the translation, and (0, 0, 0, 1) as the last row. The dual part stays as it is, so
    /// that a real part of another length than 1 scales the translation by its length.
    void GetTransformMatrix(ZyrMatrix4* m);
    /// The rotation normalised, and the translation, in the caller's unit.
    void GetRotateTrans(ZyrQuaternion* rotation, ZyrVector3d* translation);
    /// The axis is a unit vector, and point its moment, as GenDualQuaternion takes it: the cross
    /// product of the axis's foot point with its direction. Where the rotation's v is no longer
    /// than 1e-5, axis is (0, 0, 0) and distance 0. A pure translation shows by angle 0, with half
    /// the invalid value in each component of point; but by angle 360, with a point far off, when
    /// the real part is (-1, 0, 0, 0).
    void GetScrew(ZyrVector3d* axis, double* angle, ZyrVector3d* point, double* distance);
    /// The point after the motion, whatever the real part's length.
    void TransformPoint(ZyrVector3d& p, ZyrVector3d* out);

    /// From this one (t = 0) to p (t = 1) along the shorter arc. Both parts of the result are
    /// invalid when the two real parts are nearly equal or opposite: there is no linear fallback.
    void SLERP(ZyrDualQuaternion& p, double t, ZyrDualQuaternion* out);
    /// The normalised straight mixture of the two normalised ones, their signs kept.
    void LERP(ZyrDualQuaternion& p, double t, ZyrDualQuaternion* out);
};

ZYR_INLINE ZyrDualQuaternion::ZyrDualQuaternion() {}

ZYR_INLINE ZyrDualQuaternion::ZyrDualQuaternion(const ZyrQuaternion& real_,
                                                const ZyrQuaternion& dual_)
    : real(real_), dual(dual_) {}

ZYR_INLINE ZyrDualQuaternion ZyrDualQuaternion::operator+(ZyrDualQuaternion& p) {
    return ZyrDualQuaternion(real + p.real, dual + p.dual);
}

ZYR_INLINE ZyrDualQuaternion ZyrDualQuaternion::operator-(ZyrDualQuaternion& p) {
    return ZyrDualQuaternion(real - p.real, dual - p.dual);
}

ZYR_INLINE ZyrDualQuaternion ZyrDualQuaternion::operator*(ZyrDualQuaternion& p) {
    ZyrQuaternion second = dual * p.real;
    return ZyrDualQuaternion(real * p.real, real * p.dual + second);
}

ZYR_INLINE ZyrDualQuaternion ZyrDualQuaternion::operator*(double factor) {
    return ZyrDualQuaternion(real * factor, dual * factor);
}

ZYR_INLINE ZyrDualQuaternion ZyrDualQuaternion::operator/(double divisor) {
    return ZyrDualQuaternion(real / divisor, dual / divisor);
}

ZYR_INLINE ZyrDualQuaternion ZyrDualQuaternion::Conjugate() {
    return ZyrDualQuaternion(real.Conjugate(), dual.Conjugate() * -1.0);
}

ZYR_INLINE ZyrDualQuaternion ZyrDualQuaternion::Normalized() {
    ZyrQuaternion unit = real.Normalized();
    ZyrQuaternion inverse = real.Inverse();
    return ZyrDualQuaternion(unit, dual * inverse * unit);
}

ZYR_INLINE double ZyrDualQuaternion::Norm() const {
    return real.Norm();
}

ZYR_INLINE double ZyrDualQuaternion::Dot(ZyrDualQuaternion& p) {
    return real.Dot(p.real);
}

ZYR_INLINE bool ZyrDualQuaternion::IsValid() {
    return real.IsValid() && dual.v.IsValid();
}
