#pragma once

#include <cstddef>

#include "Zyr3DIntArray.h"
#include "ZyrVector3dArray.h"
#include "primitive/Collinear.h"

/// Triangles of a mesh's flat lists.
namespace zyr {

inline bool isIn(int i, int count) {
    return i >= 0 && i < count;
}

/// The three indices of a triangle that is in range.
struct Corners {
    Corners(const Zyr3DIntArray& triangles, int t)
        : Corners(triangles.Data() + 3 * static_cast<std::size_t>(t)) {}
    explicit Corners(const int* indices) : a(indices[0]), b(indices[1]), c(indices[2]) {}

    bool areDifferent() const { return a != b && a != c && b != c; }
    bool areIn(int count) const { return isIn(a, count) && isIn(b, count) && isIn(c, count); }

    int a, b, c;
};

inline bool isPoint(const ZyrVector3d& v) {
    return v.x < kInvalidValue && v.y < kInvalidValue && v.z < kInvalidValue;
}

/// Vertices as a flat run.
struct Vertices {
    explicit Vertices(const ZyrVector3dArray& array)
        : first(reinterpret_cast<const ZyrVector3d*>(array.Data())), count(array.Length()) {}

    /// What Zyr3DTriangle's own test gives, without a triangle and a call for each.
    bool makeTriangle(const Corners& corners) const {
        if (!corners.areDifferent() || !corners.areIn(count)) return false;
        const ZyrVector3d &a = first[corners.a], &b = first[corners.b], &c = first[corners.c];
        return isPoint(a) && isPoint(b) && isPoint(c) && !isCollinear(a, b, c);
    }

    const ZyrVector3d* first;
    int count;
};

}  // namespace zyr
