#include <array>
#include <cmath>
#include <opencv2/core.hpp>

#include "Outcome.h"
#include "Table.h"
#include "check/Check.h"
#include "files/ImageFile.h"
#include "files/PictureScan.h"
#include "files/RangeFile.h"
#include "files/RegularFile.h"
#include "files/ValueType.h"

namespace zyr {
namespace {

std::uint64_t holesOf(const cv::Mat& grid) {
    std::uint64_t holes = 0;
    cv::Mat row;
    for (int i = 0; i < grid.rows; ++i) {
        grid.row(i).convertTo(row, CV_64F);
        for (const double value : cv::Mat_<double>(row))
            if (isHoleValue(value, grid.depth())) ++holes;
    }
    return holes;
}

/// Beyond what the reader needs.
void checkHead(const std::string& path, const RangeFile& file) {
    if (file.version != 1)
        throw Fault(path, 0, "a version of " + std::to_string(file.version) + " instead of 1");
    if (file.type < 0 || file.type > 6)
        throw Fault(path, 4, "an unknown type of values: " + std::to_string(file.type));
    if (file.width < 1) throw Fault(path, 8, "a width below 1");
    if (file.height < 1) throw Fault(path, 12, "a height below 1");
    const std::array<double, 6> numbers = {file.resolutionX, file.resolutionY, file.resolutionZ,
                                           file.offsetX,     file.offsetY,     file.offsetZ};
    for (std::size_t i = 0; i < numbers.size(); ++i)
        if (!std::isfinite(numbers[i]))
            throw Fault(path, 16 + 8 * i, "a resolution or offset that is no finite number");
    if (file.channels != 1 && file.channels != 3 && file.channels != 4)
        throw Fault(path, 64, "a channel count of " + std::to_string(file.channels));
}

}  // namespace

Checked checkedGrid(const std::string& kind, const cv::Mat& grid) {
    const std::uint64_t holes = holesOf(grid.reshape(1));
    const auto columns = static_cast<std::uint64_t>(grid.cols);
    const auto rows = static_cast<std::uint64_t>(grid.rows);
    Checked checked;
    checked.facts.word("kind", kind);
    checked.facts.size("size", columns, rows);
    checked.facts.count("holes", holes);
    checked.summary = kind + ", " + std::to_string(columns) + " x " + std::to_string(rows) + ", " +
                      holesText(holes, columns * rows);
    return checked;
}

Checked checkRangeFile(const std::string& path) {
    const std::vector<unsigned char> bytes = readWhole(path);
    const RangeFile file =
        parseRangeFile(path, bytes, [&](const RangeFile& head) { checkHead(path, head); });
    if (bytes.size() > file.end)
        throw Fault(path, file.end,
                    std::to_string(bytes.size() - file.end) + " bytes behind the last block");
    return checkedGrid("range image", file.values);
}

Checked checkPictureFile(const std::string& path) {
    const ImageFile file = loadImageFile(path);
    const cv::Mat& picture = file.image;
    if (const auto fault = scanPicture(file.bytes)) throw Fault(path, fault->at, fault->why);
    if (picture.channels() == 1) return checkedGrid("picture", picture);
    Checked checked;
    checked.facts.word("kind", "picture");
    checked.facts.size("size", static_cast<std::uint64_t>(picture.cols),
                       static_cast<std::uint64_t>(picture.rows));
    checked.summary = "picture, " + std::to_string(picture.cols) + " x " +
                      std::to_string(picture.rows) + ", " + std::to_string(picture.channels()) +
                      " channels";
    return checked;
}

}  // namespace zyr
