#pragma once

#include <cstddef>

namespace zyr {

/// How many of the vectors in a flat run x0 y0 z0 x1 ... are valid. Without branches, at the speed
/// of memory whatever the share of holes.
std::size_t countValid(const double* xyz, std::size_t vectors);

}  // namespace zyr
