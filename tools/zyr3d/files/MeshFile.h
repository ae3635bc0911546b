#pragma once

#include <string>

#include "ZyrTriangleMesh.h"
#include "files/TextHeaderFile.h"

namespace zyr {

struct MeshFile {
    TextHeaderFile disk;
    ZyrTriangleMesh mesh;
};

/// Loads a triangle-mesh file that may hold anything, with all it has. Throws FileTrouble.
MeshFile loadMeshFile(const std::string& path);

}  // namespace zyr
