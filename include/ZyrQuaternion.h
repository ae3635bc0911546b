#pragma once

#include <cmath>

#include "ZyrExport.h"
#include "ZyrMatrix3.h"
#include "ZyrVector3d.h"

/// A rotation, as scalar part w and vector part v: four doubles in the order w, x, y, z.
///
/// A plain value. All angles are in degrees. Lengths are single precision: Norm, and all that
/// divides by it, carries about seven digits. A quaternion is valid when v is a valid vector and
/// its length exceeds 1e-5; a default one is invalid. No operation checks that unless it says so,
/// and none reports a failure: unusable input leaves the target as it was or gives an invalid
/// quaternion, except where another result is described. Outputs may be the object itself or an
/// input.
class ZYR_EXPORT ZyrQuaternion {
public:
    /// The scalar and the vector part.
    double w;
    ZyrVector3d v;

    /// Invalid: w is 0 and v the invalid vector.
    ZyrQuaternion();
    /// Stored as given, not normalised.
    ZyrQuaternion(double w, ZyrVector3d& v);

    /// The rotation about an axis of any length. The angle is first reduced to [0, 360), so that
    /// -90 gives what 270 gives: the rotation meant, with the sign of the whole quaternion turned.
    /// The degrees of the whole turns are counted in 32 bits: beyond 2^31 degrees they wrap, and
    /// the reduced angle lies outside. A zero axis gives NaN components. An invalid axis has its x
    /// set to the invalid value, as by ZyrVector3d::Normalized; the result may pass IsValid even
    /// so.
    void GenQuaternion(ZyrVector3d& axis, double angle);
    /// From one direction to another. The vector part is scaled by the sine of the angle between
    /// them, so that the result has unit length only for right angles and for equal or opposite
    /// directions. Equal ones may give NaN in v: the cosine is not clamped to 1. Opposite ones turn
    /// about an axis chosen by the signed components of from: (-1, 0, 0) finds none and gives NaN.
    /// Does nothing when either is invalid or shorter than 1e-5. One whose length reaches the
    /// invalid value has its x set to that.
    void GenQuaternion(ZyrVector3d& from, ZyrVector3d& to);
    /// From a rotation matrix. Does nothing when IsValidTransformMatrix refuses it.
    void GenQuaternion(const ZyrMatrix3& m);

    /// Component by component, valid or not.
    ZyrQuaternion operator+(ZyrQuaternion& p);
    ZyrQuaternion operator-(ZyrQuaternion& p);
    /// The Hamilton product: first p's rotation, then this one.
    ZyrQuaternion operator*(ZyrQuaternion& p);
    /// Each component times the factor.
    ZyrQuaternion operator*(double factor);
    /// Invalid when the divisor's magnitude is below 1e-5 or NaN.
    ZyrQuaternion operator/(double divisor);
    /// This times p's inverse.
    ZyrQuaternion operator/(ZyrQuaternion& p);

    /// The vector part negated.
    ZyrQuaternion Conjugate();
    /// Invalid when the squared length is below 1e-5.
    ZyrQuaternion Inverse();
    /// The length, rounded to single precision at each step.
    double Norm() const;
    /// Invalid when the length is below 1e-5.
    ZyrQuaternion Normalized();
    /// Normalises this one in place, its sign kept; does nothing when it is invalid.
    void FormatQuaterion();
    /// Whether v is a valid vector and the length exceeds 1e-5.
    bool IsValid();

    /// The axis is a unit vector, or (0, 0, 0) when v is no longer than 1e-5; the angle lies in
    /// [0, 360], above 180 for a negative w. Writes nothing when invalid.
    void GetAxisAngle(ZyrVector3d* axis, double* angle);
    /// The rotated direction, renormalised. This quaternion is taken to have unit length.
    void TransformDirection(ZyrVector3d& d, ZyrVector3d* out);
    /// Normalises this quaternion, then writes
    ///
    ///     1-2yy-2zz   2xy-2zw     2wy+2xz
    ///     2xy+2zw     1-2xx-2zz   2yz-2wz
    ///    -2wy+2xz     2yz+2wz     1-2yy-2zz
    ///
    /// which is the rotation's usual matrix only where x equals z, as for rotations about y, and
    /// for half turns where x equals -z: callers rely on the three entries m12, m21 and m22 as they
    /// stand here. Writes nothing when invalid.
    void GetTransMatrix(ZyrMatrix3* m);

    /// Whether the cosine of the angle between the two lies within the tolerance of 1; a tolerance
    /// below 0 counts as 0. Scale does not matter, sign does: q and -q differ. False when either is
    /// invalid.
    bool Equals(const ZyrQuaternion& p, double tolerance);
    /// From this one (t = 0) to p (t = 1) along the shorter arc, beyond both for other t, with
    /// weights in single precision. Writes nothing when the two are nearly equal or opposite.
    void SLERP(ZyrQuaternion& p, double t, ZyrQuaternion* out);
    /// The normalised straight mixture of the two normalised ones, their signs kept. An end that
    /// is zero or too short goes in with the invalid components of its Normalized: the mixture may
    /// come out as a valid unit quaternion even so.
    void LERP(ZyrQuaternion& p, double t, ZyrQuaternion* out);
    /// The sum of the four products, valid or not.
    double Dot(ZyrQuaternion& p);
};

ZYR_INLINE ZyrQuaternion::ZyrQuaternion() : w(0.0) {}

ZYR_INLINE ZyrQuaternion::ZyrQuaternion(double w_, ZyrVector3d& v_) : w(w_), v(v_) {}

ZYR_INLINE ZyrQuaternion ZyrQuaternion::operator+(ZyrQuaternion& p) {
    ZyrVector3d sum = v + p.v;
    return ZyrQuaternion(w + p.w, sum);
}

ZYR_INLINE ZyrQuaternion ZyrQuaternion::operator-(ZyrQuaternion& p) {
    ZyrVector3d difference = v - p.v;
    return ZyrQuaternion(w - p.w, difference);
}

ZYR_INLINE ZyrQuaternion ZyrQuaternion::operator*(ZyrQuaternion& p) {
    // v * p.w + p.v * w + v.Cross(p.v), its y and z as a pair that one instruction works on.
    using Pair = double __attribute__((vector_size(16)));
    const Pair yz = Pair{v.y, v.z} * p.w + Pair{p.v.y, p.v.z} * w +
                    (Pair{v.z, v.x} * Pair{p.v.x, p.v.y} - Pair{v.x, v.y} * Pair{p.v.z, p.v.x});
    ZyrVector3d product(v.x * p.w + p.v.x * w + (v.y * p.v.z - v.z * p.v.y), yz[0], yz[1]);
    return ZyrQuaternion(w * p.w - v.Dot(p.v), product);
}

ZYR_INLINE ZyrQuaternion ZyrQuaternion::operator*(double factor) {
    ZyrVector3d scaled = v * factor;
    return ZyrQuaternion(w * factor, scaled);
}

ZYR_INLINE ZyrQuaternion ZyrQuaternion::operator/(double divisor) {
    if (!(std::fabs(divisor) >= 1e-5)) return ZyrQuaternion();
    ZyrVector3d scaled = v / divisor;
    return ZyrQuaternion(w / divisor, scaled);
}

ZYR_INLINE ZyrQuaternion ZyrQuaternion::operator/(ZyrQuaternion& p) {
    ZyrQuaternion inverse = p.Inverse();
    return *this * inverse;
}

ZYR_INLINE ZyrQuaternion ZyrQuaternion::Conjugate() {
    ZyrVector3d negated(-v.x, -v.y, -v.z);
    return ZyrQuaternion(w, negated);
}

ZYR_INLINE ZyrQuaternion ZyrQuaternion::Inverse() {
    const double norm = Norm();
    return Conjugate() / (norm * norm);
}

ZYR_INLINE double ZyrQuaternion::Norm() const {
    return std::hypot(static_cast<float>(w), static_cast<float>(v.Norm()));
}

ZYR_INLINE ZyrQuaternion ZyrQuaternion::Normalized() {
    return *this / Norm();
}

ZYR_INLINE void ZyrQuaternion::FormatQuaterion() {
    if (IsValid()) *this = Normalized();
}

ZYR_INLINE bool ZyrQuaternion::IsValid() {
    return v.IsValid() && Norm() > 1e-5;
}

ZYR_INLINE void ZyrQuaternion::TransformDirection(ZyrVector3d& d, ZyrVector3d* out) {
    const ZyrVector3d t = v.Cross(d) * 2.0;
    ZyrVector3d rotated = d + t * w + v.Cross(t);
    *out = rotated.Normalized();
}

ZYR_INLINE double ZyrQuaternion::Dot(ZyrQuaternion& p) {
    return v.Dot(p.v) + w * p.w;
}
