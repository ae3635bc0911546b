#include "render/DepthCue.h"

#include <algorithm>
#include <array>

namespace zyr {
namespace {

constexpr std::array<std::array<int, 2>, 4> kDirections = {{{1, 0}, {0, 1}, {1, 1}, {1, -1}}};

/// How far a pixel lies below the line between two opposite ones, as a share of their distance.
double sunkBetween(const Raster& raster, int row, int column, int dy, int dx) {
    const double own = raster.height(row, column);
    double rise = 0.0;
    for (int side : {-1, 1}) {
        const int y = row + side * dy, x = column + side * dx;
        if (raster.has(y, x)) rise += raster.height(y, x) - own;
    }
    return rise / 2.0 / std::max(std::abs(dx), std::abs(dy));
}

}  // namespace

double depthCue(const Raster& raster, int row, int column, double finest) {
    constexpr double kNoise = 0.08, kDeepest = 1.2, kStrength = 0.5;
    double sunk = 0.0;
    for (double reach : {1.0, 3.0, 9.0}) {
        const int pixels = std::max(1, cvRound(reach * finest));
        for (const auto& [dx, dy] : kDirections)
            sunk += std::clamp(sunkBetween(raster, row, column, dy * pixels, dx * pixels) - kNoise,
                               0.0, kDeepest);
    }
    return 1.0 / (1.0 + kStrength * sunk / 3.0);
}

}  // namespace zyr
