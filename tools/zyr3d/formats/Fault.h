#pragma once

#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>

namespace zyr {

/// Where something is in a file, for its faults.
struct Place {
    std::uint64_t offset = 0;  ///< of the byte, or of the start of the line
    std::size_t line = 0;      ///< from 1; 0 of what is no text
};

/// What is wrong with the bytes of a file, and where. Who knows the file's name puts it in front.
struct FormatFault : std::runtime_error {
    /// Of the file as a whole, or of its end.
    explicit FormatFault(const std::string& reason) : std::runtime_error(reason), why(reason) {}
    FormatFault(const std::string& text, std::uint64_t at, const std::string& reason)
        : std::runtime_error(text), offset(at), why(reason) {}

    std::optional<std::uint64_t> offset;  ///< none: the end of the file
    std::string why;                      ///< without the offset
};

[[noreturn]] inline void failAt(const Place& place, const std::string& why) {
    if (place.line == 0)
        throw FormatFault("byte " + std::to_string(place.offset) + ": " + why, place.offset, why);
    const std::string text = "line " + std::to_string(place.line) + ": " + why;
    throw FormatFault(text, place.offset, text);
}

/// The bytes end before what they announce does.
struct CutShort : FormatFault {
    explicit CutShort(const std::string& reason) : FormatFault("cut short: " + reason) {}
};

/// The arrays' lengths are of this type, and three numbers a point have to be counted with it.
constexpr std::uint64_t kMostElements = 0x7FFFFFFF / 3;

/// Refuses a count that is more than the bytes could hold, before memory is taken for it. The place
/// is where it stands.
inline int boundedCount(std::uint64_t count, std::uint64_t bytesEach, std::uint64_t bytesThere,
                        const std::string& what, const Place& place) {
    if (count > kMostElements)
        failAt(place, std::to_string(count) + " " + what + " are more than can be held");
    if (bytesEach > 0 && count > bytesThere / bytesEach)
        throw CutShort(std::to_string(count) + " " + what + " do not fit the " +
                       std::to_string(bytesThere) + " bytes that are there");
    return static_cast<int>(count);
}

}  // namespace zyr
