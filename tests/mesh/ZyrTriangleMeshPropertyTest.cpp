#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <cmath>

#include "support/DoubleBits.h"
#include "support/GenClouds.h"
#include "support/Meshes.h"
#include "support/PlainTriangle.h"

/// Random meshes against plain loops.

namespace {

/// Small whole coordinates, so that collinear and coinciding vertices are common, among any others.
ZyrVector3dArray someVectors(std::size_t length) {
    const auto small = rc::gen::map(rc::gen::inRange(-2, 3), [](int i) { return double(i); });
    return test::vectors(*rc::gen::container<std::vector<double>>(
        3 * length, rc::gen::weightedOneOf<double>({{20, small}, {1, test::anyDouble()}})));
}

std::vector<int> someIndices(std::size_t triangles, int vertices) {
    return *rc::gen::container<std::vector<int>>(3 * triangles, rc::gen::inRange(-1, vertices + 2));
}

}  // namespace

RC_GTEST_PROP(MeshProperty, ValidTrianglesAreThoseThatTheRuleNames, ()) {
    const int count = *rc::gen::inRange(0, 12);
    const ZyrVector3dArray vertices = someVectors(static_cast<std::size_t>(count));
    const std::vector<int> flat = someIndices(*rc::gen::inRange<std::size_t>(0, 30), count);
    const ZyrTriangleMesh mesh(vertices, test::indices(flat));
    int valid = 0;
    for (int t = 0; t < mesh.NumTriangles(); ++t) {
        const bool expected = test::isValidTriangle(vertices, flat.data() + 3 * t);
        RC_ASSERT(mesh.IsValidTriangle(t) == expected);
        valid += expected ? 1 : 0;
    }
    RC_ASSERT(mesh.NumValidTriangles() == valid);
}

// 1 / cos is 1 + 1.1e-5 at an angle of 0.0046904; some of the lengths overflow or vanish when
// squared.
RC_GTEST_PROP(MeshProperty, TrianglesNearTheBoundAndOfAnySizeAreValidByTheSameRule, ()) {
    const double angle =
        0.00469038 + *rc::gen::inRange(-2000, 2000) * *rc::gen::element(1e-9, 5e-6);
    const double scale = std::pow(10.0, *rc::gen::inRange(-170, 165));
    const double other = std::pow(10.0, *rc::gen::inRange(-3, 4));
    const ZyrVector3dArray vertices = test::vectors(
        {scale, 0, 0, 0, 0, 0, *rc::gen::element(1.0, -1.0) * scale * std::cos(angle) * other,
         scale * std::sin(angle) * other, 0});
    const int flat[] = {0, 1, 2};
    RC_ASSERT(ZyrTriangleMesh(vertices, test::indices({0, 1, 2})).IsValidTriangle(0) ==
              test::isValidTriangle(vertices, flat));
}

RC_GTEST_PROP(MeshProperty, AppendPutsTheOthersListsBehind, ()) {
    const auto n = *rc::gen::inRange<std::size_t>(0, 10), m = *rc::gen::inRange<std::size_t>(0, 10);
    ZyrVector3dArray first = test::anyVectors(n), second = test::anyVectors(m);
    const auto flat = *rc::gen::arbitrary<std::vector<int>>();
    ZyrTriangleMesh mesh(first.DeepCopy(), Zyr3DIntArray());
    mesh.Append(ZyrTriangleMesh(second, test::indices(flat)));
    ZyrVector3dArray vertices = first.DeepCopy();
    for (int i = 0; i < second.Length(); ++i) vertices.Append(second[i]);
    RC_ASSERT(test::bits(mesh.DeepCopyVertex()) == test::bits(vertices));
    std::vector<int> expected;
    for (std::size_t i = 0; i < flat.size() / 3 * 3; ++i)
        expected.push_back(static_cast<int>(static_cast<unsigned>(flat[i]) + n));
    RC_ASSERT(test::values(mesh.DeepCopyTriangle()) == expected);
}
