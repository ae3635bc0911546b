#pragma once

#include "formats/Scene.h"

/// Whether two scenes of a kind hold the same, by their bits, so that holes and NaN count as well.
namespace zyr {

bool sameCloud(ZyrPointCloud a, ZyrPointCloud b);
bool sameMesh(const Scene& a, const Scene& b);
/// With the colours and the calibration.
bool sameRange(const Scene& a, const Scene& b);

}  // namespace zyr
