#pragma once

#include <climits>
#include <vector>

#include "Zyr3DLineSet.h"
#include "support/ZyrValues.h"

/// Line sets to test with, and what is in them.
namespace test {

/// The line indices 0, 1, 2, ... of the given number.
inline Zyr3DIntArray indices(int count) {
    Zyr3DIntArray list;
    for (int i = 0; i < count; ++i) list.Append(i);
    return list;
}

/// The vertices (0, 0, 0), (1, 10, 100), (2, 20, 200), ... of the given number.
inline ZyrVector3dArray vertices(int count) {
    ZyrVector3dArray list;
    for (int i = 0; i < count; ++i) list.Append(ZyrVector3d(i, 10 * i, 100 * i));
    return list;
}

inline Zyr3DLineSet withIndices(int count) {
    return Zyr3DLineSet(vertices(4), indices(count));
}

/// Whole lines: without an odd index at the end.
inline std::vector<int> lines(Zyr3DLineSet& set) {
    const int* first = set.LineData();
    return std::vector<int>(first, first + 2 * set.NumLine());
}

/// The odd one at the end included.
inline std::vector<int> indicesOf(Zyr3DLineSet& set, int count) {
    const int* first = set.LineData();
    return std::vector<int>(first, first + count);
}

inline std::vector<double> points(Zyr3DLineSet& set) {
    const double* first = set.VertexData();
    return std::vector<double>(first, first + 3 * set.NumVertex());
}

inline std::vector<std::vector<double>> ends(const Zyr3DLineSegment& segment) {
    return {values(segment.p1), values(segment.p2)};
}

inline const std::vector<double> kNowhere = values(ZyrVector3d());
inline const std::vector<double> kVertex1 = {1, 10, 100};
inline const std::vector<double> kVertex2 = {2, 20, 200};

/// Line indices that no set has; doubled without care, the last three wrap to 0, 2 and -2.
inline const std::vector<int> kNoLines = {-1,      -2,      2,           INT_MAX / 2,
                                          1 << 30, INT_MIN, INT_MIN + 1, INT_MAX};

}  // namespace test
