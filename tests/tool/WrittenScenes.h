#pragma once

#include <filesystem>
#include <string>

#include "Outcome.h"
#include "RenderData.h"
#include "formats/Format.h"

namespace test {

inline zyr::Scene pointScene() {
    zyr::Scene scene;
    ZyrVector3dArray points;
    points.Append(ZyrVector3d(1, 2, 3));
    scene.cloud.SetPoints(points);
    return scene;
}

/// Of the kind of the path's suffix.
inline zyr::Scene sceneFor(const std::string& path) {
    zyr::Scene scene = pointScene();
    const std::string suffix = std::filesystem::path(path).extension();
    if (suffix != ".ztmt" && suffix != ".zrt") return scene;
    scene.kind = suffix == ".zrt" ? zyr::Scene::Range : zyr::Scene::Mesh;
    scene.range = hillImage();
    return scene;
}

/// What is told when such a scene is written; "" where all is good.
inline std::string troubleOfWriting(const std::string& path) try {
    zyr::writeScene(sceneFor(path), path, {});
    return "";
} catch (const zyr::FileTrouble& trouble) {
    return trouble.what();
}

}  // namespace test
