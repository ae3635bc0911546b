#pragma once

#include "convert/Settings.h"

namespace zyr {

/// Gives the range image the calibration that is wished for.
void calibrate(Scene& scene, const ConvertSettings& settings);

/// One point a pixel, row by row. Z comes from the calibration, X and Y too or from the camera.
/// Throws FileTrouble where the colour picture does not fit.
Scene cloudOfRange(const Scene& scene, const ConvertSettings& settings);

/// Makes the values ones that a 16-bit picture can hold. What it costs goes to leftOut.
void fitPicture(Scene& scene);

}  // namespace zyr
