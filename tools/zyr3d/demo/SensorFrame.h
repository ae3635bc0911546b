#pragma once

#include "demo/Frame.h"

namespace zyr {

/// A frame of a structured-light sensor that looks down at a machined part: 640 x 480 floats in mm
/// in the frame of the plate (x right, y away, z up), with the faults of its kind. Pixels that the
/// projector does not reach, grazing and glaring ones and random drop-outs are holes; some at steep
/// edges lie between the two surfaces, and a few anywhere. The same bits at every call.
Frame synthesiseSensorFrame();

}  // namespace zyr
