#include "files/ImageFile.h"

#include <cstdint>
#include <opencv2/imgcodecs.hpp>
#include <vector>

#include "Outcome.h"
#include "files/PictureScan.h"
#include "files/QuietCodecs.h"
#include "files/RegularFile.h"

namespace zyr {
namespace {

/// Width times height of a PNG by its header; 0 for other files.
std::uint64_t pixelsOfPng(const std::vector<unsigned char>& bytes) {
    if (bytes.size() < 24 || bytes[1] != 'P' || bytes[2] != 'N' || bytes[3] != 'G') return 0;
    const auto word = [&](std::size_t at) {
        return std::uint64_t{bytes[at]} << 24 | std::uint64_t{bytes[at + 1]} << 16 |
               std::uint64_t{bytes[at + 2]} << 8 | std::uint64_t{bytes[at + 3]};
    };
    return word(16) * word(20);
}

void checkPixels(const std::string& path, std::uint64_t pixels) {
    constexpr std::uint64_t kMostPixels = 64 << 20;
    if (pixels > kMostPixels) throw FileTrouble(path + ": over 64 megapixels");
}

cv::Mat decode(const std::vector<unsigned char>& bytes, int flags) try {
    const QuietCodecs quiet;
    return bytes.empty() ? cv::Mat() : cv::imdecode(bytes, flags);
} catch (const cv::Exception&) {
    return {};
}

[[noreturn]] void failDecoding(const std::string& path, const std::vector<unsigned char>& bytes) {
    const std::string text = "not a picture that can be read";
    if (const auto fault = scanPicture(bytes)) throw Fault(path, text, fault->at, fault->why);
    throw Fault(path, text);
}

void checkWhole(const std::string& path, const std::vector<unsigned char>& bytes) {
    if (const auto fault = scanUntold(bytes)) throw Fault(path, fault->why, fault->at, fault->why);
}

}  // namespace

ImageFile loadImageFile(const std::string& path) {
    ImageFile file{path, readWhole(path), {}};
    checkWhole(path, file.bytes);
    checkPixels(path, pixelsOfPng(file.bytes));
    file.image = decode(file.bytes, cv::IMREAD_UNCHANGED);
    if (file.image.empty()) failDecoding(path, file.bytes);
    checkPixels(path, file.image.total());
    return file;
}

cv::Mat readImage(const std::string& path) {
    return loadImageFile(path).image;
}

cv::Mat greyOf(const ImageFile& file) {
    cv::Mat grey = decode(file.bytes, cv::IMREAD_ANYDEPTH);
    if (grey.empty()) failDecoding(file.path, file.bytes);
    return grey;
}

void putPng(SafeFile& file, const cv::Mat& picture) {
    std::vector<unsigned char> bytes;
    if (!cv::imencode(".png", picture, bytes))
        throw FileTrouble(file.path() + ": the codec refuses the picture");
    file.put({reinterpret_cast<const char*>(bytes.data()), bytes.size()});
    file.finish();
}

}  // namespace zyr
