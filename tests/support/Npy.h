#pragma once

#include <string>
#include <vector>

#include "support/Bytes.h"

namespace test {

/// The elements of a little-endian, C-ordered .npy file of version 1, flat; none when it is missing
/// or of another type. The type is as the file words it: "<f8", "|u1", "<i4", "<u2".
template <class T>
std::vector<T> readNpy(const std::string& path, const std::string& type) {
    const Bytes bytes = readFile(path);
    if (bytes.size() < 10 || bytes[6] != 1) return {};
    const std::size_t start = 10 + valueAt<std::uint16_t>(bytes, 8);
    const std::string header(bytes.begin() + 10,
                             bytes.begin() + static_cast<std::ptrdiff_t>(start));
    const bool isPlain = header.find("'fortran_order': False") != std::string::npos;
    if (!isPlain || header.find("'" + type + "'") == std::string::npos) return {};
    std::vector<T> elements((bytes.size() - start) / sizeof(T));
    if (!elements.empty())
        std::memcpy(elements.data(), bytes.data() + start, elements.size() * sizeof(T));
    return elements;
}

}  // namespace test
