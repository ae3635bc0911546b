#pragma once

#include "ZyrVector3dArray.h"

/// A growable, contiguous list of 32-bit integers, such as the corners of triangles. Shares on copy
/// and treats indices as ZyrVector3dArray does.
class ZYR_EXPORT Zyr3DIntArray {
public:
    Zyr3DIntArray();
    /// Copies count values from data. The array is empty when data is null; with data,
    /// a negative count throws std::length_error.
    Zyr3DIntArray(int* data, int count);
    /// Shares the other's store.
    Zyr3DIntArray(const Zyr3DIntArray& other);
    /// Shares the other's store and leaves the one held before.
    Zyr3DIntArray& operator=(const Zyr3DIntArray& other);
    ~Zyr3DIntArray();

    /// An array with a store of its own that holds copies of all elements.
    Zyr3DIntArray DeepCopy();

    /// The number of values.
    int Length() const;
    /// Whether i is in range. The element's value has no say.
    bool IsValid(int i);
    /// The flat buffer; null when empty. Valid until the store next grows or is cleared, or the
    /// last array that shares it goes.
    int* Data() const;

    /// New elements are 0, surplus ones are dropped from the end. Throws std::length_error for a
    /// negative n.
    void SetSize(int n);
    /// Adds a copy at the end.
    void Append(const int& value);
    /// Appending an array to itself doubles it.
    void Append(const Zyr3DIntArray& other);
    /// Before element i. Never appends: i = Length() is out of range, as is any i of an empty
    /// array.
    void Insert(int i, int value);
    /// The elements behind it move up by one.
    void Remove(int i);
    /// Writes or reads element i.
    void Replace(int i, int value);
    void Select(int i, int* out);
    /// Exchanges two elements; nothing happens unless both are there.
    void Swap(int i, int j);
    /// Empties the shared store and gives its memory back.
    void Clear();

    /// Out of range: a scratch element of the calling thread, 0 at each such access.
    int& operator[](int i);
    /// Out of range: 0.
    int operator[](int i) const;

private:
    friend struct zyr::StoreAccess;

    zyr::SharedStore<int>* store_;
};

ZYR_INLINE int Zyr3DIntArray::Length() const {
    return static_cast<int>(store_->elements->size());
}

ZYR_INLINE int& Zyr3DIntArray::operator[](int i) {
    const auto index = static_cast<std::size_t>(i);
    return index < store_->elements->size() ? (*store_->elements)[index]
                                            : zyr::scratchElement<int>();
}

ZYR_INLINE int Zyr3DIntArray::operator[](int i) const {
    const auto index = static_cast<std::size_t>(i);
    return index < store_->elements->size() ? (*store_->elements)[index] : 0;
}
