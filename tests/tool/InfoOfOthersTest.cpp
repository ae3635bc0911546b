#include <nlohmann/json.hpp>

#include "Program.h"

namespace {

/// Of files of other formats.
class InfoOfOthers : public test::Tool {
protected:
    test::Result infoOf(const std::string& name, const std::string& bytes) const {
        test::writeText(path(name), bytes);
        return run("info " + name);
    }

    static void expectRows(const test::Result& result, const std::string& fields,
                           const std::string& body, const std::string& rawBytes) {
        EXPECT_EQ(result.exitCode, 0);
        EXPECT_EQ(row(result, "fields"), fields);
        EXPECT_EQ(row(result, "body"), body);
        EXPECT_EQ(row(result, "bytes raw"), rawBytes);
    }
};

const std::string kPly =
    "ply\nformat ascii 1.0\nelement vertex 3\nproperty float x\nproperty float y\n"
    "property float z\nproperty uchar red\nproperty uchar green\nproperty uchar blue\n"
    "element face 1\nproperty list uchar int vertex_indices\nend_header\n"
    "0 0 0 1 2 3\n1 0 0 1 2 3\n0 1 0 1 2 3\n3 0 1 2\n";

TEST_F(InfoOfOthers, PlyHasItsPropertiesAndTheBytesOfItsTypes) {
    // 3 vertices of 15 bytes, and a face of a count and three corners.
    const test::Result result = infoOf("a.ply", kPly);
    expectRows(result, "x y z (float32) red green blue (uint8) face.vertex_indices (int32[])",
               "ascii", "58");
    EXPECT_EQ(row(result, "bytes on disk").substr(0, 6), std::to_string(kPly.size()) + " (4");
    ASSERT_EQ(run("convert a.ply b.ply --big-endian").exitCode, 0);
    expectRows(run("info b.ply"),
               "x y z (float64) red green blue (uint8) face.vertex_indices (int32[])",
               "binary_big_endian", "94");
}

TEST_F(InfoOfOthers, PcdHasItsFieldsAndItsKindOfBody) {
    const std::string head =
        "FIELDS x y z rgb _ fpfh\nSIZE 4 4 4 4 1 2\nTYPE F F F U U I\nCOUNT 1 1 1 1 3 2\n"
        "WIDTH 1\nHEIGHT 1\nPOINTS 1\n";
    const std::string fields = "x y z (float32) rgb (uint32) _ (uint8[3]) fpfh (int16[2])";
    expectRows(infoOf("a.pcd", head + "DATA ascii\n1 2 3 4 0 0 0 5 6\n"), fields, "ascii", "23");
    expectRows(infoOf("b.pcd", head + "DATA binary\n" + std::string(23, '\1')), fields, "binary",
               "23");
    ASSERT_EQ(run("convert a.pcd c.pcd --compressed").exitCode, 0);
    expectRows(run("info c.pcd"), "x y z rgb (float32)", "binary_compressed", "16");
}

TEST_F(InfoOfOthers, StlHasTheFieldsOfTheFormat) {
    const std::string text =
        "solid a\nfacet normal 0 0 1\nouter loop\nvertex 0 0 0\nvertex 1 0 0\nvertex 0 1 0\n"
        "endloop\nendfacet\nendsolid\n";
    expectRows(infoOf("a.stl", text), "normal corner1 corner2 corner3 (float32[3])", "ascii", "48");
    ASSERT_EQ(run("convert a.stl b.stl").exitCode, 0);
    expectRows(run("info b.stl"), "normal corner1 corner2 corner3 (float32[3]) attributes (uint16)",
               "binary", "50");
}

TEST_F(InfoOfOthers, TextWithoutTypesCountsAsDoublesAndIndicesOfFourBytes) {
    expectRows(infoOf("a.obj", "v 0 0 0\nv 1 0 0\nv 0 1 0\nvn 0 0 1\nf 1//1 2//1 3//1\n"),
               "v vn (float64[3]) f (int32[])", "ascii", "120");
    expectRows(infoOf("b.obj", "v 0 0 0 1 0 0\n"), "v (float64[6])", "ascii", "48");
    expectRows(infoOf("a.csv", "x,y,z,quality\n1,2,3,4\n"), "x y z quality (float64)", "ascii",
               "32");
    expectRows(infoOf("a.xyz", "1 2 3 0 0 1\n4 5 6 0 0 1\n"), "x y z nx ny nz (float64)", "ascii",
               "96");
}

TEST_F(InfoOfOthers, NpyHasTheTypeAndOrderOfItsValues) {
    test::writeText(path("a.xyz"), "1 2 3\n4 5 6\n");
    ASSERT_EQ(run("convert a.xyz a.npy --float").exitCode, 0);
    expectRows(run("info a.npy"), "x y z (float32)", "binary", "24");
    std::string bytes = test::readText(path("a.npy"));
    bytes.replace(bytes.find("<f4"), 1, ">");
    bytes.replace(bytes.find("False"), 5, "True ");
    expectRows(infoOf("b.npy", bytes), "x y z (float32)", "binary_big_endian, columns first", "24");
}

TEST_F(InfoOfOthers, RangeImageOfNpyHasItsTypeAndBytes) {
    cv::imwrite(path("a.png"), cv::Mat(2, 3, CV_16UC1, cv::Scalar(7)));
    ASSERT_EQ(run("convert a.png a.npy").exitCode, 0);
    const test::Result result = run("info a.npy");
    EXPECT_EQ(row(result, "type"), "16-bit unsigned");
    EXPECT_EQ(row(result, "body"), "binary");
    EXPECT_EQ(row(result, "bytes raw"), "12");
}

TEST_F(InfoOfOthers, ProgramsGetNamesAndTypesAsLists) {
    test::writeText(path("a.ply"), kPly);
    const nlohmann::json json = nlohmann::json::parse(run("info --json a.ply").out);
    EXPECT_EQ(json["fields"],
              nlohmann::json({"x", "y", "z", "red", "green", "blue", "face.vertex_indices"}));
    EXPECT_EQ(json["types"], nlohmann::json({"float32", "float32", "float32", "uint8", "uint8",
                                             "uint8", "int32[]"}));
    EXPECT_EQ(json["body"], "ascii");
    EXPECT_EQ(json["bytes_raw"], 58);
    EXPECT_EQ(json["bytes_on_disk"], kPly.size());
}

}  // namespace
