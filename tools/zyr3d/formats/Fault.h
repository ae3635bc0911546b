#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>

namespace zyr {

/// What is wrong with the bytes of a file, and where. Who knows the file's name puts it in front.
struct FormatFault : std::runtime_error {
    using std::runtime_error::runtime_error;
};

[[noreturn]] inline void failAtLine(std::size_t line, const std::string& why) {
    throw FormatFault("line " + std::to_string(line) + ": " + why);
}

[[noreturn]] inline void failAtByte(std::size_t offset, const std::string& why) {
    throw FormatFault("byte " + std::to_string(offset) + ": " + why);
}

/// The arrays' lengths are of this type, and three numbers a point have to be counted with it.
constexpr std::uint64_t kMostElements = 0x7FFFFFFF / 3;

/// Refuses a count that is more than the bytes could hold, before memory is taken for it.
inline int boundedCount(std::uint64_t count, std::uint64_t bytesEach, std::uint64_t bytesThere,
                        const std::string& what) {
    if (count > kMostElements)
        throw FormatFault(std::to_string(count) + " " + what + " are more than can be held");
    if (bytesEach > 0 && count > bytesThere / bytesEach)
        throw FormatFault("cut short: " + std::to_string(count) + " " + what + " do not fit the " +
                          std::to_string(bytesThere) + " bytes that are there");
    return static_cast<int>(count);
}

}  // namespace zyr
