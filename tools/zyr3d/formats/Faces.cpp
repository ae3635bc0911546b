#include "formats/Faces.h"

#include "formats/Fault.h"
#include "formats/Text.h"

namespace zyr {
namespace {

int cornerOf(double index, int vertexCount) {
    if (index >= 0.0 && index < vertexCount && index == static_cast<int>(index))
        return static_cast<int>(index);
    std::string text;
    appendNumber(text, index);
    throw FormatFault("a face names vertex " + text + " of " + std::to_string(vertexCount));
}

}  // namespace

int Faces::add(const std::vector<double>& corners, int vertexCount) {
    if (corners.size() < 3) {
        ++dropped_;
        return 0;
    }
    if (corners.size() > 3) ++polygons_;
    const int first = cornerOf(corners[0], vertexCount);
    int last = cornerOf(corners[1], vertexCount);
    for (std::size_t i = 2; i < corners.size(); ++i) {
        const int corner = cornerOf(corners[i], vertexCount);
        triangles_.insert(triangles_.end(), {first, last, corner});
        last = corner;
    }
    if (triangles_.size() / 3 > kMostElements) throw FormatFault("too many triangles");
    return static_cast<int>(corners.size()) - 2;
}

void Faces::finish(Scene& scene) {
    scene.triangles = Zyr3DIntArray(triangles_.data(), static_cast<int>(triangles_.size()));
    if (count() > 0) scene.kind = Scene::Mesh;
    if (polygons_ > 0)
        scene.leftOut.push_back(std::to_string(polygons_) + " polygons: made into triangles");
    if (dropped_ > 0)
        scene.leftOut.push_back(std::to_string(dropped_) + " faces of fewer than 3 corners");
}

}  // namespace zyr
