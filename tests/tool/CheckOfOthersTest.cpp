#include <cmath>
#include <tuple>

#include "CheckCommand.h"

namespace {

/// Of files of other formats, pictures among them.
class CheckOfOthers : public test::CheckCommand {
protected:
    /// Each text in a file of its own, all in one run.
    void expectFaults(
        const std::string& suffix,
        const std::vector<std::tuple<std::string, std::size_t, std::string>>& cases) const {
        std::vector<test::Case> all;
        for (const auto& [bytes, byte, why] : cases)
            all.push_back({test::toBytes(bytes), at({}, byte, why)});
        expectAnswers(suffix, all);
    }
};

std::string little(std::uint32_t word) {
    return std::string(reinterpret_cast<const char*>(&word), 4);
}

std::string npy(const std::string& dictionary, char version = 1) {
    std::string bytes = "\x93NUMPY";
    bytes += {version, '\0', static_cast<char>(dictionary.size()), '\0'};
    return bytes + dictionary;
}

std::string npyOf(const std::string& type, const std::string& shape) {
    return npy("{'descr': '" + type + "', 'fortran_order': False, 'shape': " + shape + ", }\n");
}

TEST_F(CheckOfOthers, ForeignFilesAreReadByTheirReaders) {
    test::writeText(path("good.xyz"), "1 2 3\n4 5 6\n");
    test::writeText(path("bad.ply"), "ply\nformat ascii 1.0\n");
    const test::Result result = run("check good.xyz bad.ply");
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(test::linesOf(result.out)[0], "good.xyz: valid: point cloud, 2 points, 0 holes");
    EXPECT_EQ(test::linesOf(result.out)[1].rfind("bad.ply: invalid at byte ", 0), 0u) << result.out;
}

TEST_F(CheckOfOthers, EmptyFileOfAnySuffixIsInvalid) {
    std::string names;
    const std::vector<std::string> suffixes = {"zpt", "ztmt", "zrt", "ply",  "stl", "obj",
                                               "pcd", "xyz",  "txt", "csv",  "npy", "png",
                                               "tif", "tiff", "jpg", "jpeg", "bmp"};
    for (const std::string& suffix : suffixes) {
        test::writeText(path("empty." + suffix), "");
        names += " empty." + suffix;
    }
    const test::Result checked = run("check" + names), told = run("info" + names);
    const std::vector<std::string> faults = test::linesOf(checked.out);
    EXPECT_EQ(checked.exitCode, 1) << checked.err;
    EXPECT_EQ(told.exitCode, 3);
    EXPECT_EQ(told.out, "");
    EXPECT_EQ(test::linesOf(told.err).size(), suffixes.size()) << told.err;
    ASSERT_EQ(faults.size(), suffixes.size()) << checked.out;
    for (std::size_t i = 0; i < faults.size(); ++i)
        EXPECT_EQ(faults[i].rfind("empty." + suffixes[i] + ": invalid", 0), 0u) << faults[i];
}

TEST_F(CheckOfOthers, ForeignFaultsHaveTheirByte) {
    const std::string ply =
        "ply\nformat binary_little_endian 1.0\nelement vertex 1\nproperty float x\n"
        "property float y\nproperty float z\nend_header\n";
    const std::string pcd =
        "FIELDS x y z\nSIZE 4 4 4\nTYPE F F F\nWIDTH 1\nHEIGHT 1\nPOINTS 1\n"
        "DATA ascii\n";
    const std::string twelve(12, '\1'), stl = std::string(80, ' ') + std::string("\1\0\0\0", 4);
    const auto at = [](std::size_t byte) { return CheckCommand::at({}, byte, ""); };
    struct Sample {
        const char* name;
        std::string bytes, answer;
    };
    const std::vector<Sample> cases = {
        {"a.ply", ply + twelve + "junk", at(ply.size() + 12) + "4 bytes behind the end"},
        {"b.ply", ply + "12345", at(ply.size() + 5) + "cut short: "},
        {"c.stl", stl + std::string(50, '\1') + "junk", at(134) + "4 bytes behind the end"},
        {"d.stl", stl + "12345", at(89) + "cut short: "},
        {"e.pcd", pcd + "1 2 3\njunk\n", at(pcd.size() + 6) + "5 bytes behind the end"},
        {"f.pcd", pcd + "1 2 q\n", at(pcd.size()) + "line 8: not a number: "},
        {"g.obj", "v 1 2 3\nv 4 5 6\nv 7 8 0\nf 1 2 9\n",
         at(24) + "line 4: a face names vertex 9 of 3"},
        {"h.xyz", "1 2 3\n4 5\n", at(6) + "line 2: fewer columns than before"},
        {"i.xyz",
         "\xEF\xBB\xBF"
         "1 2 3\n4 5\n",
         at(9) + "line 2: fewer columns than before"}};
    for (const Sample& each : cases) {
        test::writeText(path(each.name), each.bytes);
        const test::Result result = run(std::string("check ") + each.name);
        EXPECT_EQ(result.exitCode, 1) << each.name;
        EXPECT_EQ(result.out.rfind(each.name + (": " + each.answer), 0), 0u) << result.out;
    }
}

TEST_F(CheckOfOthers, FaultsOfAPcdFileHaveTheByteOfTheirLine) {
    const std::string fields = "FIELDS x y z\n", size = "SIZE 4 4 4\n", type = "TYPE F F F\n";
    const std::string one = "WIDTH 1\nHEIGHT 1\nPOINTS 1\n", text = "DATA ascii\n1 2 3\n";
    const std::string packed = fields + size + type + one + "DATA binary_compressed\n";
    expectFaults(
        "pcd",
        {{fields + size + type + "WIDTH 1\nHEIGHT 1\nPOINTS 2\n" + text, 52,
          "line 6: POINTS is not WIDTH times HEIGHT"},
         {"FIELDS x y a\n" + size + type + one + text, 0, "line 1: no fields x, y and z"},
         {fields + "SIZE 3 4 4\n" + type + one + text, 13,
          "line 2: field \"x\" has an unknown type"},
         {fields + size + "TYPE F Q F\n" + one + text, 24,
          "line 3: field \"y\" has an unknown type"},
         {fields + size + type + one + "DATA ascii\n1 2 3 4\n5 6\n", 80, "4 bytes behind the end"},
         {fields, 13, "not a PCD file: no DATA line"},
         {fields + size + type + one + "DATA ascii\n      ", 78,
          "cut short: 0 of 1 points are there"},
         {packed + little(2) + little(13) + "ab", packed.size() + 4,
          "the body's size is not that of its points"},
         {packed + little(2) + little(12) + std::string("\x20\0", 2), packed.size() + 8,
          "the compressed body is broken: the stream refers to before its output"},
         {packed + little(2) + little(12) + std::string("\0a", 2), packed.size() + 10,
          "the compressed body is broken: the stream gives 1 of 12 bytes"}});
}

TEST_F(CheckOfOthers, FaultsOfAPlyFileHaveTheirByte) {
    const std::string start = "ply\nformat ascii 1.0\n", end = "end_header\n";
    const std::string binary = "ply\nformat binary_big_endian 1.0\n";
    const std::string vertex =
        "element vertex 1\nproperty char x\nproperty char y\nproperty char z\n";
    const std::string faces = "element face 2\nproperty list uchar char vertex_index\n";
    const std::string text = start + vertex + faces + end, bytes = binary + vertex + faces + end;
    expectFaults("ply",
                 {{start + end, 21, "line 3: no element named vertex"},
                  {start + "element vertex 1\n" + end, 21, "line 3: vertices without properties"},
                  {start + "element vertex 1\nproperty char x\n" + end + "1\n", 21,
                   "line 3: the vertices have no x, y and z"},
                  {start + "element vertex 999999999\nproperty char x\n" + end, 21,
                   "line 3: 999999999 vertex elements are more than can be held"},
                  {start + vertex, 21 + vertex.size(), "cut short: no end_header"},
                  {text + "1\n2 q\n", text.size() + 2, "line 11: not a number: \"q\""},
                  {text + "1 2 3\n3 0 0 0\n3 0 7\n0\n", text.size() + 14,
                   "line 12: a face names vertex 7 of 1"},
                  {text + "1 2 3\n3 0 0 0\n-1 0 0\n", text.size() + 14,
                   "line 12: a list of a negative length"},
                  {text + "1 2 3\n3 0 0 0\n", text.size() + 14,
                   "cut short: the text ends before its values do"},
                  {bytes + "123" + std::string("\3\0\0\0\3\0\0\1", 8), bytes.size() + 7,
                   "a face names vertex 1 of 1"},
                  {bytes + "123" + std::string("\3\0\0\0\3\0", 6), bytes.size() + 9,
                   "cut short: a list is longer than what is left"}});
}

TEST_F(CheckOfOthers, FaultsOfOtherTextsHaveTheByteOfTheirLine) {
    expectFaults(
        "obj", {{"v 0 0 0\nvn 0 0 1\nf 1//1 1//2 1//1\n", 17, "line 3: a face names normal 2 of 1"},
                {"v 0 0 0\nf -2 -1 -1\n", 8, "line 2: a face names a vertex before the first"},
                {"v 0 0 0\n\nf 1 \\\n 1 4\n", 9, "line 3: a face names vertex 4 of 1"},
                {"v 0 0 0\nvn 0 0 1\nf 1//9223372036854775807\n", 17,
                 "line 3: a face names normal 9223372036854775807 of 1"},
                {"v 0 0 0\n\xC2\x9B\x1b[31m\n", 8, "line 2: unknown keyword \"??[31m\""},
                {"vn 0 0 1\n", 9, "no points"}});
    expectFaults("csv", {{"# points\nx,y,a\n1,2,3\n", 9, "line 2: no columns x, y and z"},
                         {"", 0, "line 1: no columns x, y and z"}});
    expectFaults("stl", {{"solid a\n", 8, "cut short: no endsolid"},
                         {"solid a\nfacet normal 0 0\n", 8, "line 2: three numbers are needed"}});
}

TEST_F(CheckOfOthers, FaultsOfAnNpyHeaderHaveTheByteOfTheirWord) {
    // The dictionary starts at byte 10, its first value at 20 and its last at 60.
    expectFaults("npy", {{"NUMPY, so to say", 0, "not an NPY file: its first bytes are others"},
                         {npy("{}", 9) + "  ", 6, "an unknown version"},
                         {npy("{'descr': 1, 'shape': ()}"), 20, "values of the unknown type \"1\""},
                         {npy("{'descr': '<f8'}"), 10, "the header has no shape"},
                         {npyOf("<c8", "(1, 3)"), 20, "values of the unknown type \"'<c8'\""},
                         {npyOf("<f8", "(1, x)"), 60, "the shape is no list of counts"},
                         {npyOf("<f8", "(1, 2, 2)") + std::string(32, '\0'), 60,
                          "a shape that is neither (N, 3), (H, W, 3) nor (H, W)"},
                         {npyOf("<f8", "(2000000000, 0)"), 60, "no values"},
                         {npyOf("<u8", "(1, 1)") + std::string(8, '\0'), 20,
                          "values of a type that range images do not have"},
                         {npyOf("<f8", "(1, 3)") + "1234567", npyOf("<f8", "(1, 3)").size() + 7,
                          "cut short: the shape needs more bytes than are there"}});
}

TEST_F(CheckOfOthers, PicturesEndWhereTheirFilesDo) {
    for (const char* name : {"a.png", "a.jpg"}) {
        cv::imwrite(path(name), cv::Mat(64, 64, CV_8UC3, cv::Scalar(1, 2, 3)));
        EXPECT_EQ(run(std::string("check ") + name).exitCode, 0) << name;
    }
    const std::string png = test::readText(path("a.png")), jpeg = test::readText(path("a.jpg"));
    test::writeText(path("more.png"), png + "junk");
    test::writeText(path("more.jpg"), jpeg + "junk");
    test::writeText(path("cut.jpg"), jpeg.substr(0, jpeg.size() - 9));
    const std::vector<std::string> lines =
        test::linesOf(run("check more.png more.jpg cut.jpg").out);
    const auto at = [](std::size_t byte) { return ": invalid at byte " + std::to_string(byte); };
    EXPECT_EQ(lines[0], "more.png" + at(png.size()) + ": 4 bytes behind the end");
    EXPECT_EQ(lines[1], "more.jpg" + at(jpeg.size()) + ": 4 bytes behind the end");
    EXPECT_EQ(lines[2], "cut.jpg" + at(jpeg.size() - 9) + ": cut short: no end mark");
}

TEST_F(CheckOfOthers, FramesOfPicturesAreWhole) {
    const auto bytesOf = [&](const std::string& name) {
        cv::imwrite(path(name), cv::Mat(64, 63, CV_8UC1, cv::Scalar(90)));
        return test::readText(path(name));
    };
    const std::string png = bytesOf("a.png"), bmp = bytesOf("a.bmp"), tiff = bytesOf("a.tif");
    std::string flipped = png;
    flipped[png.size() - 14] =
        static_cast<char>(flipped[png.size() - 14] ^ 1);  // in the checksum before IEND
    const std::size_t lastChunk = png.rfind("IDAT") - 4;
    expectFaults("png",
                 {{png.substr(0, 20), 20, "cut short: inside a chunk"},
                  {png.substr(0, png.size() - 12), png.size() - 12, "cut short: no chunk IEND"},
                  {flipped, lastChunk, "a chunk whose checksum is wrong"}});
    expectFaults("bmp", {{bmp + "junk", bmp.size(), "4 bytes behind the end"},
                         {bmp.substr(0, 30), 30, "cut short: no whole header"},
                         {bmp.substr(0, bmp.size() - 1), bmp.size() - 1,
                          "cut short: its pixels end at byte " + std::to_string(bmp.size())}});
    expectFaults("tif", {{tiff.substr(0, 7), 7, "cut short: no whole header"}});
    // Nothing says how long a TIFF is: bytes that no directory names may be anywhere.
    test::writeText(path("more.tif"), tiff + "junk");
    EXPECT_EQ(run("check a.png a.bmp a.tif more.tif").exitCode, 0);
}

TEST_F(CheckOfOthers, PicturesAreDecoded) {
    cv::imwrite(path("good.png"), cv::Mat(2, 3, CV_16UC1, cv::Scalar(7)));
    test::writeText(path("bad.png"), "no picture");
    const test::Result result = run("check good.png bad.png");
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.out,
              "good.png: valid: picture, 3 x 2, 0 holes\n"
              "bad.png: invalid at byte 0: not a picture that can be read\n");
}

TEST_F(CheckOfOthers, ZeroIsAHoleOfUnsignedCountsOf16BitsAlone) {
    const cv::Mat values = (cv::Mat_<float>(1, 4) << 0, 5, std::nanf(""), INFINITY);
    cv::imwrite(path("float.tif"), values);
    cv::imwrite(path("byte.png"), cv::Mat(1, 4, CV_8UC1, cv::Scalar(0)));
    cv::imwrite(path("count.png"), cv::Mat(1, 4, CV_16UC1, cv::Scalar(0)));
    const std::vector<std::string> lines =
        test::linesOf(run("check float.tif byte.png count.png").out);
    EXPECT_EQ(lines[0], "float.tif: valid: picture, 4 x 1, 2 holes (50.0 %)");
    EXPECT_EQ(lines[1], "byte.png: valid: picture, 4 x 1, 0 holes");
    EXPECT_EQ(lines[2], "count.png: valid: picture, 4 x 1, 4 holes (100.0 %)");
}

}  // namespace
