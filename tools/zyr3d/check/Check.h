#pragma once

#include <opencv2/core.hpp>
#include <string>

#include "Facts.h"

namespace zyr {

/// What `check` found in a valid file.
struct Checked {
    Facts facts;
    std::string summary;  ///< the same in a line
};

/// Of a grid of one channel or more.
Checked checkedGrid(const std::string& kind, const cv::Mat& grid);

/// These read a file whole and hold it against all that its format says. They throw Fault where it
/// is not so, which names the first fault, and other FileTrouble where it can't be read.
Checked checkCloudFile(const std::string& path);
Checked checkMeshFile(const std::string& path);
Checked checkRangeFile(const std::string& path);
/// A picture, or a file of another format that the tool reads, as strictly as its reader is.
Checked checkPictureFile(const std::string& path);
Checked checkForeignFile(const std::string& path);
/// By the path's suffix.
Checked checkFile(const std::string& path);

/// "2 holes (40.0 %)".
std::string holesText(std::uint64_t holes, std::uint64_t whole);

/// Throws Fault with the reason why the library refused a point-cloud or mesh file, or FileTrouble
/// where that was for this error of the system's, or, if it is 0, for want of memory.
[[noreturn]] void explainRefusal(const std::string& path, int error);

}  // namespace zyr
