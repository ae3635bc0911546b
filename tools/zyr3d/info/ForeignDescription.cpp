#include <opencv2/core.hpp>

#include "Mesh.h"
#include "ZyrRangeImage.h"
#include "files/RegularFile.h"
#include "formats/Scene.h"
#include "info/Description.h"

namespace zyr {
namespace {

std::uint64_t count(int number) {
    return static_cast<std::uint64_t>(number);
}

void addYesNo(Facts& facts, const std::string& label, bool isThere) {
    facts.add(label, isThere ? "yes" : "none", isThere);
}

void addPoints(Facts& facts, Scene& scene, const std::string& what) {
    const std::uint64_t points = count(scene.cloud.Length());
    facts.count(what, points);
    if (scene.isGrid()) facts.size("grid", count(scene.columns), count(scene.rows));
    facts.share("valid " + what, count(scene.cloud.NumValidPoints()), points);
    addBounds(facts, scene.cloud.PointData());
}

int channels(bool isThere, const ZyrColorArray& colors) {
    return isThere ? colors.Channel() : 0;
}

void addCloud(Facts& facts, Scene& scene) {
    facts.word("kind", "point cloud");
    addFields(facts, scene.fields);
    addPoints(facts, scene, "points");
    addColors(facts, "colours", channels(scene.cloud.IsValidColor(), scene.cloud.ColorData()));
    addYesNo(facts, "normals", scene.cloud.IsValidNormal());
}

void addMesh(Facts& facts, Scene& scene) {
    facts.word("kind", "triangle mesh");
    addFields(facts, scene.fields);
    addPoints(facts, scene, "vertices");
    const ZyrTriangleMesh mesh = scene.mesh();
    facts.count("triangles", count(scene.triangleCount()));
    facts.share("valid triangles", count(mesh.NumValidTriangles()), count(scene.triangleCount()));
    addYesNo(facts, "vertex normals", scene.cloud.IsValidNormal());
    addColors(facts, "vertex colours",
              channels(scene.cloud.IsValidColor(), scene.cloud.ColorData()));
    addYesNo(facts, "triangle normals", scene.triangleNormals.Length() > 0);
    addColors(facts, "triangle colours",
              channels(scene.triangleColors.Length() > 0, scene.triangleColors));
}

}  // namespace

Description describeForeignFile(const std::string& path) {
    Scene scene = readScene(path);
    Description description;
    Facts& facts = description.facts;
    if (scene.kind == Scene::Range) {
        const ZyrRangeImage& image = scene.range;
        facts.word("kind", "range image");
        addGrid(facts, cv::Mat(image.Height(), image.Width(), image.DataType(), image.Data()));
    } else if (scene.kind == Scene::Mesh) {
        addMesh(facts, scene);
    } else {
        addCloud(facts, scene);
    }
    if (!scene.leftOut.empty()) {
        std::string text;
        for (const std::string& part : scene.leftOut) text += (text.empty() ? "" : "; ") + part;
        facts.add("not read", text, scene.leftOut);
    }
    facts.word("body", scene.body);
    addDiskBytes(facts, scene.rawBytes, fileSize(path));
    return description;
}

}  // namespace zyr
