#include "render/DepthCue.h"

#include <algorithm>
#include <array>

namespace zyr {
namespace {

constexpr std::array<std::array<int, 2>, 4> kDirections = {{{1, 0}, {0, 1}, {1, 1}, {1, -1}}};

/// How far a pixel lies below the line between two opposite ones, as a share of their distance:
/// minus infinity where one of them has nothing.
double sunkBetween(const Raster& raster, int row, int column, int dy, int dx) {
    const double middle =
        (double{raster.height(row - dy, column - dx)} + raster.height(row + dy, column + dx)) / 2;
    return (middle - raster.height(row, column)) / std::max(std::abs(dx), std::abs(dy));
}

/// Whether the places at this distance before and behind are in a picture of the size.
bool isInside(int at, int distance, int size) {
    return at - distance >= 0 && at + distance < size;
}

}  // namespace

double depthCue(const Raster& raster, int row, int column, double finest) {
    constexpr double kNoise = 0.15, kDeepest = 0.9, kStrength = 0.5;
    double sunk = 0.0;
    for (double reach : {1.5, 4.0, 11.0}) {
        const int pixels = std::max(1, cvRound(reach * finest));
        const bool isAcross = isInside(column, pixels, raster.size().width);
        const bool isDown = isInside(row, pixels, raster.size().height);
        for (const auto& [dx, dy] : kDirections)
            if ((dx == 0 || isAcross) && (dy == 0 || isDown))
                sunk +=
                    std::clamp(sunkBetween(raster, row, column, dy * pixels, dx * pixels) - kNoise,
                               0.0, kDeepest);
    }
    return 1.0 / (1.0 + kStrength * sunk / 3.0);
}

}  // namespace zyr
