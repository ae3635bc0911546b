#include "files/MeshFile.h"

#include "Zyr3DFileIO.h"
#include "files/Loading.h"

namespace zyr {

MeshFile loadMeshFile(const std::string& path) {
    const Snapshot whole(path);
    const TextHeaderFile disk = scanMeshFile(whole);
    ZyrVector3dArray vertices, normals, triangleNormals;
    Zyr3DIntArray triangles;
    cv::Mat colors, triangleColors;
    loadScanned(whole, [&](const char* name) {
        return Zyr3DFileIO::LoadTriangleMesh(vertices, normals, colors, triangles, triangleNormals,
                                             triangleColors, name, true, true);
    });
    return {disk, ZyrTriangleMesh(vertices, triangles, colorsOf(colors), colorsOf(triangleColors),
                                  normals, triangleNormals)};
}

}  // namespace zyr
