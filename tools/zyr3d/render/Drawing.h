#pragma once

#include "render/Look.h"

namespace zyr {

/// A picture of a subject that has something to draw: title, legend, the directions of the axes and
/// a scale bar around it, as far as the look wants them. b, g, r.
cv::Mat drawPicture(const Subject& subject, const Look& look);

}  // namespace zyr
