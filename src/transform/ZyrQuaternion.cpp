#include "ZyrQuaternion.h"

#include <cstdint>

#include "core/Truncation.h"
#include "transform/Angles.h"

namespace {

/// Whole turns are counted in 32 bits, and their degrees wrap there.
double reducedAngle(double angle) {
    const auto turns = static_cast<std::uint32_t>(zyr::truncateToInt32(angle / 360.0));
    const double rest = angle - static_cast<std::int32_t>(turns * 360U);
    return rest < 0 ? rest + 360.0 : rest;
}

/// The signs decide, not the magnitudes: (-1, 0, 0) gives the zero axis.
ZyrVector3d axisAcross(const ZyrVector3d& a) {
    if (a.x > 0.5) return ZyrVector3d(-a.z, 0.0, a.x);
    if (a.y > 0.5) return ZyrVector3d(a.y, -a.x, 0.0);
    return ZyrVector3d(0.0, a.z, -a.y);
}

bool isDirection(ZyrVector3d& d) {
    return d.IsValid() && !(d.Norm() < 1e-5);
}

ZyrQuaternion quaternion(double w, double x, double y, double z) {
    ZyrVector3d v(x, y, z);
    return ZyrQuaternion(w, v);
}

}  // namespace

void ZyrQuaternion::GenQuaternion(ZyrVector3d& axis, double angle) {
    const ZyrVector3d unit = axis.Normalized();
    const double half = reducedAngle(angle) * zyr::kPi / 360.0;
    w = std::cos(half);
    v = unit * std::sin(half);
}

void ZyrQuaternion::GenQuaternion(ZyrVector3d& from, ZyrVector3d& to) {
    if (!isDirection(from) || !isDirection(to)) return;
    ZyrVector3d a = from.Normalized();
    const ZyrVector3d b = to.Normalized();
    const double cosine = a.Dot(b);
    if (1.0 + cosine <= 1e-5) {
        w = 0.0;
        v = axisAcross(a).Normalized();
        return;
    }
    w = std::sqrt((1.0 + cosine) * 0.5);
    v = a.Cross(b) * std::sqrt((1.0 - cosine) * 0.5);
}

void ZyrQuaternion::GenQuaternion(const ZyrMatrix3& m) {
    if (!IsValidTransformMatrix(m)) return;
    const double* e = m.Data();
    const double m00 = e[0], m11 = e[4], m22 = e[8];
    const double ww = (m00 + m11 + m22 + 1.0) * 0.25;
    const double xx = (m00 - m11 - m22 + 1.0) * 0.25;
    const double yy = (m11 - m00 - m22 + 1.0) * 0.25;
    const double zz = (-m00 - m11 + m22 + 1.0) * 0.25;
    const double wx = (e[7] - e[5]) * 0.25, yz = (e[7] + e[5]) * 0.25;
    const double wy = (e[2] - e[6]) * 0.25, xz = (e[2] + e[6]) * 0.25;
    const double wz = (e[3] - e[1]) * 0.25, xy = (e[3] + e[1]) * 0.25;

    const double largest = std::fmax(std::fmax(ww, xx), std::fmax(yy, zz));
    const double s = std::sqrt(largest);
    if (largest == ww)
        *this = quaternion(s, wx / s, wy / s, wz / s);
    else if (largest == xx)
        *this = quaternion(wx / s, s, xy / s, xz / s);
    else if (largest == yy)
        *this = quaternion(wy / s, xy / s, s, yz / s);
    else
        *this = quaternion(wz / s, xz / s, yz / s, s);
}

void ZyrQuaternion::GetAxisAngle(ZyrVector3d* axis, double* angle) {
    if (!IsValid()) return;
    const double norm = v.Norm();
    const double degrees = 2.0 * (std::atan2(norm, w) * 180.0 / zyr::kPi);
    *axis = norm <= 1e-5 ? ZyrVector3d(0.0, 0.0, 0.0) : v.Normalized();
    *angle = degrees;
}

void ZyrQuaternion::GetTransMatrix(ZyrMatrix3* m) {
    if (!IsValid()) return;
    FormatQuaterion();
    const double x = v.x, y = v.y, z = v.z;
    *m = ZyrMatrix3(1 - 2 * y * y - 2 * z * z, 2 * x * y - 2 * z * w, 2 * w * y + 2 * x * z,
                    2 * x * y + 2 * z * w, 1 - 2 * x * x - 2 * z * z, 2 * y * z - 2 * w * z,
                    -2 * w * y + 2 * x * z, 2 * y * z + 2 * w * z, 1 - 2 * y * y - 2 * z * z);
}

bool ZyrQuaternion::Equals(const ZyrQuaternion& p, double tolerance) {
    ZyrQuaternion other = p;
    if (!other.IsValid() || !IsValid()) return false;
    const double cosine = (v.x * p.v.x + w * p.w + v.y * p.v.y + v.z * p.v.z) / (p.Norm() * Norm());
    return (tolerance <= 0.0 ? 0.0 : tolerance) >= std::fabs(cosine - 1.0);
}

// The cosine, the sine and the weights are single precision: the roundings are part of the result.
void ZyrQuaternion::SLERP(ZyrQuaternion& p, double t, ZyrQuaternion* out) {
    const double dot = v.x * p.v.x + v.y * p.v.y + w * p.w + v.z * p.v.z;
    const auto signedCosine = static_cast<float>(dot / (Norm() * p.Norm()));
    const float cosine = std::fabs(signedCosine);
    const float squaredSine = 1.0F - cosine * cosine;
    if (!(squaredSine >= 1e-16F)) return;

    const float sine = std::sqrt(squaredSine);
    const double theta = std::atan2(sine, cosine);
    const double reciprocal = 1.0F / sine;
    const double sign = signedCosine < 0 ? -1.0 : 1.0;
    const auto k0 = static_cast<float>(std::sin((1.0 - t) * theta) * reciprocal);
    const auto k1 = static_cast<float>(std::sin(t * theta) * reciprocal * sign);
    ZyrVector3d mixed = v * k0 + p.v * k1;
    *out = ZyrQuaternion(p.w * k1 + w * k0, mixed);
}

void ZyrQuaternion::LERP(ZyrQuaternion& p, double t, ZyrQuaternion* out) {
    ZyrQuaternion end = p.Normalized() * t;
    ZyrQuaternion start = Normalized() * (1.0 - t);
    *out = (end + start).Normalized();
}
