#pragma once

#include "picture/Scale.h"
#include "render/Camera.h"
#include "render/Look.h"

namespace zyr {

/// Which heights the colours run over.
Scale heightScale(const Subject& subject);

/// What the colours of a picture show: what was asked for, else what the subject has.
ColorBy colorOf(const Subject& subject, const Look& look);

/// Draws a subject, lit and on its background, into a picture of the look's size times finer, which
/// the camera is made for.
cv::Mat shade(const Subject& subject, const Camera& camera, const Look& look, int finer,
              const cv::Rect& window);

}  // namespace zyr
