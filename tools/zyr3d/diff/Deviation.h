#pragma once

#include <string>
#include <vector>

#include "diff/Side.h"

namespace zyr {

/// How a column differs from that of the other side.
struct Deviation {
    std::string column;
    double largest = 0;         ///< infinite where a number meets none
    std::size_t at = 0;         ///< the element of the largest
    std::size_t differing = 0;  ///< elements that differ by more than the tolerance
    std::size_t elements = 0;   ///< elements compared
};

struct Deviations {
    std::vector<std::string> notes;     ///< what can't be compared value by value
    std::vector<Deviation> deviations;  ///< one a column that both sides have
    std::size_t becameInvalid = 0, becameValid = 0;
    bool isGrid = false;  ///< so that it is values that became valid, not points

    bool isEqual() const;
};

Deviations compare(const Side& first, const Side& second, double tolerance);

}  // namespace zyr
