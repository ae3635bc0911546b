#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>

#include "support/Meshes.h"
#include "support/ScopedVariable.h"

/// Load and Save of a mesh: suffixes, flags, wide paths, and what stays when they fail.

using test::MeshArrays;
using test::MeshValues;
using test::ScopedVariable;
using test::TempFolder;

namespace {

std::wstring wide(const std::string& ascii) {
    return std::wstring(ascii.begin(), ascii.end());
}

bool save(const std::string& path, bool withNormals = true, bool withColors = true) {
    return test::fullMesh().Save(path.c_str(), withNormals, withColors);
}

MeshValues full() {
    return test::values(test::fullArrays());
}

MeshValues withoutNormals(MeshValues mesh) {
    mesh.vertexNormals = mesh.triangleNormals = {};
    return mesh;
}

MeshValues withoutColors(MeshValues mesh) {
    mesh.vertexColors = mesh.triangleColors = {};
    return mesh;
}

/// The lists that are loaded, or of a failed load, left.
MeshValues load(const std::string& path, bool withNormals = true, bool withColors = true) {
    ZyrTriangleMesh mesh;
    EXPECT_TRUE(mesh.Load(path.c_str(), withNormals, withColors)) << path;
    return test::values(mesh);
}

}  // namespace

TEST(MeshPath, BothSpellingsOfTheSuffixAreTaken) {
    const TempFolder folder;
    for (const char* name : {"a.ztmt", "a.ZTMT", "a.b.ztmt", ".ztmt", "a.zpt.ZTMT"}) {
        EXPECT_TRUE(save(folder.path(name))) << name;
        EXPECT_EQ(load(folder.path(name)), full());
    }
}

TEST(MeshPath, OtherSuffixesAreNotSavedAndCreateNoFile) {
    const TempFolder folder;
    for (const char* name : {"a.Ztmt", "a.ztmT", "a.zTMT", "a.zpt", "a", "a.", "ztmt", "a.ztmt ",
                             "a.ztmt.gz", "a.ztmtx", "a.ztm", "a.ztmt/b"}) {
        EXPECT_FALSE(save(folder.path(name))) << name;
        EXPECT_FALSE(test::fileExists(folder.path(name))) << name;
    }
}

TEST(MeshPath, OtherSuffixesAreNotLoadedThoughTheFileIsSound) {
    const TempFolder folder;
    ASSERT_TRUE(save(folder.path("a.ztmt")));
    for (const char* name : {"a.Ztmt", "a.zpt", "a", "a.ztmt.gz"}) {
        std::filesystem::copy_file(folder.path("a.ztmt"), folder.path(name));
        ZyrTriangleMesh mesh = test::fullMesh();
        EXPECT_FALSE(mesh.Load(folder.path(name).c_str(), true, true)) << name;
        EXPECT_EQ(test::values(mesh), MeshValues());
    }
}

TEST(MeshPath, RefusedLoadEmptiesAllSixLists) {
    const TempFolder folder;
    test::writeFile(folder.path("wrong.ztmt"), test::toBytes("POINTS 4\n"));
    for (const std::string& path :
         {std::string("scan.zpt"), folder.path("none.ztmt"), folder.path("wrong.ztmt")}) {
        ZyrTriangleMesh mesh = test::fullMesh();
        EXPECT_FALSE(mesh.Load(path.c_str(), true, true)) << path;
        EXPECT_EQ(test::values(mesh), MeshValues());
    }
}

TEST(MeshPath, RefusedLoadEmptiesWhatTheMeshSharesSaveForColours) {
    const MeshArrays arrays = test::fullArrays();
    EXPECT_FALSE(arrays.mesh().Load("scan.zpt", true, true));
    EXPECT_EQ(arrays.vertices.Length() + arrays.triangles.Length() + arrays.vertexNormals.Length() +
                  arrays.triangleNormals.Length(),
              0);
    EXPECT_EQ(arrays.vertexColors.Length(), 4);
    EXPECT_EQ(arrays.triangleColors.Length(), 2);
}

TEST(MeshPath, NullIsRefused) {
    ZyrTriangleMesh mesh = test::fullMesh();
    EXPECT_FALSE(mesh.Save(static_cast<const char*>(nullptr), true, true));
    EXPECT_FALSE(mesh.Save(static_cast<const wchar_t*>(nullptr), true, true));
    EXPECT_EQ(test::values(mesh), full());
    EXPECT_FALSE(mesh.Load(static_cast<const char*>(nullptr), true, true));
    EXPECT_EQ(test::values(mesh), MeshValues());
}

TEST(MeshPath, NullWidePathIsRefusedAndClears) {
    ZyrTriangleMesh mesh = test::fullMesh();
    EXPECT_FALSE(mesh.Load(static_cast<const wchar_t*>(nullptr), true, true));
    EXPECT_EQ(test::values(mesh), MeshValues());
}

TEST(MeshPath, EmptyPathIsRefused) {
    ZyrTriangleMesh mesh = test::fullMesh();
    EXPECT_FALSE(mesh.Save("", true, true));
    EXPECT_FALSE(mesh.Save(L"", true, true));
    EXPECT_FALSE(mesh.Load("", true, true));
    EXPECT_FALSE(mesh.Load(L"", true, true));
}

TEST(MeshPath, FolderIsNeitherSavedNorLoaded) {
    const TempFolder folder;
    mkdir(folder.path("a.ztmt").c_str(), 0700);
    ZyrTriangleMesh mesh;
    EXPECT_FALSE(save(folder.path("a.ztmt")));
    EXPECT_FALSE(mesh.Load(folder.path("a.ztmt").c_str(), true, true));
}

TEST(MeshPath, FullDiskGivesFalse) {
    if (!test::fileExists("/dev/full")) GTEST_SKIP() << "no /dev/full";
    const TempFolder folder;
    std::filesystem::create_symlink("/dev/full", folder.path("a.ztmt"));
    EXPECT_FALSE(save(folder.path("a.ztmt")));
    EXPECT_FALSE(test::fullMesh().Save(wide(folder.path("a.ztmt")).c_str(), true, true));
}

TEST(MeshPath, MeshWithoutVerticesIsNotSavedAndCreatesNoFile) {
    const TempFolder folder;
    ZyrTriangleMesh mesh = test::fullMesh();
    mesh.ClearVertices();
    EXPECT_FALSE(mesh.Save(folder.path("a.ztmt").c_str(), true, true));
    EXPECT_FALSE(test::fileExists(folder.path("a.ztmt")));
}

TEST(MeshPath, SaveLeavesTheMeshAlone) {
    const TempFolder folder;
    const ZyrTriangleMesh mesh = test::fullMesh();
    EXPECT_TRUE(mesh.Save(folder.path("a.ztmt").c_str(), true, true));
    EXPECT_EQ(test::values(mesh), full());
}

TEST(MeshPath, FirstFlagGovernsBothNormalListsAndTheSecondBothColourLists) {
    const TempFolder folder;
    const std::string path = folder.path("a.ztmt");
    EXPECT_TRUE(save(path, true, false));
    EXPECT_EQ(load(path), withoutColors(full()));
    EXPECT_TRUE(save(path, false, true));
    EXPECT_EQ(load(path), withoutNormals(full()));
    EXPECT_TRUE(save(path, false, false));
    EXPECT_EQ(load(path), withoutNormals(withoutColors(full())));
}

TEST(MeshPath, FlagsOfLoadLeaveListsEmpty) {
    const TempFolder folder;
    const std::string path = folder.path("a.ztmt");
    ASSERT_TRUE(save(path));
    EXPECT_EQ(load(path, true, false), withoutColors(full()));
    EXPECT_EQ(load(path, false, true), withoutNormals(full()));
    EXPECT_EQ(load(path, false, false), withoutNormals(withoutColors(full())));
}

TEST(MeshPath, LoadReplacesAllLists) {
    const TempFolder folder;
    ASSERT_TRUE(save(folder.path("a.ztmt"), false, false));
    ZyrTriangleMesh mesh = test::fullMesh();
    EXPECT_TRUE(mesh.Load(folder.path("a.ztmt").c_str(), true, true));
    EXPECT_EQ(test::values(mesh), withoutNormals(withoutColors(full())));
}

TEST(MeshPath, LoadIsSeenThroughSharedListsButNotThroughSharedColours) {
    const TempFolder folder;
    ASSERT_TRUE(save(folder.path("a.ztmt")));
    MeshArrays arrays = test::fullArrays();
    arrays.vertices.Clear();
    arrays.vertexColors = test::colorsFrom(4, 3, 99);
    EXPECT_TRUE(arrays.mesh().Load(folder.path("a.ztmt").c_str(), true, true));
    EXPECT_EQ(test::values(arrays.vertices), full().vertices);
    EXPECT_EQ(test::colorBytes(arrays.vertexColors), test::colorBytes(test::colorsFrom(4, 3, 99)));
}

TEST(MeshPath, WideFormsDoAsTheNarrowOnes) {
    const TempFolder folder;
    const std::wstring path = wide(folder.path("a.ztmt"));
    ZyrTriangleMesh mesh;
    EXPECT_TRUE(test::fullMesh().Save(path.c_str(), true, true));
    EXPECT_TRUE(mesh.Load(path.c_str(), true, true));
    EXPECT_EQ(test::values(mesh), full());
    EXPECT_TRUE(mesh.Load(path.c_str(), true, false));
    EXPECT_EQ(test::values(mesh), withoutColors(full()));
    EXPECT_TRUE(test::fullMesh().Save(path.c_str(), false, true));
    EXPECT_EQ(load(folder.path("a.ztmt")), withoutNormals(full()));
}

TEST(MeshPath, WideFormsGoByTheSuffixToo) {
    const TempFolder folder;
    EXPECT_FALSE(test::fullMesh().Save(wide(folder.path("a.Ztmt")).c_str(), true, true));
    EXPECT_TRUE(std::filesystem::is_empty(folder.path("")));
    ZyrTriangleMesh mesh = test::fullMesh();
    EXPECT_FALSE(mesh.Load(L"scan.zpt", true, true));
    EXPECT_EQ(test::values(mesh), MeshValues());
}

TEST(MeshPath, WidePathIsConvertedUnderTheEnvironmentsLocale) {
    const TempFolder folder;
    const ScopedVariable utf8("LC_ALL", "C.UTF-8");
    const std::wstring path = wide(folder.path("")) + L"\u00E4\u20AC.ztmt";
    ZyrTriangleMesh mesh;
    EXPECT_TRUE(test::fullMesh().Save(path.c_str(), true, true));
    EXPECT_TRUE(test::fileExists(folder.path("\xC3\xA4\xE2\x82\xAC.ztmt")));
    EXPECT_TRUE(mesh.Load(path.c_str(), true, true));
    EXPECT_EQ(test::values(mesh), full());
}

TEST(MeshPath, WidePathThatCannotBeConvertedIsRefused) {
    const TempFolder folder;
    const ScopedVariable ascii("LC_ALL", "C");
    const std::wstring path = wide(folder.path("")) + L"\u00E4.ztmt";
    EXPECT_FALSE(test::fullMesh().Save(path.c_str(), true, true));
    EXPECT_TRUE(std::filesystem::is_empty(folder.path("")));
    ZyrTriangleMesh mesh = test::fullMesh();
    EXPECT_FALSE(mesh.Load(path.c_str(), true, true));
    EXPECT_EQ(test::values(mesh), MeshValues());
}

TEST(MeshPath, ConstMeshIsSavedByAWidePath) {
    const TempFolder folder;
    const ZyrTriangleMesh mesh = test::fullMesh();
    EXPECT_TRUE(mesh.Save(wide(folder.path("a.ztmt")).c_str(), true, true));
    EXPECT_EQ(load(folder.path("a.ztmt")), full());
}
