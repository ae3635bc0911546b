#pragma once

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

/// Byte strings and whole files.
namespace test {

using Bytes = std::vector<unsigned char>;

inline Bytes toBytes(const std::string& text) {
    return Bytes(text.begin(), text.end());
}

/// Adds the value as it lies in memory.
template <class T>
void put(Bytes& bytes, T value) {
    const auto* first = reinterpret_cast<const unsigned char*>(&value);
    bytes.insert(bytes.end(), first, first + sizeof value);
}

template <class T>
Bytes bytesOf(const std::vector<T>& values) {
    Bytes bytes;
    for (const T& value : values) put(bytes, value);
    return bytes;
}

/// The value that lies at an offset.
template <class T>
T valueAt(const Bytes& bytes, std::size_t offset) {
    T value{};
    if (offset + sizeof value <= bytes.size())
        std::memcpy(&value, bytes.data() + offset, sizeof value);
    return value;
}

inline Bytes joined(const std::vector<Bytes>& parts) {
    Bytes bytes;
    for (const Bytes& part : parts)
        for (const unsigned char byte : part) bytes.push_back(byte);
    return bytes;
}

inline Bytes joined(const Bytes& first, const Bytes& second) {
    return joined(std::vector<Bytes>{first, second});
}

/// A copy whose storage is exactly the bytes, so that the address sanitizer sees any step beyond.
inline Bytes prefix(const Bytes& bytes, std::size_t size) {
    return Bytes(bytes.begin(),
                 bytes.begin() + static_cast<std::ptrdiff_t>(std::min(size, bytes.size())));
}

inline Bytes readFile(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return Bytes(std::istreambuf_iterator<char>(file), {});
}

inline void writeFile(const std::string& path, const Bytes& bytes) {
    std::ofstream file(path, std::ios::binary);
    file.write(reinterpret_cast<const char*>(bytes.data()),
               static_cast<std::streamsize>(bytes.size()));
}

inline bool fileExists(const std::string& path) {
    return std::ifstream(path).is_open();
}

}  // namespace test
