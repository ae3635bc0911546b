#include "fileIO/RangeImageFile.h"

#include <cstdint>
#include <opencv2/core.hpp>
#include <optional>
#include <vector>

#include "Zyr3DFileIO.h"
#include "fileIO/Buffer.h"
#include "fileIO/ColorWords.h"
#include "fileIO/File.h"

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

/// The rows without gaps, as one stream.
Buffer compressRows(const cv::Mat& mat) {
    const cv::Mat rows = mat.isContinuous() ? mat : mat.clone();
    const std::size_t size = rows.total() * rows.elemSize();
    Buffer stream(lzfWorstCase(size));
    stream.shrink(lzfCompress(rows.data, size, stream.data(), stream.size()));
    return stream;
}

Head headOf(const RangeImageParts& image, const Buffer& values) {
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
            static_cast<std::int32_t>(values.size())};
}

bool saveRangeImage(const RangeImageParts& image, const char* path, bool withColors) {
    if (!isWritable(image.values)) return false;
    const Buffer values = compressRows(image.values);
    const bool writesColors =
        withColors && isColorGrid(image.colors) && image.colors.total() == image.values.total();
    const Buffer colors = writesColors ? compressRows(image.colors) : Buffer(0);
    if (!fitsRangeBlock(values.size()) || !fitsRangeBlock(colors.size())) return false;

    File file = openFile(path, "wb");
    if (file == nullptr) return false;
    const Head head = headOf(image, values);
    const auto colorBytes = static_cast<std::int32_t>(colors.size());
    const bool isWritten = writeAll(file.get(), &head, sizeof head) &&
                           writeAll(file.get(), values.data(), values.size()) &&
                           writeAll(file.get(), &colorBytes, sizeof colorBytes) &&
                           writeAll(file.get(), colors.data(), colors.size());
    return closeFile(file) && isWritten;
}

// Reading

/// A first byte of 0xFF marks what is no range image; the end of an empty file reads as one too.
bool startsWell(std::FILE* file) {
    const int first = std::fgetc(file);
    return first != EOF && first != 0xFF && std::ungetc(first, file) != EOF;
}

/// Exactly size bytes; none when the file has fewer.
std::optional<std::vector<Byte>> readStream(std::FILE* file, std::int32_t size) {
    if (size < 0) return {};
    std::vector<Byte> stream = readUpTo(file, static_cast<std::uint64_t>(size));
    if (stream.size() != static_cast<std::size_t>(size)) return {};
    return stream;
}

/// Decodes into a new grid, which the stream must fill exactly.
bool decodeGrid(const std::vector<Byte>& stream, const Head& head, int type, cv::Mat& grid) {
    if (head.width < 1 || head.height < 1) return false;
    const auto pixelBytes = static_cast<std::size_t>(CV_ELEM_SIZE(type));
    const auto pixels =
        static_cast<std::size_t>(head.width) * static_cast<std::size_t>(head.height);
    // Nothing is allocated that the stream can't fill, and no product overflows.
    if (pixels > stream.size() * kLzfMaxExpansion / pixelBytes) return false;
    grid = cv::Mat(head.height, head.width, type);
    const std::size_t size = pixels * pixelBytes;
    const LzfResult result = lzfDecompress(stream.data(), stream.size(), grid.data, size);
    return result.end == LzfEnd::Whole && result.produced == size;
}

/// An unknown type gives no values; its block is passed over.
bool readValues(std::FILE* file, const Head& head, cv::Mat& values) {
    const std::optional<std::vector<Byte>> stream = readStream(file, head.valueBytes);
    if (!stream) return false;
    return !isRangeValueType(head.type) || decodeGrid(*stream, head, head.type, values);
}

bool readColors(std::FILE* file, const Head& head, cv::Mat& colors) {
    std::int32_t size = 0;
    if (std::fread(&size, sizeof size, 1, file) != 1) return false;
    if (size == 0) return true;
    if (!isColorChannelCount(head.channels)) return false;
    const std::optional<std::vector<Byte>> stream = readStream(file, size);
    return stream && decodeGrid(*stream, head, CV_8UC(head.channels), colors);
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
