#pragma once

#include <string>
#include <vector>

#include "formats/Fault.h"
#include "formats/Scene.h"

namespace zyr {

/// Polygons of a foreign file as triangles: fans from each one's first corner.
class Faces {
public:
    /// What the file calls its first vertex.
    explicit Faces(int first) : first_(first) {}

    /// Corners are indices of vertices, from 0. Gives the number of triangles. Throws FormatFault
    /// with the face's place for one that is not below the number of vertices.
    int add(const std::vector<double>& corners, int vertexCount, const Place& place);

    /// Moves the triangles into a scene and says what is no triangle.
    void finish(Scene& scene);
    int count() const { return static_cast<int>(triangles_.size() / 3); }

private:
    int cornerOf(double index, int vertexCount, const Place& place) const;

    int first_;
    std::vector<int> triangles_;
    std::size_t polygons_ = 0, dropped_ = 0;
};

}  // namespace zyr
