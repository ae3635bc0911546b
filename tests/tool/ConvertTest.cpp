#include "ConvertCommand.h"

namespace {

namespace fs = std::filesystem;
using test::isThere;
using zyr::Scene;
using Doubles = std::vector<double>;

const Doubles kHole(3, test::kInvalid);

class ConvertFiles : public test::ConvertCommand {};

TEST_F(ConvertFiles, SaysWhatBecameOfAFile) {
    writeCloud();
    EXPECT_EQ(say("in.csv out.pcd"),
              "in.csv -> out.pcd: 3 points\n  1 hole as NaN\n"
              "  coordinates rounded to floats: by 1.49012e-09 at most\n");
}

TEST_F(ConvertFiles, SaysItToProgramsToo) {
    writeCloud();
    const std::string json = say("in.csv out.stl --grid 1x3 --json");
    EXPECT_TRUE(isThere(json,
                        "{\"file\":\"in.csv\",\"written\":\"out.stl\",\"points\":2,"
                        "\"triangles\":0,\"holes\":1,\"invalid\":\"drop\",\"rounding\":"))
        << json;
    EXPECT_TRUE(isThere(json, "\"left_out\":[\"colours: STL has none\"]}\n")) << json;
}

TEST_F(ConvertFiles, SaysWhenFloatsAreExact) {
    test::writeText(path("in.xyz"), "1 2 0.5\n");
    EXPECT_TRUE(isThere(say("in.xyz out.pcd"), "as floats, which hold them exactly\n"));
    EXPECT_FALSE(isThere(say("in.xyz out.pcd --double"), "floats"));
}

TEST_F(ConvertFiles, SuffixesCountInAnyCase) {
    test::writeText(path("in.XYZ"), "1 2 3\n");
    say("in.XYZ out.PLY");
    EXPECT_EQ(test::pointsOf(scene("out.PLY")), (Doubles{1, 2, 3}));
}

TEST_F(ConvertFiles, OurCloudsAndMeshesHaveSmallOrLargeSuffixes) {
    writeCloud();
    say("in.csv out.ZPT");
    EXPECT_EQ(scene("out.ZPT").cloud.Length(), 3);
    const std::string why = ": not a .zpt file by its suffix, which is all small or all large";
    expectTrouble(run("convert in.csv out.Zpt"), 2, "out.Zpt" + why);
    fs::copy_file(path("out.ZPT"), path("in.zPT"));
    for (const char* command : {"info in.zPT", "check in.zPT", "convert in.zPT out.ply"})
        expectTrouble(run(command), 3, "in.zPT" + why);
    expectTrouble(run("convert in.csv out.Ztmt"), 2, "out.Ztmt: not a .ztmt file by its suffix");
}

TEST_F(ConvertFiles, HolesBecomeWhatUsersOfTheFormatExpect) {
    writeCloud();
    EXPECT_TRUE(isThere(say("in.csv out.zpt"), "1 hole kept as the invalid value"));
    EXPECT_TRUE(isThere(say("in.csv out.npy"), "1 hole as NaN"));
    EXPECT_TRUE(isThere(say("in.csv out.ply"), "1 hole dropped"));
    EXPECT_EQ(test::pointsOf(scene("out.ply")), (Doubles{1, 2, 0.1, 7, 8, 9}));
    EXPECT_EQ(test::colorsOf(scene("out.ply")), (std::vector<int>{3, 2, 1, 9, 8, 7}));
}

TEST_F(ConvertFiles, HolesBecomeWhatIsWished) {
    writeCloud();
    say("in.csv nan.xyz --invalid nan");
    EXPECT_EQ(test::readText(path("nan.xyz")), "1 2 0.1 1 2 3\nnan nan nan 4 5 6\n7 8 9 7 8 9\n");
    say("in.csv keep.xyz --invalid keep");
    EXPECT_TRUE(isThere(test::readText(path("keep.xyz")), "\n3.4028234663852886e+38 3.4"));
    say("in.csv drop.zpt --invalid drop");
    EXPECT_EQ(scene("drop.zpt").cloud.Length(), 2);
}

TEST_F(ConvertFiles, DroppedHolesTakeTheirTrianglesAlong) {
    test::writeText(path("in.obj"), "v 0 0 0\nv nan 0 0\nv 1 0 0\nv 0 1 0\nf 1 2 3\nf 1 3 4\n");
    EXPECT_TRUE(isThere(say("in.obj out.ply"), "1 hole dropped, with 1 triangle at them"));
    EXPECT_EQ(test::trianglesOf(scene("out.ply")), (std::vector<int>{0, 1, 2}));
    say("in.obj out.ztmt");
    EXPECT_EQ(scene("out.ztmt").triangleCount(), 2);
}

TEST_F(ConvertFiles, NamesWhatItLeavesOut) {
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
    EXPECT_TRUE(isThere(say("in.ply out.pcd"), "left out: 1 triangle: PCD has none\n"));
    EXPECT_TRUE(isThere(say("out.stl out2.obj"), "normals of triangles: OBJ has none\n"));
}

TEST_F(ConvertFiles, GridsAreLeftOutWhereTheyHaveNoPlace) {
    writeCloud();
    say("in.csv grid.pcd --grid 1x3");
    EXPECT_TRUE(isThere(say("grid.pcd out.zpt"), "left out: the grid: .zpt has none\n"));
    EXPECT_TRUE(isThere(say("grid.pcd out.npy --invalid drop"), "left out: the grid: it has gaps"));
    EXPECT_EQ(scene("grid.pcd").rows, 3);
}

TEST_F(ConvertFiles, BodiesAndWidthsAreWritten) {
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

TEST_F(ConvertFiles, CalibrationMakesPointsOfARangeImage) {
    writeDepth();
    say("depth.png out.zrt --resolution 2,3,0.5 --offset 100,200,300");
    say("out.zrt out.pcd --double");
    const Scene cloud = scene("out.pcd");
    EXPECT_EQ(cloud.columns, 2);
    EXPECT_EQ(test::pointsOf(cloud),
              (Doubles{100, 200, 305, 102, 200, 310, 100, 203, 315, kHole[0], kHole[0], kHole[0]}));
}

TEST_F(ConvertFiles, CameraMakesPointsOfARangeImage) {
    writeDepth();
    say("depth.png out.pcd --double --camera 2,4,1,0 --depth-scale 0.5");
    EXPECT_EQ(test::pointsOf(scene("out.pcd")),
              (Doubles{-2.5, 0, 5, 0, 0, 10, -7.5, 3.75, 15, kHole[0], kHole[0], kHole[0]}));
}

TEST_F(ConvertFiles, HoleNamesTheValueThatMarksOne) {
    writeDepth();
    say("depth.png out.xyz --hole 20");
    EXPECT_EQ(test::readText(path("out.xyz")), "0 0 10\n0 1 30\n1 1 0\n");
    say("depth.png out.xyz --hole nan");
    EXPECT_EQ(scene("out.xyz").cloud.Length(), 4);
}

TEST_F(ConvertFiles, ColourPictureColoursTheCloud) {
    writeDepth();
    cv::imwrite(path("color.png"), cv::Mat(2, 2, CV_8UC3, cv::Scalar(3, 2, 1)));
    say("depth.png out.xyz --color color.png");
    EXPECT_TRUE(isThere(test::readText(path("out.xyz")), "0 0 10 1 2 3\n"));
    cv::imwrite(path("other.png"), cv::Mat(1, 2, CV_8UC3));
    expectTrouble(run("convert depth.png out.xyz --color other.png"), 3, "other.png: not of");
}

TEST_F(ConvertFiles, GridsBecomeMeshesWithoutTheirJumps) {
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

TEST_F(ConvertFiles, PngTakesRoundedAndClippedValues) {
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

TEST_F(ConvertFiles, JpegAndBmpAreReadAsGreyValues) {
    for (const char* name : {"in.jpg", "in.jpeg", "in.bmp"}) {
        cv::imwrite(path(name), cv::Mat(8, 16, CV_8UC3, cv::Scalar(90, 90, 90)));
        EXPECT_TRUE(isThere(say(std::string(name) + " out.npy"), "colours: turned into grey"));
        EXPECT_EQ(scene("out.npy").range.Width(), 16) << name;
        EXPECT_NEAR(scene("out.npy").range.GetValue(4, 8), 90, 1) << name;
    }
}

TEST_F(ConvertFiles, PicturesHaveNoCalibrationAndNoColours) {
    fs::copy(ZYR_GOLDEN_DIR "/rangeimage/type2_bgr.zrt", path("in.zrt"));
    const std::string said = say("in.zrt out.png");
    EXPECT_TRUE(isThere(said, "left out: colours: PNG has none\n"));
    EXPECT_TRUE(isThere(said, "left out: the calibration: PNG has none\n"));
}

}  // namespace
