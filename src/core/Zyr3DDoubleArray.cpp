#include "Zyr3DDoubleArray.h"

#include <algorithm>

#include "core/FreshMemory.h"
#include "core/IndexRules.h"
#include "core/SharedStore.h"

Zyr3DDoubleArray::Zyr3DDoubleArray() : store_(zyr::newStore<double>()) {}

Zyr3DDoubleArray::Zyr3DDoubleArray(double* data, int count, double invalidMark)
    : store_(zyr::newStore(zyr::copyBuffer(data, count))) {
    std::replace(store_->elements->begin(), store_->elements->end(), invalidMark,
                 zyr::kInvalidValue);
}

Zyr3DDoubleArray::Zyr3DDoubleArray(const Zyr3DDoubleArray& other)
    : store_(zyr::newShare(*other.store_)) {}

Zyr3DDoubleArray& Zyr3DDoubleArray::operator=(const Zyr3DDoubleArray& other) {
    *store_ = *other.store_;
    return *this;
}

Zyr3DDoubleArray::~Zyr3DDoubleArray() {
    delete store_;
}

Zyr3DDoubleArray Zyr3DDoubleArray::DeepCopy() {
    Zyr3DDoubleArray copy;
    *copy.store_->elements = zyr::copyOf(*store_->elements);
    return copy;
}

bool Zyr3DDoubleArray::IsValid(int i) {
    return zyr::hasIndex(*store_->elements, i);
}

double* Zyr3DDoubleArray::Data() const {
    return zyr::dataOrNull(*store_->elements);
}

void Zyr3DDoubleArray::SetSize(int n) {
    zyr::setSize(*store_->elements, n);
}

void Zyr3DDoubleArray::Append(const double& value) {
    store_->elements->push_back(value);
}

void Zyr3DDoubleArray::Append(const Zyr3DDoubleArray& other) {
    zyr::appendAll(*store_->elements, *other.store_->elements);
}

void Zyr3DDoubleArray::Insert(int i, double value) {
    zyr::insertAt(*store_->elements, i, value);
}

void Zyr3DDoubleArray::Remove(int i) {
    zyr::removeAt(*store_->elements, i);
}

void Zyr3DDoubleArray::Replace(int i, double value) {
    zyr::replaceAt(*store_->elements, i, value);
}

void Zyr3DDoubleArray::Select(int i, double* out) const {
    zyr::selectAt(*store_->elements, i, out);
}

void Zyr3DDoubleArray::Clear() {
    store_->elements->clear();
}
