#include "Zyr3DLineSet.h"

#include <limits>

namespace zyr {

/// What a line set holds: its shares of the two arrays.
struct Wireframe {
    ZyrVector3dArray vertices;
    Zyr3DIntArray lines;
};

}  // namespace zyr

namespace {

/// The element of the flat lines at which line k begins. Where that is negative or overflows, an
/// element out of range, as are the two behind it.
int firstElement(int k) {
    return k < 0 || k >= std::numeric_limits<int>::max() / 2 ? -3 : 2 * k;
}

/// An index that is not there stays out of range, and the end that it should give invalid.
Zyr3DLineSegment line(zyr::Wireframe& wireframe, int k) {
    int a = -1, b = -1;
    wireframe.lines.Select(firstElement(k), &a);
    wireframe.lines.Select(firstElement(k) + 1, &b);
    Zyr3DLineSegment segment;
    wireframe.vertices.Select(a, &segment.p1);
    wireframe.vertices.Select(b, &segment.p2);
    return segment;
}

}  // namespace

Zyr3DLineSet::Zyr3DLineSet() : wireframe_(new zyr::Wireframe) {}

Zyr3DLineSet::Zyr3DLineSet(const ZyrVector3dArray& vertices, const Zyr3DIntArray& lines)
    : wireframe_(new zyr::Wireframe{vertices, lines}) {}

// The invalid value as the mark marks nothing: the vertices stay as they are given.
Zyr3DLineSet::Zyr3DLineSet(double* vertexData, int vertexDoubleCount, int* lineData,
                           int lineIndexCount)
    : Zyr3DLineSet() {
    if (vertexDoubleCount % 3 != 0) return;
    wireframe_->vertices = ZyrVector3dArray(vertexData, vertexDoubleCount, zyr::kInvalidValue);
    wireframe_->lines = Zyr3DIntArray(lineData, lineIndexCount);
}

Zyr3DLineSet::Zyr3DLineSet(const Zyr3DLineSet& other)
    : wireframe_(new zyr::Wireframe(*other.wireframe_)) {}

Zyr3DLineSet& Zyr3DLineSet::operator=(const Zyr3DLineSet& other) {
    *wireframe_ = *other.wireframe_;
    return *this;
}

Zyr3DLineSet::~Zyr3DLineSet() {
    delete wireframe_;
}

Zyr3DLineSet Zyr3DLineSet::DeepCopy() {
    return Zyr3DLineSet(wireframe_->vertices.DeepCopy(), wireframe_->lines.DeepCopy());
}

void Zyr3DLineSet::SetVertex(const ZyrVector3dArray& vertices) {
    wireframe_->vertices = vertices;
}

void Zyr3DLineSet::SetLine(const Zyr3DIntArray& lines) {
    wireframe_->lines = lines;
}

void Zyr3DLineSet::AppendVertex(const Zyr3DLineSegment& segment) {
    AppendVertex(segment.p1, segment.p2);
}

// The second may be a vertex of this set, which the first one's coming moves.
void Zyr3DLineSet::AppendVertex(const ZyrVector3d& a, const ZyrVector3d& b) {
    const ZyrVector3d second = b;
    AppendVertex(a);
    AppendVertex(second);
}

void Zyr3DLineSet::AppendVertex(const ZyrVector3d& v) {
    wireframe_->vertices.Append(v);
}

void Zyr3DLineSet::AppendVertex(const double& x, const double& y, const double& z) {
    wireframe_->vertices.Append(ZyrVector3d(x, y, z));
}

void Zyr3DLineSet::ReplaceVetex(int i, ZyrVector3d& v) {
    wireframe_->vertices.Replace(i, v);
}

void Zyr3DLineSet::AppendLine(int a, int b) {
    wireframe_->lines.Append(a);
    wireframe_->lines.Append(b);
}

void Zyr3DLineSet::ReplaceLine(int k, int a, int b) {
    const int first = firstElement(k);
    wireframe_->lines.Replace(first, a);
    wireframe_->lines.Replace(first + 1, b);
}

void Zyr3DLineSet::RemoveLine(int k) {
    const int first = firstElement(k);
    wireframe_->lines.Remove(first);
    wireframe_->lines.Remove(first);
}

void Zyr3DLineSet::Insert(int k, int a, int b) {
    const int first = firstElement(k);
    wireframe_->lines.Insert(first + 1, a);
    wireframe_->lines.Insert(first + 2, b);
}

void Zyr3DLineSet::SwapLine(int i, int j) {
    const int one = firstElement(i), other = firstElement(j);
    wireframe_->lines.Swap(one, other);
    wireframe_->lines.Swap(one + 1, other + 1);
}

void Zyr3DLineSet::Select(int k, Zyr3DLineSegment* out) {
    *out = line(*wireframe_, k);
}

Zyr3DLineSegment Zyr3DLineSet::operator[](int k) {
    return line(*wireframe_, k);
}

Zyr3DLineSegment Zyr3DLineSet::operator[](int k) const {
    return line(*wireframe_, k);
}

int Zyr3DLineSet::NumLine() const {
    return wireframe_->lines.Length() / 2;
}

int Zyr3DLineSet::NumVertex() const {
    return wireframe_->vertices.Length();
}

void Zyr3DLineSet::Clear() {
    wireframe_->lines.Clear();
    wireframe_->vertices.Clear();
}

double* Zyr3DLineSet::VertexData() {
    return wireframe_->vertices.Data();
}

int* Zyr3DLineSet::LineData() {
    return wireframe_->lines.Data();
}
