#include "ZyrRangeImage.h"

#include <climits>
#include <cstdint>
#include <cstring>

#include "fileIO/RangeImageFile.h"
#include "rangeimage/RangeImageBlock.h"

namespace {

cv::Mat view(void* data, int width, int height, int rowStep, int type) {
    // The matrix itself lets these pass when it is given memory.
    CV_Assert(width >= 0 && height >= 0 && rowStep >= 0);
    return cv::Mat(height, width, type, data, static_cast<std::size_t>(rowStep));
}

std::int64_t countOf(const ZyrColorArray& colors) {
    return static_cast<std::int64_t>(colors.Width()) * colors.Height();
}

/// An element of a buffer that need not be aligned.
template <class T>
double valueAt(const cv::Mat& values, int row, int column) {
    T value;
    std::memcpy(&value, values.ptr(row) + static_cast<std::size_t>(column) * sizeof value,
                sizeof value);
    return static_cast<double>(value);
}

bool isIn(int i, int count) {
    return i >= 0 && i < count;
}

/// The source's rows may be the target's own.
void copyRows(const cv::Mat& source, cv::Mat target) {
    if (source.empty()) return;
    if (target.isContinuous())
        std::memmove(target.data, source.data, source.total() * source.elemSize());
    else
        source.clone().copyTo(target);
}

}  // namespace

ZyrRangeImage::ZyrRangeImage() : block_(new zyr::RangeImageBlock) {}

ZyrRangeImage::ZyrRangeImage(void* data, int width, int height, int rowStep, int type,
                             double minValue, double maxValue, double resolutionZ, double offsetZ,
                             double resolutionX, double offsetX, double resolutionY, double offsetY)
    : ZyrRangeImage() {
    SetInfo(resolutionZ, offsetZ, resolutionX, offsetX, resolutionY, offsetY);
    block_->minValue = minValue;
    block_->maxValue = maxValue;
    if (zyr::isRangeValueType(type))
        block_->values = view(data, width, height, rowStep, type).clone();
}

ZyrRangeImage::ZyrRangeImage(const ZyrRangeImage& other) : ZyrRangeImage() {
    *this = other;
}

ZyrRangeImage& ZyrRangeImage::operator=(const ZyrRangeImage& other) {
    block_->values = other.block_->values;
    block_->colors = other.block_->colors;
    block_->calibration = other.block_->calibration;
    return *this;
}

ZyrRangeImage::~ZyrRangeImage() {
    delete block_;
}

bool ZyrRangeImage::CreateRangeImage(void* data, int width, int height, int rowStep, int type,
                                     double /*minValue*/, double /*maxValue*/, double resolutionZ,
                                     double offsetZ, double resolutionX, double offsetX,
                                     double resolutionY, double offsetY) {
    if (zyr::isRangeValueType(type)) block_->values = view(data, width, height, rowStep, type);
    SetInfo(resolutionZ, offsetZ, resolutionX, offsetX, resolutionY, offsetY);
    return true;
}

ZyrRangeImage ZyrRangeImage::DeepCopy() {
    ZyrRangeImage copy;
    copy.block_->values = block_->values.clone();
    copy.block_->colors = block_->colors.DeepCopy();
    copy.block_->calibration = block_->calibration;
    return copy;
}

ZyrImage ZyrRangeImage::DeepCopyValues() const {
    ZyrImage image;
    try {
        image.mat = block_->values.clone();
    } catch (...) {
        return ZyrImage();
    }
    return image;
}

ZyrColorArray ZyrRangeImage::DeepCopyColors() const {
    return block_->colors.DeepCopy();
}

void ZyrRangeImage::Clear() {
    *block_ = zyr::RangeImageBlock();
}

void ZyrRangeImage::SetSize(int width, int height, int type) {
    if (!zyr::isRangeValueType(type)) return;
    const cv::Mat& values = block_->values;
    const bool isThatAlready =
        !values.empty() && values.type() == type && values.cols == width && values.rows == height;
    // A new matrix, not create: when OpenCV refuses the size the old values stay whole.
    if (!isThatAlready) block_->values = cv::Mat(height, width, type);
}

void ZyrRangeImage::SetColorSize(int width, int height, int channels) {
    // The pixels' initial content: it is never read, as the call stops, fails or does nothing.
    unsigned char pixels = 0;
    block_->colors.CreateColorArray(&pixels, width, height, channels);
}

void ZyrRangeImage::SetInfo(double resolutionZ, double offsetZ, double resolutionX, double offsetX,
                            double resolutionY, double offsetY) {
    block_->calibration = {resolutionX, resolutionY, offsetX, offsetY, resolutionZ, offsetZ};
}

bool ZyrRangeImage::SetValue(void* data, int type, double minValue, double maxValue, int rowStart,
                             int rowEnd) {
    if (type != DataType() || rowStart < 0 || rowStart > rowEnd || rowEnd >= Height()) return false;
    if (minValue > 0 && minValue < block_->minValue) block_->minValue = minValue;
    if (maxValue > 0 && maxValue > block_->maxValue) block_->maxValue = maxValue;
    const cv::Mat rows = view(data, Width(), rowEnd - rowStart + 1, 0, type);
    copyRows(rows, block_->values.rowRange(rowStart, rowEnd + 1));
    return true;
}

bool ZyrRangeImage::SetColorValue(void* data, int /*unused*/, int channels, int rowStart,
                                  int rowEnd) {
    return block_->colors.SetValue(data, channels, rowStart, rowEnd);
}

void* ZyrRangeImage::Data() const {
    return Width() == 0 ? nullptr : block_->values.data;
}

unsigned char* ZyrRangeImage::ColorData() const {
    return block_->colors.Data();
}

int ZyrRangeImage::DataType() const {
    return block_->values.type();
}

int ZyrRangeImage::Width() const {
    return block_->values.cols;
}

int ZyrRangeImage::Height() const {
    return block_->values.rows;
}

double ZyrRangeImage::MinValue() const {
    return block_->minValue;
}

double ZyrRangeImage::MaxValue() const {
    return block_->maxValue;
}

double ZyrRangeImage::ResolutionX() const {
    return block_->calibration.resolutionX;
}

double ZyrRangeImage::OffsetX() const {
    return block_->calibration.offsetX;
}

double ZyrRangeImage::ResolutionY() const {
    return block_->calibration.resolutionY;
}

double ZyrRangeImage::OffsetY() const {
    return block_->calibration.offsetY;
}

double ZyrRangeImage::ResolutionZ() const {
    return block_->calibration.resolutionZ;
}

double ZyrRangeImage::OffsetZ() const {
    return block_->calibration.offsetZ;
}

bool ZyrRangeImage::IsValidColor() const {
    const std::int64_t colors = countOf(block_->colors);
    return colors >= 1 && colors == static_cast<std::int64_t>(Width()) * Height();
}

double ZyrRangeImage::GetValue(int row, int column) const {
    if (!isIn(row, Height()) || !isIn(column, Width())) return 0.0;
    const cv::Mat& values = block_->values;
    switch (values.type()) {
        case CV_8U:
            return valueAt<std::uint8_t>(values, row, column);
        case CV_8S:
            return valueAt<std::int8_t>(values, row, column);
        case CV_16U:
            return valueAt<std::uint16_t>(values, row, column);
        case CV_16S:
            return valueAt<std::int16_t>(values, row, column);
        case CV_32S:
            return valueAt<std::int32_t>(values, row, column);
        case CV_32F:
            return valueAt<float>(values, row, column);
        case CV_64F:
            return valueAt<double>(values, row, column);
        default:
            return 0.0;
    }
}

ZyrColor ZyrRangeImage::GetColor(int row, int column) const {
    const ZyrColorArray& colors = block_->colors;
    if (!isIn(row, colors.Height()) || !isIn(column, colors.Width()) || !IsValidColor())
        return ZyrColor();
    // An index beyond 32 bits is out of the colours' reach.
    const std::int64_t index = static_cast<std::int64_t>(row) * colors.Width() + column;
    return index > INT_MAX ? ZyrColor() : colors[static_cast<int>(index)];
}
