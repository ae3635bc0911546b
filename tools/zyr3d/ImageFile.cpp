#include "ImageFile.h"

#include <fcntl.h>
#include <unistd.h>

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <opencv2/imgcodecs.hpp>
#include <vector>

#include "Outcome.h"

namespace zyr {
namespace {

/// The codecs print notes of their own about broken pictures; we report in one line ourselves.
class QuietCodecs {
public:
    QuietCodecs() : saved_(dup(STDERR_FILENO)) {
        const int null = open("/dev/null", O_WRONLY);
        if (null < 0) return;
        dup2(null, STDERR_FILENO);
        close(null);
    }
    ~QuietCodecs() {
        if (saved_ < 0) return;
        dup2(saved_, STDERR_FILENO);
        close(saved_);
    }
    QuietCodecs(const QuietCodecs&) = delete;
    QuietCodecs& operator=(const QuietCodecs&) = delete;

private:
    int saved_;
};

std::vector<unsigned char> readBytes(const std::string& path) {
    std::error_code error;
    if (!std::filesystem::is_regular_file(path, error))
        throw FileTrouble(path + (error ? ": " + error.message() : ": not a regular file"));
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// Width times height of a PNG by its header; 0 for other files.
std::uint64_t pixelsOfPng(const std::vector<unsigned char>& bytes) {
    if (bytes.size() < 24 || bytes[1] != 'P' || bytes[2] != 'N' || bytes[3] != 'G') return 0;
    const auto word = [&](std::size_t at) {
        return std::uint64_t{bytes[at]} << 24 | std::uint64_t{bytes[at + 1]} << 16 |
               std::uint64_t{bytes[at + 2]} << 8 | std::uint64_t{bytes[at + 3]};
    };
    return word(16) * word(20);
}

cv::Mat decode(const std::vector<unsigned char>& bytes) try {
    const QuietCodecs quiet;
    return bytes.empty() ? cv::Mat() : cv::imdecode(bytes, cv::IMREAD_UNCHANGED);
} catch (const cv::Exception&) {
    return {};
}

bool encode(const std::string& path, const cv::Mat& image) try {
    const QuietCodecs quiet;
    return cv::imwrite(path, image);
} catch (const cv::Exception&) {
    return false;
}

}  // namespace

cv::Mat readImage(const std::string& path) {
    constexpr std::uint64_t kMostPixels = 64 << 20;
    const std::vector<unsigned char> bytes = readBytes(path);
    if (pixelsOfPng(bytes) > kMostPixels) throw FileTrouble(path + ": over 64 megapixels");
    cv::Mat image = decode(bytes);
    if (image.empty()) throw FileTrouble(path + ": not a picture that can be read");
    if (image.total() > kMostPixels) throw FileTrouble(path + ": over 64 megapixels");
    return image;
}

void writeImage(const std::string& path, const cv::Mat& image) {
    if (!encode(path, image)) throw FileTrouble(path + ": cannot be written");
}

}  // namespace zyr
