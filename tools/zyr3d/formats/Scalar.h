#pragma once

#include <cstdint>
#include <cstring>
#include <string>

namespace zyr {

/// A number as it lies in a binary file: 'I' (signed), 'U' (unsigned) or 'F', of so many bytes.
struct Scalar {
    char kind = 'F';
    std::size_t size = 4;

    /// Whether loadScalar knows it.
    bool isKnown() const;
    /// Such as "uint16".
    std::string name() const;
};

/// The value of a known scalar, little-endian unless bytes are swapped.
double loadScalar(const Scalar& scalar, const char* bytes, bool isSwapped);

/// The value as it lies in memory, little-endian.
template <class T>
T loadAs(const char* bytes) {
    T value;
    std::memcpy(&value, bytes, sizeof value);
    return value;
}

/// Appends the value little-endian, or big-endian when bytes are swapped.
template <class T>
void appendAs(std::string& bytes, T value, bool isSwapped = false) {
    char raw[sizeof value];
    std::memcpy(raw, &value, sizeof value);
    if (isSwapped)
        for (std::size_t i = 0; i < sizeof value / 2; ++i)
            std::swap(raw[i], raw[sizeof value - 1 - i]);
    bytes.append(raw, sizeof value);
}

}  // namespace zyr
