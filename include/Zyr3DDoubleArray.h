#pragma once

#include "ZyrVector3dArray.h"

/// A growable, contiguous list of doubles. Shares on copy and treats indices as ZyrVector3dArray
/// does; Clear differs.
class ZYR_EXPORT Zyr3DDoubleArray {
public:
    Zyr3DDoubleArray();
    /// Copies count values from data; each one exactly equal to invalidMark becomes the invalid
    /// value 3.4028234663852886e+38 (NaN marks nothing). The array is empty when data is null;
    /// with data, a negative count throws std::length_error.
    Zyr3DDoubleArray(double* data, int count, double invalidMark);
    /// Shares the other's store.
    Zyr3DDoubleArray(const Zyr3DDoubleArray& other);
    /// Shares the other's store and leaves the one held before.
    Zyr3DDoubleArray& operator=(const Zyr3DDoubleArray& other);
    ~Zyr3DDoubleArray();

    /// An array with a store of its own that holds copies of all elements.
    Zyr3DDoubleArray DeepCopy();

    /// The number of values.
    int Length() const;
    /// Whether i is in range. The element's value has no say: the invalid value counts as valid.
    bool IsValid(int i);
    /// The flat buffer; null when empty. Valid until the store next grows, or the last array that
    /// shares it goes.
    double* Data() const;

    /// New elements are 0.0, surplus ones are dropped from the end. Throws std::length_error for a
    /// negative n.
    void SetSize(int n);
    /// Adds a copy at the end.
    void Append(const double& value);
    /// Appending an array to itself doubles it.
    void Append(const Zyr3DDoubleArray& other);
    /// Before element i. Never appends: i = Length() is out of range, as is any i of an empty
    /// array.
    void Insert(int i, double value);
    /// The elements behind it move up by one.
    void Remove(int i);
    /// Writes or reads element i.
    void Replace(int i, double value);
    void Select(int i, double* out) const;
    /// Empties the shared store and keeps its capacity, unlike the other two arrays: lists of
    /// scalars are refilled again and again.
    void Clear();

    /// Out of range: a scratch element of the calling thread, 0.0 at each such access.
    double& operator[](int i);
    /// Out of range: 0.0.
    double operator[](int i) const;

private:
    zyr::SharedStore<double>* store_;
};

ZYR_INLINE int Zyr3DDoubleArray::Length() const {
    return static_cast<int>(store_->elements->size());
}

ZYR_INLINE double& Zyr3DDoubleArray::operator[](int i) {
    const auto index = static_cast<std::size_t>(i);
    return index < store_->elements->size() ? (*store_->elements)[index]
                                            : zyr::scratchElement<double>();
}

ZYR_INLINE double Zyr3DDoubleArray::operator[](int i) const {
    const auto index = static_cast<std::size_t>(i);
    return index < store_->elements->size() ? (*store_->elements)[index] : 0.0;
}
