#include "core/ValidPoints.h"

#include "ZyrVector3d.h"
#include "core/Lanes.h"

namespace zyr {
namespace {

LaneMask areBelowInvalid(const double* first) {
    return loadLanes<double>(first) < Lanes{kInvalidValue, kInvalidValue};
}

/// Both vectors' validity, of the six doubles as three pairs x0 y0, z0 x1, y1 z1.
LaneMask areValid(const double* two) {
    const LaneMask a = areBelowInvalid(two);
    const LaneMask b = areBelowInvalid(two + 2);
    const LaneMask c = areBelowInvalid(two + 4);
    return firstLanes(a, c) & secondLanes(a, c) & b;
}

}  // namespace

std::size_t countValid(const double* xyz, std::size_t vectors) {
    // A set mask is -1. Two sums, so that neither waits for the other.
    LaneMask even{}, odd{};
    std::size_t i = 0;
    for (; i + 4 <= vectors; i += 4) {
        even -= areValid(xyz + 3 * i);
        odd -= areValid(xyz + 3 * i + 6);
    }
    const LaneMask sums = even + odd;
    auto valid = static_cast<std::size_t>(sums[0] + sums[1]);
    for (; i < vectors; ++i) {
        const double* v = xyz + 3 * i;
        valid += v[0] < kInvalidValue && v[1] < kInvalidValue && v[2] < kInvalidValue;
    }
    return valid;
}

}  // namespace zyr
