#pragma once

#include <cmath>

#include "ZyrVector3dArray.h"
#include "support/ZyrValues.h"

/// The rule of a mesh's valid triangles, written out plainly.
namespace test {

inline double length(const double* v) {
    return std::sqrt(v[0] * v[0] + v[1] * v[1] + v[2] * v[2]);
}

inline bool isPoint(const double* v) {
    return v[0] < kInvalid && v[1] < kInvalid && v[2] < kInvalid;
}

/// By the rule as it is worded: 1 / |cos| at the second corner exceeds 1 by more than 1.1e-5.
inline bool isValidTriangle(const ZyrVector3dArray& vertices, const int* t) {
    for (int k = 0; k < 3; ++k)
        if (t[k] < 0 || t[k] >= vertices.Length()) return false;
    if (t[0] == t[1] || t[0] == t[2] || t[1] == t[2]) return false;
    const double *a = vertices.Data() + 3 * t[0], *b = vertices.Data() + 3 * t[1],
                 *c = vertices.Data() + 3 * t[2];
    if (!isPoint(a) || !isPoint(b) || !isPoint(c)) return false;
    const double u[] = {b[0] - a[0], b[1] - a[1], b[2] - a[2]};
    const double w[] = {b[0] - c[0], b[1] - c[1], b[2] - c[2]};
    const double dot = u[0] * w[0] + u[1] * w[1] + u[2] * w[2];
    return std::fabs(length(u) * length(w) / dot) - 1 > 1.1e-5;
}

}  // namespace test
