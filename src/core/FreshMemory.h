#pragma once

#include <cstddef>
#include <cstring>
#include <memory>
#include <vector>

#include "ZyrVector3d.h"

/// A run of vectors in one move. The standard library copies one by one what has a default
/// constructor of its own.
template <>
// The standard library's own parameters have reserved names.
// NOLINTNEXTLINE(readability-inconsistent-declaration-parameter-name)
inline ZyrVector3d* std::uninitialized_copy(const ZyrVector3d* first, const ZyrVector3d* last,
                                            ZyrVector3d* place) {
    const auto count = static_cast<std::size_t>(last - first);
    if (count > 0) std::memcpy(static_cast<void*>(place), first, count * sizeof(ZyrVector3d));
    return place + count;
}

/// Filling memory that nobody has touched yet.
namespace zyr {

/// Asks for huge pages in a range that is about to be filled: the first touch of a small page costs
/// more than the filling.
void preferHugePages(void* first, std::size_t bytes);

/// Reserving first makes a negative number, taken as unsigned, fail as a length error before
/// anything changes.
template <class T>
void reserveFresh(std::vector<T>& elements, std::size_t n) {
    elements.reserve(n);
    if (n <= elements.size()) return;
    preferHugePages(elements.data() + elements.size(), (n - elements.size()) * sizeof(T));
}

template <class T>
std::vector<T> copyOf(const std::vector<T>& elements) {
    std::vector<T> copy;
    reserveFresh(copy, elements.size());
    copy.insert(copy.end(), elements.data(), elements.data() + elements.size());
    return copy;
}

/// Appends n elements, of which fill(first, i, count) writes a run of count from element i on,
/// short enough that what the vector has put there has not left the nearest cache.
template <class T, class Fill>
void appendFilled(std::vector<T>& elements, std::size_t n, Fill fill) {
    constexpr std::size_t kRun = 8192 / sizeof(T);
    for (std::size_t i = 0; i < n;) {
        const std::size_t count = n - i < kRun ? n - i : kRun;
        const std::size_t had = elements.size();
        elements.resize(had + count);
        fill(elements.data() + had, i, count);
        i += count;
    }
}

}  // namespace zyr
