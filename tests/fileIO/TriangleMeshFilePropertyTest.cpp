#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include "support/DoubleBits.h"
#include "support/GenClouds.h"
#include "support/GoldenMesh.h"

using test::Bytes;
using test::MeshLists;

namespace {

cv::Mat anyColorsOrNone(std::size_t length) {
    const int channels = *rc::gen::element(0, 1, 3, 4);
    return channels == 0 || length == 0 ? cv::Mat() : test::anyColors(length, channels);
}

MeshLists anyMesh() {
    const auto vertices = *rc::gen::inRange<std::size_t>(1, 40);
    const auto triangles = *rc::gen::inRange<std::size_t>(0, 40);
    MeshLists mesh;
    mesh.vertices = test::anyVectors(vertices);
    mesh.vertexNormals = test::anyVectors(*rc::gen::arbitrary<bool>() ? vertices : 0);
    mesh.vertexColors = anyColorsOrNone(vertices);
    mesh.triangles = test::indices(*rc::gen::container<std::vector<int>>(
        3 * triangles, rc::gen::oneOf(rc::gen::arbitrary<int>(), rc::gen::inRange(-1, 40))));
    mesh.triangleNormals = test::anyVectors(*rc::gen::arbitrary<bool>() ? triangles : 0);
    mesh.triangleColors = anyColorsOrNone(triangles);
    return mesh;
}

bool areSame(const cv::Mat& a, const cv::Mat& b) {
    return a.empty() == b.empty() &&
           (a.empty() || (a.size() == b.size() && a.type() == b.type())) &&
           test::bytesOf(a) == test::bytesOf(b);
}

std::string anySize() {
    return std::to_string(*rc::gen::inRange(0, 10)) + " ";
}

}  // namespace

RC_GTEST_PROP(MeshFileProperty, AnyMeshComesBackFromItsFileBitForBit, ()) {
    MeshLists mesh = anyMesh();
    const test::MemoryFile file({});
    RC_ASSERT(mesh.save(file.path(), true, true));
    MeshLists back;
    RC_ASSERT(back.load(file.path(), true, true));
    RC_ASSERT(test::bits(back.vertices) == test::bits(mesh.vertices));
    RC_ASSERT(test::bits(back.vertexNormals) == test::bits(mesh.vertexNormals));
    RC_ASSERT(areSame(back.vertexColors, mesh.vertexColors));
    RC_ASSERT(test::values(back.triangles) == test::values(mesh.triangles));
    RC_ASSERT(test::bits(back.triangleNormals) == test::bits(mesh.triangleNormals));
    RC_ASSERT(areSame(back.triangleColors, mesh.triangleColors));
}

RC_GTEST_PROP(MeshFileProperty, AnyBodyIsReadWithoutHarm, (const Bytes& body)) {
    const std::string names = *rc::gen::element<std::string>(
        "x y z rgb fa fb fc", "fa fb fc x y z frgb", "x fa fb fc a b c", "fnx x y z fa fb fc",
        "nx frgb a x y z rgb", "a b c d e f g");
    test::MeshHeader header =
        test::MeshHeader(*rc::gen::inRange(0, 30), *rc::gen::inRange(0, 30))
            .columns(names, anySize() + anySize() + anySize() + anySize() + "4 4 4");
    header.count = "COUNT " + anySize() + anySize() + anySize() + anySize() + "1 1 1";
    header.kind(*rc::gen::element<std::string>("ascii", "binary", "binary_compressed"));
    const test::LoadedMesh mesh = test::loadMesh(test::joined(header.bytes(), body));
    RC_ASSERT(!mesh.isLoaded || mesh.vertices.Length() > 0);
    RC_ASSERT(mesh.triangles.Length() % 3 == 0);
}

RC_GTEST_PROP(MeshFileProperty, AnyChangedByteIsReadWithoutHarm, (unsigned char value)) {
    Bytes file = test::readFile(test::goldenMeshVariants().back().path());
    // Not the header: some of its changes stop the process.
    const std::size_t start = test::MeshParts(file).header.size();
    file[*rc::gen::inRange(start, file.size())] = value;
    const test::LoadedMesh mesh = test::loadMesh(file);
    RC_ASSERT(!mesh.isLoaded || mesh.vertices.Length() == 4);
}
