#pragma once

#include "render/Raster.h"

namespace zyr {

/// How bright a pixel stays beside and below what stands nearer to the eye, from 0 to 1. Planes
/// stay as they are however they lie. Reaches are in pixels.
double depthCue(const Raster& raster, int row, int column, double finest);

}  // namespace zyr
