#pragma once

#include <cstddef>
#include <limits>
#include <vector>

#include "ZyrVector3d.h"
#include "core/FreshMemory.h"
#include "core/Lanes.h"

/// Vectors out of a sensor's flat buffer.
namespace zyr {

/// Two vectors of six values, as pairs x0 y0, z0 x1, y1 z1; where a component of a vector equals
/// the mark, the invalid vector. Without a branch: holes come at random.
template <class T>
void storeTwoUnlessMarked(double* target, const unsigned char* source, double mark) {
    const Lanes a = loadLanes<T>(source);
    const Lanes b = loadLanes<T>(source + 2 * sizeof(T));
    const Lanes c = loadLanes<T>(source + 4 * sizeof(T));
    const Lanes marks{mark, mark}, invalid{kInvalidValue, kInvalidValue};
    const LaneMask hitA = a == marks, hitB = b == marks, hitC = c == marks;
    const LaneMask isMarked = firstLanes(hitA, hitC) | secondLanes(hitA, hitC) | hitB;
    storeLanes(target, select(firstLanes(isMarked, isMarked), invalid, a));
    storeLanes(target + 2, select(isMarked, invalid, b));
    storeLanes(target + 4, select(secondLanes(isMarked, isMarked), invalid, c));
}

template <class T>
void storeUnlessMarked(double* target, const unsigned char* source, std::size_t n, double mark) {
    constexpr std::size_t kBytes = 3 * sizeof(T);
    for (std::size_t i = 0; i + 2 <= n; i += 2)
        storeTwoUnlessMarked<T>(target + 3 * i, source + i * kBytes, mark);
    if (n % 2 == 0) return;
    unsigned char last[2 * kBytes] = {};
    double vectors[6];
    std::memcpy(last, source + (n - 1) * kBytes, kBytes);
    storeTwoUnlessMarked<T>(vectors, last, mark);
    std::memcpy(target + 3 * (n - 1), vectors, sizeof(ZyrVector3d));
}

/// The vectors x0 y0 z0 x1 ... of a buffer that need not be aligned. A vector with a component
/// equal to the mark becomes invalid; the invalid value itself and NaN mark nothing.
template <class T>
std::vector<ZyrVector3d> rawPoints(const void* data, std::size_t n, double mark) {
    std::vector<ZyrVector3d> points;
    reserveFresh(points, n);
    if (mark == kInvalidValue) mark = std::numeric_limits<double>::quiet_NaN();
    const auto* bytes = static_cast<const unsigned char*>(data);
    appendFilled(points, n, [=](ZyrVector3d* target, std::size_t first, std::size_t count) {
        storeUnlessMarked<T>(&target->x, bytes + first * 3 * sizeof(T), count, mark);
    });
    return points;
}

}  // namespace zyr
