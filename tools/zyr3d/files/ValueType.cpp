#include "files/ValueType.h"

#include <array>
#include <opencv2/core.hpp>

#include "ZyrVector3d.h"

namespace zyr {

const char* valueTypeName(int depth) {
    static constexpr std::array<const char*, 7> names = {
        "8-bit unsigned", "8-bit signed", "16-bit unsigned", "16-bit signed",
        "32-bit signed",  "float",        "double"};
    const bool isKnown = depth >= 0 && depth < static_cast<int>(names.size());
    return isKnown ? names[static_cast<std::size_t>(depth)] : "unknown";
}

bool isHoleValue(double value, int depth) {
    return !(value < kInvalidValue) || (depth == CV_16U && value == 0.0);
}

}  // namespace zyr
