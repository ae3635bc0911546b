#pragma once

#include <cstdint>
#include <cstring>
#include <vector>

#include "ZyrVector3dArray.h"

namespace test {

/// The bit patterns of an array's doubles: tells -0.0 from 0.0, and equal NaN from each other.
inline std::vector<std::uint64_t> bits(const ZyrVector3dArray& array) {
    std::vector<std::uint64_t> words(static_cast<std::size_t>(array.Length()) * 3);
    if (!words.empty()) std::memcpy(words.data(), array.Data(), words.size() * 8);
    return words;
}

}  // namespace test
