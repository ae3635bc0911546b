#include "fileIO/RangeImageFile.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>
#include <opencv2/core.hpp>

#include "Zyr3DFileIO.h"
#include "core/FreshMemory.h"
#include "fileIO/ColorWords.h"
#include "fileIO/File.h"
#include "fileIO/LzfReader.h"
#include "fileIO/StreamWriter.h"

namespace zyr {
namespace {

/// The head as it lies in the file, with the size of the value block that follows.
struct Head {
    std::int32_t version;
    std::int32_t type;
    std::int32_t width;
    std::int32_t height;
    double resolutionX;
    double resolutionY;
    double resolutionZ;
    double offsetX;
    double offsetY;
    double offsetZ;
    std::int32_t channels;
    std::int32_t valueBytes;
};
static_assert(sizeof(Head) == 72);

// Writing

bool isWritable(const cv::Mat& values) {
    return values.cols >= 1 && values.rows >= 1 && isRangeValueType(values.type());
}

bool isColorGrid(const cv::Mat& colors) {
    return hasColors(colors, static_cast<std::size_t>(colors.cols));
}

std::size_t rowBytes(const cv::Mat& mat) {
    return static_cast<std::size_t>(mat.cols) * mat.elemSize();
}

/// The rows one after the other, without gaps.
BlockSource rowsOf(const cv::Mat& mat) {
    const std::size_t width = mat.channels() == 3 ? mat.elemSize1() : mat.elemSize();
    return [&mat, width, done = std::size_t(0)](Byte* target, std::size_t room) mutable {
        const std::size_t bytes = rowBytes(mat);
        const std::size_t all = bytes * static_cast<std::size_t>(mat.rows);
        BlockValues block{0, width};
        while (block.size < room && done < all) {
            const std::size_t count = std::min(room - block.size, bytes - done % bytes);
            const Byte* row = mat.ptr(static_cast<int>(done / bytes));
            std::memcpy(target + block.size, row + done % bytes, count);
            block.size += count;
            done += count;
        }
        return block;
    };
}

StreamWriter streamOf(const cv::Mat& mat) {
    constexpr std::uint64_t kMost = std::numeric_limits<std::int32_t>::max();
    return StreamWriter(rowsOf(mat), rowBytes(mat) * static_cast<std::size_t>(mat.rows), kMost);
}

Head headOf(const RangeImageParts& image, const StreamWriter& values) {
    return {1,
            image.values.type(),
            image.values.cols,
            image.values.rows,
            image.resolutionX,
            image.resolutionY,
            image.resolutionZ,
            image.offsetX,
            image.offsetY,
            image.offsetZ,
            isColorGrid(image.colors) ? image.colors.channels() : 1,
            static_cast<std::int32_t>(values.sizeWord())};
}

bool writeParts(std::FILE* file, const RangeImageParts& image, StreamWriter& values,
                StreamWriter& colors) {
    values.prepareFor(file);
    colors.prepareFor(file);
    const Head head = headOf(image, values);
    // A size that is not known yet is none, so that no file which loses its colours here passes for
    // one without.
    const std::int32_t colorBytes =
        colors.isCounted() ? static_cast<std::int32_t>(colors.sizeWord()) : -1;
    return writeAll(file, &head, sizeof head) && values.write(file, offsetof(Head, valueBytes)) &&
           writeAll(file, &colorBytes, sizeof colorBytes) &&
           colors.write(file, static_cast<off_t>(sizeof head + values.sizeWord()));
}

bool saveRangeImage(const RangeImageParts& image, const char* path, bool withColors) {
    if (!isWritable(image.values)) return false;
    const bool writesColors =
        withColors && isColorGrid(image.colors) && image.colors.total() == image.values.total();
    const cv::Mat noColors;
    StreamWriter values = streamOf(image.values);
    StreamWriter colors = streamOf(writesColors ? image.colors : noColors);
    if (!values.fits() || !colors.fits()) return false;
    File file = openFile(path, "wb");
    if (file == nullptr) return false;
    const bool isWritten = writeParts(file.get(), image, values, colors);
    return closeFile(file) && isWritten;
}

// Reading

/// A first byte of 0xFF marks what is no range image; the end of an empty file reads as one too.
bool startsWell(std::FILE* file) {
    const int first = std::fgetc(file);
    return first != EOF && first != 0xFF && std::ungetc(first, file) != EOF;
}

/// Decodes into a new grid, which a stream of so many bytes must fill exactly.
bool decodeGrid(StreamBytes& stream, std::uint64_t size, const Head& head, int type,
                cv::Mat& grid) {
    if (head.width < 1 || head.height < 1) return false;
    const auto pixelBytes = static_cast<std::size_t>(CV_ELEM_SIZE(type));
    const auto pixels =
        static_cast<std::size_t>(head.width) * static_cast<std::size_t>(head.height);
    // Nothing is allocated that the stream can't fill, and no product overflows.
    if (pixels > size * kLzfMaxExpansion / pixelBytes) return false;
    grid = cv::Mat(head.height, head.width, type);
    preferHugePages(grid.data, pixels * pixelBytes);
    return decodeExactly(stream, grid.data, pixels * pixelBytes);
}

/// An unknown type gives no values; its block is passed over.
bool readValues(std::FILE* file, const Head& head, cv::Mat& values) {
    if (head.valueBytes < 0) return false;
    const auto size = static_cast<std::uint64_t>(head.valueBytes);
    StreamBytes stream(file, size);
    if (!stream.has(size)) return false;
    if (isRangeValueType(head.type)) return decodeGrid(stream, size, head, head.type, values);
    do stream.consume(stream.size());
    while (stream.more());
    return true;
}

bool readColors(std::FILE* file, const Head& head, cv::Mat& colors) {
    std::int32_t bytes = 0;
    if (std::fread(&bytes, sizeof bytes, 1, file) != 1) return false;
    if (bytes == 0) return true;
    if (bytes < 0 || !isColorChannelCount(head.channels)) return false;
    const auto size = static_cast<std::uint64_t>(bytes);
    StreamBytes stream(file, size);
    return stream.has(size) && decodeGrid(stream, size, head, CV_8UC(head.channels), colors);
}

void storeCalibration(const Head& head, const RangeImageParts& image) {
    image.resolutionX = head.resolutionX;
    image.resolutionY = head.resolutionY;
    image.resolutionZ = head.resolutionZ;
    image.offsetX = head.offsetX;
    image.offsetY = head.offsetY;
    image.offsetZ = head.offsetZ;
}

}  // namespace

bool readRangeImage(std::FILE* file, const RangeImageParts& image, bool withColors) {
    Head head;
    if (!startsWell(file) || std::fread(&head, sizeof head, 1, file) != 1) return false;
    cv::Mat values;
    cv::Mat colors;
    if (!readValues(file, head, values)) return false;
    if (withColors && !readColors(file, head, colors)) return false;

    if (!values.empty()) image.values = values;
    if (!colors.empty()) image.colors = colors;
    storeCalibration(head, image);
    return true;
}

}  // namespace zyr

bool Zyr3DFileIO::SaveRangeImage(cv::Mat& values, cv::Mat& colors, const char* path,
                                 double& /*minValue*/, double& /*maxValue*/, double& resolutionX,
                                 double& resolutionY, double& resolutionZ, double& offsetX,
                                 double& offsetY, double& offsetZ, bool withColors) try {
    return zyr::saveRangeImage(
        {values, colors, resolutionX, resolutionY, resolutionZ, offsetX, offsetY, offsetZ}, path,
        withColors);
} catch (...) {
    return false;
}

bool Zyr3DFileIO::LoadRangeImage(cv::Mat& values, cv::Mat& colors, const char* path,
                                 double& /*minValue*/, double& /*maxValue*/, double& resolutionX,
                                 double& resolutionY, double& resolutionZ, double& offsetX,
                                 double& offsetY, double& offsetZ, bool withColors) try {
    resolutionX = 1.0;
    resolutionY = 1.0;
    offsetZ = 0.0;
    zyr::File file = zyr::openFile(path, "rb");
    if (file == nullptr) return false;
    if (!zyr::readRangeImage(
            file.get(),
            {values, colors, resolutionX, resolutionY, resolutionZ, offsetX, offsetY, offsetZ},
            withColors))
        return false;
    // Deliberately left open, as the header says.
    (void)file.release();
    return true;
} catch (...) {
    return false;
}
