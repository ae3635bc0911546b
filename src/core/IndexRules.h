#pragma once

#include <cstddef>
#include <utility>
#include <vector>

#include "core/FreshMemory.h"

/// The index rules that all lists of the library share: an index out of range does nothing.
namespace zyr {

template <class T>
bool hasIndex(const std::vector<T>& list, int i) {
    return i >= 0 && static_cast<std::size_t>(i) < list.size();
}

/// Before element i; never at the end. The element may be one of the list's own.
template <class T>
void insertAt(std::vector<T>& list, int i, const T& element) {
    if (hasIndex(list, i)) list.insert(list.begin() + i, element);
}

template <class T>
void removeAt(std::vector<T>& list, int i) {
    if (hasIndex(list, i)) list.erase(list.begin() + i);
}

template <class T>
void replaceAt(std::vector<T>& list, int i, const T& element) {
    if (hasIndex(list, i)) list[static_cast<std::size_t>(i)] = element;
}

template <class T>
void selectAt(const std::vector<T>& list, int i, T* out) {
    if (hasIndex(list, i)) *out = list[static_cast<std::size_t>(i)];
}

template <class T>
void swapAt(std::vector<T>& list, int i, int j) {
    if (hasIndex(list, i) && hasIndex(list, j))
        std::swap(list[static_cast<std::size_t>(i)], list[static_cast<std::size_t>(j)]);
}

/// Adds what the other list holds before the call; the two may be one and the same.
template <class T>
void appendAll(std::vector<T>& list, const std::vector<T>& other) {
    if (&list != &other) {
        if (list.empty()) reserveFresh(list, other.size());
        list.insert(list.end(), other.data(), other.data() + other.size());
        return;
    }
    const std::size_t count = list.size();
    list.reserve(2 * count);
    for (std::size_t i = 0; i < count; ++i) list.push_back(list[i]);
}

/// Empties the list and gives its memory back.
template <class T>
void release(std::vector<T>& list) {
    std::vector<T>().swap(list);
}

}  // namespace zyr
