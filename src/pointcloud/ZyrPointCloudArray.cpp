#include "ZyrPointCloudArray.h"

#include "core/IndexRules.h"

ZyrPointCloudArray::ZyrPointCloudArray() : clouds_(new std::vector<ZyrPointCloud>) {}

ZyrPointCloudArray::ZyrPointCloudArray(const ZyrPointCloudArray& other)
    : clouds_(new std::vector<ZyrPointCloud>(*other.clouds_)) {}

ZyrPointCloudArray::~ZyrPointCloudArray() {
    delete clouds_;
}

ZyrPointCloudArray ZyrPointCloudArray::operator=(const ZyrPointCloudArray& other) {
    *clouds_ = *other.clouds_;
    return *this;
}

int ZyrPointCloudArray::Length() const {
    return static_cast<int>(clouds_->size());
}

void ZyrPointCloudArray::Append(const ZyrPointCloud& cloud) {
    clouds_->push_back(cloud);
}

void ZyrPointCloudArray::Append(const ZyrPointCloudArray& other) {
    zyr::appendAll(*clouds_, *other.clouds_);
}

void ZyrPointCloudArray::Insert(int i, ZyrPointCloud& cloud) {
    zyr::insertAt(*clouds_, i, cloud);
}

void ZyrPointCloudArray::Remove(int i) {
    zyr::removeAt(*clouds_, i);
}

void ZyrPointCloudArray::Replace(int i, ZyrPointCloud& cloud) {
    zyr::replaceAt(*clouds_, i, cloud);
}

void ZyrPointCloudArray::Select(int i, ZyrPointCloud* out) {
    zyr::selectAt(*clouds_, i, out);
}

void ZyrPointCloudArray::Swap(int i, int j) {
    zyr::swapAt(*clouds_, i, j);
}

void ZyrPointCloudArray::Clear() {
    zyr::release(*clouds_);
}

ZyrPointCloud& ZyrPointCloudArray::operator[](int i) {
    return zyr::hasIndex(*clouds_, i) ? (*clouds_)[static_cast<std::size_t>(i)]
                                      : zyr::scratchElement<ZyrPointCloud>();
}

ZyrPointCloud ZyrPointCloudArray::operator[](int i) const {
    return zyr::hasIndex(*clouds_, i) ? (*clouds_)[static_cast<std::size_t>(i)] : ZyrPointCloud();
}
