#pragma once

#include <cstdint>
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
    Fault(const std::string& path, std::uint64_t at, const std::string& reason)
        : FileTrouble(path + ": refused: byte " + std::to_string(at) + ": " + reason),
          offset(at),
          why(reason) {}

    std::uint64_t offset;
    std::string why;
};

}  // namespace zyr
