#pragma once

#include <cmath>

#include "ZyrExport.h"

namespace zyr {
/// The largest single-precision float, held as a double: what marks a coordinate as missing.
constexpr double kInvalidValue = 3.4028234663852886e+38;
}  // namespace zyr

/// Three doubles x, y, z: a point, a normal, a direction or a translation.
///
/// A plain value of three contiguous doubles, so that arrays of vectors are flat runs
/// x0 y0 z0 x1 y1 z1 ...
///
/// A vector is valid when each component is strictly below the invalid value
/// 3.4028234663852886e+38. That value, anything above it, +infinity and NaN make the whole vector
/// invalid; -infinity does not. A default vector is invalid. The arithmetic does not look at
/// validity: adding to an invalid vector just adds to the invalid value.
class ZYR_EXPORT ZyrVector3d {
public:
    /// The coordinates, in the caller's unit.
    double x;
    double y;
    double z;

    /// The invalid vector: all three components hold the invalid value.
    ZyrVector3d();
    /// Stored as given.
    ZyrVector3d(double x, double y, double z);

    /// Component by component, valid or not.
    ZyrVector3d operator+(const ZyrVector3d& other) const;
    ZyrVector3d operator-(const ZyrVector3d& other) const;
    ZyrVector3d operator*(double factor) const;
    /// The invalid vector when the divisor is 0.0.
    ZyrVector3d operator/(double divisor) const;
    /// Exact: NaN equals nothing, +0.0 equals -0.0.
    bool operator==(const ZyrVector3d& other);

    /// Whether each component lies below the invalid value.
    bool IsValid();
    /// Sets all three components to the invalid value.
    void InValidate();

    /// Per component the lesser one; the other's where neither is less (equal, or a NaN).
    ZyrVector3d Minimum(const ZyrVector3d& other);
    /// Per component the greater one; the other's where neither is greater (equal, or a NaN).
    ZyrVector3d Maximum(const ZyrVector3d& other);

    /// Magnitudes of the components truncated toward zero to 32-bit integers: (-2.7, 0.4, 3.9)
    /// gives (2, 0, 3). What does not fit 32 bits, and NaN, gives 2147483648.
    ZyrVector3d Abs();
    /// Whether no component's difference, truncated toward zero to a 32-bit integer, exceeds the
    /// tolerance in magnitude. Differences below 1.0 are therefore equal for any tolerance from 0
    /// on; a difference that does not fit 32 bits, or is NaN, counts as 2147483648. A NaN tolerance
    /// accepts everything, a negative one nothing.
    bool Equals(const ZyrVector3d& other, double tolerance);

    /// Euclidean length; the invalid value for an invalid vector.
    double Norm() const;
    /// x x' + y y' + z z', summed in that order, as the squares of Norm and IsNormalized are.
    double Dot(const ZyrVector3d& other);
    /// The cross product, this vector first.
    ZyrVector3d Cross(const ZyrVector3d& other);

    /// The vector divided by its norm; NaN components for the zero vector. When the norm reaches
    /// the invalid value, the result is the invalid vector and this vector's own x becomes the
    /// invalid value: callers see from it that there was nothing to normalise.
    ZyrVector3d Normalized();
    /// Whether the squared length lies in [0.995, 1.05]. A vector with a NaN component passes:
    /// only a length that is known to lie outside the band is refused.
    bool IsNormalized() const;
};

ZYR_INLINE ZyrVector3d::ZyrVector3d()
    : x(zyr::kInvalidValue), y(zyr::kInvalidValue), z(zyr::kInvalidValue) {}

ZYR_INLINE ZyrVector3d::ZyrVector3d(double x_, double y_, double z_) : x(x_), y(y_), z(z_) {}

ZYR_INLINE ZyrVector3d ZyrVector3d::operator+(const ZyrVector3d& other) const {
    return ZyrVector3d(x + other.x, y + other.y, z + other.z);
}

ZYR_INLINE ZyrVector3d ZyrVector3d::operator-(const ZyrVector3d& other) const {
    return ZyrVector3d(x - other.x, y - other.y, z - other.z);
}

ZYR_INLINE ZyrVector3d ZyrVector3d::operator*(double factor) const {
    return ZyrVector3d(x * factor, y * factor, z * factor);
}

ZYR_INLINE ZyrVector3d ZyrVector3d::operator/(double divisor) const {
    if (divisor == 0.0) return ZyrVector3d();
    return ZyrVector3d(x / divisor, y / divisor, z / divisor);
}

ZYR_INLINE bool ZyrVector3d::operator==(const ZyrVector3d& other) {
    return x == other.x && y == other.y && z == other.z;
}

ZYR_INLINE bool ZyrVector3d::IsValid() {
    return x < zyr::kInvalidValue && y < zyr::kInvalidValue && z < zyr::kInvalidValue;
}

ZYR_INLINE void ZyrVector3d::InValidate() {
    *this = ZyrVector3d();
}

ZYR_INLINE ZyrVector3d ZyrVector3d::Minimum(const ZyrVector3d& other) {
    return ZyrVector3d(x < other.x ? x : other.x, y < other.y ? y : other.y,
                       z < other.z ? z : other.z);
}

ZYR_INLINE ZyrVector3d ZyrVector3d::Maximum(const ZyrVector3d& other) {
    return ZyrVector3d(x > other.x ? x : other.x, y > other.y ? y : other.y,
                       z > other.z ? z : other.z);
}

ZYR_INLINE double ZyrVector3d::Norm() const {
    if (!(x < zyr::kInvalidValue && y < zyr::kInvalidValue && z < zyr::kInvalidValue))
        return zyr::kInvalidValue;
    return std::sqrt(x * x + y * y + z * z);
}

ZYR_INLINE double ZyrVector3d::Dot(const ZyrVector3d& other) {
    return x * other.x + y * other.y + z * other.z;
}

ZYR_INLINE ZyrVector3d ZyrVector3d::Cross(const ZyrVector3d& other) {
    return ZyrVector3d(y * other.z - z * other.y, z * other.x - x * other.z,
                       x * other.y - y * other.x);
}

ZYR_INLINE ZyrVector3d ZyrVector3d::Normalized() {
    const double norm = Norm();
    if (norm >= zyr::kInvalidValue) {
        x = zyr::kInvalidValue;
        return ZyrVector3d();
    }
    return ZyrVector3d(x / norm, y / norm, z / norm);
}

ZYR_INLINE bool ZyrVector3d::IsNormalized() const {
    const double squaredLength = x * x + y * y + z * z;
    return !(squaredLength > 1.05) && !(squaredLength < 0.995);
}
