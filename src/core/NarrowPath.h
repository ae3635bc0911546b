#pragma once

#include <memory>

#include "Zyr3DInner.h"

namespace zyr {

/// The path in the environment's encoding; "" when it is null or can't be converted.
inline std::unique_ptr<char[]> narrowPath(const wchar_t* path) {
    return std::unique_ptr<char[]>(Zyr3DInner::wchar2char(path));
}

}  // namespace zyr
