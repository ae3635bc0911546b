#include "ZyrRangeImageArray.h"

#include "core/IndexRules.h"

namespace {

using Images = std::vector<std::shared_ptr<ZyrRangeImage>>;

Images copies(const Images& images) {
    Images result;
    result.reserve(images.size());
    for (const auto& image : images) result.push_back(std::make_shared<ZyrRangeImage>(*image));
    return result;
}

ZyrRangeImage element(const Images& images, int i) {
    return zyr::hasIndex(images, i) ? *images[static_cast<std::size_t>(i)] : ZyrRangeImage();
}

}  // namespace

ZyrRangeImageArray::ZyrRangeImageArray() : images_(new Images) {}

ZyrRangeImageArray::ZyrRangeImageArray(const ZyrRangeImageArray& other)
    : images_(new Images(copies(*other.images_))) {}

ZyrRangeImageArray& ZyrRangeImageArray::operator=(const ZyrRangeImageArray& other) {
    *images_ = copies(*other.images_);
    return *this;
}

ZyrRangeImageArray::~ZyrRangeImageArray() {
    delete images_;
}

int ZyrRangeImageArray::Length() {
    return static_cast<int>(images_->size());
}

void ZyrRangeImageArray::Append(const ZyrRangeImage& image) {
    images_->push_back(std::make_shared<ZyrRangeImage>(image));
}

void ZyrRangeImageArray::Append(const ZyrRangeImageArray& other) {
    zyr::appendAll(*images_, copies(*other.images_));
}

void ZyrRangeImageArray::Insert(int i, ZyrRangeImage& image) {
    zyr::insertAt(*images_, i, std::make_shared<ZyrRangeImage>(image));
}

void ZyrRangeImageArray::Remove(int i) {
    zyr::removeAt(*images_, i);
}

void ZyrRangeImageArray::Replace(int i, ZyrRangeImage& image) {
    if (zyr::hasIndex(*images_, i)) *(*images_)[static_cast<std::size_t>(i)] = image;
}

void ZyrRangeImageArray::Select(int i, ZyrRangeImage* out) {
    if (zyr::hasIndex(*images_, i)) *out = *(*images_)[static_cast<std::size_t>(i)];
}

void ZyrRangeImageArray::Swap(int i, int j) {
    zyr::swapAt(*images_, i, j);
}

void ZyrRangeImageArray::Clear() {
    zyr::release(*images_);
}

ZyrRangeImage ZyrRangeImageArray::operator[](int i) {
    return element(*images_, i);
}

ZyrRangeImage ZyrRangeImageArray::operator[](int i) const {
    return element(*images_, i);
}
