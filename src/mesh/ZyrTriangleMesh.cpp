#include "ZyrTriangleMesh.h"

#include <cstddef>
#include <memory>
#include <string>

#include "Zyr3DFileIO.h"
#include "Zyr3DInner.h"
#include "primitive/Collinear.h"

namespace {

bool isIn(int i, int count) {
    return i >= 0 && i < count;
}

/// The three indices of a triangle that is in range.
struct Corners {
    Corners(const Zyr3DIntArray& triangles, int t)
        : Corners(triangles.Data() + 3 * static_cast<std::size_t>(t)) {}
    explicit Corners(const int* indices) : a(indices[0]), b(indices[1]), c(indices[2]) {}

    bool areDifferent() const { return a != b && a != c && b != c; }
    bool areIn(int count) const { return isIn(a, count) && isIn(b, count) && isIn(c, count); }

    int a, b, c;
};

bool isPoint(const ZyrVector3d& v) {
    return v.x < zyr::kInvalidValue && v.y < zyr::kInvalidValue && v.z < zyr::kInvalidValue;
}

/// Vertices as a flat run.
struct Vertices {
    explicit Vertices(const ZyrVector3dArray& array)
        : first(reinterpret_cast<const ZyrVector3d*>(array.Data())), count(array.Length()) {}

    /// What Zyr3DTriangle's own test gives, without a triangle and a call for each.
    bool makeTriangle(const Corners& corners) const {
        if (!corners.areDifferent() || !corners.areIn(count)) return false;
        const ZyrVector3d &a = first[corners.a], &b = first[corners.b], &c = first[corners.c];
        return isPoint(a) && isPoint(b) && isPoint(c) && !zyr::isCollinear(a, b, c);
    }

    const ZyrVector3d* first;
    int count;
};

/// Wraps around at 32 bits.
int shifted(int index, int shift) {
    return static_cast<int>(static_cast<unsigned>(index) + static_cast<unsigned>(shift));
}

bool isMeshPath(const char* path) {
    if (path == nullptr) return false;
    const std::string suffix = Zyr3DInner::getSuffix(path);
    return suffix == "ztmt" || suffix == "ZTMT";
}

std::unique_ptr<char[]> narrow(const wchar_t* path) {
    return std::unique_ptr<char[]>(Zyr3DInner::wchar2char(path));
}

}  // namespace

ZyrTriangleMesh::ZyrTriangleMesh() = default;

ZyrTriangleMesh::ZyrTriangleMesh(const ZyrVector3dArray& vertices, const Zyr3DIntArray& triangles)
    : vertices_(vertices), triangles_(triangles) {}

ZyrTriangleMesh::ZyrTriangleMesh(const ZyrVector3dArray& vertices, const Zyr3DIntArray& triangles,
                                 const ZyrColorArray& vertexColors,
                                 const ZyrColorArray& triangleColors)
    : vertices_(vertices),
      vertexColors_(vertexColors),
      triangles_(triangles),
      triangleColors_(triangleColors) {}

ZyrTriangleMesh::ZyrTriangleMesh(const ZyrVector3dArray& vertices, const Zyr3DIntArray& triangles,
                                 const ZyrColorArray& vertexColors,
                                 const ZyrColorArray& triangleColors,
                                 const ZyrVector3dArray& vertexNormals,
                                 const ZyrVector3dArray& triangleNormals)
    : vertices_(vertices),
      vertexNormals_(vertexNormals),
      vertexColors_(vertexColors),
      triangles_(triangles),
      triangleNormals_(triangleNormals),
      triangleColors_(triangleColors) {}

ZyrTriangleMesh::ZyrTriangleMesh(const ZyrTriangleMesh& other) = default;

ZyrTriangleMesh& ZyrTriangleMesh::operator=(const ZyrTriangleMesh& other) {
    Clear();
    vertices_ = other.vertices_;
    vertexNormals_ = other.vertexNormals_;
    vertexColors_ = other.vertexColors_;
    triangles_ = other.triangles_;
    triangleNormals_ = other.triangleNormals_;
    triangleColors_ = other.triangleColors_;
    return *this;
}

ZyrTriangleMesh::~ZyrTriangleMesh() = default;

void ZyrTriangleMesh::SetVertices(const ZyrVector3dArray& vertices) {
    vertices_.Clear();
    vertices_ = vertices;
}

void ZyrTriangleMesh::SetTriangles(const Zyr3DIntArray& triangles) {
    triangles_.Clear();
    triangles_ = triangles;
}

void ZyrTriangleMesh::SetVertexColors(const ZyrColorArray& colors) {
    vertexColors_.Clear();
    vertexColors_ = colors;
}

void ZyrTriangleMesh::SetTriangleColors(const ZyrColorArray& colors) {
    triangleColors_ = colors;
}

void ZyrTriangleMesh::ClearVertices() {
    vertices_.Clear();
}

void ZyrTriangleMesh::ClearVertexNormal() {
    vertexNormals_.Clear();
}

void ZyrTriangleMesh::ClearVertexColors() {
    vertexColors_.Clear();
}

void ZyrTriangleMesh::ClearTriangles() {
    triangles_.Clear();
}

void ZyrTriangleMesh::ClearTriangleNormal() {
    triangleNormals_.Clear();
}

void ZyrTriangleMesh::ClearTriangleColors() {
    triangleColors_.Clear();
}

void ZyrTriangleMesh::Clear() {
    ClearVertices();
    ClearVertexColors();
    ClearTriangles();
    ClearTriangleColors();
    ClearVertexNormal();
    ClearTriangleNormal();
}

int ZyrTriangleMesh::NumVertices() const {
    return vertices_.Length();
}

int ZyrTriangleMesh::NumTriangles() const {
    return triangles_.Length() / 3;
}

bool ZyrTriangleMesh::IsValidVertexColor() const {
    return vertexColors_.Length() == NumVertices();
}

bool ZyrTriangleMesh::IsValidVertexNormal() const {
    return vertexNormals_.Length() == NumVertices();
}

bool ZyrTriangleMesh::IsValidTriangleColor() const {
    return triangleColors_.Length() == NumTriangles();
}

bool ZyrTriangleMesh::IsValidTriangleNormal() const {
    return triangleNormals_.Length() == NumTriangles();
}

bool ZyrTriangleMesh::IsValidVertex(int i) const {
    return vertices_[i].IsValid();
}

bool ZyrTriangleMesh::IsValidTriangle(int t) const {
    return isIn(t, NumTriangles()) && Vertices(vertices_).makeTriangle(Corners(triangles_, t));
}

int ZyrTriangleMesh::NumValidVertices() const {
    return vertices_.NumValidPoints();
}

int ZyrTriangleMesh::NumValidTriangles() const {
    const Vertices vertices(vertices_);
    const int* indices = triangles_.Data();
    int valid = 0;
    for (int left = NumTriangles(); left > 0; --left, indices += 3)
        valid += vertices.makeTriangle(Corners(indices)) ? 1 : 0;
    return valid;
}

void ZyrTriangleMesh::SelectVertex(int i, ZyrVector3d* out) {
    vertices_.Select(i, out);
}

void ZyrTriangleMesh::ReplaceVertex(int i, const ZyrVector3d& v) {
    ZyrVector3d vertex = v;
    vertices_.Replace(i, vertex);
}

void ZyrTriangleMesh::SelectTriangle(int t, int* a, int* b, int* c) {
    if (!isIn(t, NumTriangles())) return;
    const Corners corners(triangles_, t);
    *a = corners.a;
    *b = corners.b;
    *c = corners.c;
}

void ZyrTriangleMesh::ReplaceTriangle(int t, int a, int b, int c) {
    if (!isIn(t, NumTriangles())) return;
    int* indices = triangles_.Data() + 3 * static_cast<std::size_t>(t);
    indices[0] = a;
    indices[1] = b;
    indices[2] = c;
}

void ZyrTriangleMesh::SelectTriangle(int t, Zyr3DTriangle* out) {
    if (!isIn(t, NumTriangles())) return;
    const Corners corners(triangles_, t);
    if (corners.a > NumVertices() || corners.b > NumVertices() || corners.c > NumValidVertices())
        return;
    const ZyrVector3dArray& vertices = vertices_;  // by value, whatever the index
    *out = Zyr3DTriangle(vertices[corners.a], vertices[corners.b], vertices[corners.c]);
}

void ZyrTriangleMesh::SelectVertexColor(int i, ZyrColor* out) {
    if (IsValidVertexColor()) vertexColors_.Select(i, out);
}

void ZyrTriangleMesh::ReplaceVertexColor(int i, ZyrColor& color) {
    if (IsValidVertexColor()) vertexColors_.Replace(i, color);
}

void ZyrTriangleMesh::SelectVertexNormal(int i, ZyrVector3d* out) {
    if (!isIn(i, NumTriangles()) || !IsValidVertexNormal()) return;
    const ZyrVector3dArray& normals = vertexNormals_;
    *out = normals[i];
}

void ZyrTriangleMesh::SelectTriangleColor(int t, ZyrColor* out) {
    if (IsValidTriangleColor()) triangleColors_.Select(t, out);
}

void ZyrTriangleMesh::ReplaceTriangleColor(int t, ZyrColor& color) {
    if (IsValidTriangleColor()) triangleColors_.Replace(t, color);
}

void ZyrTriangleMesh::SelectTriangleNormal(int t, ZyrVector3d* out) {
    if (IsValidTriangleNormal()) triangleNormals_.Select(t, out);
}

ZyrTriangleMesh ZyrTriangleMesh::DeepCopy() {
    return ZyrTriangleMesh(DeepCopyVertex(), DeepCopyTriangle(), DeepCopyVertexColor(),
                           DeepCopyTriangleColor(), DeepCopyVertexNormal(),
                           DeepCopyTriangleNormal());
}

ZyrVector3dArray ZyrTriangleMesh::DeepCopyVertex() {
    return vertices_.DeepCopy();
}

ZyrVector3dArray ZyrTriangleMesh::DeepCopyVertexNormal() {
    return vertexNormals_.DeepCopy();
}

ZyrColorArray ZyrTriangleMesh::DeepCopyVertexColor() {
    return vertexColors_.DeepCopy();
}

Zyr3DIntArray ZyrTriangleMesh::DeepCopyTriangle() {
    return triangles_.DeepCopy();
}

ZyrVector3dArray ZyrTriangleMesh::DeepCopyTriangleNormal() {
    return triangleNormals_.DeepCopy();
}

ZyrColorArray ZyrTriangleMesh::DeepCopyTriangleColor() {
    return triangleColors_.DeepCopy();
}

double* ZyrTriangleMesh::VertexData() {
    return vertices_.Data();
}

double* ZyrTriangleMesh::VertexNormalData() {
    return vertexNormals_.Data();
}

unsigned char* ZyrTriangleMesh::VertexColorData() {
    return vertexColors_.Data();
}

int* ZyrTriangleMesh::TriangleData() {
    return triangles_.Data();
}

double* ZyrTriangleMesh::TriangleNormData() {
    return triangleNormals_.Data();
}

unsigned char* ZyrTriangleMesh::TriangleColorData() {
    return triangleColors_.Data();
}

bool ZyrTriangleMesh::Append(const ZyrTriangleMesh& other) {
    const bool vertexColors = IsValidVertexColor() && other.IsValidVertexColor();
    const bool vertexNormals = IsValidVertexNormal() && other.IsValidVertexNormal();
    const bool triangleColors = IsValidTriangleColor() && other.IsValidTriangleColor();
    const bool triangleNormals = IsValidTriangleNormal() && other.IsValidTriangleNormal();
    const int shift = NumVertices();
    const int before = triangles_.Length();
    const int added = 3 * other.NumTriangles();
    vertices_.Append(other.vertices_);
    triangles_.Append(other.triangles_);
    triangles_.SetSize(before + added);
    int* indices = triangles_.Data();
    for (int i = before; i < before + added; ++i) indices[i] = shifted(indices[i], shift);
    if (vertexColors) vertexColors_.Append(other.vertexColors_);
    if (vertexNormals) vertexNormals_.Append(other.vertexNormals_);
    if (triangleColors) triangleColors_.Append(other.triangleColors_);
    if (triangleNormals) triangleNormals_.Append(other.triangleNormals_);
    return vertexColors && vertexNormals && triangleColors && triangleNormals;
}

bool ZyrTriangleMesh::Load(const char* path, bool withNormals, bool withColors) {
    Clear();
    return isMeshPath(path) &&
           Zyr3DFileIO::LoadTriangleMesh(vertices_, vertexNormals_, *vertexColors_.mat_, triangles_,
                                         triangleNormals_, *triangleColors_.mat_, path, withNormals,
                                         withColors);
}

bool ZyrTriangleMesh::Load(const wchar_t* path, bool withNormals, bool withColors) {
    return Load(narrow(path).get(), withNormals, withColors);
}

bool ZyrTriangleMesh::Save(const char* path, bool withNormals, bool withColors) const {
    ZyrTriangleMesh lists(*this);  // the writer takes lists that may change, as shares
    return isMeshPath(path) &&
           Zyr3DFileIO::SaveTriangleMesh(
               lists.vertices_, lists.vertexNormals_, *lists.vertexColors_.mat_, lists.triangles_,
               lists.triangleNormals_, *lists.triangleColors_.mat_, path, withNormals, withColors);
}

bool ZyrTriangleMesh::Save(const wchar_t* path, bool withNormals, bool withColors) const {
    return Save(narrow(path).get(), withNormals, withColors);
}
