#pragma once

#include <string>
#include <vector>

#include "formats/Scene.h"

namespace zyr {

/// Polygons of a foreign file as triangles: fans from each one's first corner.
class Faces {
public:
    /// Corners are indices of vertices, from 0. Gives the number of triangles. Throws FormatFault
    /// for one that is not below the number of vertices.
    int add(const std::vector<double>& corners, int vertexCount);

    /// Moves the triangles into a scene and says what is no triangle.
    void finish(Scene& scene);
    int count() const { return static_cast<int>(triangles_.size() / 3); }

private:
    std::vector<int> triangles_;
    std::size_t polygons_ = 0, dropped_ = 0;
};

}  // namespace zyr
