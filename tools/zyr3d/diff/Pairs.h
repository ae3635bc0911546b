#pragma once

#include <string>
#include <vector>

namespace zyr {

/// Two files that are to be compared.
struct Pair {
    std::string first, second;
    std::string alone;  ///< which of them is in one folder only, "" where both are there
};

/// A pair of files; of a file and a folder, the file and its namesake in the folder; of two
/// folders, the files of the same name, sorted, that have a suffix we read. Throws FileTrouble.
std::vector<Pair> pairsOf(const std::string& first, const std::string& second);

/// What is not compared of two folders, a line each; none of files.
std::vector<std::string> passedOver(const std::string& first, const std::string& second);

}  // namespace zyr
