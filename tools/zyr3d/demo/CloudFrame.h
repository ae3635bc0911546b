#pragma once

#include <string>

#include "demo/Frame.h"

namespace zyr {

/// The points of a point-cloud file as raw buffers again. A file of several rows has a grid. Throws
/// FileTrouble, also when there are no points.
Frame readCloudFrame(const std::string& path);

}  // namespace zyr
