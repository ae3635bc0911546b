#pragma once

#include <cstring>

/// Pairs of doubles that one instruction works on. Vectors of the compiler, so that the same lines
/// serve every processor.
namespace zyr {

using Lanes = double __attribute__((vector_size(16)));
/// All bits of a lane set, or none.
using LaneMask = long long __attribute__((vector_size(16)));

/// Two values of any type, from where they need not be aligned, as doubles.
template <class T>
Lanes loadLanes(const void* first) {
    T two[2];
    std::memcpy(two, first, sizeof two);
    return Lanes{static_cast<double>(two[0]), static_cast<double>(two[1])};
}

inline void storeLanes(double* first, Lanes lanes) {
    std::memcpy(first, &lanes, sizeof lanes);
}

/// Per lane a where the mask is set, else b; as bits, for which no processor needs a branch.
inline Lanes select(LaneMask mask, Lanes a, Lanes b) {
    return reinterpret_cast<Lanes>((mask & reinterpret_cast<LaneMask>(a)) |
                                   (~mask & reinterpret_cast<LaneMask>(b)));
}

inline LaneMask firstLanes(LaneMask a, LaneMask b) {
    return __builtin_shufflevector(a, b, 0, 2);
}

inline LaneMask secondLanes(LaneMask a, LaneMask b) {
    return __builtin_shufflevector(a, b, 1, 3);
}

}  // namespace zyr
