#pragma once

#include <gtest/gtest.h>

#include <vector>

#include "ZyrColor.h"
#include "ZyrVector3d.h"
#include "ZyrVector3dArray.h"

/// Plain forms of the library's values, for EXPECT_EQ: the library's own comparisons are not const
/// and not for all types.
namespace test {

constexpr double kInvalid = 3.4028234663852886e+38;

inline std::vector<double> values(const ZyrVector3d& v) {
    return {v.x, v.y, v.z};
}

inline std::vector<int> values(const ZyrColor& c) {
    return {c.r, c.g, c.b, c.a};
}

/// x0 y0 z0 x1 ...; for lists of doubles and integers their elements.
template <class Array>
auto values(const Array& array) {
    const auto* first = array.Data();
    using Value = std::decay_t<decltype(*first)>;
    const std::size_t perElement = sizeof(array[0]) / sizeof(Value);
    return std::vector<Value>(first, first + static_cast<std::size_t>(array.Length()) * perElement);
}

}  // namespace test
