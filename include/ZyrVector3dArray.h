#pragma once

#include <cstddef>
#include <memory>
#include <vector>

#include "ZyrExport.h"
#include "ZyrVector3d.h"

namespace zyr {

struct StoreAccess;

/// What each shared-storage array holds: the vector it works on, and its share of that vector.
template <class T>
struct SharedStore {
    std::vector<T>* elements;
    std::shared_ptr<std::vector<T>> owner;
};

/// The element that stands for one out of range: the calling thread's own, default again at each
/// call.
template <class T>
__attribute__((noinline, cold)) T& scratchElement() {
    static thread_local T element;
    element = T();
    return element;
}

}  // namespace zyr

/// A growable, contiguous list of vectors: the points or normals of a cloud or mesh.
///
/// Copies share: the copy constructor and assignment make both arrays refer to one element store,
/// and every change through one (sizing and clearing included) is seen through all. DeepCopy gives
/// a store of one's own. The count of sharers is atomic, the elements are not locked: reading one
/// store from many threads is safe, changing it is not.
///
/// An index out of range is never reported: the operation does nothing and leaves outputs
/// untouched. Elements are taken as copies, even where a parameter is a reference that could
/// change. Zyr3DDoubleArray and Zyr3DIntArray follow the same rules.
class ZYR_EXPORT ZyrVector3dArray {
public:
    ZyrVector3dArray();
    /// Copies count doubles (count / 3 vectors, x y z of each in turn) from data. Every vector with
    /// a component exactly equal to invalidMark becomes the invalid vector; the invalid value
    /// itself and NaN mark nothing. The array is empty when count is no multiple of 3 or data is
    /// null; with data, a negative multiple of 3 throws std::length_error.
    ZyrVector3dArray(double* data, int count, double invalidMark);
    /// Shares the other's store.
    ZyrVector3dArray(const ZyrVector3dArray& other);
    /// Shares the other's store and leaves the one held before.
    ZyrVector3dArray& operator=(const ZyrVector3dArray& other);
    ~ZyrVector3dArray();

    /// An array with a store of its own that holds copies of all elements.
    ZyrVector3dArray DeepCopy();

    /// The number of vectors, valid or not.
    int Length() const;
    /// Counted at each call.
    int NumValidPoints() const;
    /// The flat buffer, 3 doubles a vector; null when empty. Valid until the store next grows or is
    /// cleared, or the last array that shares it goes.
    double* Data() const;

    /// New elements are invalid vectors, surplus ones are dropped from the end. Throws
    /// std::length_error for a negative n.
    void SetSize(int n);
    /// Adds a copy at the end.
    void Append(const ZyrVector3d& v);
    /// Appending an array to itself doubles it.
    void Append(const ZyrVector3dArray& other);
    /// Before element i. Never appends: i = Length() is out of range, as is any i of an empty
    /// array.
    void Insert(int i, ZyrVector3d& v);
    /// The elements behind it move up by one.
    void Remove(int i);
    /// Writes or reads element i.
    void Replace(int i, ZyrVector3d& v);
    void Select(int i, ZyrVector3d* out);
    /// Exchanges two elements; nothing happens unless both are there.
    void Swap(int i, int j);
    /// Empties the shared store and gives its memory back.
    void Clear();

    /// Out of range: a scratch element of the calling thread, invalid at each such access. Writing
    /// to it changes nothing else.
    ZyrVector3d& operator[](int i);
    /// Out of range: the invalid vector.
    ZyrVector3d operator[](int i) const;

private:
    friend struct zyr::StoreAccess;

    zyr::SharedStore<ZyrVector3d>* store_;
};

ZYR_INLINE int ZyrVector3dArray::Length() const {
    return static_cast<int>(store_->elements->size());
}

// A negative index, taken as unsigned, lies beyond any length.
ZYR_INLINE ZyrVector3d& ZyrVector3dArray::operator[](int i) {
    const auto index = static_cast<std::size_t>(i);
    return index < store_->elements->size() ? (*store_->elements)[index]
                                            : zyr::scratchElement<ZyrVector3d>();
}

ZYR_INLINE ZyrVector3d ZyrVector3dArray::operator[](int i) const {
    const auto index = static_cast<std::size_t>(i);
    return index < store_->elements->size() ? (*store_->elements)[index] : ZyrVector3d();
}
