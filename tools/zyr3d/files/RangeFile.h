#pragma once

#include <cstdint>
#include <functional>
#include <opencv2/core.hpp>
#include <string>
#include <vector>

namespace zyr {

/// A range-image file, whole. We read it ourselves because the library's reader leaves its file
/// open, which a batch of a thousand files would not survive.
struct RangeFile {
    std::int32_t version = 0, type = 0, width = 0, height = 0, channels = 0;
    double resolutionX = 1, resolutionY = 1, resolutionZ = 1, offsetX = 0, offsetY = 0, offsetZ = 0;
    cv::Mat values;         ///< height x width, of the type; empty when that is unknown
    cv::Mat colors;         ///< the same size, of 1, 3 (b, g, r) or 4 (b, g, r, a) bytes; or empty
    std::uint64_t end = 0;  ///< offset behind the last block
};

/// Throws FileTrouble where the file can't be read, and Fault where the library would refuse it
/// with its colours.
RangeFile loadRangeFile(const std::string& path);
/// The same of bytes that were read already. The head is handed to the check before the blocks are
/// read.
using HeadCheck = std::function<void(const RangeFile&)>;
RangeFile parseRangeFile(const std::string& path, const std::vector<unsigned char>& bytes,
                         const HeadCheck& check);

}  // namespace zyr
