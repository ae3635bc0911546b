#include "ZyrVector3dArray.h"

#include "core/FreshMemory.h"
#include "core/IndexRules.h"
#include "core/RawPoints.h"
#include "core/SharedStore.h"
#include "core/ValidPoints.h"

namespace {

std::vector<ZyrVector3d> copyVectors(const double* data, int count, double invalidMark) {
    static_assert(sizeof(ZyrVector3d) == 3 * sizeof(double), "vectors are flat runs of doubles");
    if (count % 3 != 0 || data == nullptr) return {};
    return zyr::rawPoints<double>(data, static_cast<std::size_t>(count / 3), invalidMark);
}

}  // namespace

ZyrVector3dArray::ZyrVector3dArray() : store_(zyr::newStore<ZyrVector3d>()) {}

ZyrVector3dArray::ZyrVector3dArray(double* data, int count, double invalidMark)
    : store_(zyr::newStore(copyVectors(data, count, invalidMark))) {}

ZyrVector3dArray::ZyrVector3dArray(const ZyrVector3dArray& other)
    : store_(zyr::newShare(*other.store_)) {}

ZyrVector3dArray& ZyrVector3dArray::operator=(const ZyrVector3dArray& other) {
    *store_ = *other.store_;
    return *this;
}

ZyrVector3dArray::~ZyrVector3dArray() {
    delete store_;
}

ZyrVector3dArray ZyrVector3dArray::DeepCopy() {
    ZyrVector3dArray copy;
    *copy.store_->elements = zyr::copyOf(*store_->elements);
    return copy;
}

int ZyrVector3dArray::NumValidPoints() const {
    const std::vector<ZyrVector3d>& vectors = *store_->elements;
    return static_cast<int>(
        zyr::countValid(reinterpret_cast<const double*>(vectors.data()), vectors.size()));
}

double* ZyrVector3dArray::Data() const {
    return reinterpret_cast<double*>(zyr::dataOrNull(*store_->elements));
}

void ZyrVector3dArray::SetSize(int n) {
    zyr::setSize(*store_->elements, n);
}

void ZyrVector3dArray::Append(const ZyrVector3d& v) {
    store_->elements->push_back(v);
}

void ZyrVector3dArray::Append(const ZyrVector3dArray& other) {
    zyr::appendAll(*store_->elements, *other.store_->elements);
}

void ZyrVector3dArray::Insert(int i, ZyrVector3d& v) {
    zyr::insertAt(*store_->elements, i, v);
}

void ZyrVector3dArray::Remove(int i) {
    zyr::removeAt(*store_->elements, i);
}

void ZyrVector3dArray::Replace(int i, ZyrVector3d& v) {
    zyr::replaceAt(*store_->elements, i, v);
}

void ZyrVector3dArray::Select(int i, ZyrVector3d* out) {
    zyr::selectAt(*store_->elements, i, out);
}

void ZyrVector3dArray::Swap(int i, int j) {
    zyr::swapAt(*store_->elements, i, j);
}

void ZyrVector3dArray::Clear() {
    zyr::release(*store_->elements);
}
