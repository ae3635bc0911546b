#include "picture/Scale.h"

#include <algorithm>
#include <cmath>
#include <iomanip>
#include <sstream>

#include "Table.h"

namespace zyr {
namespace {

double tickStep(const Scale& scale) {
    return roundStep((scale.high - scale.low) / scale.mostSteps);
}

/// Like 1.25e+09.
std::string exponentText(double value, double step, double largest) {
    const double digits = std::floor(std::log10(largest / step) + 1e-9);
    std::ostringstream text;
    text << std::scientific << std::setprecision(static_cast<int>(std::clamp(digits, 0.0, 16.0)))
         << value;
    return text.str();
}

}  // namespace

double roundStep(double length) {
    const double power = std::pow(10.0, std::floor(std::log10(length)));
    for (double factor : {1.0, 2.0, 5.0})
        if (length <= factor * power * 1.0001) return factor * power;
    return 10.0 * power;
}

bool Scale::isFlat() const {
    return !(high - low > 1e-12 * std::max(std::abs(low), std::abs(high)));
}

double Scale::fraction(double value) const {
    return isFlat() ? 0.5 : std::clamp((value - low) / (high - low), 0.0, 1.0);
}

std::vector<double> Scale::ticks() const {
    if (isFlat()) return {low};
    const double step = tickStep(*this), slack = step * 1e-6;
    std::vector<double> ticks;
    for (double i = std::ceil((low - slack) / step); i * step <= high + slack; i += 1.0)
        ticks.push_back(i * step + 0.0);  // never -0
    return ticks;
}

std::string Scale::text(double tick) const {
    if (isFlat()) return compact(tick);
    const double step = tickStep(*this), largest = std::max(std::abs(low), std::abs(high));
    if (largest >= 1e7 || step < 1e-5) return exponentText(tick, step, largest);
    return decimal(tick, std::max(0, static_cast<int>(-std::floor(std::log10(step) + 1e-9))));
}

}  // namespace zyr
