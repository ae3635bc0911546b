#pragma once

#include <cerrno>
#include <opencv2/core.hpp>

#include "ZyrColorArray.h"
#include "check/Check.h"
#include "files/Snapshot.h"

namespace zyr {

/// Has the library's reader, by the name it is given, load a file that was scanned. Throws
/// FileTrouble.
template <class Read>
void loadScanned(const Snapshot& whole, const Read& read) {
    errno = 0;
    if (!read(whole.name().c_str())) explainRefusal(whole.path(), errno);
}

/// The pixels as a list; none of an empty matrix.
ZyrColorArray colorsOf(const cv::Mat& pixels);
/// The list's own memory as a matrix.
cv::Mat pixelsOf(const ZyrColorArray& colors);

}  // namespace zyr
