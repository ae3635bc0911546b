#include "ZyrTriangleMesh.h"

#include <memory>
#include <string>

#include "Zyr3DFileIO.h"
#include "Zyr3DInner.h"

// The mesh's own file access: the path's part of it.

namespace {

bool isMeshPath(const char* path) {
    if (path == nullptr) return false;
    const std::string suffix = Zyr3DInner::getSuffix(path);
    return suffix == "ztmt" || suffix == "ZTMT";
}

std::unique_ptr<char[]> narrow(const wchar_t* path) {
    return std::unique_ptr<char[]>(Zyr3DInner::wchar2char(path));
}

}  // namespace

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
