#include "ZyrTriangleMesh.h"

#include <string_view>

#include "Zyr3DFileIO.h"
#include "core/Path.h"

// The mesh's own file access: the path's part of it.

namespace {

bool isMeshPath(const char* path) {
    const std::string_view suffix = zyr::suffixOf(path);
    return suffix == "ztmt" || suffix == "ZTMT";
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
    return Load(zyr::narrowPath(path).get(), withNormals, withColors);
}

bool ZyrTriangleMesh::Save(const char* path, bool withNormals, bool withColors) const try {
    ZyrTriangleMesh lists(*this);  // the writer takes lists that may change, as shares
    return isMeshPath(path) &&
           Zyr3DFileIO::SaveTriangleMesh(
               lists.vertices_, lists.vertexNormals_, *lists.vertexColors_.mat_, lists.triangles_,
               lists.triangleNormals_, *lists.triangleColors_.mat_, path, withNormals, withColors);
} catch (...) {
    return false;
}

bool ZyrTriangleMesh::Save(const wchar_t* path, bool withNormals, bool withColors) const {
    return Save(zyr::narrowPath(path).get(), withNormals, withColors);
}
