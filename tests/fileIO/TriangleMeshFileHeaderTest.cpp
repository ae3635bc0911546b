#include <gtest/gtest.h>

#include <filesystem>
#include <iterator>

#include "support/MeshFile.h"
#include "support/StopText.h"
#include "support/ZyrValues.h"

/// Which headers Zyr3DFileIO::LoadTriangleMesh takes.

using test::Bytes;
using test::LoadedMesh;
using test::MeshHeader;

namespace {

/// Two vertices and one triangle, of the plain columns.
Bytes plainBody() {
    return test::joined(test::bytesOf<double>({1, 4, 2, 5, 3, 6}), test::bytesOf<int>({7, 8, 9}));
}

LoadedMesh load(const MeshHeader& header) {
    return test::loadMesh(test::meshFile(header, plainBody()));
}

MeshHeader plain() {
    return MeshHeader(2, 1);
}

void expectPlain(const LoadedMesh& mesh) {
    EXPECT_TRUE(mesh.isLoaded);
    EXPECT_EQ(test::values(mesh.vertices), (std::vector<double>{1, 2, 3, 4, 5, 6}));
    EXPECT_EQ(test::values(mesh.triangles), (std::vector<int>{7, 8, 9}));
}

LoadedMesh loadText(const std::string& text) {
    return test::loadMesh(test::toBytes(text));
}

std::string times(int count, const std::string& text) {
    std::string result;
    for (int i = 0; i < count; ++i) result += text;
    return result;
}

}  // namespace

TEST(MeshHeader, WithoutPointsIsRefused) {
    MeshHeader header = plain();
    header.points = "";
    EXPECT_FALSE(load(header).isLoaded);
    EXPECT_FALSE(loadText("FIELDS x y z\nFACES 1\nDATA ascii\n").isLoaded);
}

TEST(MeshHeader, NeedsNoOtherLineThanPointsAndData) {
    const LoadedMesh mesh = loadText("POINTS 4\nDATA ascii\n");
    EXPECT_TRUE(mesh.isLoaded);
    EXPECT_EQ(test::values(mesh.vertices), std::vector<double>(12, 0.0));
    EXPECT_EQ(mesh.triangles.Length(), 0);
}

TEST(MeshHeader, WithoutVersionOrTypeIsTaken) {
    MeshHeader header = plain();
    header.version = header.type = "";
    expectPlain(load(header));
}

TEST(MeshHeader, WithoutSizesHasTheWritersWidths) {
    MeshHeader header = plain();
    header.size = "";
    expectPlain(load(header));
}

TEST(MeshHeader, WithoutCountsHasOneValueAnElement) {
    MeshHeader header = plain();
    header.count = "";
    expectPlain(load(header));
}

TEST(MeshHeader, WithoutSizesAndCountsGivesAllLists) {
    MeshHeader header =
        MeshHeader(1, 1).columns("x y z nx ny nz rgb fa fb fc fnx fny fnz frgb", "");
    header.size = header.count = "";
    const LoadedMesh mesh = test::loadMesh(test::meshFile(
        header, test::all({test::bytesOf<double>({1, 2, 3, 4, 5, 6}), test::bytesOf<int>({7}),
                           test::bytesOf<int>({8, 9, 10}), test::bytesOf<double>({11, 12, 13}),
                           test::bytesOf<int>({14})})));
    EXPECT_TRUE(mesh.isLoaded);
    EXPECT_EQ(test::values(mesh.vertexNormals), (std::vector<double>{4, 5, 6}));
    EXPECT_EQ(test::bytesOf(mesh.vertexColors), (Bytes{7, 0, 0}));
    EXPECT_EQ(test::values(mesh.triangles), (std::vector<int>{8, 9, 10}));
    EXPECT_EQ(test::values(mesh.triangleNormals), (std::vector<double>{11, 12, 13}));
    EXPECT_EQ(test::bytesOf(mesh.triangleColors), (Bytes{14, 0, 0}));
}

TEST(MeshHeader, WithoutFieldsHasTheSixThatEveryMeshHas) {
    MeshHeader header = plain();
    header.fields = header.size = header.count = "";
    expectPlain(load(header));
}

TEST(MeshHeader, WithoutFacesHasNoTriangles) {
    MeshHeader header = plain();
    header.faces = "";
    const LoadedMesh mesh = test::loadMesh(test::meshFile(header, Bytes(48)));
    EXPECT_TRUE(mesh.isLoaded);
    EXPECT_EQ(mesh.triangles.Length(), 0);
}

TEST(MeshHeader, LinesMayComeInAnyOrder) {
    expectPlain(test::loadMesh(
        test::joined(test::toBytes("FACES 1\nPOINTS 2\nFIELDS x y z fa fb fc\nCOUNT 1 1 1 1 1 1\n"
                                   "SIZE 8 8 8 4 4 4\nDATA binary\n"),
                     test::meshBody(4, 4, plainBody()))));
}

TEST(MeshHeader, LinesOfACloudAreTakenButNotHeldAgainstThePoints) {
    MeshHeader header = plain();
    header.version = "WIDTH 7\nHEIGHT 5\nVIEWPOINT 0 0 0 1 0 0 0";
    expectPlain(load(header));
}

TEST(MeshHeader, CommentsEmptyLinesAndUnknownKeywordsArePassedOver) {
    MeshHeader header = plain();
    header.version = "#POINTS 9\n\n #POINTS 9\nMATERIAL steel\npoints 9";
    expectPlain(load(header));
}

TEST(MeshHeader, CarriageReturnsAreIgnored) {
    MeshHeader header = plain();
    header.points += "\r";
    header.data += "\r";
    expectPlain(load(header));
}

TEST(MeshHeader, LastPointsLineHolds) {
    MeshHeader header = plain();
    header.version = "POINTS 9\nFACES 9";
    expectPlain(load(header));
}

TEST(MeshHeader, DataOfAnotherWordIsPassedOver) {
    MeshHeader header = plain();
    header.version = "DATA\nDATA Binary\nDATA binary_\nDATA binary_compressed_lzf";
    expectPlain(load(header));
}

TEST(MeshHeader, WithoutDataIsRefused) {
    EXPECT_FALSE(loadText("").isLoaded);
    EXPECT_FALSE(loadText("POINTS 4\n").isLoaded);
    EXPECT_FALSE(loadText("POINTS 4\nDATA other\n").isLoaded);
    EXPECT_FALSE(loadText("POINTS 4\nDATA ascii").isLoaded);
}

TEST(MeshHeader, NegativeAndOverlargeNumbersAreRefused) {
    for (const char* line : {"POINTS -1", "FACES -1", "WIDTH -1", "HEIGHT -1", "POINTS 2147483648",
                             "FACES 4294967297", "POINTS 99999999999999999999"}) {
        const std::string text = std::string("POINTS 1\nFACES 1\n") + line + "\nDATA ascii\n";
        EXPECT_FALSE(loadText(text).isLoaded) << line;
    }
}

// Of a body that is not read, so that nothing else is wrong with the file.
TEST(MeshHeader, NegativeAndOverlargeSizesAndCountsAreRefused) {
    EXPECT_TRUE(load(plain().kind("ascii")).isLoaded);
    for (const char* number : {"-4", "-1", "4294967300", "4294967297"}) {
        MeshHeader size = plain().kind("ascii"), count = plain().kind("ascii");
        size.size = std::string("SIZE 8 8 8 4 4 ") + number;
        count.count = std::string("COUNT 1 1 1 1 1 ") + number;
        EXPECT_FALSE(load(size).isLoaded) << number;
        EXPECT_FALSE(load(count).isLoaded) << number;
    }
}

TEST(MeshHeader, MoreFacesThanAnIndexListHoldsAreRefused) {
    EXPECT_FALSE(loadText("POINTS 1\nFACES 715827883\nDATA ascii\n").isLoaded);
    EXPECT_FALSE(loadText("POINTS 1\nFACES 2147483647\nDATA ascii\n").isLoaded);
}

TEST(MeshHeader, WordsAreDecimalAndEndAtTheFirstOtherCharacter) {
    MeshHeader header = plain();
    header.points = "POINTS 2x";
    header.faces = "FACES +1.9";
    expectPlain(load(header));
}

TEST(MeshHeader, MoreThan14FieldsAreRefused) {
    const std::string many = times(14, "a ") + "x y z";
    MeshHeader header = MeshHeader(2, 0).columns(many, times(16, "1 ") + "1");
    EXPECT_FALSE(load(header.kind("ascii")).isLoaded);
}

TEST(MeshHeader, GroupsThatLackColumnsAreRefused) {
    for (const char* fields : {"x", "x y", "fa fb fc x y", "x y z nx", "x y z nx ny", "x y z fa",
                               "x y z fa fb", "x y z fa fb fc fnx fny"}) {
        MeshHeader header = plain();
        header.fields = std::string("FIELDS ") + fields;
        header.size = header.count = "";
        EXPECT_FALSE(load(header.kind("ascii")).isLoaded) << fields;
    }
}

TEST(MeshHeaderDeathTest, WordOf33CharactersStops) {
    EXPECT_DEATH(loadText("POINTS 4\nCOMMENT " + std::string(33, 'a') + "\nDATA ascii\n"),
                 test::stopText("fileIO.cpp", 181, "void pcdReadLine(FILE*, PcdLine&)",
                                "wordLength <= line.maxWordSize"));
}

TEST(MeshHeaderDeathTest, LineOf62WordsStops) {
    EXPECT_DEATH(loadText("POINTS 4\nCOMMENT" + times(61, " a") + "\nDATA ascii\n"),
                 test::stopText("fileIO.cpp", 182, "void pcdReadLine(FILE*, PcdLine&)",
                                "line.numWords <= line.maxNumWords"));
}

TEST(MeshHeaderDeathTest, SizeLineOfAnotherWordCountStops) {
    EXPECT_DEATH(loadText("FIELDS x y z fa fb fc\nSIZE 8 8 8\nPOINTS 4\nDATA ascii\n"),
                 test::stopText("fileIO.cpp", 219, "void pcdReadSize(PcdLine&, PcdHeader&)",
                                "line.numWords == header.numFields + 1"));
}

TEST(MeshHeader, WordOf32CharactersAndLineOf61WordsAreTaken) {
    EXPECT_TRUE(loadText("POINTS 4\nCOMMENT " + std::string(32, 'a') + "\nDATA ascii\n").isLoaded);
    EXPECT_TRUE(loadText("POINTS 4\nCOMMENT" + times(60, " a") + "\nDATA ascii\n").isLoaded);
}

TEST(MeshAscii, BodyIsNotRead) {
    const Bytes file = test::joined(plain().kind("ascii").bytes(), test::toBytes("1 2 3\n4 5 6\n"));
    const LoadedMesh mesh = test::loadMesh(file);
    EXPECT_TRUE(mesh.isLoaded);
    EXPECT_EQ(test::values(mesh.vertices), std::vector<double>(6, 0.0));
    EXPECT_EQ(test::values(mesh.triangles), std::vector<int>(3, 0));
}

TEST(MeshAscii, NormalsAreAtTheOriginWhereWantedAndDeclared) {
    MeshHeader header =
        MeshHeader(2, 1).columns("x y z nx ny nz fa fb fc fnx fny fnz", "8 8 8 8 8 8 4 4 4 8 8 8");
    const LoadedMesh mesh = test::loadMesh(header.kind("ascii").bytes());
    EXPECT_EQ(test::values(mesh.vertexNormals), std::vector<double>(6, 0.0));
    EXPECT_EQ(test::values(mesh.triangleNormals), std::vector<double>(3, 0.0));
    const LoadedMesh bare = test::loadMesh(header.bytes(), false);
    EXPECT_EQ(bare.vertexNormals.Length() + bare.triangleNormals.Length(), 0);
    const LoadedMesh undeclared = test::loadMesh(plain().kind("ascii").bytes());
    EXPECT_EQ(undeclared.vertexNormals.Length() + undeclared.triangleNormals.Length(), 0);
}

TEST(MeshAscii, ColoursStayAsTheyAre) {
    test::MeshLists mesh;
    mesh.vertexColors = test::colorRow({9}, 1);
    MeshHeader header = MeshHeader(1, 0).columns("x y z rgb fa fb fc", "8 8 8 4 4 4 4");
    EXPECT_TRUE(mesh.load(header.kind("ascii").bytes()));
    EXPECT_EQ(test::bytesOf(mesh.vertexColors), Bytes{9});
}

TEST(MeshAscii, NoVerticesGiveFalse) {
    const LoadedMesh mesh = test::loadMesh(MeshHeader(0, 2).kind("ascii").bytes());
    EXPECT_FALSE(mesh.isLoaded);
    EXPECT_EQ(test::values(mesh.triangles), std::vector<int>(6, 0));
}

TEST(MeshLoading, UnopenablePathsAreRefused) {
    const test::TempFolder folder;
    test::MeshLists mesh;
    for (const std::string& path : {folder.path("none.ztmt"), folder.path(""), std::string()})
        EXPECT_FALSE(mesh.load(path, true, true)) << path;
}

TEST(MeshLoading, NullPathIsRefusedAndLeavesTheLists) {
    test::MeshLists m;
    m.vertices = test::vectors({1, 2, 3});
    EXPECT_FALSE(Zyr3DFileIO::LoadTriangleMesh(m.vertices, m.vertexNormals, m.vertexColors,
                                               m.triangles, m.triangleNormals, m.triangleColors,
                                               nullptr, true, true));
    EXPECT_EQ(m.vertices.Length(), 1);
}

TEST(MeshLoading, FileIsClosedHoweverItEnds) {
    const auto numOpen = [] {
        const std::filesystem::directory_iterator files("/proc/self/fd");
        return std::distance(begin(files), end(files));
    };
    const Bytes sound = test::meshFile(plain(), plainBody());
    const auto before = numOpen();
    EXPECT_TRUE(test::loadMesh(sound).isLoaded);
    EXPECT_TRUE(test::loadMesh(plain().kind("ascii").bytes()).isLoaded);
    EXPECT_FALSE(test::loadMesh(test::prefix(sound, 40)).isLoaded);
    EXPECT_FALSE(test::loadMesh(test::toBytes("DATA ascii\n")).isLoaded);
    EXPECT_FALSE(test::loadMesh(test::meshFile(plain(), Bytes(5))).isLoaded);
    EXPECT_TRUE(test::saveMesh(test::loadMesh(sound)).isSaved);
    EXPECT_EQ(numOpen(), before);
}
