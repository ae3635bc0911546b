#pragma once

#include "render/Subject.h"

namespace zyr {

/// Makes points that fill a grid of columns, as they are seen, the subject's surface. Holes and,
/// save in a height map, steps stay open; the pixels beside them are splats too, so that each
/// covers its own half of the way to its neighbour. Normals are computed where the subject has
/// none.
void addGridSurface(Subject& subject, const std::vector<cv::Vec3d>& seen, int columns);

/// Adds the triangles that can be drawn, with their colours where there are some.
void addTriangles(Subject& subject, const int* corners, std::size_t count,
                  const std::vector<cv::Vec3b>& colors);
/// Adds the points with fewer triangles around them than are enough.
void addSplats(Subject& subject, int enough);
/// One unit normal a point, zero where there is none; nothing when there are not as many.
std::vector<cv::Vec3f> normalsOf(ZyrVector3dArray& array, std::size_t points);

}  // namespace zyr
