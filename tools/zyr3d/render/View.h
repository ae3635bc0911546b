#pragma once

#include <opencv2/core.hpp>
#include <string>

#include "render/Subject.h"

namespace zyr {

/// From where a picture is taken: the picture's directions as unit vectors of the data's space.
struct View {
    cv::Vec3d right, up, eye;  ///< eye: from the data to the eye
};

/// Azimuth 0 looks from the front along y, 90 from the right along -x; elevation 90 from above.
/// Degrees.
View viewFrom(double azimuth, double elevation);

/// "top", "bottom", "front", "side", "iso" or "AZ,EL". False when it is none of these.
bool parseView(const std::string& text, View& view);

/// From where the camera stood when the coordinates look like a camera's, from above for height
/// maps, else from the front, raised and a little to the right.
View naturalView(const Subject& subject, const Bounds& bounds);

}  // namespace zyr
