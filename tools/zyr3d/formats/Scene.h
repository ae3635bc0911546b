#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "ZyrPointCloud.h"
#include "ZyrRangeImage.h"
#include "ZyrTriangleMesh.h"

namespace zyr {

/// A column of a file, with its type as info prints it.
struct Field {
    std::string name, type;
};

/// What a file of any format gives. Points that are missing are invalid vectors in place, whatever
/// the format marks them with. Copies share the arrays.
struct Scene {
    enum Kind { Cloud, Mesh, Range };

    Kind kind = Cloud;
    ZyrPointCloud cloud;               ///< the points, or the vertices of a mesh
    Zyr3DIntArray triangles;           ///< of a mesh: three indices each, all in range
    ZyrVector3dArray triangleNormals;  ///< none, or one a triangle
    ZyrColorArray triangleColors;      ///< likewise
    int columns = 0, rows = 0;         ///< of the grid of a cloud, row by row; 0 without a grid
    ZyrRangeImage range;               ///< of the kind Range: values and calibration
    ZyrColorArray pixelColors;         ///< of the kind Range: none, or one a value, as one row
    std::vector<std::string> leftOut;  ///< what the file has and the scene has not, for people

    // Of foreign files:
    std::vector<Field> fields;   ///< as the file names them
    std::string body;            ///< the kind of it
    std::uint64_t rawBytes = 0;  ///< of all values by their types

    std::optional<std::uint64_t> rest;  ///< where bytes start that belong to nothing, if any do

    bool isGrid() const { return columns > 0 && rows > 0; }
    int triangleCount() const { return triangles.Length() / 3; }
    ZyrTriangleMesh mesh() const;
};

/// Reads a file that may hold anything, by its suffix in any letter case: zpt, ztmt, zrt, ply, stl,
/// obj, pcd, xyz, txt, csv, npy, png, tif, tiff, jpg, jpeg, bmp. Throws FileTrouble.
Scene readScene(const std::string& path);

/// Whether readScene knows the path's suffix.
bool isScenePath(const std::string& path);

}  // namespace zyr
