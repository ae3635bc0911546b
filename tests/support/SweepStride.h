#pragma once

#include <cstddef>
#include <cstdlib>

namespace test {

/// A sweep runs one case of so many. Should be prime, so that a run meets other bits and bytes in
/// each file.
inline std::size_t sweepStride(std::size_t usual) {
    const char* text = std::getenv("ZYR_SWEEP_STRIDE");
    return text == nullptr ? usual : std::strtoul(text, nullptr, 10);
}

}  // namespace test
