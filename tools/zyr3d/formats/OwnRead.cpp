#include "Outcome.h"
#include "files/CloudFile.h"
#include "files/Loading.h"
#include "files/MeshFile.h"
#include "files/RangeFile.h"
#include "formats/Readers.h"

namespace zyr {
namespace {

/// The library reads more than can be converted with good conscience.
void requireWhole(const std::string& path, const TextHeaderFile& disk) {
    if (disk.header.body == "ascii")
        throw FileTrouble(path + ": its body is ascii, which is not decoded");
    if (disk.isCut())
        throw FileTrouble(path + ": cut short: " + std::to_string(disk.bodyHeld) + " of " +
                          std::to_string(disk.bodySize) + " bytes of its body are there");
}

bool isInRange(const Scene& scene) {
    const int vertices = scene.cloud.Length();
    for (int i = 0; i < scene.triangles.Length(); ++i) {
        const int corner = scene.triangles.Data()[i];
        if (corner < 0 || corner >= vertices) return false;
    }
    return true;
}

}  // namespace

Scene readZpt(const std::string& path) {
    CloudFile file = loadCloudFile(path);
    requireWhole(path, file.disk);
    Scene scene;
    scene.cloud = file.cloud;
    const CloudHeader& header = file.disk.header;
    if (header.body == "binary" && header.hasField("nx")) {
        scene.cloud.SetNormals(ZyrVector3dArray());
        scene.leftOut.push_back("normals: not read from a body of this kind");
    }
    if (header.height > 1) {
        scene.columns = static_cast<int>(header.width);
        scene.rows = static_cast<int>(header.height);
    }
    return scene;
}

Scene readZtmt(const std::string& path) {
    MeshFile file = loadMeshFile(path);
    requireWhole(path, file.disk);
    ZyrTriangleMesh& mesh = file.mesh;
    Scene scene;
    scene.kind = Scene::Mesh;
    scene.cloud = ZyrPointCloud(mesh.DeepCopyVertex(), mesh.DeepCopyVertexColor(),
                                mesh.DeepCopyVertexNormal());
    scene.triangles = mesh.DeepCopyTriangle();
    scene.triangleNormals = mesh.DeepCopyTriangleNormal();
    scene.triangleColors = mesh.DeepCopyTriangleColor();
    if (!isInRange(scene))
        throw FileTrouble(path + ": a triangle names a vertex that is not there");
    return scene;
}

Scene readZrt(const std::string& path) {
    const RangeFile file = loadRangeFile(path);
    if (file.values.empty()) throw FileTrouble(path + ": values of an unknown type");
    Scene scene;
    scene.kind = Scene::Range;
    scene.range = ZyrRangeImage(file.values.data, file.width, file.height, 0, file.type, 0.0, 0.0,
                                file.resolutionZ, file.offsetZ, file.resolutionX, file.offsetX,
                                file.resolutionY, file.offsetY);
    scene.pixelColors = colorsOf(file.colors);
    return scene;
}

}  // namespace zyr
