#pragma once

namespace zyr {

/// What people call a value of an OpenCV depth code; "unknown" for what is none of a range image.
const char* valueTypeName(int depth);

/// Which values of a range image stand for nothing: NaN and the invalid value, and 0 of unsigned
/// 16-bit counts.
bool isHoleValue(double value, int depth);

}  // namespace zyr
