#include <cerrno>
#include <cstring>

#include "Outcome.h"
#include "Table.h"
#include "Zyr3DInner.h"
#include "check/Check.h"
#include "files/FileKind.h"
#include "files/RegularFile.h"
#include "formats/Scene.h"

namespace zyr {
namespace {

std::uint64_t count(int number) {
    return static_cast<std::uint64_t>(number);
}

Checked checkedScene(const Scene& scene) {
    const std::uint64_t points = count(scene.cloud.Length());
    const std::uint64_t holes = points - count(scene.cloud.NumValidPoints());
    const bool isMesh = scene.kind == Scene::Mesh;
    Checked checked;
    checked.facts.word("kind", isMesh ? "triangle mesh" : "point cloud");
    checked.facts.count(isMesh ? "vertices" : "points", points);
    checked.facts.count("holes", holes);
    checked.summary = (isMesh ? "triangle mesh, " + counted(points, "vertex", "vertices")
                              : "point cloud, " + counted(points, "point", "points")) +
                      ", " + holesText(holes, points);
    if (isMesh) {
        const std::uint64_t triangles = count(scene.triangleCount());
        checked.facts.count("triangles", triangles);
        checked.summary += ", " + counted(triangles, "triangle", "triangles");
    }
    return checked;
}

}  // namespace

Checked checkForeignFile(const std::string& path) {
    const Scene scene = readScene(path);
    if (scene.rest) {
        const std::uint64_t size = fileSize(path) - *scene.rest;
        throw Fault(path, *scene.rest, counted(size, "byte", "bytes") + " behind the end");
    }
    const cv::Mat grid(scene.range.Height(), scene.range.Width(), scene.range.DataType(),
                       scene.range.Data());
    Checked checked =
        scene.kind == Scene::Range ? checkedGrid("range image", grid) : checkedScene(scene);
    if (!scene.leftOut.empty()) checked.facts.add("not read", "", scene.leftOut);
    for (const std::string& part : scene.leftOut) checked.summary += "; not read: " + part;
    return checked;
}

Checked checkFile(const std::string& path) {
    switch (fileKind(path)) {
        case FileKind::Cloud:
            return checkCloudFile(path);
        case FileKind::Mesh:
            return checkMeshFile(path);
        case FileKind::Range:
            return checkRangeFile(path);
        case FileKind::Picture:
            return checkPictureFile(path);
        case FileKind::Foreign:
            return checkForeignFile(path);
    }
    throw FileTrouble(path + ": not of a kind that is known");
}

std::string holesText(std::uint64_t holes, std::uint64_t whole) {
    const std::string text = counted(holes, "hole", "holes");
    return holes > 0 ? text + " (" + percent(holes, whole) + ")" : text;
}

void explainRefusal(const std::string& path, int error) {
    try {
        checkFile(path);
    } catch (const Fault& fault) {
        if (!fault.offset) throw;
        throw Fault(path, *fault.offset, fault.why);
    }
    const bool isMemory = error == 0 || error == ENOMEM;
    throw FileTrouble(path + ": " + (isMemory ? "out of memory" : std::strerror(error)));
}

}  // namespace zyr
