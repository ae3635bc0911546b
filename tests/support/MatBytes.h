#pragma once

#include <opencv2/core.hpp>

#include "support/Bytes.h"

namespace test {

/// The elements row by row, without the gaps between rows.
inline Bytes bytesOf(const cv::Mat& mat) {
    Bytes bytes;
    for (int row = 0; row < mat.rows; ++row) {
        const unsigned char* first = mat.ptr(row);
        bytes.insert(bytes.end(), first,
                     first + static_cast<std::size_t>(mat.cols) * mat.elemSize());
    }
    return bytes;
}

}  // namespace test
