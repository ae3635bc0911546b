#include "ZyrColorArray.h"

#include <cstdint>
#include <cstring>
#include <opencv2/core.hpp>

#include "core/Stop.h"

namespace {

bool isKnownChannel(int channel) {
    return channel == 1 || channel == 3 || channel == 4;
}

/// The closed sizing operations: their argument check holds for bad arguments only.
void stopUnlessBad(std::int64_t size, int channel, const char* expression, unsigned line,
                   const char* function) {
    if (size < 0 || !isKnownChannel(channel)) return;
    zyr::assertionFailure(expression, "ZyrColorArray.cpp", line, function);
}

void stopUnlessBad(int width, int height, int channel, unsigned line, const char* function) {
    stopUnlessBad(static_cast<std::int64_t>(width) * height, channel,
                  "width*height <0 || (channel != 1 && channel != 3 && channel != 4)", line,
                  function);
}

bool hasElement(const cv::Mat& mat, int i) {
    return i >= 0 && static_cast<std::size_t>(i) < mat.total();
}

unsigned char lowByte(int value) {
    return static_cast<unsigned char>(value & 0xFF);
}

}  // namespace

ZyrColorArray::ZyrColorArray() : mat_(new cv::Mat) {}

ZyrColorArray::ZyrColorArray(void* data, int size, int channel) : ZyrColorArray() {
    stopUnlessBad(size, channel, "size <0 || (channel!=1 && channel!=3 && channel!=4)", 54,
                  "ZyrColorArray::ZyrColorArray(void*, int, int)");
    if (isKnownChannel(channel)) cv::Mat(1, size / channel, CV_8UC(channel), data).copyTo(*mat_);
}

ZyrColorArray::ZyrColorArray(void* data, int width, int height, int channel) : ZyrColorArray() {
    stopUnlessBad(width, height, channel, 79, "ZyrColorArray::ZyrColorArray(void*, int, int, int)");
    if (isKnownChannel(channel)) cv::Mat(height, width, CV_8UC(channel), data).copyTo(*mat_);
}

ZyrColorArray::ZyrColorArray(const ZyrColorArray& other) : mat_(new cv::Mat(*other.mat_)) {}

ZyrColorArray& ZyrColorArray::operator=(const ZyrColorArray& other) {
    *mat_ = *other.mat_;
    return *this;
}

ZyrColorArray::~ZyrColorArray() {
    delete mat_;
}

ZyrColorArray ZyrColorArray::DeepCopy() {
    ZyrColorArray copy;
    mat_->copyTo(*copy.mat_);
    return copy;
}

int ZyrColorArray::Width() const {
    return mat_->cols;
}

int ZyrColorArray::Height() const {
    return mat_->rows;
}

int ZyrColorArray::Length() const {
    return static_cast<int>(mat_->total());
}

int ZyrColorArray::Channel() const {
    return mat_->cols == 0 ? 1 : mat_->channels();
}

unsigned char* ZyrColorArray::Data() const {
    return mat_->cols == 0 ? nullptr : mat_->data;
}

void ZyrColorArray::Create(int length, int channel) {
    if (isKnownChannel(channel)) *mat_ = cv::Mat(1, length, CV_8UC(channel));
}

bool ZyrColorArray::CreateColorArray(void* data, int width, int height, int channel) {
    stopUnlessBad(width, height, channel, 98,
                  "bool ZyrColorArray::CreateColorArray(void*, int, int, int)");
    // Not copyTo: that would leave a torn matrix behind when OpenCV refuses the size.
    if (isKnownChannel(channel)) *mat_ = cv::Mat(height, width, CV_8UC(channel), data).clone();
    return true;
}

void ZyrColorArray::SetSize(int width, int height, int channel) {
    stopUnlessBad(width, height, channel, 120, "void ZyrColorArray::SetSize(int, int, int)");
    if (isKnownChannel(channel)) *mat_ = cv::Mat(height, width, CV_8UC(channel));
}

void ZyrColorArray::SetColor(int value) {
    mat_->setTo(cv::Scalar::all(value));
}

void ZyrColorArray::SetColor(ZyrColor color) {
    mat_->setTo(Channel() == 1 ? cv::Scalar(color.r)
                               : cv::Scalar(color.b, color.g, color.r, color.a));
}

bool ZyrColorArray::SetValue(void* data, int channel, int startRow, int endRow) {
    if (channel != Channel() || startRow < 0 || startRow >= endRow || endRow >= Height())
        return false;
    const cv::Mat rows(endRow - startRow + 1, Width(), mat_->type(), data);
    // The caller's rows may be the array's own.
    std::memmove(mat_->ptr(startRow), rows.data, rows.total() * rows.elemSize());
    return true;
}

void ZyrColorArray::Replace(int i, ZyrColor& color) {
    if (!hasElement(*mat_, i)) return;
    const int channel = Channel();
    unsigned char* element = mat_->data + static_cast<std::size_t>(i) * mat_->elemSize();
    if (channel == 1) {
        element[0] = lowByte(color.r);
        return;
    }
    element[0] = lowByte(color.b);
    element[1] = lowByte(color.g);
    element[2] = lowByte(color.r);
    if (channel == 4) element[3] = lowByte(color.a);
}

void ZyrColorArray::Select(int i, ZyrColor* out) const {
    if (!hasElement(*mat_, i)) return;
    const int untouchedAlpha = out->a;
    const ZyrColor color = (*this)[i];
    *out = Channel() == 1 ? ZyrColor(color.r, color.r, color.r, color.a) : color;
    if (Channel() != 4) out->a = untouchedAlpha;
}

ZyrColor ZyrColorArray::operator[](int i) const {
    ZyrColor color;
    if (!hasElement(*mat_, i)) return color;
    const int channel = Channel();
    const unsigned char* element = mat_->data + static_cast<std::size_t>(i) * mat_->elemSize();
    if (channel == 1) {
        color.r = element[0];
        return color;
    }
    color.b = element[0];
    color.g = element[1];
    color.r = element[2];
    if (channel == 4) color.a = element[3];
    return color;
}

void ZyrColorArray::Append(const ZyrColorArray& other) {
    if (other.mat_->cols == 0 || other.mat_->rows > 1 || mat_->rows > 1) return;
    if (mat_->cols == 0) {
        *mat_ = other.mat_->clone();
        return;
    }
    if (other.Channel() != Channel()) return;
    cv::Mat joined;
    cv::hconcat(*mat_, *other.mat_, joined);
    *mat_ = joined;
}

void ZyrColorArray::Clear() {
    *mat_ = cv::Mat();
}
