#include "ZyrTriangleMesh.h"

#include <cstddef>

#include "mesh/Corners.h"

using zyr::Corners;
using zyr::isIn;

namespace {

/// Wraps around at 32 bits.
int shifted(int index, int shift) {
    return static_cast<int>(static_cast<unsigned>(index) + static_cast<unsigned>(shift));
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
    return isIn(t, NumTriangles()) && zyr::Vertices(vertices_).makeTriangle(Corners(triangles_, t));
}

int ZyrTriangleMesh::NumValidVertices() const {
    return vertices_.NumValidPoints();
}

int ZyrTriangleMesh::NumValidTriangles() const {
    const zyr::Vertices vertices(vertices_);
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
