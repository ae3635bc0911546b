#pragma once

#include <cmath>

#include "support/TransformValues.h"

/// What the tests of the two oriented solids share.
namespace test {

/// A pose that is refused.
inline ZyrMatrix4 withNaN() {
    return ZyrMatrix4(1, 0, 0, 9, 0, std::nan(""), 0, 9, 0, 0, 1, 9, 0, 0, 0, 1);
}

template <class Solid>
void expectDefault(Solid solid) {
    EXPECT_EQ(values(solid.Center()), std::vector<double>(3, kInvalid));
    EXPECT_EQ(values(solid.Size()), std::vector<double>(3, kInvalid));
    EXPECT_EQ(values(solid.Angle()), std::vector<double>(3, kInvalid));
}

}  // namespace test
