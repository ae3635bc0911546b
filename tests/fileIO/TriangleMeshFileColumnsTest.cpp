#include <gtest/gtest.h>

#include "support/DoubleBits.h"
#include "support/GoldenMesh.h"

/// Bodies with columns other than the writer's own.

using test::all;
using test::Bytes;
using test::bytesOf;
using test::LoadedMesh;
using test::MeshHeader;

namespace {

using Values = std::vector<double>;
using Indices = std::vector<int>;

const Values kVertices = {1, 2, 3, 4, 5, 6};
const Indices kTriangle = {7, 8, 9};

/// Of two vertices.
Bytes doubles() {
    return bytesOf<double>({1, 4, 2, 5, 3, 6});
}

Bytes corners() {
    return bytesOf<int>({7, 8, 9});
}

LoadedMesh load(const MeshHeader& header, const Bytes& body, bool withNormals = true,
                bool withColors = true) {
    return test::loadMesh(test::meshFile(header, body), withNormals, withColors);
}

void expectPlain(const LoadedMesh& mesh) {
    EXPECT_TRUE(mesh.isLoaded);
    EXPECT_EQ(test::values(mesh.vertices), kVertices);
    EXPECT_EQ(test::values(mesh.triangles), kTriangle);
}

}  // namespace

TEST(MeshColumns, FloatCoordinatesAreRead) {
    expectPlain(load(MeshHeader(2, 1).columns("x y z fa fb fc", "4 4 4 4 4 4"),
                     all({bytesOf<float>({1, 4, 2, 5, 3, 6}), corners()})));
}

TEST(MeshColumns, EachCoordinateGoesByItsOwnSize) {
    expectPlain(load(MeshHeader(2, 1).columns("x y z fa fb fc", "8 4 8 4 4 4"),
                     all({bytesOf<double>({1, 4}), bytesOf<float>({2, 5}), bytesOf<double>({3, 6}),
                          corners()})));
}

TEST(MeshColumns, NormalsGoByTheirOwnSizes) {
    const LoadedMesh mesh = load(
        MeshHeader(2, 1).columns("x y z nx ny nz fa fb fc fnx fny fnz", "8 8 8 4 8 4 4 4 4 4 8 8"),
        all({doubles(), bytesOf<float>({1, 4}), bytesOf<double>({2, 5}), bytesOf<float>({3, 6}),
             corners(), bytesOf<float>({10}), bytesOf<double>({11, 12})}));
    expectPlain(mesh);
    EXPECT_EQ(test::values(mesh.vertexNormals), kVertices);
    EXPECT_EQ(test::values(mesh.triangleNormals), (Values{10, 11, 12}));
}

TEST(MeshColumns, CoordinatesOfAnotherSizeAreRefused) {
    for (const char* sizes : {"2 8 8 4 4 4", "8 8 1 4 4 4", "8 16 8 4 4 4", "0 0 0 4 4 4"})
        for (const std::size_t size : {12U, 46U, 48U, 60U, 76U})
            EXPECT_FALSE(
                load(MeshHeader(2, 1).columns("x y z fa fb fc", sizes), Bytes(size)).isLoaded)
                << sizes << ", " << size;
}

TEST(MeshColumns, IndicesOfAnotherSizeAreRefused) {
    for (const char* sizes : {"8 8 8 2 4 4", "8 8 8 4 8 4", "8 8 8 4 4 1", "8 8 8 0 0 0"})
        for (const std::size_t size : {48U, 57U, 58U, 64U})
            EXPECT_FALSE(
                load(MeshHeader(2, 1).columns("x y z fa fb fc", sizes), Bytes(size)).isLoaded)
                << sizes << ", " << size;
    const MeshHeader first = MeshHeader(2, 1).columns("fa fb fc x y z", "2 4 4 8 8 8");
    EXPECT_FALSE(load(first, Bytes(58)).isLoaded);
}

TEST(MeshColumns, ValuesOfCountZeroAreRefused) {
    for (const char* counts : {"COUNT 1 0 1 1 1 1", "COUNT 1 1 1 1 0 1", "COUNT 1 1 1"}) {
        MeshHeader header(2, 1);
        header.count = counts;
        for (const std::size_t size : {44U, 48U, 56U, 60U})
            EXPECT_FALSE(load(header, Bytes(size)).isLoaded) << counts << ", " << size;
    }
}

TEST(MeshColumns, AttributesOfAnotherSizeAreRefusedWhereTheyAreWanted) {
    struct Case {
        const char *names, *sizes;
        std::size_t bodySize;
        bool isNormal;
    };
    for (const Case& c : {Case{"x y z nx ny nz fa fb fc", "8 8 8 2 2 2 4 4 4", 72, true},
                          Case{"x y z fa fb fc fnx fny fnz", "8 8 8 4 4 4 2 2 2", 66, true},
                          Case{"x y z rgb fa fb fc", "8 8 8 2 4 4 4", 64, false},
                          Case{"x y z fa fb fc frgb", "8 8 8 4 4 4 8", 68, false}}) {
        const MeshHeader header = MeshHeader(2, 1).columns(c.names, c.sizes);
        EXPECT_FALSE(load(header, Bytes(c.bodySize)).isLoaded) << c.names;
        EXPECT_TRUE(load(header, Bytes(c.bodySize), !c.isNormal, c.isNormal).isLoaded) << c.names;
    }
}

TEST(MeshColumns, UnknownColumnsBeforeTheFacesHaveOneElementAVertex) {
    expectPlain(load(MeshHeader(2, 1).columns("t x y z u fa fb fc", "2 8 8 8 1 4 4 4"),
                     all({Bytes(4, 9), doubles(), Bytes(2, 9), corners()})));
}

TEST(MeshColumns, UnknownColumnsBehindAFaceFieldHaveOneElementAFace) {
    const LoadedMesh mesh =
        load(MeshHeader(2, 1).columns("x y z fa fb fc t frgb u", "8 8 8 4 4 4 2 4 1"),
             all({doubles(), corners(), Bytes(2, 9), bytesOf<int>({1}), Bytes(1, 9)}));
    expectPlain(mesh);
    EXPECT_EQ(test::bytesOf(mesh.triangleColors), (Bytes{1, 0, 0}));
}

TEST(MeshColumns, GroupsMayComeInAnyOrder) {
    const LoadedMesh mesh =
        load(MeshHeader(2, 1).columns("frgb fa fb fc rgb fnx fny fnz x y z nx ny nz",
                                      "4 4 4 4 4 8 8 8 8 8 8 8 8 8"),
             all({bytesOf<int>({1}), corners(), bytesOf<int>({2, 3}), bytesOf<double>({10, 11, 12}),
                  doubles(), bytesOf<double>({0, 1, 2, 3, 4, 5})}));
    expectPlain(mesh);
    EXPECT_EQ(test::bytesOf(mesh.triangleColors), (Bytes{1, 0, 0}));
    EXPECT_EQ(test::bytesOf(mesh.vertexColors), (Bytes{2, 0, 0, 3, 0, 0}));
    EXPECT_EQ(test::values(mesh.triangleNormals), (Values{10, 11, 12}));
    EXPECT_EQ(test::values(mesh.vertexNormals), (Values{0, 2, 4, 1, 3, 5}));
}

TEST(MeshColumns, NormalsAndColoursMayComeFirst) {
    const Bytes normals = bytesOf<double>({0, 1, 2, 3, 4, 5}), plain = all({doubles(), corners()});
    const LoadedMesh withNormals =
        load(MeshHeader(2, 1).columns("nx ny nz x y z fa fb fc", "8 8 8 8 8 8 4 4 4"),
             all({normals, plain}));
    expectPlain(withNormals);
    EXPECT_EQ(test::values(withNormals.vertexNormals), (Values{0, 2, 4, 1, 3, 5}));
    const LoadedMesh withColors =
        load(MeshHeader(2, 1).columns("rgb x y z fa fb fc", "4 8 8 8 4 4 4"),
             all({bytesOf<int>({2, 3}), plain}));
    expectPlain(withColors);
    EXPECT_EQ(test::bytesOf(withColors.vertexColors), (Bytes{2, 0, 0, 3, 0, 0}));
    const LoadedMesh withFaceNormals =
        load(MeshHeader(2, 1).columns("fnx fny fnz x y z fa fb fc", "8 8 8 8 8 8 4 4 4"),
             all({bytesOf<double>({10, 11, 12}), plain}));
    expectPlain(withFaceNormals);
    EXPECT_EQ(test::values(withFaceNormals.triangleNormals), (Values{10, 11, 12}));
}

// The columns before are unknown ones with one element a vertex, for no face field stands before
// them.
TEST(MeshColumns, OfRepeatedGroupsTheLastIsRead) {
    expectPlain(
        load(MeshHeader(2, 1).columns("x y z fa fb fc x y z fa fb fc", "8 8 8 4 4 4 8 8 8 4 4 4"),
             all({Bytes(48, 9), Bytes(24, 9), doubles(), corners()})));
    expectPlain(load(MeshHeader(2, 1).columns("x y z x y z fa fb fc", "8 8 8 8 8 8 4 4 4"),
                     all({Bytes(48, 9), doubles(), corners()})));
}

TEST(MeshColumns, OfRepeatedFaceFieldsBehindOthersTheFirstHaveOneElementAFace) {
    const LoadedMesh mesh =
        load(MeshHeader(2, 1).columns("x y z frgb fa fb fc fa fb fc", "8 8 8 4 4 4 4 4 4 4"),
             all({doubles(), bytesOf<int>({1}), Bytes(12, 9), corners()}));
    expectPlain(mesh);
    EXPECT_EQ(test::bytesOf(mesh.triangleColors), (Bytes{1, 0, 0}));
}

TEST(MeshColumns, FirstOfManyValuesIsRead) {
    MeshHeader header = MeshHeader(2, 1).columns("x y z rgb fa fb fc", "8 8 8 4 4 4 4");
    header.count = "COUNT 2 1 1 2 1 3 1";
    const LoadedMesh mesh =
        load(header, all({bytesOf<double>({1, -1, 4, -4, 2, 5, 3, 6}), bytesOf<int>({1, 9, 2, 9}),
                          bytesOf<int>({7, 8, -8, -8, 9})}));
    expectPlain(mesh);
    EXPECT_EQ(test::bytesOf(mesh.vertexColors), (Bytes{1, 0, 0, 2, 0, 0}));
}

TEST(MeshColumns, TypeLettersAreNotConsulted) {
    MeshHeader header(2, 1);
    header.type = "TYPE U I ? F F F";
    expectPlain(load(header, all({doubles(), corners()})));
}

TEST(MeshColumns, WhatIsNotWantedIsSteppedOver) {
    const MeshHeader header = MeshHeader(2, 1).columns(
        "x y z nx ny nz rgb fa fb fc fnx fny fnz frgb", "8 8 8 8 8 8 4 4 4 4 8 8 8 4");
    const Bytes body = all({doubles(), Bytes(48, 9), Bytes(8, 9), corners(), Bytes(28, 9)});
    const LoadedMesh mesh = load(header, body, false, false);
    expectPlain(mesh);
    EXPECT_EQ(mesh.vertexNormals.Length() + mesh.triangleNormals.Length(), 0);
    EXPECT_TRUE(mesh.vertexColors.empty() && mesh.triangleColors.empty());
}

TEST(MeshColumns, GroupsThatShareAColumnAreRefused) {
    const auto loads = [](const char* names, const char* sizes, std::size_t bodySize) {
        return load(MeshHeader(100, 1).columns(names, sizes), Bytes(bodySize)).isLoaded;
    };
    EXPECT_FALSE(loads("x fa fb fc", "4 4 4 4", 1204));
    EXPECT_FALSE(loads("fa x y z", "4 4 4 4", 1204));
    EXPECT_FALSE(loads("fnx x y z", "4 4 4 4", 1204));
    EXPECT_FALSE(loads("x y z frgb nx fnx a b", "4 4 4 4 4 4 4 4", 2004));
    EXPECT_FALSE(loads("x y z fa frgb fc", "4 4 4 4 4 4", 1212));
    EXPECT_FALSE(loads("x rgb z", "4 4 4", 1200));
}

TEST(MeshColumns, WithoutCoordinatesTheVerticesAreAtTheOrigin) {
    const LoadedMesh mesh = load(MeshHeader(2, 1).columns("fa fb fc", "4 4 4"), corners());
    EXPECT_TRUE(mesh.isLoaded);
    EXPECT_EQ(test::values(mesh.vertices), Values(6, 0.0));
    EXPECT_EQ(test::values(mesh.triangles), kTriangle);
}

TEST(MeshColumns, WithoutIndexColumnsAllIndicesAreZero) {
    const LoadedMesh mesh = load(MeshHeader(2, 2).columns("x y z", "8 8 8"), doubles());
    EXPECT_TRUE(mesh.isLoaded);
    EXPECT_EQ(test::values(mesh.vertices), kVertices);
    EXPECT_EQ(test::values(mesh.triangles), Indices(6, 0));
}

TEST(MeshColumns, NaNIsKeptBitForBit) {
    const double nan = test::markedNaN();
    const Bytes body = all(
        {bytesOf<double>({nan, 2, nan, -nan, 5, 6}), corners(), bytesOf<double>({nan, nan, -nan})});
    const LoadedMesh mesh = load(
        MeshHeader(1, 1).columns("x y z nx ny nz fa fb fc fnx fny fnz", "8 8 8 8 8 8 4 4 4 8 8 8"),
        body);
    EXPECT_EQ(test::bits(mesh.vertices), test::bits(test::vectors({nan, 2, nan})));
    EXPECT_EQ(test::bits(mesh.vertexNormals), test::bits(test::vectors({-nan, 5, 6})));
    EXPECT_EQ(test::bits(mesh.triangleNormals), test::bits(test::vectors({nan, nan, -nan})));
}

TEST(MeshColumns, SignallingNaNIsKeptBitForBit) {
    const std::vector<std::uint64_t> words = {0x7FF0000000000001, 0xFFF4000000000000, 0};
    const LoadedMesh mesh = load(MeshHeader(1, 0), bytesOf(words));
    EXPECT_EQ(test::bits(mesh.vertices), words);
}

TEST(MeshColumns, IndicesOfAnyValueAreKept) {
    const Indices extreme = {-1, 2147483647, -2147483647 - 1};
    const LoadedMesh mesh = load(MeshHeader(2, 1), all({doubles(), bytesOf<int>(extreme)}));
    EXPECT_EQ(test::values(mesh.triangles), extreme);
}
