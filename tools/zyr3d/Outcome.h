#pragma once

#include <stdexcept>

namespace zyr {

/// The program's exit codes.
enum Outcome { kGood = 0, kDifference = 1, kUsage = 2, kFileTrouble = 3 };

/// A file that can't be read or written; the text says which and why, in one line.
struct FileTrouble : std::runtime_error {
    using std::runtime_error::runtime_error;
};

}  // namespace zyr
