#pragma once

#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>

namespace zyr {

/// The program's exit codes.
enum Outcome { kGood = 0, kDifference = 1, kUsage = 2, kFileTrouble = 3 };

/// A file that can't be read or written; the text says which and why, in one line.
struct FileTrouble : std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// A file that could be read but holds what it must not.
struct Fault : FileTrouble {
    /// A fault whose place, if any, the text tells.
    Fault(const std::string& path, const std::string& reason)
        : FileTrouble(path + ": " + reason), why(reason) {}
    Fault(const std::string& path, std::uint64_t at, const std::string& reason)
        : FileTrouble(path + ": refused: byte " + std::to_string(at) + ": " + reason),
          offset(at),
          why(reason) {}
    Fault(const std::string& path, std::uint64_t at, int line, const std::string& reason)
        : FileTrouble(path + ": line " + std::to_string(line) + ": " + reason),
          offset(at),
          why("line " + std::to_string(line) + ": " + reason) {}

    std::optional<std::uint64_t> offset;
    std::string why;  ///< without the file's name and the offset
};

}  // namespace zyr
