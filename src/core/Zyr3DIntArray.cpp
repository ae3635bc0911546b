#include "Zyr3DIntArray.h"

#include "core/FreshMemory.h"
#include "core/IndexRules.h"
#include "core/SharedStore.h"

Zyr3DIntArray::Zyr3DIntArray() : store_(zyr::newStore<int>()) {}

Zyr3DIntArray::Zyr3DIntArray(int* data, int count)
    : store_(zyr::newStore(zyr::copyBuffer(data, count))) {}

Zyr3DIntArray::Zyr3DIntArray(const Zyr3DIntArray& other) : store_(zyr::newShare(*other.store_)) {}

Zyr3DIntArray& Zyr3DIntArray::operator=(const Zyr3DIntArray& other) {
    *store_ = *other.store_;
    return *this;
}

Zyr3DIntArray::~Zyr3DIntArray() {
    delete store_;
}

Zyr3DIntArray Zyr3DIntArray::DeepCopy() {
    Zyr3DIntArray copy;
    *copy.store_->elements = zyr::copyOf(*store_->elements);
    return copy;
}

bool Zyr3DIntArray::IsValid(int i) {
    return zyr::hasIndex(*store_->elements, i);
}

int* Zyr3DIntArray::Data() const {
    return zyr::dataOrNull(*store_->elements);
}

void Zyr3DIntArray::SetSize(int n) {
    zyr::setSize(*store_->elements, n);
}

void Zyr3DIntArray::Append(const int& value) {
    store_->elements->push_back(value);
}

void Zyr3DIntArray::Append(const Zyr3DIntArray& other) {
    zyr::appendAll(*store_->elements, *other.store_->elements);
}

void Zyr3DIntArray::Insert(int i, int value) {
    zyr::insertAt(*store_->elements, i, value);
}

void Zyr3DIntArray::Remove(int i) {
    zyr::removeAt(*store_->elements, i);
}

void Zyr3DIntArray::Replace(int i, int value) {
    zyr::replaceAt(*store_->elements, i, value);
}

void Zyr3DIntArray::Select(int i, int* out) {
    zyr::selectAt(*store_->elements, i, out);
}

void Zyr3DIntArray::Swap(int i, int j) {
    zyr::swapAt(*store_->elements, i, j);
}

void Zyr3DIntArray::Clear() {
    zyr::release(*store_->elements);
}
