#include <CLI/CLI.hpp>
#include <opencv2/imgcodecs.hpp>

#include "Program.h"
#include "Scenes.h"
#include "convert.h"

namespace {

namespace fs = std::filesystem;
using zyr::Scene;
using Doubles = std::vector<double>;

const Doubles kHole(3, test::kInvalid);

bool isThere(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

class ConvertCommand : public test::Tool {
protected:
    Scene scene(const std::string& name) const { return zyr::readScene(path(name)); }

    /// Runs the subcommand in this process, which saves the start of another.
    static int runHere(const std::string& arguments) {
        CLI::App app;
        int outcome = 0;
        zyr::addConvert(app, outcome);
        app.parse("convert " + arguments);
        return outcome;
    }

    void SetUp() override { fs::current_path(path(".")); }
    void TearDown() override { fs::current_path("/"); }

    /// A good run; gives what it says.
    static std::string say(const std::string& arguments) {
        testing::internal::CaptureStdout();
        testing::internal::CaptureStderr();
        EXPECT_EQ(runHere(arguments), 0) << arguments;
        EXPECT_EQ(testing::internal::GetCapturedStderr(), "") << arguments;
        return testing::internal::GetCapturedStdout();
    }

    static void expectRefusal(const std::string& arguments, const std::string& text) {
        try {
            runHere(arguments);
            ADD_FAILURE() << arguments;
        } catch (const CLI::ParseError& error) {
            EXPECT_TRUE(isThere(error.what(), text)) << error.what();
        }
    }

    /// Two points and a hole between them, with colours.
    void writeCloud(const std::string& name = "in.csv") const {
        test::writeText(path(name), "x,y,z,red,green,blue\n1,2,0.1,1,2,3\n,,,4,5,6\n7,8,9,7,8,9\n");
    }

    /// A grid of 2 x 2 with a step between its columns, and a value 0.
    void writeDepth() const {
        const cv::Mat depth = (cv::Mat_<std::uint16_t>(2, 2) << 10, 20, 30, 0);
        cv::imwrite(path("depth.png"), depth);
    }
};

TEST_F(ConvertCommand, SaysWhatBecameOfAFile) {
    writeCloud();
    EXPECT_EQ(say("in.csv out.pcd"),
              "in.csv -> out.pcd: 3 points\n  1 holes as NaN\n"
              "  coordinates rounded to floats: by 1.49012e-09 at most\n");
}

TEST_F(ConvertCommand, SaysItToProgramsToo) {
    writeCloud();
    const std::string json = say("in.csv out.stl --grid 1x3 --json");
    EXPECT_TRUE(isThere(json,
                        "{\"file\":\"in.csv\",\"written\":\"out.stl\",\"points\":2,"
                        "\"triangles\":0,\"holes\":1,\"invalid\":\"drop\",\"rounding\":"))
        << json;
    EXPECT_TRUE(isThere(json, "\"left_out\":[\"colours: STL has none\"]}\n")) << json;
}

TEST_F(ConvertCommand, SaysWhenFloatsAreExact) {
    test::writeText(path("in.xyz"), "1 2 0.5\n");
    EXPECT_TRUE(isThere(say("in.xyz out.pcd"), "as floats, which hold them exactly\n"));
    EXPECT_FALSE(isThere(say("in.xyz out.pcd --double"), "floats"));
}

TEST_F(ConvertCommand, SuffixesCountInAnyCase) {
    test::writeText(path("in.XYZ"), "1 2 3\n");
    say("in.XYZ out.PLY");
    EXPECT_EQ(test::pointsOf(scene("out.PLY")), (Doubles{1, 2, 3}));
}

TEST_F(ConvertCommand, HolesBecomeWhatUsersOfTheFormatExpect) {
    writeCloud();
    EXPECT_TRUE(isThere(say("in.csv out.zpt"), "1 holes kept as the invalid value"));
    EXPECT_TRUE(isThere(say("in.csv out.npy"), "1 holes as NaN"));
    EXPECT_TRUE(isThere(say("in.csv out.ply"), "1 holes dropped"));
    EXPECT_EQ(test::pointsOf(scene("out.ply")), (Doubles{1, 2, 0.1, 7, 8, 9}));
    EXPECT_EQ(test::colorsOf(scene("out.ply")), (std::vector<int>{3, 2, 1, 9, 8, 7}));
}

TEST_F(ConvertCommand, HolesBecomeWhatIsWished) {
    writeCloud();
    say("in.csv nan.xyz --invalid nan");
    EXPECT_EQ(test::readText(path("nan.xyz")), "1 2 0.1 1 2 3\nnan nan nan 4 5 6\n7 8 9 7 8 9\n");
    say("in.csv keep.xyz --invalid keep");
    EXPECT_TRUE(isThere(test::readText(path("keep.xyz")), "\n3.4028234663852886e+38 3.4"));
    say("in.csv drop.zpt --invalid drop");
    EXPECT_EQ(scene("drop.zpt").cloud.Length(), 2);
}

TEST_F(ConvertCommand, DroppedHolesTakeTheirTrianglesAlong) {
    test::writeText(path("in.obj"), "v 0 0 0\nv nan 0 0\nv 1 0 0\nv 0 1 0\nf 1 2 3\nf 1 3 4\n");
    EXPECT_TRUE(isThere(say("in.obj out.ply"), "1 holes dropped, with 1 triangles at them"));
    EXPECT_EQ(test::trianglesOf(scene("out.ply")), (std::vector<int>{0, 1, 2}));
    say("in.obj out.ztmt");
    EXPECT_EQ(scene("out.ztmt").triangleCount(), 2);
}

TEST_F(ConvertCommand, NamesWhatItLeavesOut) {
    test::writeText(
        path("in.ply"),
        "ply\nformat ascii 1.0\nelement vertex 3\nproperty float x\nproperty float y\n"
        "property float z\nproperty float nx\nproperty float ny\nproperty float nz\n"
        "property uchar red\nproperty uchar green\nproperty uchar blue\n"
        "property uchar alpha\nproperty float quality\nelement face 1\n"
        "property list uchar int vertex_index\nend_header\n"
        "0 0 0 0 0 1 1 2 3 4 9\n1 0 0 0 0 1 1 2 3 4 9\n0 1 0 0 0 1 1 2 3 4 9\n3 0 1 2\n");
    const std::string stl = say("in.ply out.stl");
    EXPECT_TRUE(isThere(stl, "left out: vertex properties quality\n"));
    EXPECT_TRUE(isThere(stl, "left out: normals: STL has none\n"));
    EXPECT_TRUE(isThere(stl, "left out: colours: STL has none\n"));
    EXPECT_TRUE(isThere(say("in.ply out.obj"), "left out: alpha: OBJ has none\n"));
    EXPECT_TRUE(isThere(say("in.ply out.pcd"), "left out: 1 triangles: PCD has none\n"));
    EXPECT_TRUE(isThere(say("out.stl out2.obj"), "normals of triangles: OBJ has none\n"));
}

TEST_F(ConvertCommand, GridsAreLeftOutWhereTheyHaveNoPlace) {
    writeCloud();
    say("in.csv grid.pcd --grid 1x3");
    EXPECT_TRUE(isThere(say("grid.pcd out.zpt"), "left out: the grid: .zpt has none\n"));
    EXPECT_TRUE(isThere(say("grid.pcd out.npy --invalid drop"), "left out: the grid: it has gaps"));
    EXPECT_EQ(scene("grid.pcd").rows, 3);
}

TEST_F(ConvertCommand, BodiesAndWidthsAreWritten) {
    test::writeText(path("in.obj"), "v 0 0 0\nv 1 0 0\nv 0 1 0.1\nf 1 2 3\n");
    const auto start = [&](const std::string& arguments, const std::string& name) {
        say("in.obj " + name + " " + arguments);
        return test::readText(path(name)).substr(0, 300);
    };
    EXPECT_TRUE(isThere(start("--ascii", "a.ply"), "ascii 1.0"));
    EXPECT_TRUE(isThere(start("--binary", "a.ply"), "binary_little_endian 1.0"));
    EXPECT_TRUE(isThere(start("--big-endian --float", "a.ply"), "property float x"));
    EXPECT_TRUE(isThere(start("", "a.ply"), "property double x"));
    EXPECT_TRUE(isThere(start("", "a.pcd"), "SIZE 4 4 4\n"));
    EXPECT_TRUE(isThere(start("--double --compressed", "a.pcd"), "SIZE 8 8 8\n"));
    EXPECT_TRUE(isThere(start("--compressed", "a.pcd"), "DATA binary_compressed\n"));
    EXPECT_TRUE(isThere(start("--ascii", "a.pcd"), "DATA ascii\n"));
    EXPECT_TRUE(isThere(start("--ascii", "a.stl"), "vertex 0 1 0.1\n"));
    EXPECT_TRUE(isThere(start("--float", "a.npy"), "<f4"));
}

TEST_F(ConvertCommand, CalibrationMakesPointsOfARangeImage) {
    writeDepth();
    say("depth.png out.zrt --resolution 2,3,0.5 --offset 100,200,300");
    say("out.zrt out.pcd --double");
    const Scene cloud = scene("out.pcd");
    EXPECT_EQ(cloud.columns, 2);
    EXPECT_EQ(test::pointsOf(cloud),
              (Doubles{100, 200, 305, 102, 200, 310, 100, 203, 315, kHole[0], kHole[0], kHole[0]}));
}

TEST_F(ConvertCommand, CameraMakesPointsOfARangeImage) {
    writeDepth();
    say("depth.png out.pcd --double --camera 2,4,1,0 --depth-scale 0.5");
    EXPECT_EQ(test::pointsOf(scene("out.pcd")),
              (Doubles{-2.5, 0, 5, 0, 0, 10, -7.5, 3.75, 15, kHole[0], kHole[0], kHole[0]}));
}

TEST_F(ConvertCommand, HoleNamesTheValueThatMarksOne) {
    writeDepth();
    say("depth.png out.xyz --hole 20");
    EXPECT_EQ(test::readText(path("out.xyz")), "0 0 10\n0 1 30\n1 1 0\n");
    say("depth.png out.xyz --hole nan");
    EXPECT_EQ(scene("out.xyz").cloud.Length(), 4);
}

TEST_F(ConvertCommand, ColourPictureColoursTheCloud) {
    writeDepth();
    cv::imwrite(path("color.png"), cv::Mat(2, 2, CV_8UC3, cv::Scalar(3, 2, 1)));
    say("depth.png out.xyz --color color.png");
    EXPECT_TRUE(isThere(test::readText(path("out.xyz")), "0 0 10 1 2 3\n"));
    cv::imwrite(path("other.png"), cv::Mat(1, 2, CV_8UC3));
    expectTrouble(run("convert depth.png out.xyz --color other.png"), 3, "other.png: not of");
}

TEST_F(ConvertCommand, GridsBecomeMeshesWithoutTheirJumps) {
    test::writeText(path("in.xyz"), "0 0 0\n1 0 0\n2 0 0\n3 0 50\n0 1 0\n1 1 0\n2 1 0\n3 1 50\n");
    say("in.xyz out.ztmt --grid 4x2");
    EXPECT_EQ(test::trianglesOf(scene("out.ztmt")),
              (std::vector<int>{0, 4, 1, 1, 4, 5, 1, 5, 2, 2, 5, 6}));
    say("in.xyz out.stl --grid 4x2 --jump 100");
    EXPECT_EQ(scene("out.stl").triangleCount(), 6);
    say("in.xyz out.ply --grid 4x2");
    EXPECT_EQ(scene("out.ply").kind, Scene::Cloud);
    say("in.xyz out.ply --grid 4x2 --mesh");
    EXPECT_EQ(scene("out.ply").triangleCount(), 4);
}

TEST_F(ConvertCommand, PngTakesRoundedAndClippedValues) {
    std::string npy("\x93NUMPY\x01\x00\x46\x00", 10);
    npy += "{'descr': '<f4', 'fortran_order': False, 'shape': (1, 4), }          \n";
    npy += test::raw<float>({1.25F, -3, 70000, 5});
    test::writeText(path("in.npy"), npy);
    const std::string said = say("in.npy out.png");
    EXPECT_TRUE(isThere(said, "2 values beyond 0 to 65535: clipped\n")) << said;
    EXPECT_TRUE(isThere(said, "rounded by 0.25 at most\n")) << said;
    EXPECT_EQ(scene("out.png").range.GetValue(0, 2), 65535.0);
    EXPECT_EQ(say("in.npy out.tif"), "in.npy -> out.tif: 4 x 1 values\n");
}

TEST_F(ConvertCommand, PicturesHaveNoCalibrationAndNoColours) {
    fs::copy(ZYR_GOLDEN_DIR "/rangeimage/type2_bgr.zrt", path("in.zrt"));
    const std::string said = say("in.zrt out.png");
    EXPECT_TRUE(isThere(said, "left out: colours: PNG has none\n"));
    EXPECT_TRUE(isThere(said, "left out: the calibration: PNG has none\n"));
}

TEST_F(ConvertCommand, ManyFilesGoIntoAFolder) {
    std::string names, said;
    for (int i = 0; i < 20; ++i) {
        const std::string name = std::to_string(i) + ".xyz";
        test::writeText(path(name), std::to_string(i) + " 2 3\n");
        names += name + " ";
        said += name + " -> out/" + std::to_string(i) + ".ply: 1 points\n";
    }
    EXPECT_EQ(say(names + "--to ply --out out -j 4"), said);
    EXPECT_EQ(test::pointsOf(scene("out/19.ply")), (Doubles{19, 2, 3}));
}

TEST_F(ConvertCommand, WorstOfManyFilesDecidesAndTheOthersAreWritten) {
    test::writeText(path("a.xyz"), "1 2 3\n");
    test::writeText(path("b.xyz"), "1 2\n");
    const test::Result result = run("convert b.xyz a.xyz --to ply --out out");
    expectTrouble(result, 3, "b.xyz: line 1: fewer than 3 columns");
    EXPECT_TRUE(fs::exists(path("out/a.ply")));
    EXPECT_FALSE(fs::exists(path("out/b.ply")));
}

TEST_F(ConvertCommand, FileMayReplaceItself) {
    test::writeText(path("a.ply"),
                    "ply\nformat ascii 1.0\nelement vertex 1\nproperty float x\n"
                    "property float y\nproperty float z\nend_header\n1 2 3\n");
    say("a.ply a.ply --binary");
    EXPECT_EQ(test::pointsOf(scene("a.ply")), (Doubles{1, 2, 3}));
}

TEST_F(ConvertCommand, WrongWishesAreUsageErrors) {
    writeCloud();
    for (const std::string wish :
         {"in.csv", "in.csv a.ply b.ply", "in.csv --to ply", "in.csv a.ply --out out",
          "in.csv a.doc", "in.csv a.ply --invalid hide", "in.csv a.ply --ascii --binary",
          "in.csv a.ply --float --double", "in.csv a.ply --camera 1,2,3", "in.csv a.ply --grid 3",
          "in.csv a.ply --grid 0x3", "in.csv a.ply --camera 1,2,3,nan", "in.csv a.ply --jump 0",
          "in.csv a.ply --depth-scale 0", "in.csv a.ply --camera 0,1,2,3", "in.csv a.ply -j 0",
          "in.csv in.csv --to ply --out out"})
        EXPECT_THROW(runHere(wish), CLI::ParseError) << wish;
    expectTrouble(run("convert in.csv"), 2, "IN and OUT");
}

TEST_F(ConvertCommand, WishesThatTheFormatCannotFulfilAreUsageErrors) {
    writeCloud();
    expectRefusal("in.csv a.zpt --ascii", "no such body");
    expectRefusal("in.csv a.ply --compressed", "no such body");
    expectRefusal("in.csv a.pcd --big-endian", "no such body");
    expectRefusal("in.csv a.zpt --invalid nan", "no NaN");
    expectRefusal("in.csv a.zpt --float", "doubles alone");
    expectRefusal("in.csv a.stl --double", "floats alone");
    expectRefusal("in.csv a.pcd --mesh", "PCD holds no meshes");
    expectTrouble(run("convert in.csv a.stl"), 2, "in.csv: a cloud becomes a mesh by its grid");
    expectTrouble(run("convert in.csv a.png"), 2, "in.csv: PNG holds range images alone");
    expectTrouble(run("convert in.csv a.ply --grid 2x2"), 2, "--grid 2x2 does not fit 3 points");
    EXPECT_FALSE(fs::exists(path("a.stl")));
}

TEST_F(ConvertCommand, UnreadableAndUnwritableFilesAreFileTrouble) {
    writeCloud();
    fs::create_directory(path("dir.ply"));
    expectTrouble(run("convert none.ply a.obj"), 3, "none.ply: no such file");
    expectTrouble(run("convert dir.ply a.obj"), 3, "dir.ply: not a regular file");
    expectTrouble(run("convert in.doc a.obj"), 3, "in.doc: not a format that is read");
    expectTrouble(run("convert in.csv none/a.obj"), 3, "none/a.obj: cannot be written");
    expectTrouble(run("convert in.csv dir.ply"), 3, "dir.ply: not a regular file");
}

TEST_F(ConvertCommand, FullDiskLeavesTheOldFileAndNothingElse) {
    std::string many;
    for (int i = 0; i < 30000; ++i) many += std::to_string(i) + " 2 3\n";
    test::writeText(path("in.xyz"), many);
    for (const std::string name : {"old.zpt", "old.ply"}) {
        test::writeText(path(name), "precious");
        const std::string limit = "trap '' XFSZ; ulimit -f 20";
        expectTrouble(run("convert in.xyz " + name, limit), 3, name + ": ");
        EXPECT_EQ(test::readText(path(name)), "precious");
    }
    EXPECT_EQ(std::distance(fs::directory_iterator(path(".")), {}), 5);
}

TEST_F(ConvertCommand, BrokenOwnFilesAreRefused) {
    writeCloud();
    say("in.csv good.zpt");
    std::string bytes = test::readText(path("good.zpt"));
    test::writeText(path("cut.zpt"), bytes.substr(0, bytes.size() - 1));
    expectTrouble(run("convert cut.zpt a.ply"), 3, "cut.zpt: cut short");
    bytes.replace(bytes.find("binary_compressed"), 17, "ascii");
    test::writeText(path("ascii.zpt"), bytes);
    expectTrouble(run("convert ascii.zpt a.ply"), 3, "ascii.zpt: its body is ascii");
}

TEST_F(ConvertCommand, TrianglesOfMeshFilesAreHeldAgainstTheVertices) {
    double points[] = {0, 0, 0, 1, 0, 0, 0, 1, 0};
    int corners[] = {0, 1, 3};
    const ZyrTriangleMesh mesh(ZyrVector3dArray(points, 9, test::kInvalid),
                               Zyr3DIntArray(corners, 3));
    ASSERT_TRUE(mesh.Save(path("in.ztmt").c_str(), true, true));
    expectTrouble(run("convert in.ztmt a.ply"), 3, "names a vertex that is not there");
}

TEST_F(ConvertCommand, HelpIsGood) {
    const test::Result result = run("convert --help");
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_TRUE(isThere(result.out, "--invalid keep|nan|drop"));
}

/// A published file through a format and back: what it gives is the same.
class ConvertRealData : public ConvertCommand {
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

}  // namespace
