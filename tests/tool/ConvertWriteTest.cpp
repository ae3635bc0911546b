#include <algorithm>

#include "Outcome.h"
#include "Scenes.h"
#include "formats/Format.h"
#include "formats/Same.h"
#include "support/RangeFile.h"
#include "support/TempFolder.h"

namespace {

using zyr::Scene;
using Options = zyr::WriteOptions;

const double kNaN = std::numeric_limits<double>::quiet_NaN();

/// Numbers that need all their digits, a float's and a double's.
const std::vector<double> kPoints = {0.1, -2.0 / 3.0, 1e-310, 123456789.123, 5, -0.0, 3, 2, 1};
const std::vector<double> kNormals = {0, 0, 1, 0.6, 0, 0.8, -1, 0, 0};

ZyrVector3dArray vectors(std::vector<double> values) {
    return ZyrVector3dArray(values.data(), static_cast<int>(values.size()), test::kInvalid);
}

ZyrColorArray colors(int length, int channels) {
    ZyrColorArray array;
    array.Create(length, channels);
    for (int i = 0; i < length * channels; ++i)
        array.Data()[i] = static_cast<unsigned char>(37 * i + 3);
    return array;
}

Scene cloudScene(int channels) {
    Scene scene;
    scene.cloud = ZyrPointCloud(vectors(kPoints), colors(3, channels), vectors(kNormals));
    return scene;
}

Scene meshScene() {
    Scene scene = cloudScene(3);
    int corners[] = {0, 1, 2, 2, 1, 0};
    scene.kind = Scene::Mesh;
    scene.triangles = Zyr3DIntArray(corners, 6);
    scene.triangleNormals = vectors({0, 0, 1, 0, 0, -1});
    scene.triangleColors = colors(2, 3);
    return scene;
}

Scene rangeScene(int type) {
    Scene scene;
    scene.kind = Scene::Range;
    test::Bytes bytes = test::goldenRangeValues(type);
    scene.range = ZyrRangeImage(bytes.data(), 2, 3, 0, type, 0, 0, 0.5, 1, 2, 3, 4, 5);
    return scene;
}

class WriteScene : public testing::Test {
protected:
    Scene through(const Scene& scene, const std::string& suffix, const Options& options = {}) {
        const std::string path = folder_.path("file." + suffix);
        zyr::writeScene(scene, path, options);
        return zyr::readScene(path);
    }

    std::string text(const Scene& scene, const std::string& suffix, const Options& options) {
        const std::string path = folder_.path("file." + suffix);
        zyr::writeScene(scene, path, options);
        const test::Bytes bytes = test::readFile(path);
        return std::string(bytes.begin(), bytes.end());
    }

    const test::TempFolder folder_;
};

const Options::Body kAllBodies[] = {Options::Ascii, Options::Binary, Options::BigEndian,
                                    Options::Compressed};

TEST_F(WriteScene, DoublesComeBackExactlyFromEveryFormatThatHasThem) {
    for (const std::string suffix :
         {"zpt", "ztmt", "ply", "obj", "pcd", "xyz", "txt", "csv", "npy"})
        for (const Options::Body body : kAllBodies)
            EXPECT_EQ(test::pointsOf(through(meshScene(), suffix, {body, false})), kPoints)
                << suffix;
}

TEST_F(WriteScene, FloatsAreTheNearestOnes) {
    const float first = 0.1F;
    for (const std::string suffix : {"ply", "obj", "pcd", "xyz", "csv", "npy", "stl"})
        for (const Options::Body body : kAllBodies) {
            const auto points = test::pointsOf(through(meshScene(), suffix, {body, true}));
            EXPECT_EQ(static_cast<float>(points[0]), first) << suffix;
            EXPECT_EQ(static_cast<float>(points[3]), 123456789.123F) << suffix;
        }
}

TEST_F(WriteScene, NormalsAndColoursComeBack) {
    for (const std::string suffix : {"zpt", "ztmt", "ply", "obj", "pcd", "xyz", "csv"})
        for (const Options::Body body : kAllBodies) {
            const Scene back = through(meshScene(), suffix, {body, false});
            EXPECT_EQ(test::normalsOf(back), kNormals) << suffix;
            EXPECT_EQ(test::colorsOf(back), test::bytesOf(colors(3, 3))) << suffix;
        }
}

TEST_F(WriteScene, AlphaComesBack) {
    for (const std::string suffix : {"zpt", "ply", "pcd", "xyz", "csv"})
        for (const Options::Body body : kAllBodies)
            EXPECT_EQ(test::colorsOf(through(cloudScene(4), suffix, {body, false})),
                      test::bytesOf(colors(3, 4)))
                << suffix;
}

TEST_F(WriteScene, GreyBecomesRedGreenAndBlue) {
    for (const std::string suffix : {"ply", "obj", "pcd", "csv"})
        EXPECT_EQ(test::colorsOf(through(cloudScene(1), suffix)),
                  (std::vector<int>{3, 3, 3, 40, 40, 40, 77, 77, 77}))
            << suffix;
}

TEST_F(WriteScene, TrianglesComeBack) {
    for (const std::string suffix : {"ztmt", "ply", "obj", "stl"})
        for (const Options::Body body : kAllBodies) {
            const Scene back = through(meshScene(), suffix, {body, suffix == "stl"});
            EXPECT_EQ(back.kind, Scene::Mesh);
            EXPECT_EQ(test::trianglesOf(back), test::trianglesOf(meshScene())) << suffix;
        }
}

TEST_F(WriteScene, AttributesOfTrianglesComeBack) {
    for (const std::string suffix : {"ztmt", "ply"})
        for (const Options::Body body : kAllBodies) {
            const Scene back = through(meshScene(), suffix, {body, false});
            EXPECT_EQ(test::flat(back.triangleNormals), (std::vector<double>{0, 0, 1, 0, 0, -1}));
            EXPECT_EQ(test::bytesOf(back.triangleColors), test::bytesOf(colors(2, 3))) << suffix;
        }
}

TEST_F(WriteScene, StlNormalsAreComputedWhereThereAreNone) {
    Scene scene;
    scene.kind = Scene::Mesh;
    int corners[] = {0, 1, 2, 0, 0, 1};
    scene.cloud.SetPoints(vectors({0, 0, 0, 2, 0, 0, 0, 2, 0}));
    scene.triangles = Zyr3DIntArray(corners, 6);
    EXPECT_EQ(test::flat(through(scene, "stl").triangleNormals),
              (std::vector<double>{0, 0, 1, 0, 0, 0}));
}

TEST_F(WriteScene, GridsComeBackFromPcdAndNpy) {
    for (const std::string suffix : {"pcd", "npy"}) {
        Scene scene = cloudScene(3);
        scene.columns = 1;
        scene.rows = 3;
        const Scene back = through(scene, suffix);
        EXPECT_EQ(back.columns, 1) << suffix;
        EXPECT_EQ(back.rows, 3) << suffix;
    }
}

TEST_F(WriteScene, NanAndTheInvalidValueAreHolesWhenReadBack) {
    for (const double mark : {kNaN, test::kInvalid})
        for (const std::string suffix : {"ply", "obj", "pcd", "xyz", "csv", "npy"})
            for (const Options::Body body : kAllBodies) {
                Scene scene;
                scene.cloud.SetPoints(vectors({1, 2, 3, mark, mark, mark}));
                EXPECT_EQ(
                    test::pointsOf(through(scene, suffix, {body, false})),
                    (std::vector<double>{1, 2, 3, test::kInvalid, test::kInvalid, test::kInvalid}))
                    << suffix;
            }
}

TEST_F(WriteScene, RangeImagesOfAllTypesComeBackFromZrtNpyAndTiff) {
    for (const std::string suffix : {"zrt", "npy", "tif"})
        for (int type = 0; type < 7; ++type) {
            const Scene scene = rangeScene(type);
            const ZyrRangeImage back = through(scene, suffix).range;
            EXPECT_EQ(back.DataType(), type) << suffix;
            for (int i = 0; i < 6; ++i)
                EXPECT_EQ(back.GetValue(i / 2, i % 2), scene.range.GetValue(i / 2, i % 2))
                    << suffix << " of type " << type;
        }
}

TEST_F(WriteScene, RangeImagesKeepCalibrationAndColours) {
    Scene scene = rangeScene(2);
    scene.pixelColors = colors(6, 4);
    const Scene back = through(scene, "zrt");
    EXPECT_EQ(back.range.ResolutionX(), 2.0);
    EXPECT_EQ(back.range.OffsetY(), 5.0);
    EXPECT_EQ(back.range.ResolutionZ(), 0.5);
    EXPECT_EQ(test::bytesOf(back.pixelColors), test::bytesOf(colors(6, 4)));
}

TEST_F(WriteScene, SixteenBitPngIsExact) {
    const ZyrRangeImage back = through(rangeScene(2), "png").range;
    EXPECT_EQ(back.DataType(), 2);
    EXPECT_EQ(back.GetValue(2, 1), 65535.0);
}

TEST_F(WriteScene, HeadersAreAsReadersWantThem) {
    const std::string ply = text(meshScene(), "ply", {Options::BigEndian, true});
    EXPECT_EQ(ply.substr(0, ply.find("element")),
              "ply\nformat binary_big_endian 1.0\ncomment written by zyr3d\n");
    EXPECT_NE(ply.find("property list uchar int vertex_indices\n"), ply.npos);
    const std::string pcd = text(cloudScene(3), "pcd", {Options::Binary, true});
    EXPECT_NE(pcd.find("FIELDS x y z normal_x normal_y normal_z rgb\nSIZE 4 4 4 4 4 4 4\n"
                       "TYPE F F F F F F F\nCOUNT 1 1 1 1 1 1 1\nWIDTH 3\nHEIGHT 1\n"),
              pcd.npos);
    EXPECT_NE(text(cloudScene(4), "pcd", {Options::Ascii, false}).find("TYPE F F F F F F U\n"),
              pcd.npos);
    const std::string stl = text(meshScene(), "stl", {Options::Binary, true});
    EXPECT_EQ(stl.size(), 84u + 2 * 50);
    EXPECT_NE(stl.substr(0, 5), "solid");
}

TEST_F(WriteScene, NumbersOfTextAreTheShortest) {
    Scene scene;
    scene.cloud.SetPoints(vectors({0.1, 1e21, -3}));
    EXPECT_EQ(text(scene, "xyz", {Options::Ascii, false}), "0.1 1e+21 -3\n");
    EXPECT_EQ(text(scene, "csv", {Options::Ascii, true}), "x,y,z\n0.1,1e+21,-3\n");
}

TEST_F(WriteScene, TextColumnsHaveNamesWhereColoursWouldBeTakenForNormals) {
    Scene dark;
    dark.cloud.SetPoints(vectors({1, 2, 3, 4, 5, 6}));
    ZyrColorArray pixels;
    pixels.Create(2, 3);
    std::fill_n(pixels.Data(), 6, static_cast<unsigned char>(0));
    pixels.Data()[3] = pixels.Data()[5] = 1;
    dark.cloud.SetColors(pixels);
    EXPECT_EQ(text(dark, "xyz", {}), "# x y z red green blue\n1 2 3 0 0 0\n4 5 6 1 0 1\n");
    const Scene back = through(dark, "txt");
    EXPECT_EQ(test::colorsOf(back), test::colorsOf(dark));
    EXPECT_EQ(test::normalsOf(back), std::vector<double>());
    pixels.Data()[5] = 2;
    dark.cloud.SetColors(pixels);
    EXPECT_EQ(text(dark, "xyz", {}), "1 2 3 0 0 0\n4 5 6 2 0 1\n");
}

TEST_F(WriteScene, TextColumnsHaveNamesWhereNormalsWouldBeTakenForColours) {
    Scene scene;
    scene.cloud.SetPoints(vectors({1, 2, 3}));
    scene.cloud.SetNormals(vectors({0, 0, 2}));
    EXPECT_EQ(text(scene, "xyz", {}), "# x y z nx ny nz\n1 2 3 0 0 2\n");
    EXPECT_EQ(test::normalsOf(through(scene, "xyz")), (std::vector<double>{0, 0, 2}));
}

TEST_F(WriteScene, NpyValuesStartAtAMultipleOf64) {
    const std::string bytes = text(cloudScene(3), "npy", {});
    EXPECT_EQ((bytes.size() - 72) % 64, 0u);
    EXPECT_NE(bytes.find("{'descr': '<f8', 'fortran_order': False, 'shape': (3, 3), }"),
              bytes.npos);
}

TEST_F(WriteScene, OwnFilesNeedAPoint) {
    for (const std::string suffix : {"zpt", "ztmt"})
        EXPECT_THROW(through(Scene(), suffix), zyr::FileTrouble) << suffix;
    EXPECT_EQ(through(Scene(), "ply").cloud.Length(), 0);
}

TEST(SameRange, TellsEachNumberOfTheCalibration) {
    const auto with = [](const std::vector<double>& numbers) {
        Scene scene;
        unsigned char values[] = {1, 2};
        scene.kind = Scene::Range;
        scene.range = ZyrRangeImage(values, 2, 1, 0, CV_8U, 0, 0, numbers[0], numbers[1],
                                    numbers[2], numbers[3], numbers[4], numbers[5]);
        return scene;
    };
    const std::vector<double> numbers = {1, 2, 3, 4, 5, 6};
    EXPECT_TRUE(zyr::sameRange(with(numbers), with(numbers)));
    for (std::size_t i = 0; i < 6; ++i) {
        std::vector<double> other = numbers;
        other[i] += 0.5;
        EXPECT_FALSE(zyr::sameRange(with(numbers), with(other))) << i;
    }
}

}  // namespace
