#pragma once

#include "Zyr3DIntArray.h"
#include "Zyr3DLineSegment.h"
#include "ZyrExport.h"
#include "ZyrVector3dArray.h"

namespace zyr {
struct Wireframe;
}

/// A wireframe: vertices, and lines that join two of them each.
///
/// The lines are a flat list of vertex indices: line k joins the vertices at its elements 2k and
/// 2k + 1. Indices are not checked against the vertices; an odd one at the end is no line. Copies,
/// assignment and the setters share both arrays as ZyrVector3dArray does; DeepCopy gives arrays of
/// one's own.
///
/// An operation on a line or vertex out of range does nothing; Select and [] give invalid ends. The
/// odd index at the end counts as the first of a line without a second one: ReplaceLine and
/// RemoveLine act on it alone, SwapLine exchanges it with the other line's first index, and Insert
/// does nothing.
class ZYR_EXPORT Zyr3DLineSet {
public:
    Zyr3DLineSet();
    /// Shares the two arrays.
    Zyr3DLineSet(const ZyrVector3dArray& vertices, const Zyr3DIntArray& lines);
    /// Copies vertexDoubleCount doubles (x y z of each vertex in turn) and lineIndexCount indices
    /// (two a line). The set is empty when vertexDoubleCount is no multiple of 3. Throws
    /// std::length_error for a negative multiple of 3 and for a negative lineIndexCount, unless
    /// that buffer is null.
    Zyr3DLineSet(double* vertexData, int vertexDoubleCount, int* lineData, int lineIndexCount);
    /// Shares the other's arrays.
    Zyr3DLineSet(const Zyr3DLineSet& other);
    /// Shares the other's arrays and leaves the ones held before.
    Zyr3DLineSet& operator=(const Zyr3DLineSet& other);
    ~Zyr3DLineSet();

    /// A set with arrays of its own.
    Zyr3DLineSet DeepCopy();

    /// Shares the given array.
    void SetVertex(const ZyrVector3dArray& vertices);
    /// Shares the given array.
    void SetLine(const Zyr3DIntArray& lines);

    /// Adds the segment's two ends as vertices, and no line.
    void AppendVertex(const Zyr3DLineSegment& segment);
    /// Adds two vertices, and no line.
    void AppendVertex(const ZyrVector3d& a, const ZyrVector3d& b);
    /// Adds one vertex, and no line.
    void AppendVertex(const ZyrVector3d& v);
    void AppendVertex(const double& x, const double& y, const double& z);
    /// Sets vertex i. The spelling is the interface's own.
    void ReplaceVetex(int i, ZyrVector3d& v);

    /// Adds a line between two vertex indices, which are not checked.
    void AppendLine(int a, int b);
    /// Sets the two vertex indices of line k, which are not checked.
    void ReplaceLine(int k, int a, int b);
    /// Removes the line and leaves its vertices.
    void RemoveLine(int k);
    /// Puts a and b between the two indices of line k: (a0, b0) becomes (a0, a), (b, b0). Never
    /// appends: k = NumLine() is out of range.
    void Insert(int k, int a, int b);
    /// Exchanges two lines.
    void SwapLine(int i, int j);

    /// The ends of line k. Where the line, or the vertex that an end refers to, is out of range,
    /// that end is the invalid vector.
    void Select(int k, Zyr3DLineSegment* out);
    /// As Select gives it.
    Zyr3DLineSegment operator[](int k);
    Zyr3DLineSegment operator[](int k) const;

    /// Half the number of indices, rounded down.
    int NumLine() const;
    /// The number of vertices, valid or not.
    int NumVertex() const;
    /// Empties both shared arrays and gives their memory back.
    void Clear();

    /// The flat vertices, 3 doubles each; null when there are none.
    double* VertexData();
    /// The flat lines, 2 indices each; null when there are none.
    int* LineData();

private:
    zyr::Wireframe* wireframe_;
};
