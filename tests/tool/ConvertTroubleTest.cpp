#include "ConvertCommand.h"

namespace {

namespace fs = std::filesystem;
using test::isThere;
using zyr::Scene;
using Doubles = std::vector<double>;

class ConvertTrouble : public test::ConvertCommand {};

TEST_F(ConvertTrouble, ManyFilesGoIntoAFolder) {
    std::string names, said;
    for (int i = 0; i < 20; ++i) {
        const std::string name = std::to_string(i) + ".xyz";
        test::writeText(path(name), std::to_string(i) + " 2 3\n");
        names += name + " ";
        said += name + " -> out/" + std::to_string(i) + ".ply: 1 point\n";
    }
    EXPECT_EQ(say(names + "--to ply --out out -j 4"), said);
    EXPECT_EQ(test::pointsOf(scene("out/19.ply")), (Doubles{19, 2, 3}));
}

TEST_F(ConvertTrouble, SuffixToWriteMayHaveItsDot) {
    writeCloud("a.csv");
    say("a.csv --to .ply --out out");
    EXPECT_TRUE(fs::exists(path("out/a.ply")));
}

TEST_F(ConvertTrouble, FilesWrittenAtOnceHaveTheRightsThatTheMaskLeaves) {
    for (int i = 0; i < 500; ++i) test::writeText(path(std::to_string(i) + ".xyz"), "1 2 3\n");
    ASSERT_EQ(run("convert -j 64 --to txt --out out *.xyz", "umask 027").exitCode, 0);
    std::size_t count = 0;
    for (const auto& file : fs::directory_iterator(path("out"))) {
        ASSERT_EQ(static_cast<int>(file.status().permissions()), 0640) << file.path();
        ++count;
    }
    EXPECT_EQ(count, 500u);
}

TEST_F(ConvertTrouble, WorstOfManyFilesDecidesAndTheOthersAreWritten) {
    test::writeText(path("a.xyz"), "1 2 3\n");
    test::writeText(path("b.xyz"), "1 2\n");
    const test::Result result = run("convert b.xyz a.xyz --to ply --out out");
    expectTrouble(result, 3, "b.xyz: line 1: fewer than 3 columns");
    EXPECT_TRUE(fs::exists(path("out/a.ply")));
    EXPECT_FALSE(fs::exists(path("out/b.ply")));
}

TEST_F(ConvertTrouble, FileMayReplaceItself) {
    test::writeText(path("a.ply"),
                    "ply\nformat ascii 1.0\nelement vertex 1\nproperty float x\n"
                    "property float y\nproperty float z\nend_header\n1 2 3\n");
    say("a.ply a.ply --binary");
    EXPECT_EQ(test::pointsOf(scene("a.ply")), (Doubles{1, 2, 3}));
}

TEST_F(ConvertTrouble, WrongWishesAreUsageErrors) {
    writeCloud();
    for (const std::string wish :
         {"in.csv", "in.csv a.ply b.ply", "in.csv --to ply", "in.csv a.ply --out out",
          "in.csv a.doc", "in.csv a.ply --invalid hide", "in.csv a.ply --ascii --binary",
          "in.csv a.ply --float --double", "in.csv a.ply --camera 1,2,3", "in.csv a.ply --grid 3",
          "in.csv a.ply --grid 0x3", "in.csv a.ply --camera 1,2,3,nan", "in.csv a.ply --jump 0",
          "in.csv a.ply --depth-scale 0", "in.csv a.ply --camera 0,1,2,3", "in.csv a.ply -j 0",
          "in.csv in.csv --to ply --out out"})
        expectRefusal(wish, "");
    expectTrouble(run("convert in.csv"), 2, "IN and OUT");
}

TEST_F(ConvertTrouble, OutputsThatLinksMakeOneAreUsageErrors) {
    test::writeText(path("a.xyz"), "1 2 3\n");
    test::writeText(path("b.xyz"), "4 5 6\n");
    fs::create_directory(path("out"));
    test::writeText(path("out/a.ply"), "precious");
    fs::create_symlink("a.ply", path("out/b.ply"));
    expectRefusal("a.xyz b.xyz --to ply --out out", "out/b.ply would be written twice");
    expectRefusal("b.xyz a.xyz --to ply --out out", "out/a.ply would be written twice");
    EXPECT_EQ(test::readText(path("out/a.ply")), "precious");
    fs::remove(path("out/a.ply"));
    expectRefusal("a.xyz b.xyz --to ply --out out", "out/b.ply would be written twice");
}

TEST_F(ConvertTrouble, OutputsThatLeadToOtherInputsAreUsageErrors) {
    test::writeText(path("x.xyz"), "1 2 3\n");
    test::writeText(path("sub.ply"), "precious");
    fs::create_directory(path("out"));
    fs::create_symlink("../sub.ply", path("out/x.ply"));
    expectRefusal("x.xyz sub.ply --to ply --out out", "sub.ply would be overwritten");
    expectRefusal("sub.ply x.xyz --to ply --out out", "sub.ply would be overwritten");
    EXPECT_EQ(test::readText(path("sub.ply")), "precious");
}

TEST_F(ConvertTrouble, ColourPictureThatWouldBeOverwrittenIsAUsageError) {
    writeDepth();
    cv::imwrite(path("color.png"), cv::Mat(2, 2, CV_8UC3, cv::Scalar(1, 2, 3)));
    const std::string before = test::readText(path("color.png"));
    fs::create_symlink("color.png", path("link.png"));
    for (const char* out : {"color.png", "./color.png", "link.png"})
        expectRefusal(std::string("depth.png ") + out + " --color color.png",
                      "color.png would be overwritten");
    expectRefusal("depth.png color.png --color link.png", "link.png would be overwritten");
    EXPECT_EQ(test::readText(path("color.png")), before);
}

TEST_F(ConvertTrouble, NamesOfOneFileBecomeFilesOfTheirOwn) {
    test::writeText(path("a.xyz"), "1 2 3\n");
    test::writeText(path("b.xyz"), "4 5 6\n");
    fs::create_directory(path("out"));
    test::writeText(path("out/a.ply"), "old");
    fs::create_hard_link(path("out/a.ply"), path("out/b.ply"));
    say("a.xyz b.xyz --to ply --out out");
    EXPECT_EQ(test::pointsOf(scene("out/a.ply")), (Doubles{1, 2, 3}));
    EXPECT_EQ(test::pointsOf(scene("out/b.ply")), (Doubles{4, 5, 6}));
}

TEST_F(ConvertTrouble, ObjWithoutVerticesIsFileTrouble) {
    for (const std::string bytes : {"", "# nothing\n", "g all\nvn 0 0 1\n"}) {
        test::writeText(path("in.obj"), bytes);
        expectTrouble(run("convert in.obj out.ply"), 3, "in.obj: no points");
        EXPECT_FALSE(fs::exists(path("out.ply")));
    }
}

TEST_F(ConvertTrouble, CloudWithoutPointsIsReadBackFromEachFormatThatIsWritten) {
    test::writeText(path("in.xyz"), "nan nan nan\n");
    for (const std::string out : {"a.ply", "a.pcd", "a.xyz", "a.txt", "a.csv", "a.npy"}) {
        say("in.xyz " + out + " --invalid drop");
        EXPECT_EQ(say(out + " b.ply"), out + " -> b.ply: 0 points\n");
    }
    EXPECT_EQ(test::readText(path("a.xyz")), "# x y z\n");
}

TEST_F(ConvertTrouble, FormatsThatHaveOnePointAtLeastAreNotWrittenWithout) {
    test::writeText(path("in.xyz"), "nan nan nan\n");
    for (const std::string out : {"a.zpt", "a.obj"}) {
        expectTrouble(run("convert in.xyz " + out + " --invalid drop"), 3,
                      out + ": no points, and a");
        EXPECT_FALSE(fs::exists(path(out)));
    }
}

TEST_F(ConvertTrouble, WishesThatTheFormatCannotFulfilAreUsageErrors) {
    writeCloud();
    expectRefusal("in.csv a.zpt --ascii", "no such body");
    expectRefusal("in.csv a.ply --compressed", "no such body");
    expectRefusal("in.csv a.pcd --big-endian", "no such body");
    expectRefusal("in.csv a.zpt --invalid nan", "no NaN");
    expectRefusal("in.csv a.zpt --float", "doubles alone");
    expectRefusal("in.csv a.stl --double", "floats alone");
    expectRefusal("in.csv a.ply --invalid hide", "--invalid: hide: not keep, nan or drop");
    expectRefusal("in.csv a.ply --camera 1,2,3", "--camera: 1,2,3: not FX,FY,CX,CY");
    expectRefusal("in.csv a.ply --offset 1", "--offset: 1: not X,Y,Z");
    expectRefusal("in.csv a.ply --jump far", "--jump: far: not NUMBER");
    expectRefusal("in.csv a.ply --grid 3", "--grid: 3: not WxH");
    expectRefusal("in.csv a.jpg", "a.jpg: not a format that is written");
    expectRefusal("in.csv a.pcd --mesh", "PCD holds no meshes");
    expectTrouble(run("convert in.csv a.stl"), 2, "in.csv: a cloud becomes a mesh by its grid");
    expectTrouble(run("convert in.csv a.png"), 2, "in.csv: PNG holds range images alone");
    expectTrouble(run("convert in.csv a.ply --grid 2x2"), 2, "--grid 2x2 does not fit 3 points");
    EXPECT_FALSE(fs::exists(path("a.stl")));
}

TEST_F(ConvertTrouble, UnreadableAndUnwritableFilesAreFileTrouble) {
    writeCloud();
    fs::create_directory(path("dir.ply"));
    test::writeText(path("in.doc"), "words");
    for (const char* none : {"none.ply", "none.doc", "none"})
        expectTrouble(run(std::string("convert ") + none + " a.obj"), 3,
                      std::string(none) + ": no such file");
    expectTrouble(run("convert dir.ply a.obj"), 3, "dir.ply: not a regular file");
    expectTrouble(run("convert in.doc a.obj"), 3, "in.doc: not a format that is read");
    expectTrouble(run("convert in.csv none/a.obj"), 3, "none/a.obj: cannot be written");
    expectTrouble(run("convert in.csv dir.ply"), 3, "dir.ply: not a regular file");
}

TEST_F(ConvertTrouble, RefusedWishHasItsLineAndItsObject) {
    writeCloud();
    const test::Result result = run("convert --json in.csv a.png");
    expectTrouble(result, 2, "in.csv: PNG holds range images alone");
    EXPECT_EQ(result.out.rfind(R"({"file":"in.csv","error":"in.csv: PNG holds range images)", 0),
              0u)
        << result.out;
}

TEST_F(ConvertTrouble, FullDiskLeavesTheOldFileAndNothingElse) {
    std::string many;
    for (int i = 0; i < 30000; ++i) many += std::to_string(i) + " 2 3\n";
    test::writeText(path("in.xyz"), many);
    cv::Mat noise(100, 300, CV_16UC1);
    cv::randu(noise, 0, 65536);
    cv::imwrite(path("in.png"), noise);
    for (const std::string words :
         {"in.xyz old.zpt", "in.xyz old.ztmt --grid 300x100", "in.png old.zrt", "in.xyz old.ply"}) {
        const std::string name = words.substr(7, words.find(' ', 7) - 7);
        test::writeText(path(name), "precious");
        expectTrouble(run("convert " + words, "ulimit -f 20"), 3,
                      "zyr3d: " + name + ": cannot be written: File too large");
        EXPECT_EQ(test::readText(path(name)), "precious");
    }
    EXPECT_EQ(std::distance(fs::directory_iterator(path(".")), {}), 8);
}

TEST_F(ConvertTrouble, BrokenOwnFilesAreRefused) {
    writeCloud();
    say("in.csv good.zpt");
    std::string bytes = test::readText(path("good.zpt"));
    test::writeText(path("cut.zpt"), bytes.substr(0, bytes.size() - 1));
    expectTrouble(run("convert cut.zpt a.ply"), 3, "cut.zpt: cut short");
    bytes.replace(bytes.find("binary_compressed"), 17, "ascii");
    test::writeText(path("ascii.zpt"), bytes);
    expectTrouble(run("convert ascii.zpt a.ply"), 3, "ascii.zpt: its body is ascii");
}

TEST_F(ConvertTrouble, HeadersThatStopTheLibraryAreFileTrouble) {
    std::string words = "KEY";
    for (int i = 0; i < 61; ++i) words += " w";
    for (const std::string golden : {"pointcloud/points.zpt", "mesh/mesh.ztmt"}) {
        const std::string good = test::readText(ZYR_GOLDEN_DIR "/" + golden);
        const std::string name = "in" + fs::path(golden).extension().string();
        std::string sizes = good;
        sizes.replace(sizes.find("\nSIZE "), 6, "\nSIZE 8 ");
        for (const auto& [bytes, why] :
             {std::pair(std::string(33, 'w') + "\n" + good, "a word of more than 32 characters"),
              std::pair(words + "\n" + good, "more than 61 words"), std::pair(sizes, "SIZE")}) {
            test::writeText(path(name), bytes);
            expectTrouble(run("convert " + name + " a.ply"), 3, why);
        }
    }
}

TEST_F(ConvertTrouble, TrianglesOfMeshFilesAreHeldAgainstTheVertices) {
    double points[] = {0, 0, 0, 1, 0, 0, 0, 1, 0};
    int corners[] = {0, 1, 3};
    const ZyrTriangleMesh mesh(ZyrVector3dArray(points, 9, test::kInvalid),
                               Zyr3DIntArray(corners, 3));
    ASSERT_TRUE(mesh.Save(path("in.ztmt").c_str(), true, true));
    expectTrouble(run("convert in.ztmt a.ply"), 3, "names a vertex that is not there");
}

TEST_F(ConvertTrouble, HelpIsGood) {
    const test::Result result = run("convert --help");
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_TRUE(isThere(result.out, "--invalid keep|nan|drop"));
}

/// A published file through a format and back: what it gives is the same.
class ConvertRealData : public test::ConvertCommand {
protected:
    void SetUp() override {
        ConvertCommand::SetUp();
        if (!fs::exists(ZYR_DATA_DIR)) GTEST_SKIP() << "no data in " ZYR_DATA_DIR;
    }
};

TEST_F(ConvertRealData, StructuredLightFrameComesBackThroughOurFile) {
    say(ZYR_DATA_DIR "/cloud_milk/milk.pcd a.zpt");
    say("a.zpt b.pcd --grid 640x480 --compressed");
    const Scene before = zyr::readScene(ZYR_DATA_DIR "/cloud_milk/milk.pcd"),
                after = scene("b.pcd");
    EXPECT_EQ(test::pointsOf(after), test::pointsOf(before));
    EXPECT_EQ(test::colorsOf(after), test::colorsOf(before));
    EXPECT_EQ(after.columns, 640);
}

TEST_F(ConvertRealData, ReconstructedSurfaceComesBackThroughOurFile) {
    say(ZYR_DATA_DIR "/mesh_frag115/frag_115.ply a.ztmt");
    say("a.ztmt b.obj");
    const Scene before = zyr::readScene(ZYR_DATA_DIR "/mesh_frag115/frag_115.ply"),
                after = scene("b.obj");
    EXPECT_EQ(test::pointsOf(after), test::pointsOf(before));
    EXPECT_EQ(test::normalsOf(after), test::normalsOf(before));
    EXPECT_EQ(test::colorsOf(after), test::colorsOf(before));
    EXPECT_EQ(test::trianglesOf(after), test::trianglesOf(before));
}

TEST_F(ConvertRealData, WeldedStlIsTheMeshOfTheArrays) {
    const Scene mesh = zyr::readScene(ZYR_DATA_DIR "/mesh_counter/counter.stl");
    EXPECT_EQ(mesh.cloud.Length(), 41837);
    EXPECT_EQ(mesh.triangleCount(), 83750);
}

TEST_F(ConvertRealData, WeldedStlComesBackThroughOurFile) {
    say(ZYR_DATA_DIR "/mesh_counter/counter.stl a.ztmt");
    say("a.ztmt b.stl");
    const Scene before = zyr::readScene(ZYR_DATA_DIR "/mesh_counter/counter.stl"),
                after = scene("b.stl");
    EXPECT_EQ(test::pointsOf(after), test::pointsOf(before));
    EXPECT_EQ(test::trianglesOf(after), test::trianglesOf(before));
}

TEST_F(ConvertRealData, DepthPictureComesBackThroughOurFile) {
    say(ZYR_DATA_DIR "/range_rgbd/depth.png a.zrt");
    say("a.zrt b.png");
    const cv::Mat before = cv::imread(ZYR_DATA_DIR "/range_rgbd/depth.png", cv::IMREAD_UNCHANGED),
                  after = cv::imread(path("b.png"), cv::IMREAD_UNCHANGED);
    ASSERT_EQ(before.type(), CV_16UC1);
    ASSERT_EQ(after.type(), CV_16UC1);
    EXPECT_EQ(cv::norm(after, before, cv::NORM_INF), 0);
}

}  // namespace
