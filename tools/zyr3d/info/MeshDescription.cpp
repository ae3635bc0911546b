#include "Mesh.h"
#include "files/MeshFile.h"
#include "info/Description.h"

namespace zyr {
namespace {

void addNormals(Facts& facts, const std::string& label, const ZyrVector3dArray& normals) {
    const bool areThere = normals.Length() > 0;
    facts.add(label, areThere ? "yes" : "none", areThere);
}

std::uint64_t count(int number) {
    return static_cast<std::uint64_t>(number);
}

int channels(const ZyrColorArray& colors) {
    return colors.Length() > 0 ? colors.Channel() : 0;
}

}  // namespace

Description describeMeshFile(const std::string& path) {
    MeshFile file = loadMeshFile(path);
    const TextHeaderFile& disk = file.disk;
    ZyrTriangleMesh& mesh = file.mesh;
    ZyrVector3dArray vertices = mesh.DeepCopyVertex();
    Description description;
    Facts& facts = description.facts;
    facts.word("kind", "triangle mesh");
    addFields(facts, disk.header);
    facts.count("vertices", count(mesh.NumVertices()));
    facts.share("valid vertices", count(mesh.NumValidVertices()), count(mesh.NumVertices()));
    addBounds(facts, vertices);
    facts.count("triangles", count(mesh.NumTriangles()));
    facts.share("valid triangles", count(mesh.NumValidTriangles()), count(mesh.NumTriangles()));
    addNormals(facts, "vertex normals", mesh.DeepCopyVertexNormal());
    addColors(facts, "vertex colours", channels(mesh.DeepCopyVertexColor()));
    addNormals(facts, "triangle normals", mesh.DeepCopyTriangleNormal());
    addColors(facts, "triangle colours", channels(mesh.DeepCopyTriangleColor()));
    addBody(facts, disk.header);
    addDiskBytes(facts, meshBytes(mesh), disk.bytes);
    description.shortage = shortageText(disk);
    return description;
}

}  // namespace zyr
