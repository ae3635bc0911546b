#pragma once

#include "CloudChecks.h"
#include "support/MeshFile.h"

/// What must hold of any triangle-mesh file, whatever its bytes.
namespace fuzz {

inline std::vector<int> indicesOf(const Zyr3DIntArray& array) {
    return std::vector<int>(array.Data(), array.Data() + array.Length());
}

inline void checkMeshRoundTrip(test::MeshLists& mesh, int faces) {
    static InputFile file;
    require(mesh.save(file.path(), true, true), "a mesh that was read is written");
    test::MeshLists again;
    require(again.load(file.path(), true, true), "what was written is read");
    require(test::bits(again.vertices) == test::bits(mesh.vertices), "vertices come back");
    require(test::bits(again.vertexNormals) == test::bits(mesh.vertexNormals),
            "vertex normals come back");
    require(test::bytesOf(again.vertexColors) == test::bytesOf(mesh.vertexColors),
            "vertex colours come back");
    require(indicesOf(again.triangles) == indicesOf(mesh.triangles), "triangles come back");
    if (faces == 0) return;
    require(test::bits(again.triangleNormals) == test::bits(mesh.triangleNormals),
            "triangle normals come back");
    require(test::bytesOf(again.triangleColors) == test::bytesOf(mesh.triangleColors),
            "triangle colours come back");
}

inline std::int64_t meshBytes(const test::PlainHeader& header) {
    return cloudBytes(header) + 12 * stated(header, "FACES");
}

inline bool isSlowMesh(const test::PlainHeader& header) {
    return isSlow(std::max(header.number("POINTS"), header.number("FACES")), meshBytes(header));
}

inline void checkMesh(const InputFile& file, const test::PlainHeader& header, Flags flags) {
    test::MeshLists mesh;
    const bool isLoaded = mesh.load(file.path(), flags.withNormals, flags.withColors);
    require(test::takeStop() == header.stop(), "stops are the stated ones");
    require(!isLoaded || (header.isUsable() && header.has("POINTS")), "others are refused");
    require(!isLoaded || !areUnbacked(meshBytes(header)), "vertices and triangles need bytes");
    if (!isLoaded) return;
    const auto points = static_cast<int>(header.number("POINTS"));
    const auto faces = static_cast<int>(header.number("FACES"));
    const bool hasNormals = flags.withNormals && header.index("nx") >= 0;
    const bool hasFaceNormals = flags.withNormals && header.index("fnx") >= 0;
    require(points > 0 && mesh.vertices.Length() == points, "as many vertices as stated");
    require(mesh.vertexNormals.Length() == (hasNormals ? points : 0), "as many normals");
    require(mesh.triangles.Length() == 3 * faces, "as many triangles");
    require(mesh.triangleNormals.Length() == (hasFaceNormals ? faces : 0), "and their normals");
    require(mesh.vertexColors.empty() || isColorRow(mesh.vertexColors, points), "vertex colours");
    require(mesh.triangleColors.empty() || isColorRow(mesh.triangleColors, faces),
            "triangle colours");
    if (points + faces <= kMostElements) checkMeshRoundTrip(mesh, faces);
}

}  // namespace fuzz
