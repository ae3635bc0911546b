#include "formats/Faces.h"

#include "formats/Text.h"

namespace zyr {

int Faces::cornerOf(double index, int vertexCount, const Place& place) const {
    if (index >= 0.0 && index < vertexCount && index == static_cast<int>(index))
        return static_cast<int>(index);
    std::string text;
    appendNumber(text, index + first_);
    failAt(place, "a face names vertex " + text + " of " + std::to_string(vertexCount));
}

int Faces::add(const std::vector<double>& corners, int vertexCount, const Place& place) {
    std::vector<int> indices;
    for (const double corner : corners) indices.push_back(cornerOf(corner, vertexCount, place));
    if (indices.size() < 3) {
        ++dropped_;
        return 0;
    }
    if (indices.size() > 3) ++polygons_;
    for (std::size_t i = 2; i < indices.size(); ++i)
        triangles_.insert(triangles_.end(), {indices[0], indices[i - 1], indices[i]});
    if (triangles_.size() / 3 > kMostElements) failAt(place, "too many triangles");
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
