#pragma once

#include <array>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <utility>

#include "ZyrDualQuaternion.h"
#include "ZyrMatrix3.h"
#include "ZyrMatrix4.h"
#include "ZyrQuaternion.h"
#include "support/ZyrValues.h"

/// Plain forms of the transforms, and short ways of making them.
namespace test {

constexpr double kPi = 3.141592653589793;

inline std::vector<double> values(const ZyrMatrix3& m) {
    return std::vector<double>(m.Data(), m.Data() + 9);
}

inline std::vector<double> values(const ZyrMatrix4& m) {
    return std::vector<double>(m.Data(), m.Data() + 16);
}

/// w, x, y, z.
inline std::vector<double> values(const ZyrQuaternion& q) {
    return {q.w, q.v.x, q.v.y, q.v.z};
}

/// The real part's four, then the dual part's.
inline std::vector<double> values(const ZyrDualQuaternion& q) {
    return {q.real.w, q.real.v.x, q.real.v.y, q.real.v.z,
            q.dual.w, q.dual.v.x, q.dual.v.y, q.dual.v.z};
}

inline ZyrQuaternion quaternion(double w, double x, double y, double z) {
    ZyrVector3d v(x, y, z);
    return ZyrQuaternion(w, v);
}

/// The rotation by degrees about the z axis, from sine and cosine of the half angle.
inline ZyrQuaternion aboutZ(double degrees) {
    const double half = degrees * kPi / 360.0;
    return quaternion(std::cos(half), 0, 0, std::sin(half));
}

inline ZyrQuaternion aboutX(double degrees) {
    const double half = degrees * kPi / 360.0;
    return quaternion(std::cos(half), std::sin(half), 0, 0);
}

template <class Matrix>
struct Elements;

template <>
struct Elements<ZyrMatrix3> {
    static constexpr int order = 3;
    using Array = std::array<double, 9>;
};

template <>
struct Elements<ZyrMatrix4> {
    static constexpr int order = 4;
    using Array = std::array<double, 16>;
};

template <class Matrix>
Matrix matrix(const typename Elements<Matrix>::Array& elements) {
    return std::apply([](auto... e) { return Matrix(e...); }, elements);
}

inline std::uint64_t bits(double value) {
    std::uint64_t word;
    std::memcpy(&word, &value, sizeof word);
    return word;
}

/// Equal bits, signed zeros told apart; any NaN for any other.
inline bool sameBits(double a, double b) {
    return (std::isnan(a) && std::isnan(b)) || bits(a) == bits(b);
}

/// Each number within an absolute tolerance of the one expected.
inline void expectNear(const std::vector<double>& actual, const std::vector<double>& expected,
                       double tolerance) {
    ASSERT_EQ(actual.size(), expected.size());
    for (std::size_t i = 0; i < actual.size(); ++i)
        EXPECT_NEAR(actual[i], expected[i], tolerance) << "number " << i;
}

/// Whether a member has exactly the signature, const or not included.
template <class Signature>
constexpr bool listed(Signature) {
    return true;
}

}  // namespace test
