#include "ZyrDualQuaternion.h"

#include <cmath>

#include "transform/Angles.h"
#include "transform/UpperLeft.h"

namespace {

/// 0.5 * (0, t) * r, from half the translation.
ZyrQuaternion dualPart(ZyrVector3d halfTranslation, ZyrQuaternion& rotation) {
    ZyrQuaternion pure(0.0, halfTranslation);
    return pure * rotation;
}

/// Half the translation, as the vector part.
ZyrQuaternion halfTranslation(ZyrDualQuaternion& q) {
    ZyrQuaternion inverse = q.real.Inverse();
    return q.dual * inverse;
}

}  // namespace

void ZyrDualQuaternion::GenDualQuaternion(ZyrVector3d& axis, double angle, ZyrVector3d& moment,
                                          double distance) {
    ZyrQuaternion rotation;
    rotation.GenQuaternion(axis, angle);
    if (!rotation.IsValid() || !moment.IsValid()) {
        *this = ZyrDualQuaternion();
        return;
    }
    ZyrVector3d unit = axis.Normalized();
    const ZyrVector3d across = moment - unit * unit.Dot(moment);
    const double half = zyr::kPi * angle / 360.0;
    const double sine = std::sin(half);
    ZyrVector3d v = across * sine + unit * (0.5 * distance * std::cos(half));
    *this = ZyrDualQuaternion(rotation, ZyrQuaternion(-(sine * distance) * 0.5, v));
}

void ZyrDualQuaternion::GenDualQuaternion(ZyrQuaternion& rotation, ZyrVector3d& translation) {
    if (!rotation.IsValid() || !translation.IsValid()) {
        *this = ZyrDualQuaternion();
        return;
    }
    *this = ZyrDualQuaternion(rotation, dualPart(translation / 2.0, rotation));
}

void ZyrDualQuaternion::GenDualQuaternion(const ZyrMatrix4& m) {
    if (!IsValidTransformMatrix(m)) return;
    real.GenQuaternion(zyr::upperLeft(m));
    dual = dualPart(ZyrVector3d(m.Value(0, 3), m.Value(1, 3), m.Value(2, 3)) * 0.5, real);
}

void ZyrDualQuaternion::GetTransformMatrix(ZyrMatrix4* m) {
    if (!IsValid()) return;
    ZyrMatrix3 rotation;
    real.GetTransMatrix(&rotation);
    const ZyrVector3d t = halfTranslation(*this).v * 2.0;
    const double* e = rotation.Data();
    *m = ZyrMatrix4(e[0], e[1], e[2], t.x, e[3], e[4], e[5], t.y, e[6], e[7], e[8], t.z, 0.0, 0.0,
                    0.0, 1.0);
}

void ZyrDualQuaternion::GetRotateTrans(ZyrQuaternion* rotation, ZyrVector3d* translation) {
    if (!IsValid()) return;
    const ZyrVector3d t = halfTranslation(*this).v * 2.0;
    *rotation = real.Normalized();
    *translation = t;
}

void ZyrDualQuaternion::GetScrew(ZyrVector3d* axis, double* angle, ZyrVector3d* point,
                                 double* distance) {
    if (!IsValid()) return;
    ZyrQuaternion rotation;
    ZyrVector3d translation, a;
    double degrees = 0.0;
    GetRotateTrans(&rotation, &translation);
    rotation.GetAxisAngle(&a, &degrees);
    const double along = a.Dot(translation);
    const double tangent = std::tan(0.5 * degrees * zyr::kPi / 180.0);
    const ZyrVector3d across = translation - a * along;
    *axis = a;
    *angle = degrees;
    *point = (translation.Cross(a) + across / tangent) / 2.0;
    *distance = along;
}

void ZyrDualQuaternion::TransformPoint(ZyrVector3d& p, ZyrVector3d* out) {
    if (!IsValid()) return;
    ZyrVector3d zero(0.0, 0.0, 0.0);
    ZyrDualQuaternion point(ZyrQuaternion(1.0, zero), ZyrQuaternion(0.0, p));
    ZyrDualQuaternion unit = Normalized();
    ZyrDualQuaternion conjugate = unit.Conjugate();
    *out = (unit * point * conjugate).dual.v;
}

void ZyrDualQuaternion::SLERP(ZyrDualQuaternion& p, double t, ZyrDualQuaternion* out) {
    if (!IsValid() || !p.IsValid()) return;
    ZyrDualQuaternion a = Normalized();
    ZyrDualQuaternion b = p.Normalized();
    const double cosine = a.Dot(b);
    const double sine = std::sqrt(1.0 - cosine * cosine);
    const double theta = std::atan2(sine, std::fabs(cosine));
    ZyrDualQuaternion start = a * std::sin((1.0 - t) * theta);
    ZyrDualQuaternion end = b * std::sin(t * theta) * (cosine < 0 ? -1.0 : 1.0);
    *out = (end + start) / sine;
}

void ZyrDualQuaternion::LERP(ZyrDualQuaternion& p, double t, ZyrDualQuaternion* out) {
    if (!IsValid() || !p.IsValid()) return;
    ZyrDualQuaternion end = p.Normalized() * t;
    ZyrDualQuaternion start = Normalized() * (1.0 - t);
    *out = (end + start).Normalized();
}
