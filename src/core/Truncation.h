#pragma once

#include <cstdint>
#include <limits>

namespace zyr {

/// The value truncated toward zero; what does not fit 32 bits, and NaN, gives -2147483648.
inline std::int32_t truncateToInt32(double value) {
    const bool fits = value > -2147483649.0 && value < 2147483648.0;
    return fits ? static_cast<std::int32_t>(value) : std::numeric_limits<std::int32_t>::min();
}

/// The magnitude of the truncated value, up to 2147483648.
inline double truncatedMagnitude(double value) {
    const double truncated = truncateToInt32(value);
    return truncated < 0 ? -truncated : truncated;
}

}  // namespace zyr
