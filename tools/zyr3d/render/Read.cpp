#include "render/Read.h"

#include "formats/Scene.h"

namespace zyr {

Subject readSubject(const std::string& path, bool isPoints) {
    Scene scene = readScene(path);
    if (scene.kind == Scene::Range) return subjectOf(scene.range, scene.pixelColors);
    if (scene.kind == Scene::Cloud) return subjectOf(scene.cloud, isPoints ? 0 : scene.columns);
    ZyrTriangleMesh mesh = scene.mesh();
    return subjectOf(mesh);
}

}  // namespace zyr
