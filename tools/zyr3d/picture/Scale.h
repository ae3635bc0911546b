#pragma once

#include <string>
#include <vector>

namespace zyr {

/// The least of 1, 2 and 5 times a power of ten that is not below a positive length.
double roundStep(double length);

/// The values that an axis or a legend runs over.
struct Scale {
    double low = 0.0, high = 0.0;
    int mostSteps = 8;  ///< from tick to tick

    /// Whether all values are one, as far as doubles tell.
    bool isFlat() const;
    /// 0 at low to 1 at high; a half where all values are one.
    double fraction(double value) const;
    /// Round values between the ends; the one value where there is just one.
    std::vector<double> ticks() const;
    /// With as many digits as tell the ticks apart.
    std::string text(double tick) const;
};

}  // namespace zyr
