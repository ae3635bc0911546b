#pragma once

#include "Zyr3DIntArray.h"
#include "Zyr3DTriangle.h"
#include "ZyrColorArray.h"
#include "ZyrExport.h"
#include "ZyrVector3dArray.h"

/// An indexed triangle mesh: vertices, a flat list of vertex indices (three a triangle, from 0),
/// and up to four lists of attributes: a normal and a colour for each vertex and for each triangle.
///
/// An attribute list counts as present when it is as long as what it belongs to; of any other
/// length it is kept but treated as absent. The number of triangles is the index list's length
/// divided by 3; a remainder is ignored.
///
/// Lists are shared on copy, assignment and by the setters, and every change in place is seen by
/// all who share. That goes for clearing and Append too, save for colours: who shares those keeps
/// them as they are.
/// Assignment first clears the target's lists in place, and so empties them for whoever shares
/// them; assigning a mesh to itself leaves it empty. DeepCopy and its siblings give lists of one's
/// own. An index out of range does nothing and leaves outputs untouched.
class ZYR_EXPORT ZyrTriangleMesh {
public:
    ZyrTriangleMesh();
    /// Shares the lists given; the others are empty.
    ZyrTriangleMesh(const ZyrVector3dArray& vertices, const Zyr3DIntArray& triangles);
    ZyrTriangleMesh(const ZyrVector3dArray& vertices, const Zyr3DIntArray& triangles,
                    const ZyrColorArray& vertexColors, const ZyrColorArray& triangleColors);
    ZyrTriangleMesh(const ZyrVector3dArray& vertices, const Zyr3DIntArray& triangles,
                    const ZyrColorArray& vertexColors, const ZyrColorArray& triangleColors,
                    const ZyrVector3dArray& vertexNormals, const ZyrVector3dArray& triangleNormals);
    /// Shares the other's lists.
    ZyrTriangleMesh(const ZyrTriangleMesh& other);
    /// Clears this mesh's lists in place, then shares the other's.
    ZyrTriangleMesh& operator=(const ZyrTriangleMesh& other);
    ~ZyrTriangleMesh();

    /// Clears the old list in place, then shares the new one.
    void SetVertices(const ZyrVector3dArray& vertices);
    void SetTriangles(const Zyr3DIntArray& triangles);
    void SetVertexColors(const ZyrColorArray& colors);
    /// Shares the new list without clearing the old one, unlike its three siblings.
    void SetTriangleColors(const ZyrColorArray& colors);

    /// Empties the list in place, for those who share it too; colours for this mesh alone.
    void ClearVertices();
    void ClearVertexNormal();
    void ClearVertexColors();
    void ClearTriangles();
    void ClearTriangleNormal();
    void ClearTriangleColors();
    /// Empties all six lists likewise.
    void Clear();

    /// The number of vertices, valid or not.
    int NumVertices() const;
    /// A third of the number of indices, rounded down.
    int NumTriangles() const;
    /// Whether there are as many as vertices or triangles, which holds for none of none too.
    /// Colours count by rows times columns here, while Save counts the columns alone.
    bool IsValidVertexColor() const;
    bool IsValidVertexNormal() const;
    bool IsValidTriangleColor() const;
    bool IsValidTriangleNormal() const;
    /// Whether vertex i is there and a valid vector.
    bool IsValidVertex(int i) const;
    /// Whether the triangle has three different indices in range and its corners, in order, are a
    /// valid Zyr3DTriangle.
    bool IsValidTriangle(int t) const;
    /// Counted at each call.
    int NumValidVertices() const;
    int NumValidTriangles() const;

    /// Reads or writes vertex i.
    void SelectVertex(int i, ZyrVector3d* out);
    void ReplaceVertex(int i, const ZyrVector3d& v);
    /// The triangle's three vertex indices as they are stored.
    void SelectTriangle(int t, int* a, int* b, int* c);
    /// The indices are stored as they are given, in range or not.
    void ReplaceTriangle(int t, int a, int b, int c);
    /// Reads the corners when the first two indices are at most the number of vertices and the
    /// third at most the number of *valid* vertices; else does nothing. A corner that these bounds
    /// let past the list, or a negative index, is the invalid vector. Counts the valid vertices at
    /// each call.
    void SelectTriangle(int t, Zyr3DTriangle* out);

    /// Nothing happens while the list does not count as present.
    void SelectVertexColor(int i, ZyrColor* out);
    void ReplaceVertexColor(int i, ZyrColor& color);
    /// The index is held against the number of *triangles*: a vertex from there on selects nothing,
    /// and one past the normals, where a mesh has more triangles than vertices, is the invalid
    /// vector.
    void SelectVertexNormal(int i, ZyrVector3d* out);
    /// Nothing happens while the list does not count as present.
    void SelectTriangleColor(int t, ZyrColor* out);
    void ReplaceTriangleColor(int t, ZyrColor& color);
    void SelectTriangleNormal(int t, ZyrVector3d* out);

    /// Copies with storage of their own.
    ZyrTriangleMesh DeepCopy();
    ZyrVector3dArray DeepCopyVertex();
    ZyrVector3dArray DeepCopyVertexNormal();
    ZyrColorArray DeepCopyVertexColor();
    Zyr3DIntArray DeepCopyTriangle();
    ZyrVector3dArray DeepCopyTriangleNormal();
    ZyrColorArray DeepCopyTriangleColor();

    /// The lists' flat buffers: 3 doubles a vertex or normal, 3 indices a triangle, the colour
    /// matrix's bytes. Null when empty.
    double* VertexData();
    double* VertexNormalData();
    unsigned char* VertexColorData();
    int* TriangleData();
    double* TriangleNormData();
    unsigned char* TriangleColorData();

    /// Appends the other's vertices and its triangles, with indices shifted by this mesh's number
    /// of vertices (wrapping around, whatever they are). Each attribute list travels only when it
    /// counts as present in both meshes before the call; else it stays as it is. True when all four
    /// do. Colours of another channel count or of more than one row stay behind all the same, as
    /// ZyrColorArray::Append has it, without a say in the result. A mesh may be appended to itself.
    bool Append(const ZyrTriangleMesh& other);

    /// Replaces the mesh by a file's, as Zyr3DFileIO::LoadTriangleMesh reads it. The suffix must be
    /// "ztmt" or "ZTMT". All lists are cleared in place first, even when the file is refused.
    bool Load(const char* path, bool withNormals, bool withColors);
    bool Load(const wchar_t* path, bool withNormals, bool withColors);
    /// Writes a file, as Zyr3DFileIO::SaveTriangleMesh does. The suffix must be "ztmt" or "ZTMT".
    bool Save(const char* path, bool withNormals, bool withColors) const;
    bool Save(const wchar_t* path, bool withNormals, bool withColors) const;

private:
    ZyrVector3dArray vertices_;
    ZyrVector3dArray vertexNormals_;
    ZyrColorArray vertexColors_;
    Zyr3DIntArray triangles_;
    ZyrVector3dArray triangleNormals_;
    ZyrColorArray triangleColors_;
};
