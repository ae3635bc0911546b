#pragma once

namespace zyr {

/// What people call a value of an OpenCV depth code; "unknown" for what is none of a range image.
const char* valueTypeName(int depth);

}  // namespace zyr
