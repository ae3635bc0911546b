#pragma once

#include <memory>
#include <vector>

#include "ZyrVector3dArray.h"
#include "core/FreshMemory.h"

/// The sharing rules of the arrays: each owns one holder, and holders share element vectors.
namespace zyr {

template <class T>
SharedStore<T>* newStore(std::vector<T> elements = {}) {
    auto owner = std::make_shared<std::vector<T>>(std::move(elements));
    return new SharedStore<T>{owner.get(), owner};
}

template <class T>
SharedStore<T>* newShare(const SharedStore<T>& other) {
    return new SharedStore<T>(other);
}

/// Reserving first makes a negative size fail as a length error, before anything changes.
template <class T>
void setSize(std::vector<T>& elements, int n) {
    reserveFresh(elements, static_cast<std::size_t>(n));
    elements.resize(static_cast<std::size_t>(n));
}

/// Copies of count elements from a flat buffer; none when it is null.
template <class T>
std::vector<T> copyBuffer(const T* data, int count) {
    std::vector<T> elements;
    if (data == nullptr) return elements;
    elements.reserve(static_cast<std::size_t>(count));
    elements.assign(data, data + count);
    return elements;
}

template <class T>
auto dataOrNull(std::vector<T>& elements) -> T* {
    return elements.empty() ? nullptr : elements.data();
}

}  // namespace zyr
