#pragma once

/// Marks the interface of libZyr3DData: everything else in the library is hidden.
#define ZYR_EXPORT __attribute__((visibility("default")))

/// Marks a function whose body stands in a header for speed. The library itself carries a copy of
/// each, so that callers who do not inline, or load symbols by name, find it there too. Where a
/// caller's compiler may fuse multiplications and additions (-march=native), -ffp-contract=off gets
/// the same last bits from both.
#ifdef ZYR_BUILDING_LIBRARY
#define ZYR_INLINE inline __attribute__((used))
#else
#define ZYR_INLINE inline
#endif
