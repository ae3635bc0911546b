#pragma once

#include <cstddef>

#include "IZyr3DROIPara.h"
#include "core/IndexRules.h"
#include "core/Truncation.h"

/// The layout of a block's doubles: the list of arguments is the layout, and tells its length.
namespace zyr {

inline void put(std::vector<double>& list, double value) {
    list.push_back(value);
}

inline void put(std::vector<double>& list, const ZyrVector3d& v) {
    list.insert(list.end(), {v.x, v.y, v.z});
}

inline std::size_t doublesOf(const ZyrVector3d*) {
    return 3;
}

inline std::size_t doublesOf(const double*) {
    return 1;
}

inline std::size_t doublesOf(const Zyr3DTorusType*) {
    return 1;
}

inline void take(const double*& next, ZyrVector3d* out) {
    *out = ZyrVector3d(next[0], next[1], next[2]);
    next += 3;
}

inline void take(const double*& next, double* out) {
    *out = *next++;
}

inline void take(const double*& next, Zyr3DTorusType* out) {
    *out = static_cast<Zyr3DTorusType>(truncateToInt32(*next++));
}

/// Forgets the region held before, and gives its memory back.
inline void reset(ParameterBlock& block) {
    block.type = zyr::KindNone;
    release(block.parameters);
}

/// Stores the values as a region of the kind; none when they are not valid.
template <class... Values>
void store(ParameterBlock& block, zyr::Kind kind, bool valid, const Values&... values) {
    reset(block);
    if (!valid) return;
    (put(block.parameters, values), ...);
    block.type = kind;
}

/// Fills the outputs when the block holds the kind and doubles enough; what is left over is
/// ignored.
template <class... Outputs>
bool load(const ParameterBlock& block, zyr::Kind kind, Outputs*... outputs) {
    if (block.type != kind || block.parameters.size() < (doublesOf(outputs) + ...)) return false;
    const double* next = block.parameters.data();
    (take(next, outputs), ...);
    return true;
}

}  // namespace zyr
