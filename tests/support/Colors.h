#pragma once

#include <algorithm>
#include <vector>

#include "ZyrColor.h"
#include "ZyrColorArray.h"

namespace test {

using Bytes = std::vector<unsigned char>;

/// The pixels of an array, in the order they lie in memory.
inline Bytes bytes(const ZyrColorArray& colors) {
    const unsigned char* first = colors.Data();
    const int count = first == nullptr ? 0 : colors.Length() * colors.Channel();
    return Bytes(first, first + count);
}

/// One row of colours made of these bytes.
inline ZyrColorArray colorsOf(int channel, const Bytes& pixels) {
    ZyrColorArray colors;
    colors.Create(static_cast<int>(pixels.size()) / channel, channel);
    if (!pixels.empty()) std::copy(pixels.begin(), pixels.end(), colors.Data());
    return colors;
}

}  // namespace test
