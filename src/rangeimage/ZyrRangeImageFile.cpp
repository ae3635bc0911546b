#include <algorithm>
#include <array>
#include <string_view>

#include "Zyr3DFileIO.h"
#include "ZyrRangeImage.h"
#include "core/Path.h"
#include "rangeimage/ImageCodec.h"
#include "rangeimage/RangeImageBlock.h"

namespace {

/// Whether a suffix is this one of capital letters, in any letter case. Asks no locale: a Turkish
/// one has no "TIF" for its "tif".
template <class Char>
bool isSuffix(std::basic_string_view<Char> suffix, std::string_view capitals) {
    return std::equal(
        suffix.begin(), suffix.end(), capitals.begin(), capitals.end(),
        [](Char c, char capital) { return (c >= 'a' && c <= 'z' ? c - 'a' + 'A' : c) == capital; });
}

bool isOwnPath(const char* path) {
    return isSuffix(zyr::suffixOf(path), "ZRT");
}

bool isImagePath(const wchar_t* path) {
    constexpr std::array kSuffixes = {"PNG", "JPG", "JPEG", "BMP", "TIF", "TIFF"};
    const std::wstring_view suffix = zyr::suffixOf(path);
    return std::any_of(kSuffixes.begin(), kSuffixes.end(),
                       [&](const char* capitals) { return isSuffix(suffix, capitals); });
}

/// One channel of the stored depth; empty when it can't be read.
cv::Mat readValues(const wchar_t* path) try {
    if (!isImagePath(path)) return cv::Mat();
    return zyr::codec::readImage(path, cv::IMREAD_ANYDEPTH, zyr::codec::Wide());
} catch (...) {
    return cv::Mat();
}

/// The values in a type that image files have.
cv::Mat imageOf(const zyr::RangeImageBlock& block) {
    if (block.values.depth() < CV_32F) return block.values;
    cv::Mat image;
    block.values.convertTo(image, CV_16U, 1.0 / block.calibration.resolutionZ);
    return image;
}

}  // namespace

bool ZyrRangeImage::Load(const char* path, bool withColors) {
    zyr::RangeImageBlock& b = *block_;
    zyr::RangeCalibration& c = b.calibration;
    return isOwnPath(path) &&
           Zyr3DFileIO::LoadRangeImage(b.values, *b.colors.mat_, path, b.minValue, b.maxValue,
                                       c.resolutionX, c.resolutionY, c.resolutionZ, c.offsetX,
                                       c.offsetY, c.offsetZ, withColors);
}

bool ZyrRangeImage::Load(const wchar_t* path, bool withColors) {
    return Load(zyr::narrowPath(path).get(), withColors);
}

bool ZyrRangeImage::Save(const char* path, bool withColors) {
    zyr::RangeImageBlock& b = *block_;
    zyr::RangeCalibration& c = b.calibration;
    return isOwnPath(path) &&
           Zyr3DFileIO::SaveRangeImage(b.values, *b.colors.mat_, path, b.minValue, b.maxValue,
                                       c.resolutionX, c.resolutionY, c.resolutionZ, c.offsetX,
                                       c.offsetY, c.offsetZ, withColors);
}

bool ZyrRangeImage::Save(const wchar_t* path, bool withColors) {
    return Save(zyr::narrowPath(path).get(), withColors);
}

bool ZyrRangeImage::Load(const wchar_t* path, double resolutionZ, double offsetZ) {
    const cv::Mat values = readValues(path);
    if (!values.empty()) block_->values = values;
    SetInfo(resolutionZ, offsetZ, 1.0, 0.0, 1.0, 0.0);
    return !values.empty();
}

bool ZyrRangeImage::Load(const char* path, double resolutionZ, double offsetZ) {
    return Load(zyr::widePath(path).get(), resolutionZ, offsetZ);
}

bool ZyrRangeImage::Save(const wchar_t* path) try {
    if (Width() < 1 || !isImagePath(path)) return false;
    return zyr::codec::writeImage(path, imageOf(*block_), zyr::codec::Wide());
} catch (...) {
    return false;
}

bool ZyrRangeImage::Save(const char* path) {
    return Save(zyr::widePath(path).get());
}
