#include "Mesh.h"
#include "Outcome.h"
#include "info/Description.h"

namespace zyr {
namespace {

std::string normalsText(const ZyrVector3dArray& normals) {
    return normals.Length() > 0 ? "yes" : "none";
}

/// Colours whose channel count is cut off are in the header alone.
std::string colorsText(const CloudHeader& header, const char* field, const ZyrColorArray& colors) {
    if (colors.Length() > 0) return channelsText(colors.Channel());
    return header.hasField(field) ? "none read" : "none";
}

void addCount(Table& table, const char* label, int count) {
    table.add({label, grouped(static_cast<std::uint64_t>(count))});
}

}  // namespace

Description describeMeshFile(const std::string& path) {
    const TextHeaderFile disk = scanMeshFile(path);
    ZyrTriangleMesh mesh;
    if (!mesh.Load(path.c_str(), true, true))
        throw FileTrouble(path + ": refused: its header is incomplete or its body does not fit it");
    ZyrVector3dArray vertices = mesh.DeepCopyVertex();
    Description description;
    Table& table = description.table;
    table.add({"fields", fieldsText(disk.header)});
    addCount(table, "vertices", mesh.NumVertices());
    addCount(table, "valid vertices", mesh.NumValidVertices());
    addBounds(table, vertices);
    addCount(table, "triangles", mesh.NumTriangles());
    addCount(table, "valid triangles", mesh.NumValidTriangles());
    table.add({"vertex normals", normalsText(mesh.DeepCopyVertexNormal())});
    table.add({"vertex colours", colorsText(disk.header, "rgb", mesh.DeepCopyVertexColor())});
    table.add({"triangle normals", normalsText(mesh.DeepCopyTriangleNormal())});
    table.add({"triangle colours", colorsText(disk.header, "frgb", mesh.DeepCopyTriangleColor())});
    table.add({"body", bodyText(disk.header)});
    table.add({"bytes raw", grouped(meshBytes(mesh))});
    table.add({"bytes on disk", grouped(disk.bytes)});
    description.shortage = shortageText(disk);
    return description;
}

}  // namespace zyr
